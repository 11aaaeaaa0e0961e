// One message of a client: it is refused, or all that it says is within its measure.

#include "Finding.h"
#include "platform/web/EProtocolError.h"
#include "platform/web/TClientMessage.h"

#include <algorithm>
#include <limits>

namespace {

using namespace alinhavo;

constexpr std::size_t MaxName = 100;

bool IsNumber(std::int64_t number) { return number >= 0 && number <= std::numeric_limits<std::int32_t>::max(); }

void Check(const TClientMessage& message, std::size_t size)
{
    const auto& event = message.event;
    MustHold(IsNumber(message.number) && IsNumber(message.turn) && IsNumber(message.dialog), "a number is none");
    MustHold(IsNumber(message.first) && message.count >= 0 && message.count <= TClientMessage::MaxRows,
        "rows without measure");
    MustHold(event.row >= -1 && event.index >= -1, "a row or an index is none");
    MustHold(std::ranges::all_of(event.rows, IsNumber), "a row of an answer is none");
    for (const auto& name : {event.form, event.control, event.column})
        MustHold(name.size() <= MaxName, "a name is too long");
    MustHold(event.text.size() <= size && event.password.size() <= size, "a text longer than its message");
    MustHold(!event.work && event.kind != TUserEvent::TKind::Terminate, "a client ends a session");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    TClientMessage::IsCancel(text);
    try {
        Check(TClientMessage::Decode(text), size);
    } catch (const EProtocolError&) {
        return 0;
    }
    return 0;
}
