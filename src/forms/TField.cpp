#include "forms/TField.h"

#include "forms/numbers.h"
#include "forms/TDataSet.h"
#include "forms/text.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {

namespace {

/// Only blanks: a text may end in a line break.
std::string_view WithoutTrailingBlanks(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

std::string WithComma(std::string number)
{
    std::ranges::replace(number, '.', ',');
    return number;
}

[[noreturn]] void Refuse(std::string_view text, const char* what)
{
    throw std::invalid_argument("\"" + std::string(text) + "\" " + what);
}

} // namespace

TField::TField(TDataSet& dataset, std::string name, TFieldKind kind, int size, TFieldOptions fieldOptions)
    : options(std::move(fieldOptions))
    , dataset_(dataset)
    , name_(std::move(name))
    , kind_(kind)
    , size_(size)
{
    dataset_.Register(*this);
}

TField::~TField() { dataset_.Unregister(*this); }

bool TField::IsNull() const { return Value().IsNull(); }

TValue TField::Value() const { return dataset_.Cell(*this); }

TValue TField::OldValue() const { return dataset_.StoredCell(*this); }

std::string TField::AsString() const { return Value().AsString(); }

double TField::AsFloat() const { return Value().AsFloat(); }

std::int64_t TField::AsInteger() const { return Value().AsInteger(); }

TDateTime TField::AsDateTime() const { return Value().AsDateTime(); }

std::string TField::DisplayText(const TValue& value) const
{
    if (kind_ != TFieldKind::Float || value.IsNull())
        return value.AsString();
    return options.decimals < 0 ? WithComma(value.AsString()) : FormatDecimal(value.AsFloat(), options.decimals);
}

void TField::Set(const TValue& value)
{
    if (dataset_.SetCell(*this, Converted(value)))
        OnChange(*this);
}

void TField::SetTyped(std::string_view text) { Set(Typed(text)); }

TValue TField::Converted(const TValue& value) const
{
    if (value.IsNull() || (kind_ != TFieldKind::Text && value.IsEmpty()))
        return {};
    switch (kind_) {
    case TFieldKind::Integer:
        return value.AsInteger();
    case TFieldKind::Float:
        return value.AsFloat();
    case TFieldKind::Date:
        return value.AsDateTime().Date();
    case TFieldKind::DateTime:
        return value.AsDateTime();
    default:
        return Cut(value.AsString());
    }
}

TValue TField::Comparable(const TValue& value) const
{
    if (value.IsNull() || (kind_ != TFieldKind::Text && value.IsEmpty()))
        return {};
    if (kind_ == TFieldKind::Text)
        return WithoutTrailingBlanks(value.AsString());
    if (kind_ == TFieldKind::Date || kind_ == TFieldKind::DateTime)
        return value.IsText() ? TValue(value.AsDateTime()) : value;
    return value.IsInteger() && kind_ == TFieldKind::Integer ? value : TValue(value.AsFloat());
}

std::string TField::Cut(std::string_view text) const
{
    const auto size = static_cast<std::size_t>(size_);
    if (size == 0 || text.size() <= size)
        return std::string(WithoutTrailingBlanks(text));
    return std::string(WithoutTrailingBlanks(Left(text, size)));
}

TValue TField::Typed(std::string_view text) const
{
    const std::string trimmed = Trim(text);
    if (kind_ == TFieldKind::Text)
        return WithoutTrailingBlanks(text).empty() && IsNull() ? TValue() : TValue(text);
    if (trimmed.empty())
        return {};
    if (kind_ == TFieldKind::Integer) {
        const auto number = ParseInteger(trimmed);
        return number ? TValue(*number) : (Refuse(trimmed, "não é um número inteiro."), TValue());
    }
    if (kind_ == TFieldKind::Float) {
        const auto number = ParseFloat(trimmed);
        return number ? TValue(*number) : (Refuse(trimmed, "não é um número."), TValue());
    }
    if (trimmed.find_first_not_of(" /") == std::string::npos)
        return {};
    const TDateTime date = TDateTime::Parse(trimmed);
    return !date.IsBlank() ? TValue(date) : (Refuse(trimmed, "não é uma data."), TValue());
}

} // namespace alinhavo
