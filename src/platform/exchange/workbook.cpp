#include "forms/text.h"
#include "platform/exchange/EExchange.h"
#include "platform/exchange/TFileTable.h"
#include "platform/exchange/TXmlReader.h"
#include "platform/exchange/TZipArchive.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <set>

namespace alinhavo {
namespace {

constexpr int FirstOwnFormat = 164; ///< below it the number of a format says what it is
constexpr std::string_view WorkbookPart = "xl/workbook.xml";

std::optional<double> Number(std::string_view text)
{
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

int Index(std::string_view text)
{
    int number = -1;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

bool IsTrue(std::string_view text) { return text == "1" || text == "true"; }

/// The number of a column from the letters of a cell's name ("C7" is 2); -1 without letters.
int ColumnOf(std::string_view name)
{
    int column = 0;
    for (const char letter : name) {
        if (letter < 'A' || letter > 'Z' || column > 100'000)
            break;
        column = column * 26 + (letter - 'A' + 1);
    }
    return column - 1;
}

/// "_x000D_" stands for the character of that number, which XML itself could not hold.
std::string Unescaped(std::string_view text)
{
    constexpr std::size_t escapeLength = 7;
    std::string plain;
    while (!text.empty()) {
        unsigned code = 0;
        const auto digits = text.substr(std::min<std::size_t>(2, text.size()), 4);
        const bool escape = text.size() >= escapeLength && text.starts_with("_x") && text[escapeLength - 1] == '_'
            && std::from_chars(digits.data(), digits.data() + digits.size(), code, 16).ptr
                == digits.data() + digits.size()
            && code < 0x80;
        plain += escape ? static_cast<char>(code) : text.front();
        text.remove_prefix(escape ? escapeLength : 1);
    }
    return plain;
}

/// Formats of dates and hours among those that need no text.
bool IsDateFormat(int format)
{
    const auto between = [format](int first, int last) { return format >= first && format <= last; };
    return between(14, 22) || between(27, 36) || between(45, 47) || between(50, 58);
}

/// Days, months or years stand in it, outside quotes, brackets and escaped letters.
bool IsDateFormat(std::string_view format)
{
    char closing = 0;
    for (std::size_t place = 0; place < format.size(); ++place) {
        const char letter = format[place];
        if (closing != 0) {
            closing = letter == closing ? '\0' : closing;
        } else if (letter == '"') {
            closing = '"';
        } else if (letter == '[') {
            closing = ']';
        } else if (letter == '\\' || letter == '_' || letter == '*') {
            ++place;
        } else if (std::string_view("dDmMyYhH").find(letter) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

/// Reads the first sheet of a workbook, part by part.
class TWorkbookReader {
public:
    TWorkbookReader(const std::filesystem::path& file, const TFileLimits& limits)
        : archive_(file, limits.bytes)
        , limits_(limits)
    {
    }

    std::vector<TFileLine> Lines()
    {
        const std::string sheet = FirstSheet();
        if (archive_.Has("xl/styles.xml"))
            ReadStyles();
        if (archive_.Has("xl/sharedStrings.xml"))
            ReadSharedTexts();
        ReadSheet(sheet);
        return std::move(lines_);
    }

private:
    void Parse(const std::string& part, TXmlReader& reader)
    {
        archive_.Read(part, [&](std::string_view piece) { reader.Feed(piece); });
        reader.Finish();
    }

    std::string FirstSheet();
    void ReadStyles();
    void ReadSharedTexts();
    void ReadSheet(const std::string& part);
    void BeginOfSheet(std::string_view name, const TXmlAttributes& attributes);
    void EndOfSheet(std::string_view name);
    void BeginCell(const TXmlAttributes& attributes);
    void EndCell();
    void EndLine();
    TValue CellValue() const;
    TValue DateOf(double number) const;
    std::string Counted(std::string text);

    TZipArchive archive_;
    const TFileLimits& limits_;
    std::vector<bool> styleIsDate_;
    std::vector<std::string> sharedTexts_;
    bool from1904_ = false;
    std::size_t cells_ = 0;
    std::size_t textBytes_ = 0;
    std::vector<TFileLine> lines_;

    // The cell that is being read
    TFileLine line_;
    std::size_t column_ = 0;
    std::string type_;
    int style_ = -1;
    std::string text_;
    bool inText_ = false;
    bool phonetic_ = false; ///< how an East Asian text is spoken: no part of it
};

std::string TWorkbookReader::FirstSheet()
{
    std::string relation;
    TXmlReader workbook;
    workbook.OnBegin = [&](std::string_view name, const TXmlAttributes& attributes) {
        if (name == "workbookPr")
            from1904_ = IsTrue(attributes["date1904"]);
        if (name == "sheet" && relation.empty())
            relation = attributes["id"];
    };
    workbook.OnEnd = [](std::string_view) {};
    workbook.OnText = [](std::string_view) {};
    Parse(std::string(WorkbookPart), workbook);

    std::string target;
    TXmlReader relations;
    relations.OnBegin = [&](std::string_view name, const TXmlAttributes& attributes) {
        if (name == "Relationship" && attributes["Id"] == relation)
            target = attributes["Target"];
    };
    relations.OnEnd = [](std::string_view) {};
    relations.OnText = [](std::string_view) {};
    Parse("xl/_rels/workbook.xml.rels", relations);
    if (target.empty())
        throw EExchange("A pasta de trabalho não tem planilha.");
    return target.starts_with('/') ? target.substr(1) : "xl/" + target;
}

void TWorkbookReader::ReadStyles()
{
    std::map<int, bool> ownFormats;
    bool inCells = false;
    TXmlReader styles;
    styles.OnBegin = [&](std::string_view name, const TXmlAttributes& attributes) {
        if (name == "numFmt")
            ownFormats[Index(attributes["numFmtId"])] = IsDateFormat(attributes["formatCode"]);
        if (name == "cellXfs")
            inCells = true;
        if (name != "xf" || !inCells)
            return;
        const int format = Index(attributes["numFmtId"]);
        const auto own = ownFormats.find(format);
        styleIsDate_.push_back(own != ownFormats.end() ? own->second : format < FirstOwnFormat && IsDateFormat(format));
    };
    styles.OnEnd = [&](std::string_view name) { inCells = inCells && name != "cellXfs"; };
    styles.OnText = [](std::string_view) {};
    Parse("xl/styles.xml", styles);
}

void TWorkbookReader::ReadSharedTexts()
{
    TXmlReader texts;
    texts.OnBegin = [&](std::string_view name, const TXmlAttributes&) {
        phonetic_ = phonetic_ || name == "rPh";
        inText_ = name == "t" && !phonetic_;
        if (name == "si")
            text_.clear();
    };
    texts.OnEnd = [&](std::string_view name) {
        inText_ = false;
        phonetic_ = phonetic_ && name != "rPh";
        if (name == "si")
            sharedTexts_.push_back(Unescaped(text_));
    };
    texts.OnText = [&](std::string_view text) {
        if (inText_)
            text_ += text;
    };
    Parse("xl/sharedStrings.xml", texts);
}

void TWorkbookReader::ReadSheet(const std::string& part)
{
    TXmlReader sheet;
    sheet.OnBegin = [&](std::string_view name, const TXmlAttributes& attributes) { BeginOfSheet(name, attributes); };
    sheet.OnEnd = [&](std::string_view name) { EndOfSheet(name); };
    sheet.OnText = [&](std::string_view text) {
        if (inText_)
            text_ += text;
    };
    Parse(part, sheet);
}

void TWorkbookReader::BeginOfSheet(std::string_view name, const TXmlAttributes& attributes)
{
    if (name == "row") {
        const int number = Index(attributes["r"]);
        line_ = {.number = number > 0 ? number : line_.number + 1, .cells = {}};
        column_ = 0;
    } else if (name == "c") {
        BeginCell(attributes);
    } else if (name == "rPh") {
        phonetic_ = true;
    }
    inText_ = (name == "v" || name == "t") && !phonetic_;
}

void TWorkbookReader::EndOfSheet(std::string_view name)
{
    inText_ = false;
    if (name == "c")
        EndCell();
    else if (name == "row")
        EndLine();
    else if (name == "rPh")
        phonetic_ = false;
}

void TWorkbookReader::BeginCell(const TXmlAttributes& attributes)
{
    const int column = ColumnOf(attributes["r"]);
    if (column >= 0)
        column_ = static_cast<std::size_t>(column);
    type_ = attributes["t"];
    style_ = Index(attributes["s"]);
    text_.clear();
}

void TWorkbookReader::EndCell()
{
    const std::size_t column = column_++;
    auto value = CellValue();
    if (value.IsNull())
        return;
    if (column >= limits_.columns)
        throw EExchange("A linha " + std::to_string(line_.number) + " tem colunas demais.");
    if (value.IsText())
        value = Counted(value.Text());
    if (column >= line_.cells.size()) {
        cells_ += column + 1 - line_.cells.size();
        line_.cells.resize(column + 1);
    }
    if (cells_ > limits_.cells)
        throw EExchange("A planilha tem células demais.");
    line_.cells[column] = std::move(value);
}

void TWorkbookReader::EndLine()
{
    const int number = line_.number;
    if (!line_.cells.empty())
        lines_.push_back(std::move(line_));
    line_ = {.number = number, .cells = {}};
}

TValue TWorkbookReader::CellValue() const
{
    if (type_ == "s") {
        const auto index = static_cast<std::size_t>(Index(text_));
        return index < sharedTexts_.size() && !IsBlank(sharedTexts_[index]) ? TValue(sharedTexts_[index]) : TValue();
    }
    if (IsBlank(text_))
        return {};
    if (type_ == "b")
        return IsTrue(text_) ? "S" : "N";
    const auto number = Number(text_);
    if (!number || (!type_.empty() && type_ != "n"))
        return Unescaped(text_);
    const auto style = static_cast<std::size_t>(style_);
    return style < styleIsDate_.size() && styleIsDate_[style] ? DateOf(*number) : TValue(*number);
}

/// The date of a serial number; the number itself when it is none. Before March 1900 the count is off by the day that
/// the first spreadsheet programs believed in.
TValue TWorkbookReader::DateOf(double number) const
{
    constexpr std::int64_t epoch1900 = -25569;
    constexpr std::int64_t epoch1904 = -24107;
    constexpr double lastDay = 2958466; ///< behind 31/12/9999
    constexpr double firstSure = 61;
    constexpr double secondsPerDay = 86400;
    if (number < (from1904_ ? 0 : firstSure) || number >= lastDay)
        return number;
    const double days = std::floor(number);
    const auto seconds = static_cast<std::int64_t>(std::round((number - days) * secondsPerDay));
    const auto day = static_cast<std::int64_t>(days) + (from1904_ ? epoch1904 : epoch1900);
    return TDateTime::FromSeconds(TDateTime::FromDays(day).Seconds() + seconds);
}

/// One shared text in many cells is many texts in memory.
std::string TWorkbookReader::Counted(std::string text)
{
    textBytes_ += text.size();
    if (textBytes_ > limits_.bytes)
        throw EExchange("A planilha tem textos demais.");
    return text;
}

} // namespace

TFileTable ReadWorkbook(const std::filesystem::path& file, const TFileLimits& limits)
{
    return {.form = "planilha XLSX", .lines = TWorkbookReader(file, limits).Lines()};
}

} // namespace alinhavo
