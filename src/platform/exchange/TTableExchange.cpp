#include "platform/exchange/TTableExchange.h"

#include "platform/exchange/EExchange.h"
#include "platform/exchange/exportTable.h"
#include "platform/exchange/TFileTable.h"
#include "platform/exchange/TImport.h"
#include "platform/report/separatedCell.h"

namespace alinhavo {

std::unique_ptr<IImport> TTableExchange::Compare(
    const TTableDecl& table, const std::string& file, TExistingRows existing)
{
    if (!TakesImport(table))
        throw EExchange("A tabela " + std::string(table.name) + " (" + std::string(table.caption)
            + ") é mantida pelo próprio sistema e não aceita importação; ela só pode ser exportada.");
    return std::make_unique<TImport>(database_, table, ReadTableFile(file), existing);
}

void TTableExchange::Show(const TTableDecl& table, TOrvQuery& rows) { OpenTable(table, rows); }

std::string ErrorFile(const std::vector<TImportRemark>& remarks)
{
    const auto cell = [](const std::string& text) { return QuotedCell(WithFormulaMark(text)); };
    std::string file = "\xEF\xBB\xBFLinha;Coluna;Conteúdo;Motivo\r\n";
    for (const TImportRemark& remark : remarks) {
        if (remark.state != TLineState::Wrong)
            continue;
        file += std::to_string(remark.line) + ";" + cell(remark.column) + ";" + cell(remark.content) + ";"
            + cell(remark.reason) + "\r\n";
    }
    return file;
}

} // namespace alinhavo
