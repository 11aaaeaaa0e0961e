#include "host/TStatement.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/EDatabaseError.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

[[noreturn]] void RaiseSyntax(const char* text) { throw EDatabaseError(TDatabaseErrorKind::Syntax, text); }

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Where the next `?` outside of quotes stands; npos when there is none.
std::size_t FindPlaceholder(std::string_view text)
{
    const auto first = text.find('?');
    const auto before = text.substr(0, first);
    if (first == std::string_view::npos || (before.find('\'') == before.npos && before.find('"') == before.npos))
        return first;
    char quote = 0;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char c = text[place];
        if (c == '?' && quote == 0)
            return place;
        quote = detail::QuoteAfter(quote, c);
    }
    return std::string_view::npos;
}

std::string Literal(const TValue& value)
{
    if (value.IsNull())
        return "NULL";
    if (value.IsText())
        return Aspas(value.Text());
    if (value.IsDate())
        return Aspas(value.AsDateTime().SqlText());
    return value.IsFloat() ? PermanecePonto(value.AsFloat()) : value.AsString();
}

/// Reads the literals of a list one after the other.
class TLiteralReader {
public:
    TLiteralReader(std::string_view text, char separator)
        : rest_(text)
        , separator_(separator)
    {
    }

    std::vector<TValue> Read()
    {
        std::vector<TValue> values{ReadLiteral()};
        while (!rest_.empty()) {
            rest_.remove_prefix(1);
            values.push_back(ReadLiteral());
        }
        return values;
    }

private:
    /// Leaves the reader at a separator or at the end.
    TValue ReadLiteral()
    {
        SkipBlanks();
        auto value = rest_.starts_with('\'') ? ReadQuoted() : ReadNumber();
        SkipBlanks();
        if (!rest_.empty() && rest_.front() != separator_)
            RaiseNoList();
        return value;
    }

    TValue ReadQuoted()
    {
        std::string text;
        do {
            rest_.remove_prefix(1);
            const auto end = rest_.find('\'');
            if (end == std::string_view::npos)
                RaiseNoList();
            text.append(rest_.substr(0, end));
            rest_.remove_prefix(end + 1);
            if (rest_.starts_with('\''))
                text += '\'';
        } while (rest_.starts_with('\''));
        return text;
    }

    TValue ReadNumber()
    {
        const auto piece = rest_.substr(0, rest_.find(separator_));
        rest_.remove_prefix(piece.size());
        return BareNumber(piece);
    }

    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size())); }

    [[noreturn]] static void RaiseNoList() { RaiseSyntax("the text is no list of quoted codes or numbers"); }

    std::string_view rest_;
    char separator_;
};

} // namespace

TName::TName(std::string_view name)
    : name_(name)
{
    const auto isPart = [](char c) { return IsLetter(c) || IsDigit(c) || c == '_'; };
    if (name.empty() || !IsLetter(name.front()) || !std::ranges::all_of(name, isPart))
        RaiseSyntax("the text is no name of a table or column");
}

TLiteralList::TLiteralList(std::string_view text, char separator)
    : values_(TLiteralReader(text, separator).Read())
{
}

TValue BareNumber(std::string_view text)
{
    if (const auto whole = ParseInteger(text))
        return *whole;
    const auto number = ParseFloat(text);
    if (!number)
        RaiseSyntax("the text is no number");
    return *number;
}

TStatement& TStatement::Add(const TStatement& other)
{
    const auto values = other.values_;
    text_ += other.text_;
    values_.insert(values_.end(), values.begin(), values.end());
    return *this;
}

std::string TStatement::Rendered() const
{
    std::string rendered;
    std::string_view rest = text_;
    for (const auto& value : values_) {
        const auto place = FindPlaceholder(rest);
        rendered.append(rest.substr(0, place)).append(Literal(value));
        rest.remove_prefix(place + 1);
    }
    return rendered.append(rest);
}

void TStatement::Begin(TFragment fragment, std::size_t arguments)
{
    if (fragment.Placeholders() != arguments)
        throw std::logic_error("a fragment has " + std::to_string(fragment.Placeholders()) + " placeholders and "
            + std::to_string(arguments) + " arguments: " + std::string(fragment.Text()));
    rest_ = fragment.Text();
    text_.reserve(text_.size() + rest_.size());
    if (values_.empty())
        values_.reserve(arguments);
}

void TStatement::Argument(TValue value)
{
    CopyToPlaceholder();
    text_ += '?';
    values_.push_back(std::move(value));
}

void TStatement::Argument(const TName& name)
{
    CopyToPlaceholder();
    text_ += name.Text();
}

void TStatement::Argument(const TLiteralList& list)
{
    CopyToPlaceholder();
    const char* separator = "";
    for (const auto& value : list.Values()) {
        text_.append(separator).append("?");
        values_.push_back(value);
        separator = ", ";
    }
}

/// Appends what stands before the next placeholder, and leaves the placeholder out.
void TStatement::CopyToPlaceholder()
{
    const auto place = FindPlaceholder(rest_);
    text_.append(rest_.substr(0, place));
    rest_.remove_prefix(place + 1);
}

std::string Aspas(std::string_view text) { return "'" + Replace(text, "'", "''") + "'"; }

std::string PermanecePonto(double number) { return FloatToStr(number); }

} // namespace alinhavo
