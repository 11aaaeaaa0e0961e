#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

using enum demo::TTrade;

struct TOperation {
    std::string_view code;
    std::string_view name;
    double minutes;
    demo::TTrade trade;
    std::string_view sector = {}; ///< of the factory's own operations
};

constexpr auto operations = std::to_array<TOperation>({
    {"00010", "Enfestar e cortar", 0.90, House, "01"},
    {"00015", "Separar e amarrar lotes", 0.35, House, "02"},
    {"00110", "Unir ombros", 0.45, SewingKnit},
    {"00120", "Pregar gola", 0.70, SewingKnit},
    {"00130", "Pregar mangas", 0.95, SewingKnit},
    {"00140", "Fechar laterais", 0.80, SewingKnit},
    {"00150", "Fazer bainha em galoneira", 0.75, SewingKnit},
    {"00210", "Montar colarinho e pé de gola", 2.10, SewingWoven},
    {"00220", "Pregar punhos", 1.60, SewingWoven},
    {"00230", "Pregar bolso", 1.10, SewingWoven},
    {"00240", "Fechar corpo e mangas", 1.90, SewingWoven},
    {"00250", "Fazer bainha reta", 0.95, SewingWoven},
    {"00310", "Preparar e pregar bolsos", 2.60, SewingJeans},
    {"00320", "Pregar zíper e vista", 1.80, SewingJeans},
    {"00330", "Fechar entrepernas e laterais", 1.70, SewingJeans},
    {"00340", "Pregar cós", 1.50, SewingJeans},
    {"00350", "Travetar passantes", 0.85, SewingJeans},
    {"00410", "Pregar elástico em zigue-zague", 1.40, SewingBeach},
    {"00420", "Fechar forro", 1.10, SewingBeach},
    {"00430", "Rebater com galoneira", 1.20, SewingBeach},
    {"00510", "Casear", 0.55, Buttonhole},
    {"00520", "Pregar botões", 0.50, Buttonhole},
    {"00610", "Limpar fios e revisar", 0.80, House, "12"},
    {"00620", "Inspecionar", 0.60, House, "13"},
    {"00630", "Passar, dobrar e embalar", 1.10, House, "14"},
});

bool BelongsTo(const TOperation& operation, const demo::TSector& sector)
{
    return operation.sector.empty() ? operation.trade == sector.trade : operation.sector == sector.code;
}

struct TMeasure {
    std::string_view code;
    std::string_view name;
    double smallest; ///< centimetres of the first size
    double step;
    double tolerance;
};

constexpr auto topMeasures = std::to_array<TMeasure>({
    {"A", "Comprimento total", 64.0, 2.0, 1.0},
    {"B", "Largura do tórax", 46.0, 2.5, 1.0},
    {"C", "Comprimento da manga", 19.0, 0.7, 0.5},
    {"D", "Abertura da gola", 17.0, 0.4, 0.5},
    {"E", "Largura da barra", 45.0, 2.5, 1.0},
});
constexpr auto bottomMeasures = std::to_array<TMeasure>({
    {"A", "Largura do cós", 35.0, 2.0, 1.0},
    {"B", "Largura do quadril", 46.0, 2.0, 1.0},
    {"C", "Entrepernas", 76.0, 0.5, 1.0},
    {"D", "Gancho da frente", 22.0, 0.6, 0.5},
    {"E", "Abertura da boca", 19.0, 0.5, 0.5},
});
constexpr auto dressMeasures = std::to_array<TMeasure>({
    {"A", "Comprimento total", 92.0, 2.0, 1.5},
    {"B", "Largura do busto", 42.0, 2.0, 1.0},
    {"C", "Largura da cintura", 36.0, 2.0, 1.0},
    {"D", "Largura do quadril", 47.0, 2.0, 1.0},
});

std::span<const TMeasure> MeasuresOf(std::string_view part, std::string_view family)
{
    if (part == "03" || part == "04" || part == "07" || family == "JEA" || family == "BER")
        return bottomMeasures;
    if (family == "VES")
        return dressMeasures;
    return topMeasures;
}

struct TPrint {
    std::string_view code;
    std::string_view name;
    std::string_view kind; ///< "E" print, "B" embroidery
    std::string_view size;
    std::string_view note;
};

constexpr auto prints = std::to_array<TPrint>({
    {"EST0001", "Onda do Leste", "E", "32 x 28 cm", "Base branca nas cores escuras."},
    {"EST0002", "Ipê-amarelo", "E", "30 x 34 cm", "Quatro cores, meio-tom."},
    {"EST0003", "Serra do Rio do Rastro", "E", "34 x 30 cm", "Toque zero."},
    {"EST0004", "Farol", "E", "28 x 36 cm", "Aplicar antes da estonagem."},
    {"EST0005", "Bromélia", "E", "26 x 26 cm", "Posicionar a 9 cm da gola."},
    {"EST0006", "Tatu-bola", "E", "20 x 18 cm", "Tinta atóxica."},
    {"EST0007", "Saíra", "E", "20 x 20 cm", "Tinta atóxica."},
    {"EST0008", "Bichinhos", "E", "22 x 20 cm", "Tinta atóxica."},
    {"EST0009", "Pé na areia", "E", "22 x 18 cm", "Tinta atóxica."},
    {"EST0010", "Céu estrelado", "E", "24 x 24 cm", "Fosforescente."},
    {"BOR0001", "Gaivota", "B", "7 x 5 cm", "3.200 pontos, peito esquerdo."},
    {"BOR0002", "Monograma da marca", "B", "4 x 4 cm", "1.850 pontos, peito esquerdo."},
    {"BOR0003", "Coruja", "B", "18 x 16 cm", "11.400 pontos, com aplicação."},
    {"BOR0004", "Joaninha", "B", "9 x 8 cm", "5.100 pontos."},
});

/// The frames of a print, from the first layer.
constexpr auto layers = std::to_array<std::string_view>({"000001", "000002", "000015", "000006"});

} // namespace

void TDemoFactory::FillProductOperations()
{
    TTableWriter rows(database_, "OPERACAO", "CODIGO,DESCRICAO,TEMPO_TOTAL");
    for (const TOperation& operation : operations)
        rows.Row({operation.code, operation.name, operation.minutes});

    TRandom random = Random("operations");
    TTableWriter sequence(database_, "PCPSEQPROC", "PRODUTO,PARTE,GRUPO,OPERACAO,PERC");
    for (const TProduct& product : products_) {
        const int efficiency = random.Between(16, 19) * 5;
        for (const demo::TPartFlow& part : demo::MakeOf(product.model->make).parts) {
            for (const std::string_view sector : demo::FlowOf(part.flow).sectors) {
                for (const TOperation& operation : operations) {
                    if (BelongsTo(operation, demo::SectorOf(sector)))
                        sequence.Row({product.model->code, part.part, sector, operation.code, efficiency});
                }
            }
        }
    }
}

void TDemoFactory::FillMeasures()
{
    constexpr double childScale = 0.62;
    TTableWriter rows(database_, "PCP_MEDIDAS", "CODIGO,PARTE,ABREV,DESCRICAO,TOLERANCIA,ORDEM,TAM,MEDIDA");
    for (const TProduct& product : products_) {
        const demo::TModel& model = *product.model;
        const double scale = IsForChildren(model) ? childScale : 1;
        int order = 0;
        for (const demo::TPartFlow& part : demo::MakeOf(model.make).parts) {
            for (const TMeasure& measure : MeasuresOf(part.part, model.family)) {
                ++order;
                double value = measure.smallest * scale;
                for (const std::string_view size : demo::SizeRangeOf(model.range).sizes) {
                    rows.Row({model.code, part.part, measure.code, measure.name, measure.tolerance, order, size,
                        RoundTo(value, 1)});
                    value += measure.step;
                }
            }
        }
    }
}

void TDemoFactory::FillPrints()
{
    TRandom random = Random("prints");
    TTableWriter rows(database_, "ESTAMPA", "CODIGO,DESCRICAO,TIPO,TAMANHO,OBS");
    TTableWriter makers(database_, "ESTAMPA_CLI", "CODESTAMPA,CODCLI,CUSTO");
    for (const TPrint& print : prints) {
        rows.Row({print.code, print.name, print.kind, print.size, print.note});
        const demo::TTrade trade = print.kind == "E" ? Printing : Embroidery;
        for (const TSubcontractor& subcontractor : subcontractors_) {
            if (subcontractor.trade == trade)
                makers.Row({print.code, subcontractor.code, RoundTo(0.70 + 0.05 * random.Between(0, 12), 2)});
        }
    }

    TTableWriter products(database_, "EST_PROD", "ESTAMPA,PRODUTO");
    TTableWriter frames(
        database_, "EST_QUADRO", "ESTAMPA,PRODUTO,PARTE,QUADRO,ORDEM,FUNDO,CAMADA1,CAMADA2,CAMADA3,OBS");
    std::array<std::size_t, 2> next{};
    for (const TProduct& product : products_) {
        const demo::TPartFlow& part = demo::MakeOf(product.model->make).parts.front();
        for (const std::string_view kind : {std::string_view("E"), std::string_view("B")}) {
            const demo::TTrade trade = kind == "E" ? Printing : Embroidery;
            const auto sectors = demo::FlowOf(part.flow).sectors;
            if (std::ranges::none_of(sectors, [&](auto code) { return demo::SectorOf(code).trade == trade; }))
                continue;
            std::vector<const TPrint*> ofKind;
            for (const TPrint& print : prints) {
                if (print.kind == kind)
                    ofKind.push_back(&print);
            }
            std::size_t& turn = next[kind == "E" ? 0 : 1];
            const TPrint& print = *ofKind[turn++ % ofKind.size()];
            products.Row({print.code, product.model->code});
            int order = 0;
            for (const demo::TColour& colour : product.colours) {
                ++order;
                frames.Row({print.code, product.model->code, part.part, "Q" + Code(order, 2), order, colour.code,
                    layers[0], layers[static_cast<std::size_t>(order) % layers.size()], layers[2],
                    colour.code == "000002" ? "Base dupla no fundo preto." : ""});
            }
        }
    }
}

std::vector<const TDemoFactory::TSubcontractor*> TDemoFactory::SubcontractorsFor(
    const TProduct& product, const demo::TSector& sector) const
{
    std::vector<const TSubcontractor*> able;
    for (const TSubcontractor& subcontractor : subcontractors_) {
        const bool allowed = !subcontractor.blocked && (subcontractor.certified || !IsForChildren(*product.model));
        if (allowed && subcontractor.trade == sector.trade)
            able.push_back(&subcontractor);
    }
    return able;
}

// By the product's place in the list, so that the work is spread and the same product goes to the same workshop.
const TDemoFactory::TSubcontractor& TDemoFactory::MainSubcontractor(
    const TProduct& product, const demo::TSector& sector) const
{
    const auto able = SubcontractorsFor(product, sector);
    return *able[static_cast<std::size_t>(&product - products_.data()) % able.size()];
}

void TDemoFactory::FillSubcontractorsOfProducts()
{
    TTableWriter rows(database_, "FAC_PROD", "PRODUTO,SETOR,PARTE,CODCLI,PRINCIPAL,OBS");
    for (const TProduct& product : products_) {
        for (const demo::TPartFlow& part : demo::MakeOf(product.model->make).parts) {
            for (const std::string_view code : demo::FlowOf(part.flow).sectors) {
                const demo::TSector& sector = demo::SectorOf(code);
                if (sector.trade == House)
                    continue;
                const TSubcontractor& main = MainSubcontractor(product, sector);
                for (const TSubcontractor* able : SubcontractorsFor(product, sector)) {
                    const bool isMain = able == &main;
                    rows.Row({product.model->code, code, part.part, able->code, isMain ? "S" : "N",
                        isMain ? "Peça piloto aprovada." : ""});
                }
            }
        }
    }
}

} // namespace alinhavo
