#include "app/demo/catalogue.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace alinhavo::demo {
namespace {

using enum TStage;
using enum TMaterialColour;

// Code, name, unit, group, price, width, grammage, composition, place.
constexpr auto materials = std::to_array<TMaterial>({
    {"MAL001", "Meia-malha penteada 30.1", "KG", "0001", 42.50, 1.20, 165, "100% algodão", {}},
    {"MAL002", "Malha piquet penteada", "KG", "0001", 46.80, 1.15, 210, "98% algodão, 2% elastano", {}},
    {"MAL003", "Moletom três cabos peluciado", "KG", "0001", 44.20, 1.80, 320, "50% algodão, 50% poliéster", {}},
    {"MAL004", "Lycra praia fio 80", "KG", "0001", 78.00, 1.60, 190, "84% poliamida, 16% elastano", {}},
    {"MAL005", "Ribana 2 x 1", "KG", "0001", 47.10, 0.60, 240, "97% algodão, 3% elastano", {}},
    {"MAL006", "Viscolycra", "KG", "0001", 58.90, 1.70, 220, "95% viscose, 5% elastano", {}},
    {"MAL007", "Forro de praia", "KG", "0001", 39.00, 1.60, 120, "100% poliamida", {}},
    {"TEC001", "Tricoline mista", "M", "0001", 16.90, 1.50, 115, "67% algodão, 33% poliéster", {}},
    {"TEC002", "Denim 11 oz com elastano", "M", "0001", 24.30, 1.60, 370, "98% algodão, 2% elastano", {}},
    {"TEC003", "Viscose plana estampada", "M", "0001", 18.40, 1.45, 130, "100% viscose", {}},
    {"TEC004", "Sarja leve peletizada", "M", "0001", 21.70, 1.60, 260, "97% algodão, 3% elastano", {}},
    {"BOT001", "Botão de poliéster 18 mm, quatro furos", "PC", "0002", 0.045, 0, 0, {}, "A10101"},
    {"BOT002", "Botão flexível para jeans", "PC", "0002", 0.32, 0, 0, {}, "A10102"},
    {"REB001", "Rebite de latão envelhecido", "PC", "0002", 0.09, 0, 0, {}, "A10103"},
    {"ZIP001", "Zíper de metal 15 cm", "PC", "0002", 0.95, 0, 0, {}, "A10104"},
    {"ELA001", "Elástico chato 35 mm", "M", "0002", 0.68, 0.035, 0, "60% poliéster, 40% elastodieno", "A10201"},
    {"COR001", "Cordão trançado", "M", "0002", 0.41, 0, 0, "100% algodão", "A10202"},
    {"LIN001", "Linha de costura 120", "M", "0003", 0.0021, 0, 0, "100% poliéster", "A20101"},
    {"LIN002", "Linha de pesponto 36", "M", "0003", 0.0056, 0, 0, "100% poliéster", "A20102"},
    {"FIO001", "Fio de overloque texturizado", "M", "0003", 0.0012, 0, 0, "100% poliéster", "A20103"},
    {"ETQ001", "Etiqueta de composição e tamanho", "PC", "0004", 0.06, 0, 0, {}, "A30101"},
    {"ETQ002", "Etiqueta bordada da marca", "PC", "0004", 0.14, 0, 0, {}, "A30102"},
    {"TAG001", "Tag com cordão", "PC", "0004", 0.21, 0, 0, {}, "A30103"},
    {"SAC001", "Saco plástico 30 x 40 cm", "PC", "0005", 0.11, 0, 0, {}, {}},
    {"CXA001", "Caixa de papelão para 24 peças", "PC", "0005", 3.90, 0, 0, {}, {}},
    {"TIN001", "Pasta para estampa à base d'água", "KG", "0006", 23.00, 0, 0, {}, "Q10101"},
    {"TIN002", "Pigmento concentrado", "KG", "0006", 61.00, 0, 0, {}, "Q10102"},
    {"QUI001", "Amaciante têxtil", "KG", "0006", 9.80, 0, 0, {}, "Q10201"},
});

constexpr TSheetLine tee[] = {
    {"MAL001", "CORP", Cut, 0.190, OfPiece},
    {"MAL005", "GOLA", Cut, 0.018, OfPiece},
    {"TIN001", "ESTP", Print, 0.022},
    {"LIN001", "COST", Sewing, 62, OfPiece},
    {"FIO001", "COST", Sewing, 85, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"TAG001", "ACAB", Finishing, 1, Undecided},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine longTee[] = {
    {"MAL001", "CORP", Cut, 0.255, OfPiece},
    {"MAL005", "PUNH", Cut, 0.035, OfPiece},
    {"LIN001", "COST", Sewing, 78, OfPiece},
    {"FIO001", "COST", Sewing, 110, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"TAG001", "ACAB", Finishing, 1, Undecided},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine polo[] = {
    {"MAL002", "CORP", Cut, 0.245, OfPiece},
    {"GOL001", "GOLA", Sewing, 1, OfPiece},
    {"BOT001", "ACAB", Finishing, 3},
    {"LIN001", "COST", Sewing, 95, OfPiece},
    {"FIO001", "COST", Sewing, 98, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"ETQ002", "ACAB", Finishing, 1},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine shirt[] = {
    {"TEC001", "CORP", Cut, 1.45, OfPiece},
    {"BOT001", "ACAB", Finishing, 9},
    {"LIN001", "COST", Sewing, 140, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"ETQ002", "ACAB", Finishing, 1},
    {"TAG001", "ACAB", Finishing, 1, Undecided},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine jeans[] = {
    {"TEC002", "CORP", Cut, 1.25, OfPiece},
    {"TEC001", "FORR", Cut, 0.18},
    {"ZIP001", "COST", Sewing, 1},
    {"LIN002", "COST", Sewing, 210},
    {"BOT002", "ACAB", Finishing, 1},
    {"REB001", "ACAB", Finishing, 6},
    {"ETQ001", "ACAB", Finishing, 1},
    {"TAG001", "ACAB", Finishing, 1, Undecided},
};
constexpr TSheetLine twill[] = {
    {"TEC004", "CORP", Cut, 1.30},
    {"TEC001", "FORR", Cut, 0.18},
    {"ZIP001", "COST", Sewing, 1},
    {"LIN002", "COST", Sewing, 190},
    {"BOT002", "ACAB", Finishing, 1},
    {"ETQ001", "ACAB", Finishing, 1},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine viscose[] = {
    {"TEC003", "CORP", Cut, 1.35, OfPiece},
    {"ELA001", "COST", Sewing, 0.70},
    {"LIN001", "COST", Sewing, 110, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"ETQ002", "ACAB", Finishing, 1},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine dress[] = {
    {"MAL006", "CORP", Cut, 0.340, OfPiece},
    {"TIN001", "ESTP", Print, 0.030},
    {"LIN001", "COST", Sewing, 105, OfPiece},
    {"FIO001", "COST", Sewing, 120, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"TAG001", "ACAB", Finishing, 1, Undecided},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine sweat[] = {
    {"MAL003", "CORP", Cut, 0.520, OfPiece},
    {"MAL005", "PUNH", Cut, 0.085, OfPiece},
    {"COR001", "COST", Sewing, 1.30},
    {"LIN001", "COST", Sewing, 120, OfPiece},
    {"FIO001", "COST", Sewing, 180, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"ETQ002", "ACAB", Finishing, 1},
    {"CXA001", "EMBA", Packing, 0.0417},
};
constexpr TSheetLine set[] = {
    {"MAL001", "CORP", Cut, 0.170, OfPiece},
    {"MAL005", "PUNH", Cut, 0.025, OfPiece},
    {"TIN001", "ESTP", Print, 0.018},
    {"ELA001", "COST", Sewing, 0.50},
    {"LIN001", "COST", Sewing, 70, OfPiece},
    {"FIO001", "COST", Sewing, 95, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"TAG001", "ACAB", Finishing, 1, Undecided},
    {"SAC001", "EMBA", Packing, 1},
};
constexpr TSheetLine beach[] = {
    {"MAL004", "CORP", Cut, 0.110, OfPiece},
    {"MAL007", "FORR", Cut, 0.045},
    {"ELA001", "COST", Sewing, 0.90},
    {"LIN001", "COST", Sewing, 80, OfPiece},
    {"ETQ001", "ACAB", Finishing, 1},
    {"SAC001", "EMBA", Packing, 1},
};

constexpr auto sheets = std::to_array<TSheet>({
    {"tee", tee},
    {"long tee", longTee},
    {"polo", polo},
    {"shirt", shirt},
    {"jeans", jeans},
    {"twill", twill},
    {"viscose", viscose},
    {"dress", dress},
    {"sweat", sweat},
    {"set", set},
    {"beach", beach},
});

} // namespace

std::span<const TMaterial> Materials() { return materials; }
std::span<const TSheet> Sheets() { return sheets; }

const TMaterial* FindMaterial(std::string_view code)
{
    const auto found = std::ranges::find(materials, code, &TMaterial::code);
    return found == materials.end() ? nullptr : &*found;
}

const TSheet& SheetOf(std::string_view name)
{
    const auto found = std::ranges::find(sheets, name, &TSheet::name);
    if (found == sheets.end())
        throw std::logic_error("no sheet " + std::string(name));
    return *found;
}

} // namespace alinhavo::demo
