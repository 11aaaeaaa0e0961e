#include "forms/text.h"
#include "forms/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

// The root order of Unicode, in which marks count like any character, for the characters of the Western European code
// page: what Brazilian keyboards, files and databases hold. Both servers order text by it.

namespace alinhavo {
namespace {

/// What a character weighs on each of three levels. A weight of 0 does not count on its level.
struct TElement {
    char32_t primary = 0; ///< which character
    std::uint8_t accent = 0;
    std::uint8_t variant = 0; ///< lower case, upper case, superscript
};

enum : std::uint8_t { NoAccent = 1, Ligature, FirstAccent };
enum : std::uint8_t { Plain = 1, UpperCaseLetter, Variant };

/// The characters that differ in more than accent and case, in their order.
constexpr std::u32string_view Order = U"\t\n\v\f\r\u0085 "
                                      U"_-–—,;:!¡?¿.·'‘’‚‹›\"“”„«»()[]{}§¶@*/\\&#%‰†‡•"
                                      U"`´˜^¯¨¸ˆ°©®+±÷×<=>¬|¦~⁄¤¢$£¥€"
                                      U"0123456789abcdefƒghijklmnopqrstuvwxyzþµ";

/// Acute, grave, circumflex, caron, ring, diaeresis, tilde, stroke, cedilla, macron.
constexpr std::u32string_view Accents = U"\u0301\u0300\u0302\u030C\u030A\u0308\u0303\u0338\u0327\u0304";

struct TSpelling {
    char32_t character;
    std::u32string_view spelled;
};

constexpr std::array Accented = std::to_array<TSpelling>({
    {U'á', U"a\u0301"},
    {U'à', U"a\u0300"},
    {U'â', U"a\u0302"},
    {U'å', U"a\u030A"},
    {U'ä', U"a\u0308"},
    {U'ã', U"a\u0303"},
    {U'ç', U"c\u0327"},
    {U'é', U"e\u0301"},
    {U'è', U"e\u0300"},
    {U'ê', U"e\u0302"},
    {U'ë', U"e\u0308"},
    {U'í', U"i\u0301"},
    {U'ì', U"i\u0300"},
    {U'î', U"i\u0302"},
    {U'ï', U"i\u0308"},
    {U'ñ', U"n\u0303"},
    {U'ó', U"o\u0301"},
    {U'ò', U"o\u0300"},
    {U'ô', U"o\u0302"},
    {U'ö', U"o\u0308"},
    {U'õ', U"o\u0303"},
    {U'ø', U"o\u0338"},
    {U'š', U"s\u030C"},
    {U'ú', U"u\u0301"},
    {U'ù', U"u\u0300"},
    {U'û', U"u\u0302"},
    {U'ü', U"u\u0308"},
    {U'ý', U"y\u0301"},
    {U'ÿ', U"y\u0308"},
    {U'ž', U"z\u030C"},
    {U'Á', U"A\u0301"},
    {U'À', U"A\u0300"},
    {U'Â', U"A\u0302"},
    {U'Å', U"A\u030A"},
    {U'Ä', U"A\u0308"},
    {U'Ã', U"A\u0303"},
    {U'Ç', U"C\u0327"},
    {U'É', U"E\u0301"},
    {U'È', U"E\u0300"},
    {U'Ê', U"E\u0302"},
    {U'Ë', U"E\u0308"},
    {U'Í', U"I\u0301"},
    {U'Ì', U"I\u0300"},
    {U'Î', U"I\u0302"},
    {U'Ï', U"I\u0308"},
    {U'Ñ', U"N\u0303"},
    {U'Ó', U"O\u0301"},
    {U'Ò', U"O\u0300"},
    {U'Ô', U"O\u0302"},
    {U'Ö', U"O\u0308"},
    {U'Õ', U"O\u0303"},
    {U'Ø', U"O\u0338"},
    {U'Š', U"S\u030C"},
    {U'Ú', U"U\u0301"},
    {U'Ù', U"U\u0300"},
    {U'Û', U"U\u0302"},
    {U'Ü', U"U\u0308"},
    {U'Ý', U"Y\u0301"},
    {U'Ÿ', U"Y\u0308"},
    {U'Ž', U"Z\u030C"},
});

constexpr std::array Ligatures = std::to_array<TSpelling>({
    {U'æ', U"ae"},
    {U'Æ', U"AE"},
    {U'œ', U"oe"},
    {U'Œ', U"OE"},
    {U'ß', U"ss"},
    {U'ð', U"d"},
    {U'Ð', U"D"},
});

constexpr std::array Variants = std::to_array<TSpelling>({
    {U'\u00A0', U" "},
    {U'…', U"..."},
    {U'ª', U"a"},
    {U'º', U"o"},
    {U'¹', U"1"},
    {U'²', U"2"},
    {U'³', U"3"},
    {U'½', U"1⁄2"},
    {U'¼', U"1⁄4"},
    {U'¾', U"3⁄4"},
    {U'™', U"tm"},
});

struct TElements {
    std::array<TElement, 3> items{};
    std::size_t count = 0;

    constexpr void Add(TElement element) { items[count++] = element; }
};

constexpr bool IsCapital(char32_t code) { return (code >= U'A' && code <= U'Z') || code == U'Þ'; }

constexpr bool IsControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0xAD; }

/// A character that is no combination of others. Characters that the order does not know follow all others.
constexpr TElements Simple(char32_t code)
{
    constexpr char32_t firstUnknown = 0x1000;
    TElements elements;
    const auto lower = IsCapital(code) ? code + 0x20 : code;
    if (const auto place = Order.find(lower); place != Order.npos)
        elements.Add({static_cast<char32_t>(place + 1), NoAccent, lower == code ? Plain : UpperCaseLetter});
    else if (const auto accent = Accents.find(code); accent != Accents.npos)
        elements.Add({0, static_cast<std::uint8_t>(FirstAccent + accent), Plain});
    else if (!IsControl(code))
        elements.Add({firstUnknown + code, NoAccent, Plain});
    return elements;
}

constexpr TElements Spelled(std::u32string_view spelling)
{
    TElements elements;
    for (const char32_t code : spelling)
        elements.Add(Simple(code).items[0]);
    return elements;
}

constexpr const TSpelling* Find(const auto& spellings, char32_t code)
{
    const auto found = std::ranges::find(spellings, code, &TSpelling::character);
    return found != spellings.end() ? &*found : nullptr;
}

constexpr TElements Analysed(char32_t code)
{
    if (const auto* accented = Find(Accented, code))
        return Spelled(accented->spelled);
    if (const auto* ligature = Find(Ligatures, code)) {
        auto elements = Spelled(ligature->spelled);
        elements.items[0].accent = Ligature;
        return elements;
    }
    if (const auto* variant = Find(Variants, code)) {
        auto elements = Spelled(variant->spelled);
        for (auto& element : elements.items)
            element.variant = Variant;
        return elements;
    }
    return Simple(code);
}

constexpr std::size_t TableSize = 0x100;

/// The elements of the first characters, which are nearly all there are; the others are analysed when they are met.
constexpr auto Table = [] {
    std::array<TElements, TableSize> table;
    for (std::size_t code = 0; code < TableSize; ++code)
        table[code] = Analysed(static_cast<char32_t>(code));
    return table;
}();

/// The elements of a text, one after the other.
class TElementReader {
public:
    explicit TElementReader(std::string_view text)
        : rest_(text)
    {
    }

    /// The next weight that counts on the level; 0 at the end.
    char32_t Next(auto TElement::*level)
    {
        while (next_ < current_.count || ReadCharacter())
            if (next_ < current_.count)
                if (const char32_t weight = current_.items[next_++].*level; weight != 0)
                    return weight;
        return 0;
    }

private:
    bool ReadCharacter()
    {
        if (rest_.empty())
            return false;
        const auto character = utf8::First(rest_);
        current_ = ElementsOf(character);
        next_ = 0;
        rest_.remove_prefix(character.bytes);
        return true;
    }

    TElements ElementsOf(const utf8::TCharacter& character) const
    {
        constexpr char32_t firstMalformed = 0x200000;
        if (character.wellFormed)
            return character.code < TableSize ? Table[character.code] : Analysed(character.code);
        TElements elements;
        elements.Add({firstMalformed + static_cast<unsigned char>(rest_.front()), NoAccent, Plain});
        return elements;
    }

    std::string_view rest_;
    TElements current_;
    std::size_t next_ = 0;
};

int CompareLevel(std::string_view left, std::string_view right, auto TElement::*level)
{
    TElementReader leftReader(left);
    TElementReader rightReader(right);
    for (;;) {
        const auto one = leftReader.Next(level);
        const auto other = rightReader.Next(level);
        if (one != other)
            return one < other ? -1 : 1;
        if (one == 0)
            return 0;
    }
}

/// The bytes of the characters with which both texts begin.
std::size_t CommonBeginning(std::string_view left, std::string_view right)
{
    const auto shorter = std::min(left.size(), right.size());
    auto bytes = static_cast<std::size_t>(
        std::mismatch(left.begin(), left.begin() + shorter, right.begin()).first - left.begin());
    const auto splits
        = [&bytes](std::string_view text) { return bytes < text.size() && utf8::IsContinuation(text[bytes]); };
    while (bytes > 0 && (splits(left) || splits(right)))
        --bytes;
    return bytes;
}

} // namespace

int CompareText(std::string_view left, std::string_view right)
{
    const auto common = CommonBeginning(left, right);
    left.remove_prefix(common);
    right.remove_prefix(common);
    if (left.empty() && right.empty())
        return 0;

    if (const int order = CompareLevel(left, right, &TElement::primary); order != 0)
        return order;
    if (const int order = CompareLevel(left, right, &TElement::accent); order != 0)
        return order;
    if (const int order = CompareLevel(left, right, &TElement::variant); order != 0)
        return order;
    return left.compare(right);
}

} // namespace alinhavo
