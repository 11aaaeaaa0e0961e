#include "app/demo/catalogue.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace alinhavo::demo {
namespace {

using enum TTrade;

constexpr auto sectors = std::to_array<TSector>({
    {"01", "CORTE", House, "01", "CORTE", 1, 0.35, 2, 5, 2500, "BAIXAPARCIAL,BAIXAMAIOR,INVENTARIO,IMP_FLUXO"},
    {"02", "SEPARAÇÃO E PREPARAÇÃO", House, "01", "CORTE", 1, 0.12, 1, 5, 3000, "BAIXAPARCIAL,INVENTARIO"},
    {"03", "BORDADO", Embroidery, "03", "BENEF", 4, 1.10, 4, 6, 900,
        "BAIXAPARCIAL,BAIXALIVRE,ALT_PRECO,INVENTARIO,IMP_FLUXO", "Enviar a ficha do bordado e a matriz"},
    {"04", "ESTAMPARIA", Printing, "03", "BENEF", 2, 0.95, 4, 5, 1800,
        "BAIXAPARCIAL,BAIXALIVRE,ALT_PRECO,INVENTARIO,IMP_FLUXO", "Conferir a prova de cor antes da produção"},
    {"05", "COSTURA MALHA", SewingKnit, "05", "FACCAO", 2, 2.40, 6, 5, 1200, "BAIXAPARCIAL,INVENTARIO,IMP_FLUXO"},
    {"06", "COSTURA TECIDO PLANO", SewingWoven, "05", "FACCAO", 2, 4.20, 8, 5, 700,
        "BAIXAPARCIAL,INVENTARIO,IMP_FLUXO"},
    {"07", "COSTURA JEANS", SewingJeans, "05", "FACCAO", 2, 5.10, 8, 5, 600,
        "BAIXAPARCIAL,BAIXAMOV,INVENTARIO,IMP_FLUXO"},
    {"08", "COSTURA MODA PRAIA", SewingBeach, "05", "FACCAO", 1, 3.10, 6, 5, 650, "BAIXAPARCIAL,INVENTARIO,IMP_FLUXO"},
    {"09", "CASEADO E BOTÃO", Buttonhole, "05", "FACCAO", 1, 0.42, 2, 5, 1500, "BAIXAPARCIAL,INVENTARIO,IMP_FLUXO"},
    {"10", "LAVANDERIA", Laundry, "10", "BENEF", 3, 1.85, 5, 6, 1600, "ALT_PRECO,INVENTARIO,IMP_FLUXO",
        "Lote inteiro na mesma lavagem, para não variar o tom"},
    {"11", "TINTURARIA DE PEÇAS", Dyeing, "10", "BENEF", 3, 2.30, 6, 6, 1100, "ALT_PRECO,INVENTARIO,IMP_FLUXO"},
    {"12", "ACABAMENTO E LIMPEZA", House, "12", "ACABAM", 1, 0.30, 2, 5, 2000,
        "BAIXAPARCIAL,BAIXACONSUMO,INVENTARIO,IMP_FLUXO"},
    {"13", "INSPEÇÃO FINAL", House, "12", "ACABAM", 1, 0.15, 1, 5, 2200,
        "BAIXAPARCIAL,BAIXADEFEITO,MOVREPROVADO,IMP_FLUXO"},
    {"14", "PASSADORIA E EMBALAGEM", House, "12", "ACABAM", 1, 0.28, 1, 6, 2400, "BAIXAPARCIAL,INVENTARIO,IMP_FLUXO"},
});

constexpr std::string_view basicKnit[] = {"01", "02", "05", "12", "13", "14"};
constexpr std::string_view printedKnit[] = {"01", "02", "04", "05", "12", "13", "14"};
constexpr std::string_view embroideredKnit[] = {"01", "02", "03", "05", "12", "13", "14"};
// Behind the free sectors of a free flow stands its last one: no other could be reached.
constexpr std::string_view decoratedKnit[] = {"01", "04", "03", "14"};
constexpr std::string_view woven[] = {"01", "02", "06", "09", "12", "13", "14"};
constexpr std::string_view washedJeans[] = {"01", "02", "07", "09", "10", "12", "13", "14"};
constexpr std::string_view dyedTwill[] = {"01", "02", "07", "11", "10", "12", "13", "14"};
constexpr std::string_view beach[] = {"01", "02", "08", "12", "13", "14"};
constexpr std::string_view secondKnit[] = {"01", "02", "05", "14"};
constexpr std::string_view secondWoven[] = {"01", "02", "06", "14"};
constexpr std::string_view printedWashedKnit[] = {"01", "02", "04", "05", "10", "12", "13", "14"};
constexpr std::string_view secondBeach[] = {"01", "02", "08", "14"};

constexpr auto flows = std::to_array<TFlow>({
    {"001", "MALHA BÁSICA", false, basicKnit},
    {"002", "MALHA ESTAMPADA", false, printedKnit},
    {"003", "MALHA BORDADA", false, embroideredKnit},
    {"004", "MALHA ESTAMPADA E BORDADA, ORDEM LIVRE", true, decoratedKnit},
    {"005", "TECIDO PLANO COM CASEADO", false, woven},
    {"006", "JEANS LAVADO", false, washedJeans},
    {"007", "SARJA TINTA EM PEÇA", false, dyedTwill},
    {"008", "MODA PRAIA", false, beach},
    {"009", "SEGUNDA PARTE EM MALHA", false, secondKnit},
    {"010", "SEGUNDA PARTE EM TECIDO PLANO", false, secondWoven},
    {"011", "MALHA ESTAMPADA COM LAVAÇÃO", false, printedWashedKnit},
    {"012", "SEGUNDA PARTE MODA PRAIA", false, secondBeach},
});

constexpr auto parts = std::to_array<TPart>({
    {"01", "Peça inteira", true, true, true, true},
    {"02", "Blusa", true, true, true, true},
    {"03", "Calça", false, false, false, false},
    {"04", "Bermuda", false, false, false, false},
    {"05", "Jaqueta", false, false, false, false},
    {"06", "Top", true, true, true, true},
    {"07", "Calcinha", false, false, false, true},
    {"08", "Capuz", false, false, false, false},
});

constexpr TPartFlow basic[] = {{"01", "001"}};
constexpr TPartFlow printed[] = {{"01", "002"}};
constexpr TPartFlow embroidered[] = {{"01", "003"}};
constexpr TPartFlow decorated[] = {{"01", "004"}};
constexpr TPartFlow printedWashed[] = {{"01", "011"}};
constexpr TPartFlow shirt[] = {{"01", "005"}};
constexpr TPartFlow jeans[] = {{"01", "006"}};
constexpr TPartFlow dyed[] = {{"01", "007"}};
constexpr TPartFlow swimsuit[] = {{"01", "008"}};
constexpr TPartFlow bikini[] = {{"06", "008"}, {"07", "012"}};
constexpr TPartFlow hooded[] = {{"02", "003"}, {"08", "009"}};
constexpr TPartFlow blouseAndTrousers[] = {{"02", "002"}, {"03", "009"}};
constexpr TPartFlow blouseAndShorts[] = {{"02", "004"}, {"04", "009"}};
constexpr TPartFlow threePieces[] = {{"02", "002"}, {"03", "009"}, {"05", "010"}};

constexpr auto makes = std::to_array<TMake>({
    {"basic", basic},
    {"printed", printed},
    {"embroidered", embroidered},
    {"decorated", decorated},
    {"printed and washed", printedWashed},
    {"shirt", shirt},
    {"jeans", jeans},
    {"dyed", dyed},
    {"swimsuit", swimsuit},
    {"bikini", bikini},
    {"hooded", hooded},
    {"blouse and trousers", blouseAndTrousers},
    {"blouse and shorts", blouseAndShorts},
    {"three pieces", threePieces},
});

bool IsSewing(TTrade trade)
{
    return trade == SewingKnit || trade == SewingWoven || trade == SewingJeans || trade == SewingBeach;
}

bool TakesPlace(TStage stage, const TSector& sector)
{
    switch (stage) {
    case TStage::Cut:
        return sector.code == "01";
    case TStage::Print:
        return sector.trade == Printing;
    case TStage::Sewing:
        return IsSewing(sector.trade);
    case TStage::Finishing:
        return sector.code == "12";
    case TStage::Packing:
        return sector.code == "14";
    }
    return false;
}

} // namespace

std::span<const TSector> Sectors() { return sectors; }
std::span<const TFlow> Flows() { return flows; }
std::span<const TPart> Parts() { return parts; }
std::span<const TMake> Makes() { return makes; }

const TSector& SectorOf(std::string_view code)
{
    const auto found = std::ranges::find(sectors, code, &TSector::code);
    if (found == sectors.end())
        throw std::logic_error("no sector " + std::string(code));
    return *found;
}

const TFlow& FlowOf(std::string_view code)
{
    const auto found = std::ranges::find(flows, code, &TFlow::code);
    if (found == flows.end())
        throw std::logic_error("no flow " + std::string(code));
    return *found;
}

const TMake& MakeOf(std::string_view name)
{
    const auto found = std::ranges::find(makes, name, &TMake::name);
    if (found == makes.end())
        throw std::logic_error("no make " + std::string(name));
    return *found;
}

std::string_view SectorOfStage(const TFlow& flow, TStage stage)
{
    const auto found
        = std::ranges::find_if(flow.sectors, [&](std::string_view code) { return TakesPlace(stage, SectorOf(code)); });
    return found == flow.sectors.end() ? std::string_view() : *found;
}

} // namespace alinhavo::demo
