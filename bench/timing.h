#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

namespace alinhavo {

/// What the work takes.
inline double Milliseconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// Of at least one value.
inline double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace alinhavo
