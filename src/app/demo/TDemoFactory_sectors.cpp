#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "host/TTableDecl.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

struct TNamedCode {
    std::string_view code;
    std::string_view name;
};

constexpr auto fiscalCodes = std::to_array<TNamedCode>({
    {"CORTE", "Corte e preparação"},
    {"BENEF", "Beneficiamento por terceiros"},
    {"FACCAO", "Costura por terceiros"},
    {"ACABAM", "Acabamento e embalagem"},
});

std::string_view SwitchOf(const demo::TSector& sector, std::string_view column)
{
    const auto columns = ColumnNames(sector.switches);
    return std::ranges::find(columns, column) == columns.end() ? "N" : "S";
}

std::string_view Flag(bool set) { return set ? "S" : "N"; }

} // namespace

void TDemoFactory::FillSectors()
{
    TTableWriter codes(database_, "TABSPED", "CODIGO,DESCRICAO");
    for (const TNamedCode& row : fiscalCodes)
        codes.Row({row.code, row.name});

    TTableWriter rows(database_, "CADFLUXO",
        "CODIGO,DESCRICAO,ORDEM,GRUPO,TIPO,IND_PAG,PRECO,CUSTO,CONTA,CODSPED,COMPLEMENTO,DIAS,DIAS_SEMANA,PECAS_DIA,"
        "BAIXAPARCIAL,BAIXAMAIOR,BAIXALIVRE,BAIXAMOV,BAIXADEFEITO,BAIXACONSUMO,MOVREPROVADO,ALT_PRECO,INVENTARIO,"
        "IMP_FLUXO");
    int order = 0;
    for (const demo::TSector& sector : demo::Sectors()) {
        const auto on = [&](std::string_view column) { return SwitchOf(sector, column); };
        rows.Row({sector.code, sector.name, order += 10, sector.group, "P", sector.paidQuantity, sector.price,
            RoundTo(sector.price * 0.9, 3), "3.1.02." + std::string(sector.code), sector.fiscalCode, sector.complement,
            sector.days, sector.daysOfWeek, sector.piecesPerDay, on("BAIXAPARCIAL"), on("BAIXAMAIOR"), on("BAIXALIVRE"),
            on("BAIXAMOV"), on("BAIXADEFEITO"), on("BAIXACONSUMO"), on("MOVREPROVADO"), on("ALT_PRECO"),
            on("INVENTARIO"), on("IMP_FLUXO")});
    }
    summary_.sectors = rows.RowCount();
}

void TDemoFactory::FillFlows()
{
    TTableWriter heads(database_, "ROTEIRO", "CODIGO,DESCRICAO,ORDEM,BAIXALIVRE");
    TTableWriter rows(database_, "FLUXO", "CODIGO,ORDEM,SETOR,DESCRICAO");
    for (const demo::TFlow& flow : demo::Flows()) {
        heads.Row({flow.code, flow.name, 0, Flag(flow.free)});
        int order = 0;
        for (const std::string_view sector : flow.sectors)
            rows.Row({flow.code, order += 10, sector, demo::SectorOf(sector).name});
    }
    summary_.flows = heads.RowCount();
}

void TDemoFactory::FillParts()
{
    TTableWriter rows(database_, "TIPO_APL", "CODIGO,DESCRICAO,PRINCIPAL,ESTOQUE,BAIXA,ATUALIZA");
    for (const demo::TPart& part : demo::Parts())
        rows.Row({part.code, part.name, Flag(part.main), Flag(part.entersStock), Flag(part.finishesOrder),
            Flag(part.updatesOrder)});
}

} // namespace alinhavo
