#include "platform/services/TOutbox.h"

#include "forms/text.h"

#include <stdexcept>

namespace alinhavo {
namespace {

constexpr std::size_t pieceWidth = 8000;

} // namespace

void TOutbox::NovoEMail()
{
    Destinatario.clear();
    Copia.clear();
    Assunto.clear();
    Corpo.clear();
}

void TOutbox::SalvaEMail()
{
    if (Trim(Destinatario).empty())
        throw std::runtime_error("E-mail sem destinatário.");
    const auto stored = database_.Open(TStatement(R"(
        INSERT INTO {EMAIL_SAIDA} (USUARIO, PARA, COPIA, ASSUNTO, SITUACAO, TENTATIVAS, DATA_HORA)
        VALUES (?, ?, ?, ?, 'P', 0, CURRENT_TIMESTAMP) RETURNING IDENTIFICADOR)",
        user_, Trim(Destinatario), Trim(Copia), Assunto));
    int sequence = 0;
    for (const auto& piece : Pieces(Corpo))
        database_.ExecSQL(TStatement("INSERT INTO {EMAIL_TEXTO} (EMAIL, SEQUENCIA, TEXTO) VALUES (?, ?, ?)",
            stored.Column(0).Value(0), ++sequence, piece));
}

std::vector<std::string> TOutbox::Pieces(std::string_view text)
{
    std::vector<std::string> pieces;
    while (!text.empty()) {
        const auto widest = Left(text, pieceWidth);
        const auto end = widest.find_last_not_of(' ');
        if (end == std::string::npos) {
            text.remove_prefix(widest.size());
            continue;
        }
        pieces.push_back(widest.substr(0, end + 1));
        text.remove_prefix(end + 1);
    }
    return pieces;
}

} // namespace alinhavo
