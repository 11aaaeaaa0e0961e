#include "platform/exchange/TColumnReader.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "platform/exchange/headers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace alinhavo {
namespace {

constexpr int FirstYear = 1900;
constexpr int LastYear = 2199;
constexpr double WholeNumbersEnd = 9007199254740992.0; ///< beyond it a double skips some

bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

bool AreDigits(std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); }

std::string_view WithoutSign(std::string_view text)
{
    return text.substr(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
}

/// Trimmed, without a currency sign before it.
std::string Bare(std::string_view text)
{
    auto bare = Trim(text);
    if (bare.starts_with("R$"))
        bare = Trim(bare.substr(2));
    return bare;
}

/// One to three digits, the first one not 0, and then groups of three behind points.
bool IsGrouped(std::string_view whole)
{
    const auto groups = Explode(whole, ".");
    return !groups.empty() && AreDigits(groups.front()) && groups.front().size() <= 3 && groups.front().front() != '0'
        && std::all_of(groups.begin() + 1, groups.end(),
            [](const std::string& group) { return group.size() == 3 && AreDigits(group); });
}

/// A number whose decimals stand behind a comma and whose thousands may be apart by points.
std::optional<double> BrazilianNumber(const std::string& text)
{
    const auto rest = WithoutSign(text);
    const auto comma = std::min(rest.find(','), rest.size());
    const auto whole = rest.substr(0, comma);
    const bool grouped = whole.find('.') != std::string_view::npos;
    if (rest.empty() || rest.find_first_of(".,", comma + 1) != std::string_view::npos || (grouped && !IsGrouped(whole)))
        return std::nullopt;
    return ParseFloat(Replace(text, ".", ""));
}

std::optional<double> PointedNumber(const std::string& text)
{
    return text.find(',') == std::string::npos ? ParseFloat(text) : std::nullopt;
}

/// The errors of formulas, as a spreadsheet shows them.
bool IsFormulaError(std::string_view text)
{
    constexpr std::array<std::string_view, 8> errors
        = {"#N/A", "#N/D", "#REF!", "#DIV/0!", "#VALUE!", "#VALOR!", "#NAME?", "#NOME?"};
    return std::ranges::find(errors, text) != errors.end();
}

bool HasControlCharacters(std::string_view text)
{
    return std::ranges::any_of(text, [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return (code < 0x20 && letter != '\t' && letter != '\n' && letter != '\r') || code == 0x7F;
    });
}

std::string AsText(const TValue& cell)
{
    if (!cell.IsDate())
        return TrimRight(cell.AsString());
    return cell.AsDateTime().HasHour() ? cell.AsDateTime().TextWithHour() : cell.AsDateTime().Text();
}

/// The value that a text means among the choices of a column: the value itself, or what it stands for.
std::optional<std::string_view> Chosen(const std::vector<TChoice>& choices, const std::string& text)
{
    const auto plain = Plain(text);
    for (const auto& [value, caption] : choices) {
        if (value == text || (!plain.empty() && (Plain(value) == plain || Plain(caption) == plain)))
            return value;
    }
    return std::nullopt;
}

std::string Listed(const std::vector<TChoice>& choices)
{
    std::string list;
    for (const auto& [value, caption] : choices) {
        list += list.empty() ? "" : ", ";
        list += value;
        if (!caption.empty())
            list.append(" (").append(caption).append(")");
    }
    return list;
}

/// Days and hours that a spreadsheet counts from the end of 1899.
TDateTime DateOfSerial(double number)
{
    constexpr double first = 61;
    constexpr double last = 2958465;
    constexpr std::int64_t epoch = -25569;
    if (number < first || number > last || number != std::floor(number))
        return {};
    return TDateTime::FromDays(static_cast<std::int64_t>(number) + epoch);
}

/// Only a separator between each two of three numbers, day first or year first.
std::string WithSlashes(std::string_view day)
{
    for (const std::string_view separator : {"-", "."}) {
        const auto parts = Explode(day, separator);
        if (parts.size() != 3 || !std::ranges::all_of(parts, AreDigits))
            continue;
        return parts[0].size() == 4 ? parts[2] + "/" + parts[1] + "/" + parts[0]
                                    : parts[0] + "/" + parts[1] + "/" + parts[2];
    }
    return std::string(day);
}

} // namespace

TDateTime DateFromFile(std::string_view text)
{
    const auto trimmed = Trim(text);
    const auto end = std::min(trimmed.find_first_of(" T"), trimmed.size());
    const auto hour = end < trimmed.size() ? " " + trimmed.substr(end + 1) : "";
    const auto day = WithSlashes(std::string_view(trimmed).substr(0, end));
    return day.find('/') == std::string::npos && !AreDigits(day) ? TDateTime() : TDateTime::Parse(day + hour);
}

void TColumnReader::See(const TValue& cell)
{
    if (!cell.IsText())
        return;
    const auto text = Bare(cell.Text());
    const auto number = WithoutSign(text);
    if (number.find(',') != std::string_view::npos)
        commas_ = true;
    else if (number.find('.') != std::string_view::npos && !IsGrouped(number) && PointedNumber(text))
        pointedDecimals_ = true;
}

TCellReading TColumnReader::Read(const TValue& cell) const
{
    if (cell.IsEmpty())
        return {};
    if (cell.IsText() && !ValidUtf8(cell.Text()))
        return {.reason = "O texto tem caracteres inválidos: o arquivo foi gravado em outra codificação."};
    if (cell.IsText() && IsFormulaError(cell.Text()))
        return {.reason = "A fórmula da planilha deu erro."};
    if (!choices_.empty())
        return ReadChoice(cell);
    switch (column_.kind) {
    case TColumnKind::Text:
        return ReadText(cell);
    case TColumnKind::Integer:
    case TColumnKind::Identity:
        return ReadInteger(cell);
    case TColumnKind::Float:
        return ReadFloat(cell);
    case TColumnKind::Date:
    case TColumnKind::DateTime:
        return ReadDate(cell);
    }
    return {};
}

TCellReading TColumnReader::ReadChoice(const TValue& cell) const
{
    const auto chosen = Chosen(choices_, AsText(cell));
    if (!chosen)
        return {.reason = "Só pode ser " + Listed(choices_) + "."};
    return {.value = column_.kind == TColumnKind::Text ? TValue(*chosen) : TValue(StrToIntDef(*chosen, 0))};
}

TCellReading TColumnReader::ReadText(const TValue& cell) const
{
    const auto text = AsText(cell);
    if (HasControlCharacters(text))
        return {.reason = "O texto tem caracteres de controle."};
    const auto length = Length(text);
    if (length > static_cast<std::size_t>(column_.width))
        return {.reason
            = "O texto tem " + std::to_string(length) + " caracteres; cabem " + std::to_string(column_.width) + "."};
    return {.value = text};
}

TCellReading TColumnReader::ReadInteger(const TValue& cell) const
{
    if (const auto whole = cell.IsText() ? ParseInteger(cell.Text()) : std::nullopt)
        return {.value = *whole};
    auto reading = ReadFloat(cell);
    if (!reading.reason.empty())
        return reading;
    const double number = reading.value.AsFloat();
    if (number != std::trunc(number))
        return {.reason = "A coluna só aceita números inteiros."};
    if (std::abs(number) > WholeNumbersEnd)
        return {.reason = "O número é grande demais."};
    return {.value = static_cast<std::int64_t>(number)};
}

TCellReading TColumnReader::ReadFloat(const TValue& cell) const
{
    if (cell.IsDate())
        return {.reason = "É uma data, e a coluna é de números."};
    if (!cell.IsText())
        return {.value = cell.AsFloat()};
    const auto text = Bare(cell.Text());
    const auto number = PointIsDecimal() ? PointedNumber(text) : BrazilianNumber(text);
    if (number && std::isfinite(*number))
        return {.value = *number};
    if (!PointIsDecimal() && PointedNumber(text))
        return {.reason = "Não é um número como 1.234,56: os decimais vêm depois de vírgula."};
    return {.reason = "Não é um número."};
}

TCellReading TColumnReader::ReadDate(const TValue& cell) const
{
    const auto date = cell.IsDate() ? cell.AsDateTime()
        : cell.IsText()             ? DateFromFile(cell.Text())
                                    : DateOfSerial(cell.AsFloat());
    if (date.IsBlank())
        return {.reason = "Não é uma data como 20/11/2026."};
    if (date.Year() < FirstYear || date.Year() > LastYear)
        return {.reason = "O ano " + std::to_string(date.Year()) + " não faz sentido."};
    if (column_.kind == TColumnKind::Date && date.HasHour())
        return {.reason = "A coluna guarda o dia, sem a hora."};
    return {.value = date};
}

} // namespace alinhavo
