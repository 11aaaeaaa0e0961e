#pragma once

#include "host/TOrvDatabase.h"

#include <string_view>

namespace alinhavo {

/// When goods that go to a sector are expected back.
class TPlanning {
public:
    explicit TPlanning(TOrvDatabase& database)
        : database_(database)
    {
    }

    /// The planned lead time of the order's part at the sector, else the sector's own, counted in the sector's working
    /// days behind `date`. Without a lead time the date itself; a blank date stays blank.
    TDateTime ForeseenReturn(TDateTime date, std::string_view sector, std::string_view part, std::string_view order);

    /// The date that lies `days` working days behind `date`, in a week that works from Monday to `lastWeekday` (1 to 7).
    static TDateTime AddWorkingDays(TDateTime date, std::int64_t days, int lastWeekday);

private:
    TOrvDatabase& database_;
};

} // namespace alinhavo
