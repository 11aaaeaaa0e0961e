#include "forms/utf8.h"

namespace alinhavo::utf8 {
namespace {

constexpr TCharacter Malformed{0, 1, false};

/// The length that a lead byte announces; 0 for a byte that cannot lead.
std::size_t Announced(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead < 0xC2 || lead > 0xF4)
        return 0;
    if (lead < 0xE0)
        return 2;
    return lead < 0xF0 ? 3 : 4;
}

/// Neither written longer than need be, nor a surrogate, nor beyond the last character.
bool IsAllowed(char32_t code, std::size_t bytes)
{
    if (bytes == 3)
        return code >= 0x800 && (code < 0xD800 || code > 0xDFFF);
    return bytes != 4 || (code >= 0x10000 && code <= 0x10FFFF);
}

} // namespace

TCharacter First(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t bytes = Announced(lead);
    if (bytes == 1)
        return {lead, 1, true};
    if (bytes == 0 || bytes > text.size())
        return Malformed;

    char32_t code = lead & (0xFFu >> (bytes + 1));
    for (const char byte : text.substr(1, bytes - 1)) {
        if (!IsContinuation(byte))
            return Malformed;
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3F);
    }
    return IsAllowed(code, bytes) ? TCharacter{code, bytes, true} : Malformed;
}

void Append(std::string& text, char32_t code)
{
    const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80)
        return put(code);
    if (code < 0x800) {
        put(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            put(0xE0 | code >> 12);
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 0x3F));
        }
        put(0x80 | (code >> 6 & 0x3F));
    }
    put(0x80 | (code & 0x3F));
}

} // namespace alinhavo::utf8
