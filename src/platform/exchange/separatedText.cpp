#include "forms/text.h"
#include "forms/utf8.h"
#include "platform/exchange/EExchange.h"
#include "platform/exchange/TFileTable.h"
#include "platform/report/separatedCell.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

struct TEncoded {
    std::string text; ///< UTF-8, save what is malformed
    std::string_view encoding;
};

/// The characters of Windows-1252 from 0x80 to 0x9F; 0 where there is none.
constexpr std::array<char32_t, 32> Windows1252 = {0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
    0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D, 0, 0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC,
    0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178};

/// A byte that stands for no character stays as it is, and so malformed.
std::string FromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const char32_t character = code >= 0x80 && code < 0xA0 ? Windows1252[code - 0x80] : code;
        if (character == 0 && code != 0)
            text += byte;
        else
            utf8::Append(text, character);
    }
    return text;
}

/// Some malformed bytes among more letters that only UTF-8 writes so are damage, not another encoding.
bool LooksLikeUtf8(std::string_view bytes)
{
    std::size_t wellFormed = 0;
    std::size_t malformed = 0;
    while (!bytes.empty()) {
        const auto character = utf8::First(bytes);
        if (!character.wellFormed)
            ++malformed;
        else if (character.bytes > 1)
            ++wellFormed;
        bytes.remove_prefix(character.bytes);
    }
    return malformed == 0 || wellFormed > malformed;
}

TEncoded Decode(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        throw EExchange("O arquivo está em UTF-16; salve-o como CSV em UTF-8.");
    if (bytes.starts_with(Utf8Mark))
        return {std::string(bytes.substr(Utf8Mark.size())), "UTF-8"};
    if (LooksLikeUtf8(bytes))
        return {std::string(bytes), "UTF-8"};
    return {FromWindows1252(bytes), "Windows-1252"};
}

/// Whether a letter stands outside quotes in the first line that is not empty.
bool StandsInTitles(std::string_view text, char wanted)
{
    bool quoted = false;
    bool begun = false;
    for (const char letter : text) {
        if (letter == '"')
            quoted = !quoted;
        const bool isEnd = letter == '\n' || letter == '\r';
        if (!quoted && (letter == wanted || (isEnd && begun)))
            return letter == wanted;
        begun = begun || !isEnd;
    }
    return false;
}

/// A comma in a title is a comma more often than a separator; the other two are nothing but separators.
char SeparatorOf(std::string_view text)
{
    for (const char separator : {'\t', ';', ','}) {
        if (StandsInTitles(text, separator))
            return separator;
    }
    return ';';
}

/// Cuts a text into its cells.
class TCutter {
public:
    TCutter(std::string_view text, char separator, const TFileLimits& limits)
        : rest_(text)
        , separator_(separator)
        , limits_(limits)
    {
    }

    std::vector<TFileLine> Lines()
    {
        while (!rest_.empty())
            TakeLine();
        return std::move(lines_);
    }

private:
    void TakeLine()
    {
        TFileLine line{.number = ++number_, .cells = {}};
        bool more = true;
        while (more)
            more = TakeCell(line);
        if (std::ranges::any_of(line.cells, [](const TValue& cell) { return !cell.IsNull(); }))
            lines_.push_back(std::move(line));
    }

    /// True when another cell of the line follows.
    bool TakeCell(TFileLine& line)
    {
        std::string text = rest_.starts_with('"') ? TakeQuoted() : std::string();
        const std::array<char, 3> ends{separator_, '\r', '\n'};
        const auto end = std::min(rest_.find_first_of(std::string_view(ends.data(), ends.size())), rest_.size());
        text += rest_.substr(0, end);
        rest_.remove_prefix(end);
        if (line.cells.size() == limits_.columns)
            throw EExchange("A linha " + std::to_string(number_) + " tem colunas demais.");
        if (++cells_ > limits_.cells)
            throw EExchange("O arquivo tem células demais.");
        const bool blank = text.find_first_not_of(' ') == std::string::npos;
        line.cells.push_back(blank ? TValue() : TValue(WithoutFormulaMark(std::move(text))));
        return TakeEnd();
    }

    /// What stands between the quotes; what is behind the closing one belongs to the cell as well.
    std::string TakeQuoted()
    {
        std::string text;
        rest_.remove_prefix(1);
        for (;;) {
            const auto quote = rest_.find('"');
            if (quote == std::string_view::npos)
                throw EExchange("As aspas abertas na linha " + std::to_string(number_) + " não se fecham.");
            text += rest_.substr(0, quote);
            rest_.remove_prefix(quote + 1);
            if (!rest_.starts_with('"'))
                return text;
            text += '"';
            rest_.remove_prefix(1);
        }
    }

    bool TakeEnd()
    {
        if (rest_.starts_with(separator_)) {
            rest_.remove_prefix(1);
            return true;
        }
        if (!rest_.empty())
            rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
        return false;
    }

    std::string_view rest_;
    char separator_;
    const TFileLimits& limits_;
    int number_ = 0;
    std::size_t cells_ = 0;
    std::vector<TFileLine> lines_;
};

} // namespace

TFileTable ReadSeparatedText(std::string_view bytes, const TFileLimits& limits)
{
    const auto [text, encoding] = Decode(bytes);
    const char separator = SeparatorOf(text);
    const std::string_view name = separator == '\t' ? "tabulação" : separator == ',' ? "," : ";";
    return {.form = "CSV, " + std::string(encoding) + ", separado por " + std::string(name),
        .lines = TCutter(text, separator, limits).Lines()};
}

} // namespace alinhavo
