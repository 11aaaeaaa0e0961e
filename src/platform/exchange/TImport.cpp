#include "platform/exchange/TImport.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "forms/utf8.h"
#include "platform/exchange/EExchange.h"
#include "platform/exchange/headers.h"

#include <algorithm>
#include <set>

namespace alinhavo {
namespace {

constexpr std::size_t ShownContent = 200;

/// Of a cell, fit to be shown: what is malformed becomes a question mark.
std::string Shown(const TValue& cell)
{
    const auto text = Left(cell.AsString(), ShownContent);
    std::string shown;
    for (std::string_view rest = text; !rest.empty();) {
        const auto character = utf8::First(rest);
        const bool fit = character.wellFormed && character.code != 0;
        shown += fit ? rest.substr(0, character.bytes) : "?";
        rest.remove_prefix(character.bytes);
    }
    return shown;
}

std::string ForPerson(const TValue& value)
{
    return value.IsFloat() ? Replace(FloatToStr(value.AsFloat()), ".", ",") : value.AsString();
}

} // namespace

TImport::TImport(TOrvDatabase& database, const TTableDecl& table, TFileTable file, TExistingRows existing)
    : database_(database)
    , table_(table)
    , existing_(existing)
    , form_(std::move(file.form))
{
    const auto* key = FindColumn(table, table.key);
    hasIdentity_ = key && key->kind == TColumnKind::Identity;
    mayRepeat_ = PersonKey(table).empty();
    if (!ReadTitles(file))
        return;
    file.lines.erase(file.lines.begin());
    ReadLines(file.lines);
    if (!mayRepeat_)
        FindRepeatedKeys();
    CompareWithTable();
    CheckWrittenLines();
    TellLines();
}

// The titles --------------------------------------------------------------------------------------------------------

bool TImport::ReadTitles(const TFileTable& file)
{
    if (file.lines.empty())
        throw EExchange("O arquivo está vazio.");
    const auto& titles = file.lines.front();
    for (std::size_t place = 0; place < titles.cells.size(); ++place)
        TakeTitle(titles.number, titles.cells[place], place);
    TakeKey(titles.number);
    return remarks_.empty();
}

void TImport::TakeTitle(int line, const TValue& cell, std::size_t place)
{
    if (cell.IsNull())
        return;
    auto title = Shown(cell);
    const auto* column = ColumnOfTitle(table_, title);
    if (!column)
        return RefuseTitle(line, title, "A tabela " + std::string(table_.name) + " não tem esta coluna.");
    if (FindUsed(column->name) < columns_.size())
        return RefuseTitle(line, title, "A coluna " + std::string(column->name) + " está duas vezes no arquivo.");
    columns_.push_back({.reader = TColumnReader(*column), .place = place, .title = std::move(title)});
}

/// Of a row that a person tells apart by it, a column that he must fill cannot be missing; another one is taken as blank.
void TImport::TakeKey(int line)
{
    for (const auto name : ColumnNames(PersonKey(table_))) {
        const auto& column = *FindColumn(table_, name);
        if (FindUsed(name) == columns_.size()) {
            const std::string title(TitleOfColumn(table_, column));
            if (IsRequired(table_, column))
                RefuseTitle(line, title, "Falta esta coluna, que diz de que linha da tabela se trata.");
            columns_.push_back({.reader = TColumnReader(column), .title = title});
        }
        columns_[FindUsed(name)].isKey = true;
    }
    if (!mayRepeat_)
        return;
    for (TUsedColumn& column : columns_)
        column.isKey = true;
}

std::size_t TImport::FindUsed(std::string_view column) const
{
    const auto found = std::ranges::find(columns_, column, [](const TUsedColumn& used) { return used.Decl().name; });
    return static_cast<std::size_t>(found - columns_.begin());
}

// The lines by themselves ---------------------------------------------------------------------------------------------

void TImport::ReadLines(std::vector<TFileLine>& lines)
{
    for (const TFileLine& line : lines) {
        for (TUsedColumn& column : columns_) {
            if (column.place < line.cells.size())
                column.reader.See(line.cells[column.place]);
        }
    }
    lines_.reserve(lines.size());
    for (TFileLine& source : lines) {
        ReadLine(source, lines_.emplace_back());
        source = {};
    }
}

void TImport::ReadLine(const TFileLine& source, TLine& line)
{
    line.number = source.number;
    line.values.resize(columns_.size());
    std::size_t titled = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const TUsedColumn& column = columns_[i];
        if (column.place >= source.cells.size())
            continue;
        const TValue& cell = source.cells[column.place];
        titled += cell.IsNull() ? 0 : 1;
        auto [value, reason] = column.reader.Read(cell);
        if (!reason.empty())
            Refuse(line, &column, cell, std::move(reason));
        line.values[i] = std::move(value);
    }
    const auto filled = std::ranges::count_if(source.cells, [](const TValue& cell) { return !cell.IsNull(); });
    if (titled < static_cast<std::size_t>(filled))
        Refuse(line, nullptr, source.cells.back(), "A linha tem mais células do que o arquivo tem títulos.");
    if (line.state == TLineState::Wrong)
        return;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].isKey && IsRequired(table_, columns_[i].Decl()) && line.values[i].IsEmpty())
            Refuse(line, &columns_[i], {}, "Falta preencher: é parte da chave.");
    }
}

void TImport::FindRepeatedKeys()
{
    std::unordered_map<std::string, int> seen;
    for (TLine& line : lines_) {
        if (line.state == TLineState::Wrong)
            continue;
        const auto [first, isFirst] = seen.emplace(KeyOf(line, '\x1F'), line.number);
        if (!isFirst)
            Refuse(line, nullptr, KeyOf(line, ' '), "A chave já está na linha " + std::to_string(first->second) + ".");
    }
}

std::string TImport::KeyOf(const TLine& line, char separator) const
{
    std::string key;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].isKey)
            key += line.values[i].AsString() + separator;
    }
    return separator == ' ' ? Left(TrimRight(key), ShownContent) : key;
}

// What is said ----------------------------------------------------------------------------------------------------------

void TImport::Refuse(TLine& line, const TUsedColumn* column, const TValue& content, std::string reason)
{
    line.state = TLineState::Wrong;
    remarks_.push_back({.line = line.number,
        .state = TLineState::Wrong,
        .key = KeyOf(line, ' '),
        .column = column ? column->title : "",
        .content = Shown(content),
        .reason = std::move(reason)});
}

void TImport::RefuseTitle(int line, std::string title, std::string reason)
{
    remarks_.push_back({.line = line,
        .state = TLineState::Wrong,
        .key = {},
        .column = std::move(title),
        .content = {},
        .reason = std::move(reason)});
    counts_.wrong = 1;
}

void TImport::TellLines()
{
    for (const TLine& line : lines_) {
        switch (line.state) {
        case TLineState::New:
            ++counts_.added;
            break;
        case TLineState::Changed:
            ++counts_.changed;
            break;
        case TLineState::Same:
            ++counts_.same;
            break;
        case TLineState::Skipped:
            ++counts_.skipped;
            break;
        case TLineState::Wrong:
            ++counts_.wrong;
            continue;
        }
        remarks_.push_back({.line = line.number,
            .state = line.state,
            .key = KeyOf(line, ' '),
            .column = {},
            .content = {},
            .reason = line.state == TLineState::New ? ContentOf(line) : line.changes});
    }
    std::ranges::stable_sort(remarks_, {}, &TImportRemark::line);
}

/// As it was understood.
std::string TImport::ContentOf(const TLine& line) const
{
    std::string content;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (!columns_[i].isKey && !line.values[i].IsEmpty())
            content += (content.empty() ? "" : "; ") + columns_[i].title + ": " + ForPerson(line.values[i]);
    }
    return Left(content, ShownContent);
}

} // namespace alinhavo
