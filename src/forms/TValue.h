#pragma once

#include "forms/TDateTime.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace alinhavo {

/// One value of a field, a parameter or a look-up: null, a whole number, a number, a text or a date.
/// Every conversion is total: a null, or a text that is no number, gives "", 0 and a blank date.
class TValue {
public:
    TValue() = default;
    TValue(std::nullptr_t) { }
    TValue(std::integral auto value)
        : value_(static_cast<std::int64_t>(value))
    {
    }
    TValue(bool) = delete; ///< a flag in the database is "S" or "N"
    TValue(char) = delete; ///< a text of one character is a text
    /// What is no number (NaN) is null.
    TValue(std::floating_point auto value)
    {
        if (value == value)
            value_ = static_cast<double>(value);
    }
    TValue(std::string value)
        : value_(std::move(value))
    {
    }
    TValue(std::string_view value)
        : value_(std::string(value))
    {
    }
    TValue(const char* value)
        : value_(std::string(value))
    {
    }
    /// A blank date is null.
    TValue(TDateTime value)
    {
        if (!value.IsBlank())
            value_ = value;
    }

    bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }
    bool IsInteger() const { return std::holds_alternative<std::int64_t>(value_); }
    bool IsFloat() const { return std::holds_alternative<double>(value_); }
    bool IsText() const { return std::holds_alternative<std::string>(value_); }
    bool IsDate() const { return std::holds_alternative<TDateTime>(value_); }

    /// Numbers without superfluous zeros and with a point; dates as "DD/MM/YYYY", with the hour when they have one.
    std::string AsString() const;
    /// Texts with a point or a comma; dates as days since 1970-01-01, the hour as a fraction.
    double AsFloat() const;
    /// Cut towards zero.
    std::int64_t AsInteger() const;
    /// Texts as `TDateTime::Parse` reads them; blank for a number.
    TDateTime AsDateTime() const;
    /// Null and the empty text.
    bool IsEmpty() const { return IsNull() || (IsText() && Text().empty()); }

    /// The text as it is held; only when IsText().
    const std::string& Text() const { return std::get<std::string>(value_); }

    /// Nulls lowest and equal to each other; numbers by value, texts in the order of `CompareText`.
    /// Values of different kinds compare by number when one is a number, else by text.
    static int Compare(const TValue& left, const TValue& right);
    friend bool operator==(const TValue& left, const TValue& right) { return Compare(left, right) == 0; }

private:
    std::variant<std::monostate, std::int64_t, double, std::string, TDateTime> value_;
};

} // namespace alinhavo
