#include "forms/text.h"

#include "forms/utf8.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

constexpr std::string_view Blanks = " \t\r\n";

char32_t Upper(char32_t code)
{
    if (code >= U'a' && code <= U'z')
        return code - 0x20;
    if (code >= U'à' && code <= U'þ' && code != U'÷')
        return code - 0x20;
    switch (code) {
    case U'ÿ':
        return U'Ÿ';
    case U'œ':
        return U'Œ';
    case U'š':
        return U'Š';
    case U'ž':
        return U'Ž';
    default:
        return code;
    }
}

char32_t Lower(char32_t code)
{
    if (code >= U'A' && code <= U'Z')
        return code + 0x20;
    if (code >= U'À' && code <= U'Þ' && code != U'×')
        return code + 0x20;
    switch (code) {
    case U'Ÿ':
        return U'ÿ';
    case U'Œ':
        return U'œ';
    case U'Š':
        return U'š';
    case U'Ž':
        return U'ž';
    default:
        return code;
    }
}

/// The text with each character changed; malformed bytes stay.
std::string Changed(std::string_view text, char32_t (*change)(char32_t))
{
    std::string changed;
    changed.reserve(text.size());
    while (!text.empty()) {
        const auto character = utf8::First(text);
        if (character.wellFormed)
            utf8::Append(changed, change(character.code));
        else
            changed += text.front();
        text.remove_prefix(character.bytes);
    }
    return changed;
}

/// Where the characters after the first `count` begin; the end when there are no more.
std::size_t Offset(std::string_view text, std::size_t count)
{
    std::size_t offset = 0;
    for (; count > 0 && offset < text.size(); --count)
        offset += utf8::First(text.substr(offset)).bytes;
    return offset;
}

std::string Fill(std::string_view text, char fill, std::size_t width)
{
    const auto length = Length(text);
    return std::string(width > length ? width - length : 0, fill);
}

} // namespace

std::size_t Length(std::string_view text)
{
    std::size_t length = 0;
    for (; !text.empty(); ++length)
        text.remove_prefix(utf8::First(text).bytes);
    return length;
}

std::string Copy(std::string_view text, std::size_t first, std::size_t count)
{
    const auto rest = text.substr(Offset(text, first > 0 ? first - 1 : 0));
    return std::string(rest.substr(0, Offset(rest, count)));
}

std::string Left(std::string_view text, std::size_t count) { return Copy(text, 1, count); }

std::string Right(std::string_view text, std::size_t count)
{
    const auto length = Length(text);
    return std::string(text.substr(Offset(text, length > count ? length - count : 0)));
}

std::string LeftPad(std::string_view text, char fill, std::size_t width)
{
    return Fill(text, fill, width).append(text);
}

std::string RightPad(std::string_view text, char fill, std::size_t width)
{
    return std::string(text).append(Fill(text, fill, width));
}

std::string Trim(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    return TrimRight(text);
}

std::string TrimRight(std::string_view text) { return std::string(text.substr(0, text.find_last_not_of(Blanks) + 1)); }

std::string UpperCase(std::string_view text) { return Changed(text, Upper); }
std::string LowerCase(std::string_view text) { return Changed(text, Lower); }

bool SameText(std::string_view left, std::string_view right)
{
    while (!left.empty() && !right.empty()) {
        const auto one = utf8::First(left);
        const auto other = utf8::First(right);
        const bool same
            = one.wellFormed && other.wellFormed ? Lower(one.code) == Lower(other.code) : left.front() == right.front();
        if (!same)
            return false;
        left.remove_prefix(one.bytes);
        right.remove_prefix(other.bytes);
    }
    return left.empty() && right.empty();
}

std::vector<std::string> Explode(std::string_view text, std::string_view separator)
{
    std::vector<std::string> pieces;
    if (text.empty())
        return pieces;
    if (separator.empty())
        return {std::string(text)};

    for (auto end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    pieces.emplace_back(text);
    return pieces;
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with)
{
    if (what.empty())
        return std::string(text);

    std::string replaced;
    for (auto found = text.find(what); found != std::string_view::npos; found = text.find(what)) {
        replaced.append(text.substr(0, found)).append(with);
        text.remove_prefix(found + what.size());
    }
    return replaced.append(text);
}

bool ValidUtf8(std::string_view text)
{
    const auto beyondAscii = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
    for (auto at = std::ranges::find_if(text, beyondAscii); at != text.end();) {
        const auto character = utf8::First({at, text.end()});
        if (!character.wellFormed)
            return false;
        at = std::find_if(at + static_cast<std::ptrdiff_t>(character.bytes), text.end(), beyondAscii);
    }
    return true;
}

} // namespace alinhavo
