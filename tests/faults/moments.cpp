#include "faults/moments.h"

#include <cstdlib>
#include <string_view>

namespace alinhavo {
namespace {

constexpr int Sample = 6;

bool TriesAll()
{
    const char* wanted = std::getenv("ALINHAVO_FAULTS"); // NOLINT(concurrency-mt-unsafe)
    return wanted && std::string_view(wanted) == "all";
}

} // namespace

std::vector<int> MomentsToTry(int last)
{
    const int count = TriesAll() || last <= Sample ? last : Sample;
    std::vector<int> moments;
    for (int i = 0; i < count; ++i)
        moments.push_back(1 + i * (last - 1) / (count - 1));
    return moments;
}

} // namespace alinhavo
