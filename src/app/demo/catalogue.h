#pragma once

#include <span>
#include <string_view>

/// What the demonstration factory knows without drawing it: its sectors, flows, parts, sizes, colours and models.
namespace alinhavo::demo {

enum class TTrade {
    House,
    Embroidery,
    Printing,
    SewingKnit,
    SewingWoven,
    SewingJeans,
    SewingBeach,
    Buttonhole,
    Laundry,
    Dyeing,
};

struct TSector {
    std::string_view code;
    std::string_view name;
    TTrade trade; ///< of those who do the work; House: the factory itself
    std::string_view group; ///< the sector that heads the group
    std::string_view fiscalCode;
    int paidQuantity; ///< CADFLUXO.IND_PAG
    double price;
    int days;
    int daysOfWeek;
    int piecesPerDay;
    std::string_view switches; ///< columns that hold "S", separated by commas
    std::string_view complement = {};
};

struct TFlow {
    std::string_view code;
    std::string_view name;
    bool free;
    std::span<const std::string_view> sectors;
};

struct TPart {
    std::string_view code;
    std::string_view name;
    bool main;
    bool entersStock;
    bool finishesOrder;
    bool updatesOrder;
};

struct TPartFlow {
    std::string_view part;
    std::string_view flow;
};

struct TSizeRange {
    std::string_view code;
    std::string_view name;
    int spacing; ///< FAIXA.TAMANHO; 0 leaves it to the reports
    std::span<const std::string_view> sizes;
    std::span<const int> weights; ///< how many pieces of each size a usual order has
    std::size_t smallSizes; ///< how many sizes, from the first, take the smaller consumption
};

struct TColour {
    std::string_view code;
    std::string_view name;
};

/// How a model is cut and sewn: the parts in which it moves (the first is the default one) and its technical sheet.
struct TMake {
    std::string_view name;
    std::span<const TPartFlow> parts;
};

struct TModel {
    std::string_view code;
    std::string_view name;
    std::string_view family;
    std::string_view collection; ///< COLECAO.CODIGO
    std::string_view brand;
    std::string_view line;
    std::string_view range;
    std::string_view make;
    std::string_view sheet; ///< list of materials
    double work; ///< how much more than a T-shirt the sectors charge
};

/// Where in the flow of a part a material is used.
enum class TStage { Cut, Print, Sewing, Finishing, Packing };

/// The colour of a material in a piece of some colour.
enum class TMaterialColour { OfPiece, Fixed, Undecided };

struct TSheetLine {
    std::string_view material;
    std::string_view application;
    TStage stage;
    double quantity; ///< per piece, in the material's unit
    TMaterialColour colour = TMaterialColour::Fixed;
};

struct TSheet {
    std::string_view name;
    std::span<const TSheetLine> lines;
};

struct TMaterial {
    std::string_view code;
    std::string_view name;
    std::string_view unit;
    std::string_view group;
    double price;
    double width;
    double grammage;
    std::string_view composition;
    std::string_view place; ///< MAT_ITEN.LOCAL; none for what is not shelved
};

inline constexpr std::string_view factoryCode = "00001"; ///< the factory itself in ENTIDADE
inline constexpr std::string_view singleColour = "000000"; ///< of materials that come in one colour
inline constexpr std::string_view undecidedColour = "*****";
inline constexpr std::string_view fabricGroup = "0001";
inline constexpr std::string_view collar = "GOL001"; ///< a semi-finished product, used as a material
inline constexpr double collarCost = 2.35;

inline constexpr std::string_view defaultPrices = "001";
inline constexpr std::string_view preferredPrices = "002"; ///< of chosen subcontractors
inline constexpr std::string_view sampleOrderPrices = "003"; ///< of an order type
inline constexpr std::string_view urgentPrices = "004"; ///< of chosen orders
inline constexpr std::string_view colourSizePrices = "005";

std::span<const TSector> Sectors();
std::span<const TFlow> Flows();
std::span<const TPart> Parts();
std::span<const TSizeRange> SizeRanges();
std::span<const TColour> Colours();
std::span<const TMake> Makes();
std::span<const TModel> Models();
std::span<const TMaterial> Materials();
std::span<const TSheet> Sheets();

const TSector& SectorOf(std::string_view code);
const TFlow& FlowOf(std::string_view code);
const TSizeRange& SizeRangeOf(std::string_view code);
const TMake& MakeOf(std::string_view name);
/// Null for what is no material: a semi-finished product.
const TMaterial* FindMaterial(std::string_view code);
const TSheet& SheetOf(std::string_view name);

/// The sector of the flow where a stage takes place; empty when the flow has none.
std::string_view SectorOfStage(const TFlow& flow, TStage stage);

} // namespace alinhavo::demo
