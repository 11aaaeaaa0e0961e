#include "platform/services/TRfidReader.h"

#include "forms/text.h"
#include "forms/TForm.h"
#include "platform/services/HttpGet.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace alinhavo {
namespace {

using TJson = nlohmann::json;

/// What the service says of a failure, if it says anything.
std::string ErrorText(const std::string& body)
{
    const auto answer = TJson::parse(body, nullptr, false);
    const auto said = answer.is_object() ? answer.find("error") : answer.end();
    return said != answer.end() && said->is_string() ? said->get<std::string>() : std::string();
}

std::string Explained(const THttpAnswer& answer)
{
    if (auto said = ErrorText(answer.body); !said.empty())
        return said;
    switch (answer.status) {
    case 401:
    case 403:
        return "O serviço RFID recusou a chave de acesso.";
    case 404:
        return "Movimentação RFID não encontrada.";
    default:
        return "O serviço RFID respondeu com o erro " + std::to_string(answer.status) + ".";
    }
}

} // namespace

std::vector<TRfidItem> ParseRfidBatch(std::string_view json)
{
    std::vector<TRfidItem> batch;
    try {
        const auto answer = TJson::parse(json);
        for (const auto& item : answer.at("items"))
            batch.push_back({item.at("code").get<std::string>(), item.at("quantity").get<double>()});
    } catch (const TJson::exception&) {
        throw std::runtime_error("O serviço RFID deu uma resposta inválida.");
    }
    return batch;
}

bool TRfidReader::BuscarParametros()
{
    address_ = Setting("endereco");
    key_ = Setting("chave");
    while (address_.ends_with('/'))
        address_.pop_back();
    return Configurado();
}

std::string TRfidReader::Setting(std::string_view key)
{
    return Trim(settings_.Read("RFID", key, configuration_.Value("RFID", key)));
}

void TRfidReader::ConfigurarParametros(TForm& screen)
{
    auto address = Setting("endereco");
    if (!screen.InputBox("Leitor RFID", "Endereço do serviço:", address))
        return;
    auto key = Setting("chave");
    if (!screen.InputBox("Leitor RFID", "Chave de acesso:", key))
        return;
    settings_.Write("RFID", "endereco", Trim(address));
    settings_.Write("RFID", "chave", Trim(key));
    BuscarParametros();
}

bool TRfidReader::BuscarDados(std::string_view number, TMemTable& rows, std::string& error, std::string_view tipo)
{
    if (!Configurado()) {
        error = "O leitor RFID não está configurado.";
        return false;
    }
    std::vector<TRfidItem> batch;
    try {
        batch = Fetch(number, tipo);
    } catch (const std::runtime_error& failure) {
        error = failure.what();
        return false;
    }
    const auto quiet = rows.DisableControls();
    rows.EmptyTable();
    for (const auto& item : batch) {
        rows.Append();
        rows.FieldByName("CODIGO").Set(item.code);
        rows.FieldByName("QTDE").Set(item.quantity);
        rows.Post();
    }
    rows.First();
    return true;
}

std::vector<TRfidItem> TRfidReader::Fetch(std::string_view number, std::string_view tipo) const
{
    const auto answer = HttpGet({
        .url = address_ + "/batches/" + UrlEscaped(Trim(number)) + "?type=" + UrlEscaped(tipo)
            + "&supplier=" + UrlEscaped(Fornecedor),
        .headers = {"Accept: application/json", "X-Api-Key: " + key_},
    });
    if (answer.status != 200)
        throw std::runtime_error(Explained(answer));
    return ParseRfidBatch(answer.body);
}

} // namespace alinhavo
