#include "platform/exchange/TImport.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace alinhavo {
namespace {

constexpr std::size_t ValuesAtOnce = 200; ///< in one statement

/// Workbooks keep sixteen digits of a number.
constexpr double SameNumber = 1e-12;

bool Same(const TValue& left, const TValue& right)
{
    if (left.IsEmpty() || right.IsEmpty())
        return left.IsEmpty() && right.IsEmpty();
    if (left.IsFloat() || right.IsFloat()) {
        const double difference = std::abs(left.AsFloat() - right.AsFloat());
        return difference <= SameNumber * std::max(std::abs(left.AsFloat()), std::abs(right.AsFloat()));
    }
    return left.AsString() == right.AsString();
}

bool IsZero(const TValue& value) { return value.IsEmpty() || (value.IsFloat() && value.AsFloat() == 0); }

std::string Quoted(const TValue& value)
{
    constexpr std::size_t shown = 60;
    if (value.IsEmpty())
        return "nada";
    return "\"" + Left(value.IsFloat() ? Replace(FloatToStr(value.AsFloat()), ".", ",") : value.AsString(), shown)
        + "\"";
}

/// " IN (?, ?, …)" of so many of the values at a time.
template <typename TAct>
void ForEachList(const std::vector<TValue>& values, TAct act)
{
    for (std::size_t first = 0; first < values.size(); first += ValuesAtOnce) {
        const auto end = std::min(first + ValuesAtOnce, values.size());
        TStatement list(" IN (?", values[first]);
        for (std::size_t i = first + 1; i < end; ++i)
            list.Add(", ?", values[i]);
        act(list.Add(")"), std::span(values).subspan(first, end - first));
    }
}

} // namespace

// The lines beside their rows -----------------------------------------------------------------------------------------

/// Only the rows that the file speaks of are read: those whose search column holds one of the values in the file.
void TImport::CompareWithTable()
{
    const auto search = SearchColumn();
    TLines all;
    TLinesByValue byValue;
    std::vector<TValue> values;
    for (TLine& line : lines_) {
        if (line.state == TLineState::Wrong)
            continue;
        all.push_back(&line);
        if (search == columns_.size())
            continue;
        auto& lines = byValue[line.values[search].AsString()];
        if (lines.empty())
            values.push_back(line.values[search]);
        lines.push_back(&line);
    }
    if (search == columns_.size())
        return CompareLines(all, database_.Open(Select()));

    ForEachList(values, [&](const TStatement& list, std::span<const TValue> part) {
        TLines lines;
        for (const TValue& value : part)
            std::ranges::copy(byValue[value.AsString()], std::back_inserter(lines));
        CompareLines(lines, database_.Open(Select().Add(" WHERE ?", TName(columns_[search].Decl().name)).Add(list)));
    });
}

/// The first column of the key that is blank in no line; columns_.size() when there is none.
std::size_t TImport::SearchColumn() const
{
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const auto isBlank
            = [i](const TLine& line) { return line.state != TLineState::Wrong && line.values[i].IsEmpty(); };
        if (columns_[i].isKey && std::ranges::none_of(lines_, isBlank))
            return i;
    }
    return columns_.size();
}

/// The used columns in their order, and then the number of the row where it has one.
TStatement TImport::Select() const
{
    TStatement sql("SELECT ");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (i > 0)
            sql.Add(", ");
        sql.Add("?", TName(columns_[i].Decl().name));
    }
    if (hasIdentity_)
        sql.Add(", ?", TName(table_.key));
    return sql.Add(" FROM {?}", TName(table_.name));
}

void TImport::CompareLines(const TLines& lines, const TTableData& rows)
{
    std::unordered_map<std::string, std::vector<std::size_t>> rowsByKey;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
        rowsByKey[KeyOf(rows, row)].push_back(row);
    for (TLine* line : lines) {
        const auto found = rowsByKey.find(KeyOf(*line, '\x1F'));
        if (found == rowsByKey.end() || found->second.empty())
            continue;
        CompareRow(*line, rows, found->second.back());
        if (mayRepeat_)
            found->second.pop_back();
        else if (line->state != TLineState::Same && found->second.size() > 1)
            Refuse(*line, nullptr, KeyOf(*line, ' '),
                "A tabela tem " + std::to_string(found->second.size()) + " linhas com esta chave.");
    }
}

void TImport::CompareRow(TLine& line, const TTableData& rows, std::size_t row)
{
    line.state = TLineState::Same;
    line.differs.assign(columns_.size(), false);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const auto old = rows.Column(i).Value(row);
        if (columns_[i].isKey || Same(line.values[i], old)
            || (columns_[i].Decl().kept && IsZero(line.values[i]) && IsZero(old)))
            continue;
        line.differs[i] = true;
        line.state = existing_ == TExistingRows::Update ? TLineState::Changed : TLineState::Skipped;
        line.changes += (line.changes.empty() ? "" : "; ") + columns_[i].title + ": " + Quoted(old) + " passa a "
            + Quoted(line.values[i]);
    }
    if (hasIdentity_)
        line.identity = rows.Column(columns_.size()).Integer(row);
}

std::string TImport::KeyOf(const TTableData& rows, std::size_t row) const
{
    std::string key;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].isKey)
            key += rows.Column(i).Value(row).AsString() + '\x1F';
    }
    return key;
}

// What is to be written -------------------------------------------------------------------------------------------------

void TImport::CheckWrittenLines()
{
    for (TLine& line : lines_) {
        if (line.state != TLineState::New && line.state != TLineState::Changed)
            continue;
        CheckRequired(line);
        CheckKept(line);
    }
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        CheckReference(i);
        if (HasUnique(columns_[i].Decl()))
            CheckUnique(i);
    }
    CheckOrdersInProduction();
}

bool TImport::Writes(const TLine& line, std::size_t column) const
{
    return line.state == TLineState::New || (line.state == TLineState::Changed && line.differs[column]);
}

void TImport::CheckRequired(TLine& line)
{
    const bool isNew = line.state == TLineState::New;
    for (const TColumnDecl& column : table_.columns) {
        const auto used = FindUsed(column.name);
        const bool inFile = used < columns_.size();
        if (!IsRequired(table_, column) || (inFile ? !line.values[used].IsEmpty() : !isNew))
            continue;
        const TUsedColumn missing{.reader = TColumnReader(column), .title = std::string(column.caption)};
        Refuse(line, inFile ? &columns_[used] : &missing, {}, "Falta preencher.");
    }
}

void TImport::CheckKept(TLine& line)
{
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const bool isKept = columns_[i].Decl().kept && !columns_[i].isKey;
        const bool writes = line.differs.empty() ? !IsZero(line.values[i]) : line.differs[i];
        if (isKept && writes)
            Refuse(
                line, &columns_[i], line.values[i], "Esta coluna é escrita pelo próprio sistema, conforme o trabalho.");
    }
}

TImport::TLinesByValue TImport::LinesByWritten(std::size_t column)
{
    TLinesByValue byValue;
    for (TLine& line : lines_) {
        if (Writes(line, column) && !line.values[column].IsEmpty())
            byValue[line.values[column].AsString()].push_back(&line);
    }
    return byValue;
}

/// A code that stands nowhere yet is right when the same file brings it.
void TImport::CheckReference(std::size_t column)
{
    const auto reference = ReferenceOf(columns_[column].Decl());
    if (!reference.column)
        return;
    auto unknown = LinesByWritten(column);
    std::vector<TValue> values;
    for (const auto& [value, lines] : unknown)
        values.push_back(lines.front()->values[column]);
    ForEachList(values, [&](const TStatement& list, std::span<const TValue>) {
        const TName name(reference.column->name);
        const auto known = database_.Open(
            TStatement("SELECT DISTINCT ? FROM {?} WHERE ?", name, TName(reference.table->name), name).Add(list));
        for (std::size_t row = 0; row < known.RowCount(); ++row)
            unknown.erase(known.Column(0).Value(row).AsString());
    });
    const auto own = FindUsed(reference.column->name);
    if (reference.table == &table_ && own < columns_.size()) {
        for (const TLine& line : lines_)
            unknown.erase(line.values[own].AsString());
    }
    for (const auto& [value, lines] : unknown) {
        for (TLine* line : lines)
            Refuse(*line, &columns_[column], value,
                "Não existe em " + std::string(reference.table->caption) + " (" + std::string(reference.table->name)
                    + ").");
    }
}

bool TImport::HasUnique(const TColumnDecl& column) const
{
    return std::ranges::any_of(
        table_.indexes, [&](const TIndexDecl& index) { return index.unique && index.columns == column.name; });
}

void TImport::CheckUnique(std::size_t column)
{
    auto written = LinesByWritten(column);
    std::vector<TValue> values;
    for (auto& [value, lines] : written) {
        values.push_back(lines.front()->values[column]);
        for (auto line = lines.begin() + 1; line != lines.end(); ++line)
            Refuse(**line, &columns_[column], value,
                "O texto já está na linha " + std::to_string(lines.front()->number) + ".");
    }
    ForEachList(values, [&](const TStatement& list, std::span<const TValue>) {
        const auto rows = database_.Open(Select().Add(" WHERE ?", TName(columns_[column].Decl().name)).Add(list));
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            const auto value = rows.Column(column).Value(row).AsString();
            TLine& line = *written[value].front();
            if (KeyOf(line, '\x1F') != KeyOf(rows, row))
                Refuse(line, &columns_[column], value, "Outra linha da tabela já tem este texto.");
        }
    });
}

/// Once pieces of an order have moved, its product and its grid change with the movements alone.
void TImport::CheckOrdersInProduction()
{
    const bool isGrid = table_.name == "OF_ITEN";
    const auto product = FindUsed("CODIGO");
    if (!isGrid && (table_.name != "OF1" || product == columns_.size()))
        return;
    const auto order = FindUsed("NUMERO");
    TLinesByValue byOrder;
    std::vector<TValue> values;
    for (TLine& line : lines_) {
        const bool touches = isGrid ? line.state == TLineState::New || line.state == TLineState::Changed
                                    : line.state == TLineState::Changed && line.differs[product];
        if (!touches)
            continue;
        auto& lines = byOrder[line.values[order].AsString()];
        if (lines.empty())
            values.push_back(line.values[order]);
        lines.push_back(&line);
    }
    ForEachList(values, [&](const TStatement& list, std::span<const TValue>) {
        const auto orders
            = database_.Open(TStatement("SELECT NUMERO FROM {OF1} WHERE FAC_QTDE = 'S' AND NUMERO").Add(list));
        for (std::size_t row = 0; row < orders.RowCount(); ++row) {
            for (TLine* line : byOrder[orders.Column(0).Value(row).AsString()])
                Refuse(*line, &columns_[order], line->values[order], "A OF já entrou em produção.");
        }
    });
}

} // namespace alinhavo
