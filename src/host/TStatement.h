#pragma once

#include "forms/TValue.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace alinhavo {

namespace detail {

/// The quote, ' or ", that is open behind a character when `open` was open before it; 0 when none is.
constexpr char QuoteAfter(char open, char character)
{
    if (open != 0)
        return character == open ? '\0' : open;
    return character == '\'' || character == '"' ? character : '\0';
}

} // namespace detail

/// A piece of SQL that stands in the source as a literal. Text made at run time cannot become one, and a piece that
/// leaves a quote open does not compile.
class TFragment {
public:
    template <std::size_t N>
    consteval TFragment(const char (&text)[N])
        : text_(text, N - 1)
    {
        char quote = 0;
        for (const char character : text_) {
            if (character == '?' && quote == 0)
                ++placeholders_;
            quote = detail::QuoteAfter(quote, character);
        }
        if (quote != 0)
            throw "a fragment leaves a quote open";
    }
    constexpr std::string_view Text() const { return text_; }
    /// The `?` outside of quotes.
    constexpr std::size_t Placeholders() const { return placeholders_; }

private:
    std::string_view text_;
    std::size_t placeholders_ = 0;
};

/// The name of a table or column chosen at run time (a size's column, a term's price). Checked when it is made: letters,
/// digits and underscores, beginning with a letter; anything else raises EDatabaseError (Syntax).
class TName {
public:
    explicit TName(std::string_view name);
    const std::string& Text() const { return name_; }

private:
    std::string name_;
};

/// A list as filter fields hold it: literals separated by commas ('01','02' or 1,2). Text that is no such list, the empty
/// one included, raises EDatabaseError (Syntax).
class TLiteralList {
public:
    explicit TLiteralList(std::string_view text, char separator = ',');
    const std::vector<TValue>& Values() const { return values_; }

private:
    std::vector<TValue> values_;
};

/// A number that goes unquoted, as typed by a user or held as text (MOV). Text that is no number raises
/// EDatabaseError (Syntax).
TValue BareNumber(std::string_view text);

/// A statement composed at run time from literal fragments, values and table marks. A value never becomes part of the
/// text: each `?` of a fragment (outside quotes) takes the next argument, and the driver binds it. Table marks {FACCAO}
/// and LIST[expression, separator, order] are resolved by the connection.
///
///     TStatement sql("SELECT COR FROM {FACCAO} WHERE NUMERO = ?", order);
///     if (!part.empty())
///         sql.Add(" AND PARTE = ?", part);
class TStatement {
public:
    TStatement() = default;
    TStatement(TFragment fragment, auto&&... arguments)
    {
        Add(fragment, std::forward<decltype(arguments)>(arguments)...);
    }

    /// Appends the fragment. There must be as many `?` as arguments (a std::logic_error otherwise). An argument is a
    /// value (anything a TValue is made of), a TName, which is written in place of its `?`, or a TLiteralList, whose `?`
    /// becomes as many placeholders as it has values, separated by commas.
    template <typename... TArguments>
    TStatement& Add(TFragment fragment, TArguments&&... arguments)
    {
        Begin(fragment, sizeof...(arguments));
        if constexpr ((IsWritten<TArguments> || ...))
            (Argument(std::forward<TArguments>(arguments)), ...);
        else
            (values_.emplace_back(std::forward<TArguments>(arguments)), ...);
        text_.append(rest_);
        return *this;
    }
    TStatement& Add(const TStatement& other);

    /// With `?` for each value: what recurs, and so the key of the cache of prepared statements.
    const std::string& Text() const { return text_; }
    const std::vector<TValue>& Values() const { return values_; }
    bool IsEmpty() const { return text_.empty(); }

    /// As logs and tools see it: texts through Aspas, numbers through PermanecePonto, dates as 'MM/DD/YYYY'.
    std::string Rendered() const;

private:
    void Begin(TFragment fragment, std::size_t arguments);
    void Argument(TValue value);
    void Argument(const TName& name);
    void Argument(const TLiteralList& list);
    void CopyToPlaceholder();

    /// Arguments that change the text around their placeholder.
    template <typename TArgument>
    static constexpr bool IsWritten = !std::is_constructible_v<TValue, TArgument>;

    std::string text_;
    std::vector<TValue> values_;
    std::string_view rest_; ///< of the fragment added last, what was not appended yet
};

/// The text as an SQL literal, in single quotes, those inside doubled; an empty text gives ''.
std::string Aspas(std::string_view text);
/// The number with a point as decimal separator and no thousands separator.
std::string PermanecePonto(double number);

} // namespace alinhavo
