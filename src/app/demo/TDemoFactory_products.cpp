#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace alinhavo {
namespace {

using namespace std::string_view_literals;

struct TFamily {
    std::string_view code;
    std::string_view name;
    std::string_view group; ///< GRUPO_PA
    std::string_view fiscalClass;
    std::string_view composition;
    double weight; ///< kilograms of a piece
};

constexpr auto families = std::to_array<TFamily>({
    {"CAM", "Camisetas", "001", "6109.10.00", "100% algodão", 0.18},
    {"POL", "Camisas polo", "001", "6105.10.00", "98% algodão, 2% elastano", 0.26},
    {"CMS", "Camisas e camisetes", "002", "6205.20.00", "67% algodão, 33% poliéster", 0.24},
    {"JEA", "Calças e jaquetas", "003", "6203.42.00", "98% algodão, 2% elastano", 0.62},
    {"BER", "Bermudas e shorts", "003", "6203.42.00", "97% algodão, 3% elastano", 0.38},
    {"VES", "Vestidos e saias", "004", "6204.44.00", "95% viscose, 5% elastano", 0.34},
    {"MOL", "Moletons", "001", "6110.20.00", "50% algodão, 50% poliéster", 0.58},
    {"INF", "Conjuntos infantis", "005", "6111.20.00", "100% algodão", 0.30},
    {"PRA", "Moda praia", "006", "6112.41.00", "84% poliamida, 16% elastano", 0.14},
    {"PIJ", "Pijamas", "005", "6108.31.00", "100% algodão", 0.32},
    {"SEM", "Semiacabados", "009", "6117.90.00", "98% algodão, 2% elastano", 0.04},
});

const TFamily& FamilyOf(std::string_view code)
{
    const auto found = std::ranges::find(families, code, &TFamily::code);
    if (found == families.end())
        throw std::logic_error("no family " + std::string(code));
    return *found;
}

constexpr auto adultColours = std::to_array<std::string_view>(
    {"000001", "000002", "000003", "000004", "000005", "000006", "000009", "000010", "000016", "000017", "000024"});
constexpr auto womenColours = std::to_array<std::string_view>(
    {"000001", "000002", "000008", "000011", "000012", "000013", "000014", "000017", "000022", "000023", "000027"});
constexpr auto childColours = std::to_array<std::string_view>(
    {"000001", "000007", "000008", "000011", "000015", "000022", "000025", "000026", "000006"});
constexpr auto denimColours = std::to_array<std::string_view>({"000019", "000020", "000021", "000002"});
constexpr auto twillColours = std::to_array<std::string_view>({"000018", "000016", "000003", "000002", "000027"});

std::span<const std::string_view> PaletteOf(const demo::TModel& model)
{
    if (model.sheet == "jeans")
        return denimColours;
    if (model.sheet == "twill")
        return twillColours;
    if (model.line == "INFA")
        return childColours;
    return model.line == "FEMI" ? std::span<const std::string_view>(womenColours) : adultColours;
}

const demo::TColour& ColourNamed(std::string_view code)
{
    const auto colours = demo::Colours();
    return *std::ranges::find(colours, code, &demo::TColour::code);
}

/// Different colours of the palette, in the order of their codes.
std::vector<demo::TColour> DrawColours(TRandom& random, std::span<const std::string_view> palette, int count)
{
    std::vector<std::string_view> left(palette.begin(), palette.end());
    std::vector<demo::TColour> drawn;
    while (count-- > 0 && !left.empty()) {
        const std::size_t index = random.Index(left.size());
        drawn.push_back(ColourNamed(left[index]));
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(index));
    }
    std::ranges::sort(drawn, {}, &demo::TColour::code);
    return drawn;
}

/// How much of the main part's material another part takes.
double ShareOfPart(std::string_view part)
{
    if (part == "03" || part == "05")
        return 0.85;
    if (part == "04" || part == "07")
        return 0.55;
    return part == "08" ? 0.18 : 1;
}

/// Sold as several pieces of clothing; a hood is none.
bool IsSet(const demo::TModel& model) { return demo::MakeOf(model.make).parts.size() > 1 && model.make != "hooded"; }

/// A shop's price ends in 90 cents.
double ShopPrice(double cost) { return std::floor(cost * 2.4) + 0.90; }

std::string CollectionName(std::string_view code, TDateTime today)
{
    if (code == "VERA")
        return "Verão " + std::to_string(today.Year() + 1) + " Maresia";
    if (code == "INVE")
        return "Inverno " + std::to_string(today.Year() + 1) + " Serra Catarinense";
    return "Básicos permanentes";
}

} // namespace

double TDemoFactory::SectorPrice(const demo::TSector& sector, const demo::TModel& model)
{
    return RoundTo(sector.price * (sector.trade == demo::TTrade::House ? 1 : model.work), 3);
}

std::string_view TDemoFactory::ColourOf(const demo::TSheetLine& line, std::string_view colourOfPiece)
{
    switch (line.colour) {
    case demo::TMaterialColour::OfPiece:
        return colourOfPiece;
    case demo::TMaterialColour::Undecided:
        return demo::undecidedColour;
    case demo::TMaterialColour::Fixed:
        break;
    }
    return demo::singleColour;
}

const demo::TColour& TDemoFactory::ColourOfPart(const TProduct& product, std::string_view colour, std::string_view part)
{
    const auto found = std::ranges::find(product.colours, colour, &demo::TColour::code);
    if (part == demo::MakeOf(product.model->make).parts.front().part)
        return *found;
    const auto next = std::next(found);
    return next == product.colours.end() ? product.colours.front() : *next;
}

// Fabric takes less in the small sizes, so that it has a row for each half of the range. What finishes and packs a product
// belongs to its default part.
std::vector<TDemoFactory::TSheetRow> TDemoFactory::SheetOf(const demo::TModel& model)
{
    constexpr double largeSizes = 1.16;
    std::vector<TSheetRow> rows;
    const auto parts = demo::MakeOf(model.make).parts;
    for (const demo::TPartFlow& part : parts) {
        const bool isDefault = part.part == parts.front().part;
        for (const demo::TSheetLine& line : demo::SheetOf(model.sheet).lines) {
            const bool shared = line.stage == demo::TStage::Cut || line.stage == demo::TStage::Sewing;
            const std::string_view sector = demo::SectorOfStage(demo::FlowOf(part.flow), line.stage);
            if (sector.empty() || (!shared && !isDefault))
                continue;
            const demo::TMaterial* material = demo::FindMaterial(line.material);
            const double price = material ? material->price : demo::collarCost;
            const std::string range(model.range);
            const double quantity = line.quantity * ShareOfPart(part.part);
            if (material == nullptr || material->group != demo::fabricGroup) {
                rows.push_back({part.part, sector, &line, range, RoundTo(quantity, 4), price});
                continue;
            }
            rows.push_back({part.part, sector, &line, range + "-P", RoundTo(quantity, 4), price});
            rows.push_back({part.part, sector, &line, range + "-G", RoundTo(quantity * largeSizes, 4), price});
        }
    }
    return rows;
}

void TDemoFactory::FillSizes()
{
    TTableWriter ranges(database_, "FAIXA", "CODIGO,DESCRICAO,TAMANHO");
    TTableWriter items(database_, "FAIXA_ITEN", "FAIXA,TAMANHO,POSICAO");
    TTableWriter sizes(database_, "TABTAM", "TAM,ACRESCIMO");
    int order = 0;
    for (const demo::TSizeRange& range : demo::SizeRanges()) {
        ranges.Row({range.code, range.name, range.spacing});
        int position = 0;
        for (const std::string_view size : range.sizes) {
            items.Row({range.code, size, ++position});
            sizes.Row({size, ++order});
        }
    }
    sizes.Row({"0", 0});
}

void TDemoFactory::FillProductCodes()
{
    TTableWriter colours(database_, "CADCOR", "COR,DESCRICAO");
    for (const demo::TColour& colour : demo::Colours())
        colours.Row({colour.code, colour.name});

    TTableWriter collections(database_, "COLECAO", "CODIGO,DESCRICAO");
    for (const std::string_view code : {"BASI"sv, "INVE"sv, "VERA"sv})
        collections.Row({code, CollectionName(code, today_)});

    TTableWriter groups(database_, "GRUPO_PA", "CODIGO,DESCRICAO");
    groups.Row({"001", "Malharia"});
    groups.Row({"002", "Camisaria"});
    groups.Row({"003", "Jeans e sarja"});
    groups.Row({"004", "Vestidos"});
    groups.Row({"005", "Infantil e dormir"});
    groups.Row({"006", "Praia"});
    groups.Row({"009", "Semiacabados"});

    TTableWriter rows(database_, "FAMILIA", "CODIGO,DESCRICAO,GRUPO");
    TTableWriter classes(database_, "TABFIS", "CODIGO,DESCRICAO");
    std::vector<std::string_view> known;
    for (const TFamily& family : families) {
        rows.Row({family.code, family.name, family.group});
        if (std::ranges::find(known, family.fiscalClass) != known.end())
            continue;
        classes.Row({family.fiscalClass, family.name});
        known.push_back(family.fiscalClass);
    }

    TTableWriter lines(database_, "TABLIN", "CODIGO,DESCRICAO,CONCENTRADO");
    lines.Row({"MASC", "Masculino", 600});
    lines.Row({"FEMI", "Feminino", 500});
    lines.Row({"INFA", "Infantil", 400});

    TTableWriter brands(database_, "MARCA", "CODIGO,DESCRICAO");
    brands.Row({"ALINH", "Vale do Alinhavo"});
    brands.Row({"MARES", "Maresia do Sul"});
    brands.Row({"GARIM", "Garimpo Jeans"});
    brands.Row({"PINGO", "Pingo de Gente"});

    TTableWriter labels(database_, "ETQ_PROD", "CODIGO,DESCRICAO");
    labels.Row({"00001", "Etiqueta padrão com composição e tamanho"});
    labels.Row({"00002", "Etiqueta infantil sem costura"});

    TTableWriter units(database_, "UNIDADE", "UNIDADE,QTDE");
    for (const std::string_view unit : {"PC"sv, "KG"sv, "M"sv, "PAR"sv, "CJ"sv})
        units.Row({unit, 1});
}

void TDemoFactory::FillProducts()
{
    TRandom random = Random("products");
    TTableWriter rows(database_, "PRODUTO",
        "CODIGO,CODIGO2,DESCRICAO,DESCRICAO2,UNIDADE,ATIVO,STATUS,ESTOQUE,COLECAO,GRUPO,FAMILIA,LINHA,MARCA,ETIQUETA,"
        "FAIXA,"
        "CODFIS,LOCAL,FICHA,COMP1,LARGURA,PESO,PESO_TALHADO,CUSTO,PRECO,OBS1");
    TTableWriter costs(database_, "PRECO_ITEN", "ARTIGO,VALOR");
    int number = 0;
    for (const demo::TModel& model : demo::Models()) {
        TProduct product;
        product.model = &model;
        product.colours = DrawColours(random, PaletteOf(model), random.Between(2, 4));

        double labour = 0;
        for (const demo::TPartFlow& part : demo::MakeOf(model.make).parts) {
            for (const std::string_view sector : demo::FlowOf(part.flow).sectors)
                labour += SectorPrice(demo::SectorOf(sector), model);
        }
        double material = 0;
        for (const TSheetRow& row : SheetOf(model)) {
            if (!row.consumptionRange.ends_with("-P"))
                material += row.quantity * row.price;
        }
        product.cost = RoundTo(labour + material, 4);
        product.price = ShopPrice(product.cost);

        const TFamily& family = FamilyOf(model.family);
        // One model is closed for changes, as a product is while its price is being revised.
        const bool closed = model.code == "VES0105";
        rows.Row({model.code, "R" + Code(26000 + ++number, 6), model.name,
            std::string(family.name) + " " + std::string(model.code), IsSet(model) ? "CJ" : "PC", "S",
            closed ? "Bloqueado p/ Alterações" : "Liberado", "S", model.collection, family.group, model.family,
            model.line, model.brand, IsForChildren(model) ? "00002" : "00001", model.range, family.fiscalClass, "B1",
            "FT-" + std::string(model.code), family.composition, 0, family.weight, RoundTo(family.weight * 1.08, 3),
            product.cost, product.price, closed ? "Preço em revisão pela engenharia." : ""});
        costs.Row({model.code, RoundTo(labour, 4)});
        costs.Row({model.code, RoundTo(material, 4)});
        products_.push_back(std::move(product));
    }
    summary_.products = rows.RowCount();
}

/// The knitted collar of the polo shirts is made beforehand and used like a material; it comes in no size.
void TDemoFactory::FillSemiFinished()
{
    const TFamily& family = FamilyOf("SEM");
    TTableWriter(database_, "PRODUTO",
        "CODIGO,DESCRICAO,UNIDADE,ATIVO,STATUS,ESTOQUE,COLECAO,GRUPO,FAMILIA,LINHA,MARCA,CODFIS,LARGURA,PESO,CUSTO,"
        "PRECO")
        .Row({demo::collar, "Gola retilínea para polo", "PC", "S", "Liberado", "S", "BASI", family.group, family.code,
            "MASC", "ALINH", family.fiscalClass, 0.09, family.weight, demo::collarCost, 0});
}

void TDemoFactory::FillProductParts()
{
    TTableWriter flows(database_, "PRO_FLUXO", "CODIGO,PARTE,FLUXO,PADRAO");
    TTableWriter partColours(database_, "COMB_PARTE", "CODIGO,COR,PARTE,COR_PARTE");
    TTableWriter combinations(database_, "COMBINACAO", "CODIGO,ORDEM,MALHA,COR01,COR02,COR03,COR04");
    for (const TProduct& product : products_) {
        const auto parts = demo::MakeOf(product.model->make).parts;
        int order = 0;
        for (const demo::TPartFlow& part : parts) {
            const bool isDefault = part.part == parts.front().part;
            flows.Row({product.model->code, part.part, part.flow, isDefault ? "S" : "N"});
            if (parts.size() == 1)
                continue;
            std::array<TValue, 4> names;
            for (std::size_t index = 0; index < product.colours.size(); ++index) {
                const std::string_view colour = product.colours[index].code;
                const demo::TColour& worn = ColourOfPart(product, colour, part.part);
                partColours.Row({product.model->code, colour, part.part, worn.code});
                names[index] = worn.name;
            }
            combinations.Row({product.model->code, ++order, demo::SheetOf(product.model->sheet).lines.front().material,
                names[0], names[1], names[2], names[3]});
        }
    }
}

/// The grade of the cut ("P", pieces of a size in one layer) and of the sale ("V").
void TDemoFactory::FillProductGrades()
{
    TTableWriter rows(database_, "PRODUTO_ORDEM", "CODIGO,COR,TAM,TIPO,ORDEM,PERCENTUAL,SEQUENCIA,ATIVO");
    for (const TProduct& product : products_) {
        const demo::TSizeRange& range = demo::SizeRangeOf(product.model->range);
        int total = 0;
        for (const int weight : range.weights)
            total += weight;
        for (const demo::TColour& colour : product.colours) {
            for (std::size_t size = 0; size < range.sizes.size(); ++size) {
                const int weight = range.weights[size];
                const int sequence = static_cast<int>(size) + 1;
                rows.Row({product.model->code, colour.code, range.sizes[size], "P", weight / 2.0, 0, sequence, "S"});
                rows.Row({product.model->code, colour.code, range.sizes[size], "V", weight,
                    RoundTo(100.0 * weight / total, 2), sequence, "S"});
            }
        }
    }
}

} // namespace alinhavo
