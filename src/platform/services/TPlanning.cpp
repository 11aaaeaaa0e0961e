#include "platform/services/TPlanning.h"

#include "platform/services/singleValue.h"

namespace alinhavo {
namespace {

/// A sector that does not say otherwise works from Monday to Friday, as a new one does.
constexpr int usualLastWeekday = 5;

int LastWeekday(const TValue& daysOfWeek)
{
    const auto days = daysOfWeek.AsInteger();
    return days >= 1 && days <= 7 ? static_cast<int>(days) : usualLastWeekday;
}

} // namespace

TDateTime TPlanning::ForeseenReturn(
    TDateTime date, std::string_view sector, std::string_view part, std::string_view order)
{
    if (date.IsBlank())
        return date;
    const auto found = database_.Open(TStatement("SELECT DIAS, DIAS_SEMANA FROM {CADFLUXO} WHERE CODIGO = ?", sector));
    if (found.RowCount() == 0)
        return date;
    const auto planned = SingleValue(database_,
        TStatement(
            "SELECT MAX(DIAS) FROM {PCP_MOV} WHERE NUMERO = ? AND SETOR = ? AND PARTE = ?", order, sector, part));
    const auto days = planned.IsNull() ? found.Column(0).Value(0) : planned;
    return AddWorkingDays(date, days.AsInteger(), LastWeekday(found.Column(1).Value(0)));
}

TDateTime TPlanning::AddWorkingDays(TDateTime date, std::int64_t days, int lastWeekday)
{
    if (days <= 0)
        return date;
    // Any seven days in a row hold one week's working days; the last week is walked, so as to end on a working day.
    const auto wholeWeeks = (days - 1) / lastWeekday;
    auto rest = days - wholeWeeks * lastWeekday;
    date = date.AddDays(7 * wholeWeeks);
    while (rest > 0) {
        date = date.AddDays(1);
        if (date.DayOfWeek() <= lastWeekday)
            --rest;
    }
    return date;
}

} // namespace alinhavo
