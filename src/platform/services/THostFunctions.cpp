#include "platform/services/THostFunctions.h"

#include "forms/TApplication.h"
#include "forms/text.h"
#include "host/TfmLog.h"
#include "platform/services/TTechnicalSheet.h"

namespace alinhavo {

THostFunctions::THostFunctions(TOrvDatabase& database, TUserSettings& settings, const TConfiguration& configuration,
    TSessionUser user, const IPasswords& passwords, TLoginGuard& guard)
    : user_(std::move(user))
    , configuration_(configuration)
    , settings_(settings)
    , rows_(database)
    , numbering_(database)
    , parameters_(database)
    , files_(database, configuration.SharedRoot())
    , rights_(database, user_.code, passwords, guard)
    , log_(database, user_.name)
    , planning_(database)
    , pricing_(database, parameters_)
    , certificates_(database)
    , inventory_(database, user_.name)
{
}

bool THostFunctions::ExisteLinha(std::string_view table, std::string_view columns, std::string_view values)
{
    return rows_.Exists(table, columns, values);
}

TValue THostFunctions::BuscaColuna(
    std::string_view table, std::string_view keyColumns, std::string_view column, std::string_view values)
{
    return rows_.Find(table, keyColumns, column, values);
}

std::string THostFunctions::Proximo(std::string_view table, std::string_view column, int width)
{
    return numbering_.Next(table, column, width);
}

std::string THostFunctions::Proximo_FacMov(std::string_view numero, std::string_view setor, std::string_view parte)
{
    return numbering_.NextMovement(numero, setor, parte);
}

std::string THostFunctions::BuscaParametro(std::string_view group, int number)
{
    return parameters_.Value(group, number);
}

/// The root of the shared files is answered in full, also where the configuration is silent about it.
std::string THostFunctions::LeIni(std::string_view section, std::string_view key)
{
    if (SameText(section, "Caminho") && SameText(key, "path"))
        return configuration_.SharedRoot().string();
    return configuration_.Value(section, key);
}

std::string THostFunctions::LeAjuste(std::string_view section, std::string_view key, std::string_view otherwise)
{
    return settings_.Read(section, key, otherwise);
}

void THostFunctions::GravaAjuste(std::string_view section, std::string_view key, std::string_view value)
{
    settings_.Write(section, key, value);
}

std::string THostFunctions::BuscaArquivo(std::string_view code, TTipo kind) { return files_.Find(code, kind); }

std::string THostFunctions::PastaPadrao() { return files_.Folder().string(); }

bool THostFunctions::Acessa(TForm& screen, std::string_view screenClass, TDireito right, TNivel level)
{
    return level == TNivel::Supervisor ? rights_.AskSupervisor(screen) : rights_.Check(screen, screenClass, right);
}

void THostFunctions::GeraLog(
    std::string_view module, std::string_view text, TOperacaoLog operation, std::string_view key)
{
    log_.Write(module, text, operation, key);
}

void THostFunctions::AcessaLog(TForm& screen, std::string_view module, std::string_view key)
{
    auto& viewer = dynamic_cast<TfmLog&>(screen.Application().LoadForm(TfmLog::Class));
    viewer.Consulta(module, key);
    viewer.ShowModal();
}

TDateTime THostFunctions::CalculaPrevRetorno(
    TDateTime date, std::string_view setor, std::string_view parte, std::string_view numero)
{
    return planning_.ForeseenReturn(date, setor, parte, numero);
}

/// The quantity has no part in the price: no table has steps by quantity.
double THostFunctions::GeraPreco(std::string_view numero, std::string_view codigo, std::string_view op,
    std::string_view parte, std::string_view codcli, std::string_view cor, std::string_view tam, double)
{
    return pricing_.UnitPrice({numero, codigo, op, parte, codcli, cor, tam});
}

/// Certificates are demanded by products alone ("P", the only type there is).
bool THostFunctions::ValidaCertificados(
    std::string_view produto, std::string_view faccao, TDateTime date, std::string& mensagem, std::string_view)
{
    mensagem.clear();
    for (const auto& missing : certificates_.Missing(produto, faccao, date))
        mensagem.append(mensagem.empty() ? "" : "\n").append(missing);
    return mensagem.empty();
}

void THostFunctions::CarregaPCPFTOF(const TFiltroPCPFTOF& filtro, TOrvQuery& query)
{
    TTechnicalSheet::Load(filtro, query);
}

void THostFunctions::GeraInventario(const TColunasInventario& colunas, TDataSet& rows)
{
    inventory_.Write(colunas, rows);
}

} // namespace alinhavo
