#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace alinhavo {

/// What must hold does not: ends the process, so that the fuzzer keeps the input.
[[noreturn]] inline void Finding(std::string_view what)
{
    std::fprintf(stderr, "FINDING: %s\n", std::string(what).c_str());
    std::abort();
}

inline void MustHold(bool holds, std::string_view what)
{
    if (!holds)
        Finding(what);
}

} // namespace alinhavo
