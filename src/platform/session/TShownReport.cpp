#include "platform/session/TShownReport.h"

#include "host/TOrvEmail.h"
#include "platform/report/textPages.h"
#include "platform/report/TSpreadsheet.h"
#include "platform/services/mailAddress.h"

#include <stdexcept>

namespace alinhavo {

TShownReport::TShownReport(const TFinishedReport& report, TPost post)
    : title_(report.title)
    , recipient_(report.email)
    , data_(*report.data)
    , post_(std::move(post))
    , document_(std::make_shared<const std::string>(report.isText ? TextPages(report.document) : report.document))
    , plainText_(report.isText ? std::make_shared<const std::string>(report.document) : nullptr)
{
}

std::string TShownReport::Workbook() const { return Spreadsheet(data_); }

void TShownReport::SendTo(std::string_view address)
{
    const auto recipient = MailAddress(address);
    if (!recipient)
        throw std::invalid_argument("Endereço de e-mail inválido.");
    if (document_->size() > LargestMail)
        throw std::invalid_argument("O relatório é grande demais para um e-mail. Salve em PDF e envie o arquivo.");
    post_([&](TOrvEmail& mail) {
        mail.NovoEMail();
        mail.Destinatario = *recipient;
        mail.Assunto = title_;
        mail.Corpo = *document_;
        mail.SalvaEMail();
    });
}

} // namespace alinhavo
