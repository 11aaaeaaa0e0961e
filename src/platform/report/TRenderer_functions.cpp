#include "platform/report/TRenderer.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "platform/report/TBarcode.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace alinhavo {
namespace {

using TArguments = TLua::TArguments;

constexpr std::size_t WidestText = 1000;
constexpr double DefaultCodeHeight = 12;
constexpr double DefaultPictureHeight = 30;

TValue ValueOf(const TArguments& arguments, std::size_t index)
{
    if (index >= arguments.size())
        return {};
    const auto* value = std::get_if<TValue>(&arguments[index]);
    return value ? *value : TValue(Shown(arguments[index]));
}

std::string TextOf(const TArguments& arguments, std::size_t index)
{
    return index < arguments.size() ? Shown(arguments[index]) : std::string();
}

double NumberOf(const TArguments& arguments, std::size_t index, double otherwise = 0)
{
    const auto value = ValueOf(arguments, index);
    return value.IsNull() ? otherwise : value.AsFloat();
}

std::size_t CountOf(const TArguments& arguments, std::size_t index, std::size_t largest)
{
    const double number = NumberOf(arguments, index);
    if (number < 0)
        return 0;
    if (number > static_cast<double>(largest))
        throw std::invalid_argument("um tamanho acima de " + std::to_string(largest));
    return static_cast<std::size_t>(number);
}

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

std::size_t Missing(const std::string& text, std::size_t width)
{
    const auto length = Length(text);
    return length < width ? width - length : 0;
}

std::string Centred(const std::string& text, std::size_t width)
{
    const auto missing = Missing(text, width);
    return Blanks(missing / 2) + text + Blanks(missing - missing / 2);
}

} // namespace

void TRenderer::AddTextFunctions()
{
    lua_.AddFunction("texto", [](const TArguments& a) { return TValue(TextOf(a, 0)); });
    lua_.AddFunction("maiusculas", [](const TArguments& a) { return TValue(UpperCase(TextOf(a, 0))); });
    lua_.AddFunction("minusculas", [](const TArguments& a) { return TValue(LowerCase(TextOf(a, 0))); });
    lua_.AddFunction(
        "tamanho", [](const TArguments& a) { return TValue(static_cast<std::int64_t>(Length(TextOf(a, 0)))); });
    lua_.AddFunction("corta", [](const TArguments& a) {
        return TValue(
            Copy(TextOf(a, 0), CountOf(a, 1, WidestText * WidestText), CountOf(a, 2, WidestText * WidestText)));
    });
    lua_.AddFunction(
        "contem", [](const TArguments& a) { return TextOf(a, 0).find(TextOf(a, 1)) != std::string::npos; });
    lua_.AddFunction("vazio", [](const TArguments& a) { return ValueOf(a, 0).IsEmpty(); });
    lua_.AddFunction("esq", [](const TArguments& a) {
        const auto width = CountOf(a, 1, WidestText);
        const auto text = Left(TextOf(a, 0), width);
        return TValue(text + Blanks(Missing(text, width)));
    });
    lua_.AddFunction("dir", [](const TArguments& a) {
        const auto width = CountOf(a, 1, WidestText);
        const auto text = Left(TextOf(a, 0), width);
        return TValue(Blanks(Missing(text, width)) + text);
    });
    lua_.AddFunction("centro", [](const TArguments& a) {
        const auto width = CountOf(a, 1, WidestText);
        return TValue(Centred(Left(TextOf(a, 0), width), width));
    });
    lua_.AddFunction("repete", [](const TArguments& a) {
        std::string text;
        for (auto count = CountOf(a, 1, WidestText); count > 0; --count)
            text += Left(TextOf(a, 0), 10);
        return TValue(text);
    });
    lua_.AddFunction("seja", [](const TArguments& a) {
        const std::size_t chosen = !a.empty() && Holds(a[0]) ? 1 : 2;
        return chosen < a.size() ? a[chosen] : TReportValue(TValue());
    });
}

void TRenderer::AddNumberFunctions()
{
    lua_.AddFunction("num", [](const TArguments& a) {
        const auto value = ValueOf(a, 0);
        const double number = value.AsFloat();
        if (value.IsNull() || !std::isfinite(number))
            return TValue("");
        return TValue(FormatDecimal(number, static_cast<int>(CountOf(a, 1, 10))));
    });
    lua_.AddFunction("inteiro", [](const TArguments& a) { return TValue(Trunc(NumberOf(a, 0))); });
    lua_.AddFunction("arredonda",
        [](const TArguments& a) { return TValue(RoundTo(NumberOf(a, 0), static_cast<int>(CountOf(a, 1, 10)))); });
    lua_.AddFunction("dia", [](const TArguments& a) {
        const auto date = ValueOf(a, 0).AsDateTime();
        return TValue(date.IsBlank() ? std::string() : date.Date().Text());
    });
    lua_.AddFunction("hora", [](const TArguments& a) {
        const auto date = ValueOf(a, 0).AsDateTime();
        return TValue(date.IsBlank() ? std::string() : date.TextWithHour().substr(11, 5));
    });
    lua_.AddFunction("pagina", [this](const TArguments&) { return TValue(page_ ? page_() : 0); });
    lua_.AddFunction("paginas", [this](const TArguments&) {
        asksForPages_ = true;
        return TValue(pages_);
    });
}

void TRenderer::AddDataFunctions()
{
    lua_.AddFunction("campo", [this](const TArguments& a) -> TReportValue {
        const auto name = TextOf(a, 0);
        if (a.size() > 1)
            return scope_.Cell(TextOf(a, 1), name);
        const auto value = scope_.Value(name);
        return value ? *value : TReportValue(scope_.Unknown(name, {}));
    });
    lua_.AddFunction("linhas", [this](const TArguments& a) {
        const auto* rows = scope_.FindDataSet(TextOf(a, 0));
        return TValue(static_cast<std::int64_t>(rows ? rows->RecordCount() : 0));
    });
    lua_.AddFunction("tem", [this](const TArguments& a) {
        const auto* rows = scope_.FindDataSet(TextOf(a, 0));
        return rows && (a.size() < 2 || rows->FindField(TextOf(a, 1)));
    });
    lua_.AddFunction("busca", [this](const TArguments& a) { return Search(a); });
}

// busca("tbImagem", "Produto", FAC_CODIGO, "Imagem")
TReportValue TRenderer::Search(const TArguments& arguments)
{
    const auto table = TextOf(arguments, 0);
    auto* rows = scope_.FindDataSet(table);
    const auto* key = rows ? rows->FindField(TextOf(arguments, 1)) : nullptr;
    const auto* wanted = rows ? rows->FindField(TextOf(arguments, 3)) : nullptr;
    if (!key || !wanted)
        throw std::invalid_argument("\"busca\" não acha a tabela ou o campo");
    auto [index, isNew] = searches_.try_emplace(UpperCase(table) + "." + key->Name());
    if (isNew) {
        for (std::size_t row = 0; row < rows->RecordCount(); ++row)
            index->second.emplace(Shown(rows->CellValue(row, *key)), row);
    }
    const auto found = index->second.find(TextOf(arguments, 2));
    return found == index->second.end() ? TReportValue(TValue()) : rows->CellValue(found->second, *wanted);
}

void TRenderer::AddTotals()
{
    lua_.AddFunction("soma", [this](const TArguments& a) {
        double sum = 0;
        ForRange(a, [&](const auto& value) { sum += NumberOf({value}, 0); });
        return TValue(sum);
    });
    lua_.AddFunction("conta", [this](const TArguments& a) {
        std::int64_t count = 0;
        ForRange(a, [&](const auto& value) { count += Holds(value) ? 1 : 0; });
        return TValue(count);
    });
    lua_.AddFunction("distintos", [this](const TArguments& a) {
        std::set<std::string> values;
        ForRange(a, [&](const auto& value) { values.insert(Shown(value)); });
        return TValue(static_cast<std::int64_t>(values.size()));
    });
    lua_.AddFunction("media", [this](const TArguments& a) {
        double sum = 0;
        std::int64_t count = 0;
        ForRange(a, [&](const auto& value) { sum += NumberOf({value}, 0), ++count; });
        return count == 0 ? TValue() : TValue(sum / static_cast<double>(count));
    });
    lua_.AddFunction("menor", [this](const TArguments& a) {
        TValue least;
        ForRange(a, [&](const auto& value) {
            const auto each = ValueOf({value}, 0);
            if (!each.IsNull() && (least.IsNull() || TValue::Compare(each, least) < 0))
                least = each;
        });
        return least;
    });
    lua_.AddFunction("maior", [this](const TArguments& a) {
        TValue greatest;
        ForRange(a, [&](const auto& value) {
            const auto each = ValueOf({value}, 0);
            if (TValue::Compare(each, greatest) > 0)
                greatest = each;
        });
        return greatest;
    });
}

/// Of the innermost group, of the group that the second argument names, or of the table that it names.
void TRenderer::ForRange(const TArguments& arguments, const std::function<void(const TReportValue&)>& action)
{
    const auto source = TextOf(arguments, 0);
    const auto name = TextOf(arguments, 1);
    if (scope_.InBand()) {
        const auto ranges = scope_.Frame().ranges;
        for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
            if (name.empty() || SameText(range->name, name))
                return ForFrame(*range, source, action);
        }
    }
    auto* rows = scope_.FindDataSet(name);
    if (!rows)
        throw std::invalid_argument("não há grupo nem tabela com o nome \"" + name + "\" para o total");
    ForAll(*rows, source, action);
}

void TRenderer::ForAll(
    TDataSet& rows, const std::string& source, const std::function<void(const TReportValue&)>& action)
{
    TScope::TFrame frame;
    frame.rows = &rows;
    for (std::size_t row = 0; row < rows.RecordCount(); ++row)
        frame.shown.push_back(row);
    frame.ranges.push_back({{}, 0, frame.shown.size()});
    scope_.Enter(std::move(frame));
    try {
        ForFrame(TScope::TRange(scope_.Frame().ranges.back()), source, action);
    } catch (...) {
        scope_.Leave();
        throw;
    }
    scope_.Leave();
}

void TRenderer::ForFrame(
    const TScope::TRange& range, const std::string& source, const std::function<void(const TReportValue&)>& action)
{
    const auto before = scope_.Frame().at;
    for (std::size_t row = range.first; row < range.last; ++row) {
        scope_.Frame().at = row;
        action(Current(source));
    }
    scope_.Frame().at = before;
}

/// A field of the row without Lua, anything else as an expression.
TReportValue TRenderer::Current(std::string_view source)
{
    const auto [frame, field] = scope_.FindPlaced(source);
    if (field)
        return frame->rows->CellValue(frame->shown[frame->at], *field);
    return lua_.Evaluate({std::string(source), place_});
}

void TRenderer::AddPictureFunctions()
{
    lua_.AddFunction("imagem", [this](const TArguments& a) -> TReportValue {
        if (isText_)
            return TValue();
        return pictures_.Picture(TextOf(a, 0), NumberOf(a, 1, DefaultPictureHeight), TextOf(a, 2));
    });
    lua_.AddFunction("codbarra", [](const TArguments& a) -> TReportValue {
        const auto kind = TextOf(a, 1);
        return Barcode(TextOf(a, 0), kind.empty() ? "128" : kind, NumberOf(a, 2, DefaultCodeHeight));
    });
}

} // namespace alinhavo
