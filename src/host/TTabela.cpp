#include "host/TTabela.h"

#include "forms/text.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

struct TSharedName {
    std::string_view name;
    std::string_view table;
};

constexpr TSharedName sharedNames[] = {
    {"tbCadFluxo", "CADFLUXO"},
    {"tbColecao", "COLECAO"},
    {"tbCor", "CADCOR"},
    {"tbDefeito", "DEFEITO"},
    {"tbDef_Mov", "DEF_MOV"},
    {"tbEntidade", "ENTIDADE"},
    {"tbEstampa", "ESTAMPA"},
    {"tbEstampaCli", "ESTAMPA_CLI"},
    {"tbFaccao04", "FACCAO4"},
    {"tbFaixa", "FAIXA"},
    {"tbFluxo", "FLUXO"},
    {"tbGrupo", "GRUPO_PA"},
    {"tbGrupo_Ma", "GRUPO_MA"},
    {"tbMateriais", "MATERIAL"},
    {"tbPessoal", "PESSOAL"},
    {"tbProduto", "PRODUTO"},
    {"tbRegiao", "REGIAO"},
    {"tbTabela", "TABELA"},
    {"tbTabPrazos", "TABPRZ"},
    {"tbTabPreco", "TABPRECO"},
    {"tbTabQul", "TABQUL"},
    {"tbTipoApl", "TIPO_APL"},
};

const TSharedName& FindShared(std::string_view name)
{
    const auto found
        = std::ranges::find_if(sharedNames, [&](const TSharedName& shared) { return SameText(shared.name, name); });
    if (found == std::end(sharedNames))
        throw std::logic_error("no shared dataset is named " + std::string(name));
    return *found;
}

} // namespace

TTabela::TTabela(TOrvDatabase& database, std::string company)
    : TComponent("Tabela")
    , IBDatabase(database)
    , emp_pat_(std::move(company))
    , company_(std::make_unique<TOrvTable>(*this, "tbEmpresa", database, "EMPRESA"))
{
    company_->Restrict("EMP_PAT", {emp_pat_});
    company_->Open();
}

TTabela::~TTabela() = default;

void TTabela::AbreTabela(std::string_view name) { Tabela(name).Open(); }

void TTabela::FechaTabela(std::string_view name)
{
    auto& shared = Tabela(name);
    if (shared.IsEditing())
        return;
    shared.Close();
    shared.Unrestrict();
    shared.ClearFilter();
    shared.SortBy("");
}

TOrvTable& TTabela::Tabela(std::string_view name)
{
    const auto& known = FindShared(name);
    auto& shared = shared_[known.name];
    if (!shared)
        shared = std::make_unique<TOrvTable>(*this, std::string(known.name), IBDatabase, known.table);
    return *shared;
}

double TTabela::PercentualMaoDeObra1() { return tbEmpresa().FieldByName("EMP_PERC_MO1").AsFloat(); }
double TTabela::PercentualMaoDeObra2() { return tbEmpresa().FieldByName("EMP_PERC_MO2").AsFloat(); }

} // namespace alinhavo
