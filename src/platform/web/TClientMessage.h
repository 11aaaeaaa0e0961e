#pragma once

#include "forms/TUserEvent.h"

#include <cstdint>
#include <string_view>

namespace alinhavo {

/// One message of a client, as docs/protocol.md describes it.
struct TClientMessage {
    static constexpr std::size_t MaxBytes = 64 * 1024;
    static constexpr std::int64_t MaxRows = 500; ///< of one request

    std::int64_t number = 0; ///< counted from 1 by the client, without a gap
    std::int64_t turn = 0; ///< the turn that the client had seen when it sent this
    /// What the client wants for its own view, whatever the user is at.
    enum class TRequest { None, Rows, Order };
    TRequest request = TRequest::None;
    TUserEvent event; ///< what the user did; of a request, the grid
    std::int64_t dialog = 0; ///< the dialog that an answer, a search or a request for rows is meant for
    std::int64_t first = 0; ///< the rows asked for, of a dialog or of the grid `event.control`
    std::int64_t count = 0;

    /// {"cancel": true}: what is being worked at is to end. It has no number, since it is heard meanwhile.
    static bool IsCancel(std::string_view text);
    /// Throws EProtocolError for whatever is not exactly one well-formed message.
    static TClientMessage Decode(std::string_view text);
};

} // namespace alinhavo
