#include "app/demo/catalogue.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace alinhavo::demo {
namespace {

constexpr std::string_view adultSizes[] = {"PP", "P", "M", "G", "GG", "XG", "XGG"};
constexpr int adultWeights[] = {1, 3, 5, 5, 3, 2, 1};
constexpr std::string_view numberSizes[] = {"36", "38", "40", "42", "44", "46", "48", "50", "52", "54"};
constexpr int numberWeights[] = {1, 2, 4, 4, 4, 3, 2, 2, 1, 1};
constexpr std::string_view childSizes[] = {"2", "4", "6", "8", "10", "12", "14", "16"};
constexpr int childWeights[] = {2, 3, 3, 3, 3, 2, 1, 1};

constexpr auto sizeRanges = std::to_array<TSizeRange>({
    {"ADU", "Adulto PP a XGG", 7, adultSizes, adultWeights, 3},
    {"NUM", "Numérico 36 a 54", 6, numberSizes, numberWeights, 4},
    {"INF", "Infantil 2 a 16", 0, childSizes, childWeights, 4},
});

constexpr auto colours = std::to_array<TColour>({
    {"000000", "Única"},
    {"000001", "Branco"},
    {"000002", "Preto"},
    {"000003", "Azul-marinho"},
    {"000004", "Mescla claro"},
    {"000005", "Grafite mescla"},
    {"000006", "Vermelho rubi"},
    {"000007", "Verde-água"},
    {"000008", "Lilás"},
    {"000009", "Azul"},
    {"000010", "Café"},
    {"000011", "Rosé"},
    {"000012", "Pêssego"},
    {"000013", "Açaí"},
    {"000014", "Terracota"},
    {"000015", "Amarelo-ouro"},
    {"000016", "Verde-musgo"},
    {"000017", "Off-white"},
    {"000018", "Caqui"},
    {"000019", "Índigo escuro"},
    {"000020", "Índigo médio"},
    {"000021", "Délavé"},
    {"000022", "Coral"},
    {"000023", "Turquesa"},
    {"000024", "Vinho"},
    {"000025", "Azul-céu"},
    {"000026", "Maçã-verde"},
    {"000027", "Areia"},
});

// Code, name, family, collection, brand, line, range, make, sheet, work.
constexpr auto models = std::to_array<TModel>({
    {"CAM0101", "Camiseta básica gola careca", "CAM", "BASI", "ALINH", "MASC", "ADU", "basic", "tee", 1.00},
    {"CAM0102", "Camiseta básica decote V", "CAM", "BASI", "ALINH", "MASC", "ADU", "basic", "tee", 1.05},
    {"CAM0103", "Camiseta baby look básica", "CAM", "BASI", "ALINH", "FEMI", "ADU", "basic", "tee", 1.00},
    {"CAM0104", "Camiseta manga longa", "CAM", "INVE", "ALINH", "MASC", "ADU", "basic", "long tee", 1.20},
    {"CAM0105", "Regata canelada", "CAM", "VERA", "MARES", "FEMI", "ADU", "basic", "tee", 0.90},
    {"CAM0201", "Camiseta estampada Onda do Leste", "CAM", "VERA", "MARES", "MASC", "ADU", "printed", "tee", 1.05},
    {"CAM0202", "Camiseta estampada Ipê-amarelo", "CAM", "VERA", "MARES", "FEMI", "ADU", "printed", "tee", 1.05},
    {"CAM0203", "Camiseta estampada Serra do Rio do Rastro", "CAM", "INVE", "ALINH", "MASC", "ADU", "printed", "tee",
        1.10},
    {"CAM0204", "Camiseta estonada Farol", "CAM", "VERA", "MARES", "MASC", "ADU", "printed and washed", "tee", 1.15},
    {"CAM0301", "Camiseta com bordado Gaivota", "CAM", "VERA", "MARES", "MASC", "ADU", "embroidered", "tee", 1.10},
    {"CAM0302", "Camiseta estampada com aplicação Bromélia", "CAM", "VERA", "MARES", "FEMI", "ADU", "decorated", "tee",
        1.25},
    {"CAM0303", "Camiseta infantil Tatu-bola", "CAM", "VERA", "PINGO", "INFA", "INF", "decorated", "tee", 0.95},
    {"CAM0304", "Camiseta infantil Saíra", "CAM", "VERA", "PINGO", "INFA", "INF", "printed", "tee", 0.90},
    {"POL0101", "Camisa polo piquet lisa", "POL", "BASI", "ALINH", "MASC", "ADU", "embroidered", "polo", 1.45},
    {"POL0102", "Camisa polo piquet feminina", "POL", "BASI", "ALINH", "FEMI", "ADU", "embroidered", "polo", 1.40},
    {"POL0103", "Camisa polo listrada", "POL", "VERA", "MARES", "MASC", "ADU", "embroidered", "polo", 1.55},
    {"POL0104", "Camisa polo manga longa", "POL", "INVE", "ALINH", "MASC", "ADU", "embroidered", "polo", 1.60},
    {"POL0105", "Camisa polo infantil", "POL", "VERA", "PINGO", "INFA", "INF", "embroidered", "polo", 1.25},
    {"CMS0101", "Camisa social manga longa", "CMS", "BASI", "ALINH", "MASC", "NUM", "shirt", "shirt", 1.40},
    {"CMS0102", "Camisa social manga curta", "CMS", "BASI", "ALINH", "MASC", "NUM", "shirt", "shirt", 1.25},
    {"CMS0103", "Camisa de linho misto", "CMS", "VERA", "MARES", "MASC", "NUM", "shirt", "shirt", 1.50},
    {"CMS0104", "Camisa xadrez flanelada", "CMS", "INVE", "ALINH", "MASC", "NUM", "shirt", "shirt", 1.45},
    {"CMS0105", "Camisete feminina acinturada", "CMS", "BASI", "ALINH", "FEMI", "NUM", "shirt", "shirt", 1.35},
    {"CMS0106", "Bata feminina com renda", "CMS", "VERA", "MARES", "FEMI", "ADU", "shirt", "shirt", 1.30},
    {"JEA0101", "Calça jeans reta", "JEA", "BASI", "GARIM", "MASC", "NUM", "jeans", "jeans", 1.40},
    {"JEA0102", "Calça jeans slim", "JEA", "INVE", "GARIM", "MASC", "NUM", "jeans", "jeans", 1.45},
    {"JEA0103", "Calça jeans skinny feminina", "JEA", "INVE", "GARIM", "FEMI", "NUM", "jeans", "jeans", 1.45},
    {"JEA0104", "Calça jeans pantalona", "JEA", "INVE", "GARIM", "FEMI", "NUM", "jeans", "jeans", 1.55},
    {"JEA0105", "Jaqueta jeans", "JEA", "INVE", "GARIM", "MASC", "ADU", "jeans", "jeans", 1.90},
    {"JEA0106", "Saia jeans", "JEA", "VERA", "GARIM", "FEMI", "NUM", "jeans", "jeans", 1.20},
    {"JEA0107", "Calça jeans infantil", "JEA", "INVE", "PINGO", "INFA", "INF", "jeans", "jeans", 1.15},
    {"JEA0201", "Calça de sarja cargo", "JEA", "INVE", "GARIM", "MASC", "NUM", "dyed", "twill", 1.60},
    {"JEA0202", "Calça chino de sarja", "JEA", "BASI", "GARIM", "MASC", "NUM", "dyed", "twill", 1.40},
    {"BER0101", "Bermuda jeans", "BER", "VERA", "GARIM", "MASC", "NUM", "jeans", "jeans", 1.10},
    {"BER0102", "Bermuda de sarja", "BER", "VERA", "GARIM", "MASC", "NUM", "dyed", "twill", 1.10},
    {"BER0103", "Bermuda de moletinho", "BER", "VERA", "ALINH", "MASC", "ADU", "embroidered", "sweat", 0.95},
    {"BER0104", "Short feminino de viscose", "BER", "VERA", "MARES", "FEMI", "ADU", "shirt", "viscose", 0.95},
    {"BER0105", "Short jeans desfiado", "BER", "VERA", "GARIM", "FEMI", "NUM", "jeans", "jeans", 1.05},
    {"BER0106", "Bermuda infantil tactel", "BER", "VERA", "PINGO", "INFA", "INF", "swimsuit", "beach", 0.85},
    {"VES0101", "Vestido longo de viscolycra", "VES", "VERA", "MARES", "FEMI", "ADU", "basic", "dress", 1.45},
    {"VES0102", "Vestido midi estampado", "VES", "VERA", "MARES", "FEMI", "ADU", "shirt", "viscose", 1.50},
    {"VES0103", "Vestido chemise", "VES", "INVE", "ALINH", "FEMI", "NUM", "shirt", "shirt", 1.65},
    {"VES0104", "Vestido infantil Joaninha", "VES", "VERA", "PINGO", "INFA", "INF", "decorated", "dress", 1.20},
    {"VES0105", "Saia midi plissada", "VES", "INVE", "ALINH", "FEMI", "ADU", "shirt", "viscose", 1.15},
    {"MOL0101", "Blusão de moletom careca", "MOL", "INVE", "ALINH", "MASC", "ADU", "embroidered", "sweat", 1.45},
    {"MOL0102", "Moletom canguru com capuz", "MOL", "INVE", "ALINH", "MASC", "ADU", "hooded", "sweat", 1.70},
    {"MOL0103", "Jaqueta de moletom com capuz", "MOL", "INVE", "ALINH", "FEMI", "ADU", "hooded", "sweat", 1.85},
    {"MOL0104", "Calça de moletom com punho", "MOL", "INVE", "ALINH", "MASC", "ADU", "basic", "sweat", 1.30},
    {"MOL0105", "Moletom infantil Coruja", "MOL", "INVE", "PINGO", "INFA", "INF", "hooded", "sweat", 1.40},
    {"MOL0106", "Blusão de moletom estampado", "MOL", "INVE", "ALINH", "FEMI", "ADU", "decorated", "sweat", 1.50},
    {"INF0101", "Conjunto infantil blusa e calça Bichinhos", "INF", "INVE", "PINGO", "INFA", "INF",
        "blouse and trousers", "set", 1.60},
    {"INF0102", "Conjunto infantil blusa e bermuda Praia", "INF", "VERA", "PINGO", "INFA", "INF", "blouse and shorts",
        "set", 1.45},
    {"INF0103", "Conjunto infantil três peças Passeio", "INF", "INVE", "PINGO", "INFA", "INF", "three pieces", "set",
        2.10},
    {"INF0104", "Conjunto infantil três peças Aniversário", "INF", "INVE", "PINGO", "INFA", "INF", "three pieces",
        "set", 2.20},
    {"INF0105", "Conjunto infantil blusa e bermuda Futebol", "INF", "VERA", "PINGO", "INFA", "INF", "blouse and shorts",
        "set", 1.40},
    {"PRA0101", "Maiô com recorte", "PRA", "VERA", "MARES", "FEMI", "ADU", "swimsuit", "beach", 1.30},
    {"PRA0102", "Biquíni cortininha", "PRA", "VERA", "MARES", "FEMI", "ADU", "bikini", "beach", 1.15},
    {"PRA0103", "Biquíni hot pant", "PRA", "VERA", "MARES", "FEMI", "ADU", "bikini", "beach", 1.25},
    {"PRA0104", "Sunga com forro", "PRA", "VERA", "MARES", "MASC", "ADU", "swimsuit", "beach", 0.95},
    {"PIJ0101", "Pijama longo adulto Bons Sonhos", "PIJ", "INVE", "ALINH", "FEMI", "ADU", "blouse and trousers", "set",
        1.55},
    {"PIJ0102", "Pijama curto adulto", "PIJ", "VERA", "ALINH", "FEMI", "ADU", "blouse and shorts", "set", 1.35},
    {"PIJ0103", "Pijama infantil Céu Estrelado", "PIJ", "INVE", "PINGO", "INFA", "INF", "blouse and trousers", "set",
        1.40},
});

} // namespace

std::span<const TSizeRange> SizeRanges() { return sizeRanges; }
std::span<const TColour> Colours() { return colours; }
std::span<const TModel> Models() { return models; }

const TSizeRange& SizeRangeOf(std::string_view code)
{
    const auto found = std::ranges::find(sizeRanges, code, &TSizeRange::code);
    if (found == sizeRanges.end())
        throw std::logic_error("no size range " + std::string(code));
    return *found;
}

} // namespace alinhavo::demo
