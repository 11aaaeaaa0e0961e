#include "bench/carga/TEventTimes.h"

#include <algorithm>
#include <functional>

namespace alinhavo {

void TEventTimes::Add(TEventKind kind, const std::string& what, TTime time)
{
    const auto milliseconds = std::chrono::duration<float, std::milli>(time).count();
    const std::lock_guard lock(mutex_);
    times_[static_cast<std::size_t>(kind)].push_back(milliseconds);
    byEvent_[what].push_back(milliseconds);
}

std::size_t TEventTimes::Count() const
{
    const std::lock_guard lock(mutex_);
    std::size_t count = 0;
    for (const auto& times : times_)
        count += times.size();
    return count;
}

double TEventTimes::OfAll(double share) const
{
    const std::lock_guard lock(mutex_);
    std::vector<float> all;
    for (const auto& times : times_)
        all.insert(all.end(), times.begin(), times.end());
    return Quantile(std::move(all), share);
}

double TEventTimes::Of(TEventKind kind, double share) const
{
    const std::lock_guard lock(mutex_);
    return Quantile(times_[static_cast<std::size_t>(kind)], share);
}

std::vector<TEventTimes::TLine> TEventTimes::ByEvent() const
{
    const std::lock_guard lock(mutex_);
    std::vector<TLine> lines;
    for (const auto& [what, times] : byEvent_)
        lines.push_back({what, times.size(), Quantile(times, 0.5), Quantile(times, 0.99)});
    std::ranges::sort(lines, std::greater(), &TLine::slow);
    return lines;
}

double TEventTimes::Quantile(std::vector<float> times, double share)
{
    if (times.empty())
        return 0;
    const auto place = times.begin() + static_cast<std::ptrdiff_t>(share * static_cast<double>(times.size() - 1));
    std::ranges::nth_element(times, place);
    return *place;
}

} // namespace alinhavo
