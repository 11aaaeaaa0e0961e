// What users type on its way into statements: a value stays one literal whatever it holds, a list comes out as it was read, a
// name is a name, and no text of a statement brings the translation down.

#include "Finding.h"
#include "host/EDatabaseError.h"
#include "host/TStatement.h"
#include "platform/database/firebird/TFirebirdDialect.h"
#include "platform/database/postgresql/TPostgreSqlDialect.h"
#include "platform/database/sqlValues.h"
#include "platform/database/TSqlToken.h"
#include "TFuzzBytes.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <optional>

namespace {

using namespace alinhavo;

/// The statement without what its literals hold.
std::string Shape(std::string_view sql)
{
    std::string shape;
    for (const auto& token : SqlTokens(sql)) {
        if (token.kind == TSqlTokenKind::Text)
            shape += "'' ";
        else if (token.kind == TSqlTokenKind::Other && std::isdigit(static_cast<unsigned char>(token.text.front())))
            shape += "0 ";
        else if (token.kind != TSqlTokenKind::Blank)
            shape.append(token.text).append(" ");
    }
    return shape;
}

/// Nothing when the database would refuse it.
template <typename TMake>
auto Accepted(TMake make) -> std::optional<decltype(make())>
{
    try {
        return make();
    } catch (const EDatabaseError&) {
        return std::nullopt;
    }
}

const std::vector<std::reference_wrapper<const TDialect>>& Dialects()
{
    static const TFirebirdDialect firebird("01");
    static const TPostgreSqlDialect postgresql("02");
    static const std::vector<std::reference_wrapper<const TDialect>> dialects{firebird, postgresql};
    return dialects;
}

void CheckText(const std::string& text)
{
    const auto compose = [](const std::string& value) {
        return TStatement("SELECT A FROM {FACCAO} WHERE B = ? AND C = '?' AND D <> ?", value, 7);
    };
    const auto statement = compose(text);
    const auto harmless = compose("x");
    MustHold(statement.Text() == harmless.Text(), "a value stands in the text of its statement");
    MustHold(Shape(statement.Rendered()) == Shape(harmless.Rendered()), "a value leaves its literal");
    for (const TDialect& dialect : Dialects()) {
        const auto written = Accepted([&] { return dialect.TranslateWith(statement.Text(), statement.Values()).text; });
        const auto expected = dialect.TranslateWith(harmless.Text(), harmless.Values()).text;
        MustHold(!written || Shape(*written) == Shape(expected), "a value leaves its literal at the server");
    }
}

void CheckNumber(const std::string& text)
{
    const auto number = Accepted([&] { return BareNumber(text); });
    if (!number)
        return;
    const auto rendered = TStatement("?", *number).Rendered();
    MustHold(!rendered.empty() && rendered.find_first_not_of("0123456789+-.eE") == std::string::npos,
        "what was taken for a number is written as something else: " + rendered);
}

void CheckList(const std::string& text)
{
    const auto list = Accepted([&] { return TLiteralList(text); });
    if (!list)
        return;
    const auto rendered = TStatement("?", *list).Rendered();
    const auto again = Accepted([&] { return TLiteralList(rendered); });
    MustHold(again.has_value(), "a list that was read is written as none: " + rendered);
    MustHold(again->Values() == list->Values(), "a list changes when it is written: " + rendered);
}

void CheckName(const std::string& text)
{
    const auto name = Accepted([&] { return TName(text); });
    const auto isPart = [](unsigned char c) { return c < 0x80 && (std::isalnum(c) || c == '_'); };
    MustHold(!name || (!text.empty() && std::ranges::all_of(text, isPart)), "a name that is none");
}

/// As a tool wrote it.
void CheckStatement(const std::string& sql)
{
    for (const TDialect& dialect : Dialects()) {
        const auto translated = Accepted([&] { return dialect.Translate(sql).text; });
        if (!translated)
            continue;
        for (const auto& token : SqlTokens(*translated))
            MustHold(token.kind != TSqlTokenKind::Mark, "a mark reaches the server");
    }
}

void CheckTextOfOtherType(const std::string& text)
{
    Accepted([&] { return SqlDate(text); });
    Accepted([&] { return SqlNumber(text); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using TCheck = void (*)(const std::string&);
    static const std::vector<TCheck> checks{
        CheckText, CheckNumber, CheckList, CheckName, CheckStatement, CheckTextOfOtherType};
    TFuzzBytes bytes(data, size);
    const auto check = bytes.Of(checks);
    check(bytes.Until('\0'));
    return 0;
}
