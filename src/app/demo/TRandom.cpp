#include "app/demo/TRandom.h"

namespace alinhavo {
namespace {

/// FNV-1a, over the seed's bytes and the subject.
std::uint64_t Mix(std::uint64_t seed, std::string_view subject)
{
    constexpr std::uint64_t prime = 1099511628211U;
    std::uint64_t hash = 14695981039346656037U;
    for (int byte = 0; byte < 8; ++byte)
        hash = (hash ^ ((seed >> (8 * byte)) & 0xFFU)) * prime;
    for (const char c : subject)
        hash = (hash ^ static_cast<unsigned char>(c)) * prime;
    return hash;
}

} // namespace

TRandom::TRandom(std::uint64_t seed, std::string_view subject)
    : engine_(Mix(seed, subject))
{
}

int TRandom::Between(int low, int high)
{
    return low + static_cast<int>(Index(static_cast<std::size_t>(high - low) + 1));
}

double TRandom::Fraction()
{
    constexpr double scale = 1.0 / 9007199254740992.0; // 2 to the 53rd
    return static_cast<double>(engine_() >> 11U) * scale;
}

} // namespace alinhavo
