#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string_view>

namespace alinhavo {

/// Draws that are the same wherever they are made: the engine is fixed by the language, the distributions are our own.
/// Each subject of the factory has its own, so that a change in one leaves the others as they are.
class TRandom {
public:
    TRandom(std::uint64_t seed, std::string_view subject);

    /// Both bounds included.
    int Between(int low, int high);
    /// At least 0, below 1.
    double Fraction();
    bool Chance(int percent) { return Between(1, 100) <= percent; }
    std::size_t Index(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    /// An element of a container that is not empty.
    const auto& Pick(const auto& container) { return container[Index(std::size(container))]; }

private:
    std::mt19937_64 engine_;
};

} // namespace alinhavo
