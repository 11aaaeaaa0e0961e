#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace alinhavo::utf8 {

/// One character of a text. A malformed byte is a character of its own, without a code.
struct TCharacter {
    char32_t code = 0;
    std::size_t bytes = 1;
    bool wellFormed = true;
};

constexpr bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

/// The first character of a text that is not empty.
TCharacter First(std::string_view text);
void Append(std::string& text, char32_t code);

} // namespace alinhavo::utf8
