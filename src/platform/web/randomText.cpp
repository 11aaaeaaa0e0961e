#include "platform/web/randomText.h"

#include <array>
#include <sodium.h>
#include <stdexcept>

namespace alinhavo {

std::string RandomText()
{
    static const bool ready = sodium_init() >= 0;
    if (!ready)
        throw std::runtime_error("libsodium does not start");
    std::array<unsigned char, 32> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    std::array<char, bytes.size() * 2 + 1> text{};
    sodium_bin2hex(text.data(), text.size(), bytes.data(), bytes.size());
    return text.data();
}

} // namespace alinhavo
