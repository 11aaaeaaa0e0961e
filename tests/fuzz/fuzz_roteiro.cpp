// Reading a roteiro: whatever the text, it is lines of the language or one error that names a line of it.

#include "Finding.h"
#include "platform/session/roteiro/ERoteiro.h"
#include "platform/session/roteiro/TParser.h"

#include <algorithm>
#include <cstdint>

namespace {

using namespace alinhavo;
using namespace alinhavo::roteiro;

/// A folder that holds nothing to include.
const std::filesystem::path File = "nowhere/story.rot";

void CheckPlaces(const std::vector<TLine>& lines, int last)
{
    for (const auto& line : lines) {
        MustHold(line.place.line >= 1 && line.place.line <= last, "a line stands where the text has none");
        MustHold(!line.source.empty(), "an empty line means something");
        CheckPlaces(line.inner, last);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto last = static_cast<int>(std::ranges::count(text, '\n')) + 1;
    try {
        CheckPlaces(TParser::ParseText(text, File), last);
    } catch (const ERoteiro& error) {
        MustHold(error.Place().line >= 1 && error.Place().line <= last, "an error names a line that the text lacks");
    }
    return 0;
}
