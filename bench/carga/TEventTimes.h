#pragma once

#include <array>
#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace alinhavo {

/// What a message asks of the server, from little to much.
enum class TEventKind { Keystroke, Step, Confirmation };

/// How long the server took over each event, from its receipt until what changed was ready to be sent.
class TEventTimes {
public:
    using TTime = std::chrono::steady_clock::duration;

    /// `what` tells events of one kind apart: "click btn00Confirmar".
    void Add(TEventKind kind, const std::string& what, TTime time);
    std::size_t Count() const;
    /// Of all events, in milliseconds; share 0.5 is the median.
    double OfAll(double share) const;
    double Of(TEventKind kind, double share) const;

    struct TLine {
        std::string what;
        std::size_t count;
        double median;
        double slow; ///< the 99th percentile
    };
    /// The slowest first.
    std::vector<TLine> ByEvent() const;

private:
    static double Quantile(std::vector<float> times, double share);

    mutable std::mutex mutex_;
    std::array<std::vector<float>, 3> times_; ///< milliseconds, by kind
    std::map<std::string, std::vector<float>> byEvent_;
};

} // namespace alinhavo
