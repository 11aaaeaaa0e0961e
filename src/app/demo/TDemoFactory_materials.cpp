#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace alinhavo {
namespace {

constexpr std::string_view fabricWarehouse = "02";
constexpr std::string_view trimmingWarehouse = "03";

bool IsFabric(const demo::TMaterial& material) { return material.group == demo::fabricGroup; }

constexpr auto shades = std::to_array<std::string_view>({"A", "A", "A", "B", "C"});

/// A row of PCPFAIXA: the range's code and up to 24 sizes.
class TConsumptionRanges {
public:
    explicit TConsumptionRanges(TOrvDatabase& database)
        : rows_(database, "PCPFAIXA", "FAIXA,TAM01,TAM02,TAM03,TAM04,TAM05,TAM06,TAM07,TAM08,TAM09,TAM10")
    {
    }

    void Row(const std::string& code, std::span<const std::string_view> sizes)
    {
        std::array<TValue, 10> cells;
        std::ranges::copy(sizes, cells.begin());
        rows_.Row(
            {code, cells[0], cells[1], cells[2], cells[3], cells[4], cells[5], cells[6], cells[7], cells[8], cells[9]});
    }

private:
    TTableWriter rows_;
};

} // namespace

void TDemoFactory::FillMaterialCodes()
{
    TTableWriter groups(database_, "GRUPO_MA", "CODIGO,DESCRICAO,DESP");
    groups.Row({demo::fabricGroup, "Malhas e tecidos", "S"});
    groups.Row({"0002", "Aviamentos", "N"});
    groups.Row({"0003", "Linhas e fios", "N"});
    groups.Row({"0004", "Etiquetas", "N"});
    groups.Row({"0005", "Embalagens", "N"});
    groups.Row({"0006", "Tintas e químicos", "N"});

    TTableWriter applications(database_, "PCPAPL", "CODIGO,DESCRICAO,TIPO");
    applications.Row({"CORP", "Corpo", "T"});
    applications.Row({"GOLA", "Gola", "T"});
    applications.Row({"PUNH", "Punho e barra", "T"});
    applications.Row({"FORR", "Forro", "T"});
    applications.Row({"ESTP", "Estampa", "Q"});
    applications.Row({"COST", "Costura", "A"});
    applications.Row({"ACAB", "Acabamento", "A"});
    applications.Row({"EMBA", "Embalagem", "E"});

    TConsumptionRanges ranges(database_);
    for (const demo::TSizeRange& range : demo::SizeRanges()) {
        const std::string code(range.code);
        ranges.Row(code, range.sizes);
        ranges.Row(code + "-P", range.sizes.first(range.smallSizes));
        ranges.Row(code + "-G", range.sizes.subspan(range.smallSizes));
    }
}

void TDemoFactory::FillMaterials()
{
    TTableWriter rows(database_, "MATERIAL",
        "CODIGO,DESCRICAO,UNIDADE,GRUPO,ATIVO,COMPOSICAO,CONCENTRACAO,GRAMATURA,LARGURA,NE,REPOSICAO,OBSERVACAO");
    TTableWriter fabrics(database_, "CADMATTI", "CODIGO2,GRAMATURA,KGROLO,LTIN,RAMA");
    for (const demo::TMaterial& material : demo::Materials()) {
        rows.Row({material.code, material.name, material.unit, material.group, "S", material.composition,
            material.group == "0006" ? "30%" : "", material.grammage, material.width,
            material.code == "MAL001" ? "30/1" : "", material.price,
            IsFabric(material) ? "Deixar descansar 24 horas antes do corte." : ""});
        if (IsFabric(material))
            fabrics.Row({material.code, material.grammage, 22.5, material.width, "Aberta"});
    }

    TTableWriter others(database_, "CONTRATIPO", "MATERIAL,CODIGO");
    others.Row({"MAL001", "MAL006"});
    others.Row({"LIN001", "LIN002"});

    TTableWriter dyes(database_, "CADCORTI", "CODCLI,COR,COR1,CUSTO,TIPO");
    for (const TSubcontractor& subcontractor : subcontractors_) {
        if (subcontractor.trade != demo::TTrade::Dyeing)
            continue;
        int number = 0;
        for (const demo::TColour& colour : demo::Colours()) {
            if (colour.code != demo::singleColour)
                dyes.Row({subcontractor.code, colour.code, "MTZ-" + Code(4100 + ++number, 4),
                    RoundTo(1.9 + 0.05 * number, 2), "T"});
        }
    }
}

void TDemoFactory::FillFabricConsumption()
{
    TTableWriter rows(database_, "CONS_MALHA",
        "PRODUTO,CODIGO,FAIXA,APLICACAO,PARTE,INFESTO,COMPRIMENTO,LARGURA,GRAMATURA,INDICE,PECAS,PESO,PESO_PECA,"
        "QTDE_FOLHAS,TUBULAR");
    TTableWriter applications(database_, "PCPFT2", "CODIGO,APLICACAO");
    for (const TProduct& product : products_) {
        std::set<std::string_view> known;
        for (const TSheetRow& row : SheetOf(*product.model)) {
            if (known.insert(row.line->application).second)
                applications.Row({product.model->code, row.line->application});
            const demo::TMaterial* material = demo::FindMaterial(row.line->material);
            if (material == nullptr || !IsFabric(*material))
                continue;
            constexpr int piecesInLay = 12;
            const double pieceWeight
                = material->unit == "KG" ? row.quantity : row.quantity * material->width * material->grammage / 1000;
            rows.Row({product.model->code, material->code, row.consumptionRange, row.line->application, row.part,
                row.consumptionRange.ends_with("-P") ? "1" : "2", 6.4, material->width, material->grammage, 0.86,
                piecesInLay, RoundTo(pieceWeight * piecesInLay, 3), RoundTo(pieceWeight, 4), 60, "N"});
        }
    }
}

// Every colour that a product takes of a material is on the shelf, in one lot or two; some of them too little.
void TDemoFactory::FillMaterialStock()
{
    std::set<std::pair<std::string_view, std::string_view>> used;
    for (const TProduct& product : products_) {
        for (const demo::TSheetLine& line : demo::SheetOf(product.model->sheet).lines) {
            for (const demo::TColour& colour : product.colours)
                used.emplace(line.material, ColourOf(line, colour.code));
        }
    }

    TRandom random = Random("stock of materials");
    TTableWriter rows(database_, "MAT_ITEN", "CODIGO,COR,DEPOSITO,LOTE,QUALIDADE,QTDE,PRECO_MED,LARGURA,LOCAL,BARRA");
    TTableWriter lots(database_, "MAT_LOTE", "CODIGO,COR,LOTE,GRAMATURA,TONALIDADE");
    int number = 0;
    for (const auto& [code, colour] : used) {
        const demo::TMaterial* material = demo::FindMaterial(code);
        if (material == nullptr || colour == demo::undecidedColour)
            continue;
        const bool fabric = IsFabric(*material);
        const std::string_view warehouse = fabric ? fabricWarehouse : trimmingWarehouse;
        // Cheap materials are bought by the thousand.
        const int amount = material->price < 0.01 ? 90000 : material->price < 1 ? 6000 : 260;
        for (int count = fabric ? 2 : 1; count > 0; --count) {
            const std::string lot = (fabric ? "T" : "A") + Code(26000 + ++number, 6);
            const double quantity = random.Chance(8) ? 3 : amount * (0.6 + random.Fraction());
            const TLot stored{code, colour, lot, warehouse, RoundTo(quantity, 1)};
            rows.Row({code, colour, warehouse, lot, "1", stored.quantity,
                RoundTo(material->price * (0.94 + 0.1 * random.Fraction()), 4), material->width,
                fabric ? TValue("R1" + Code(number % 8 + 1, 2) + Code(number % 20 + 1, 2)) : TValue(material->place),
                "MP" + Code(number, 8)});
            if (fabric)
                lots.Row({code, colour, lot, material->grammage + random.Between(-4, 4), random.Pick(shades)});
            lots_.push_back(stored);
        }
    }
}

} // namespace alinhavo
