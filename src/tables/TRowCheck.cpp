#include "tables/TRowCheck.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr int widestListed = 150;

std::string Of(const TColumnDecl& column, std::string_view rest)
{
    return std::string(column.caption) + ": " + std::string(rest);
}

[[noreturn]] void Refuse(const TColumnDecl& column, std::string_view text, std::string_view why)
{
    throw std::invalid_argument(Of(column, text) + " " + std::string(why));
}

TValue TypedInteger(const TColumnDecl& column, const std::string& text)
{
    if (const auto number = ParseInteger(text))
        return *number;
    Refuse(column, text, "não é um número inteiro.");
}

TValue TypedFloat(const TColumnDecl& column, const std::string& text)
{
    if (const auto number = ParseFloat(text))
        return *number;
    Refuse(column, text, "não é um número.");
}

TValue TypedDate(const TColumnDecl& column, const std::string& text)
{
    if (const auto date = TDateTime::Parse(text); !date.IsBlank())
        return date;
    Refuse(column, text, "não é uma data.");
}

/// "E Entrada, S Saída".
std::string ListOf(const std::vector<TChoice>& choices)
{
    std::string list;
    for (const auto& choice : choices)
        list.append(list.empty() ? "" : ", ").append(choice.value).append(" ").append(choice.caption);
    return list;
}

/// The choice that is meant; the text itself when it is none.
std::string ChoiceMeant(const TColumnDecl& column, const std::string& text)
{
    for (const auto& choice : Choices(column)) {
        if (SameText(choice.value, text) || SameText(choice.caption, text))
            return std::string(choice.value);
    }
    return text;
}

/// Null and the empty text are alike for a person.
void AddEqual(TStatement& sql, const TColumnDecl& column, const TValue& value)
{
    sql.Add(sql.IsEmpty() ? TFragment("") : TFragment(" AND "));
    if (!value.IsEmpty())
        sql.Add("? = ?", TName(column.name), value);
    else if (column.kind == TColumnKind::Text)
        sql.Add("(? IS NULL OR ? = '')", TName(column.name), TName(column.name));
    else
        sql.Add("? IS NULL", TName(column.name));
}

} // namespace

std::vector<const TColumnDecl*> SeenColumns(const TTableDecl& table)
{
    std::vector<const TColumnDecl*> seen;
    for (const auto& column : table.columns) {
        if (!column.caption.empty())
            seen.push_back(&column);
    }
    return seen;
}

std::vector<const TColumnDecl*> ListedColumns(const TTableDecl& table)
{
    auto listed = SeenColumns(table);
    std::erase_if(listed, [](const TColumnDecl* column) { return column->width > widestListed; });
    return listed;
}

bool IsTicked(const TColumnDecl& column) { return column.choices == yesNo; }

std::string ShownValue(const TValue& value)
{
    return value.IsFloat() ? Replace(FloatToStr(value.AsFloat()), ".", ",") : value.AsString();
}

TRowCheck::TRowCheck(TOrvDatabase& database, const TTableDecl& table)
    : database_(database)
    , table_(table)
{
}

const TColumnDecl& TRowCheck::Column(std::string_view name) const { return *FindColumn(table_, name); }

TValue TRowCheck::Typed(const TColumnDecl& column, std::string_view text) const
{
    const auto trimmed = ChoiceMeant(column, Trim(text));
    if (trimmed.empty())
        return {};
    switch (column.kind) {
    case TColumnKind::Integer:
    case TColumnKind::Identity:
        return TypedInteger(column, trimmed);
    case TColumnKind::Float:
        return TypedFloat(column, trimmed);
    case TColumnKind::Date:
    case TColumnKind::DateTime:
        return TypedDate(column, trimmed);
    case TColumnKind::Text:
        break;
    }
    return trimmed;
}

TValue TRowCheck::Completed(const TColumnDecl& column, const TValue& value)
{
    const auto reference = ReferenceOf(column);
    const auto code = Trim(value.AsString());
    const bool digits = std::ranges::all_of(code, [](char c) { return c >= '0' && c <= '9'; });
    if (!reference.table || code.empty() || !digits || Exists(reference, code))
        return value;
    const TValue padded = LeftPad(code, '0', static_cast<std::size_t>(column.width));
    return Exists(reference, padded) ? padded : value;
}

std::string TRowCheck::Missing(const TColumnDecl& column, const TValue& value) const
{
    if (!IsRequired(table_, column) || !Trim(value.AsString()).empty())
        return {};
    return "Preencha o campo " + std::string(column.caption) + ".";
}

std::string TRowCheck::Wrong(const TColumnDecl& column, const TValue& value)
{
    const auto text = Trim(value.AsString());
    if (text.empty())
        return {};
    if (column.kind == TColumnKind::Text && Length(text) > static_cast<std::size_t>(column.width))
        return Of(column, std::to_string(Length(text)) + " letras, o limite é " + std::to_string(column.width) + ".");
    const auto choices = Choices(column);
    if (!choices.empty() && std::ranges::find(choices, text, &TChoice::value) == choices.end())
        return Of(column, text + " não é aceito. Valores: " + ListOf(choices) + ".");
    const auto reference = ReferenceOf(column);
    if (reference.table && !Exists(reference, text))
        return Of(column, "o código " + text + " não existe em " + std::string(reference.table->caption) + ".");
    return {};
}

bool TRowCheck::Exists(const TReference& reference, const TValue& value)
{
    const auto [known, isNew] = known_.try_emplace({reference.column, value.AsString()});
    if (isNew)
        known->second = database_
                            .Open(TStatement("SELECT 1 FROM {?} WHERE ? = ? FETCH FIRST 1 ROWS ONLY",
                                TName(reference.table->name), TName(reference.column->name), value))
                            .RowCount()
            > 0;
    return known->second;
}

std::string TRowCheck::Duplicate(const TRowValues& row, const std::vector<TValue>& own)
{
    if (PersonKey(table_).empty())
        return {};
    TStatement same;
    for (const auto name : ColumnNames(PersonKey(table_)))
        AddEqual(same, Column(name), row(Column(name)));
    TStatement other;
    const auto key = ColumnNames(table_.key);
    for (std::size_t index = 0; index < own.size(); ++index)
        AddEqual(other, Column(key[index]), own[index]);

    TStatement sql("SELECT 1 FROM {?} WHERE ", TName(table_.name));
    sql.Add(same);
    if (!other.IsEmpty())
        sql.Add(" AND NOT (").Add(other).Add(")");
    if (database_.Open(sql.Add(" FETCH FIRST 1 ROWS ONLY")).RowCount() == 0)
        return {};
    return "Já existe em " + std::string(table_.caption) + ": " + KeyText(row) + ".";
}

std::string TRowCheck::InUse(const TRowValues& row)
{
    std::string holders;
    for (const auto& table : Tables()) {
        for (const auto& column : table.columns) {
            const auto reference = ReferenceOf(column);
            if (reference.table != &table_)
                continue;
            const auto code = row(*reference.column);
            if (!code.IsEmpty() && TRowCheck(database_, table).Exists({&table, &column}, code))
                holders += "\n" + std::string(table.caption) + " (" + std::string(column.caption) + ")";
        }
    }
    if (holders.empty())
        return {};
    return std::string(table_.caption) + ": " + KeyText(row)
        + " está em uso e não pode ser excluído. Usado em:" + holders;
}

std::string TRowCheck::Meaning(const TColumnDecl& column, const TValue& value)
{
    const auto reference = ReferenceOf(column);
    if (!reference.table || reference.table->description.empty() || value.IsEmpty())
        return {};
    const auto found = database_.Open(TStatement("SELECT ? FROM {?} WHERE ? = ? FETCH FIRST 1 ROWS ONLY",
        TName(reference.table->description), TName(reference.table->name), TName(reference.column->name), value));
    return found.RowCount() == 0 ? std::string() : std::string(found.Column(0).Text(0));
}

/// Where rows may repeat, what a person must fill tells the most.
std::vector<std::string_view> TRowCheck::TellingColumns() const
{
    const auto key = PersonKey(table_);
    return ColumnNames(key.empty() ? table_.required : key);
}

std::string TRowCheck::KeyText(const TRowValues& row) const
{
    std::string text;
    for (const auto name : TellingColumns()) {
        const auto value = ShownValue(row(Column(name)));
        if (!value.empty())
            text.append(text.empty() ? "" : ", ").append(Column(name).caption).append(" ").append(value);
    }
    return text;
}

std::string TRowCheck::KeyValues(const TRowValues& row) const
{
    std::string text;
    for (const auto name : TellingColumns()) {
        const auto value = ShownValue(row(Column(name)));
        if (!value.empty())
            text.append(text.empty() ? "" : " ").append(value);
    }
    return text;
}

} // namespace alinhavo
