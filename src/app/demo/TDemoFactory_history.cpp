#include "app/demo/TDemoFactory.h"
#include "app/demo/TMovementClerk.h"
#include "platform/database/schema.h"

#include <algorithm>
#include <map>

namespace alinhavo {
namespace {

using TLeaving = TMovementClerk::TLeaving;

const TSessionUser clerkOfHistory{"ANA", "ANA"};

bool HasSwitch(const demo::TSector& sector, std::string_view column)
{
    return sector.switches.find(column) != std::string_view::npos;
}

/// In some lines a piece is spoilt on the way.
TLeaving WithLosses(TRandom& random, int pending)
{
    constexpr int enough = 3;
    if (pending < enough || !random.Chance(12))
        return {.good = pending};
    const int kind = random.Between(1, 10);
    if (kind <= 6)
        return {.good = pending - 1, .second = 1};
    if (kind <= 8)
        return {.good = pending - 1, .missing = 1};
    return {.good = pending - 1, .incomplete = 1};
}

/// Of very few pieces, all.
TLeaving Portion(int pending) { return {.good = (pending * 3 + 4) / 5}; }

} // namespace

// Day by day, as the factory worked: what is done in a sector by then is moved on the screen, and what the screen makes of it is
// the history.
void TDemoFactory::MakeHistory()
{
    TRandom random = Random("history");
    DemandConsumptions("N"); // from the day of the demonstration on they are to be settled before the movement
    TMovementClerk clerk(database_, clerkOfHistory);
    std::multimap<TDateTime, TBatch> due;
    std::map<const TOrder*, int> elsewhere; ///< batches of secondary parts that are not in the last sector yet
    for (const TOrder& order : orders_)
        EnterProduction(random, order, due, elsewhere);

    TDateTime day;
    while (!due.empty() && due.begin()->first <= today_) {
        const auto [date, batch] = *due.begin();
        due.erase(due.begin());
        if (day != date) {
            if (day.IsBlank() || day.Month() != date.Month()) {
                CloseInventory(date);
                RefreshStatistics(database_);
            }
            day = date;
            clerk.BeginDay(day);
        }
        // Finished goods leave with all their parts.
        if (batch.IsLast() && elsewhere[batch.order] > 0)
            due.emplace(AddWorkdays(day, 1), batch);
        else
            MoveBatch(random, clerk, day, batch, due, elsewhere);
    }
    CloseInventory(today_);
    DemandConsumptions("S");
    database_.CommitRetaining();
    CountOrders();
}

void TDemoFactory::EnterProduction(TRandom& random, const TOrder& order, std::multimap<TDateTime, TBatch>& due,
    std::map<const TOrder*, int>& elsewhere)
{
    const TDateTime day = AddWorkdays(order.start, random.Between(1, 3));
    if (order.isCalledOff || day > today_)
        return;
    const auto parts = demo::MakeOf(order.product->model->make).parts;
    for (const demo::TPartFlow& part : parts) {
        const TBatch batch{.order = &order,
            .part = part.part,
            .flow = &demo::FlowOf(part.flow),
            .sector = demo::FlowOf(part.flow).sectors.front(),
            .isMain = &part == &parts.front(),
            .isOnlyPart = parts.size() == 1,
            // Of three parts or more, each line of those before the last gives up as much as the main part takes.
            .mayDivide = &part == &parts.front() || parts.size() == 2};
        if (!batch.isMain)
            ++elsewhere[&order];
        due.emplace(day, batch);
    }
}

void TDemoFactory::MoveBatch(TRandom& random, TMovementClerk& clerk, TDateTime day, const TBatch& batch,
    std::multimap<TDateTime, TBatch>& due, std::map<const TOrder*, int>& elsewhere)
{
    const demo::TSector& sector = demo::SectorOf(batch.sector);
    const bool divides = batch.mayDivide && !batch.isRest && !batch.flow->free && !batch.IsLast()
        && HasSwitch(sector, "BAIXAPARCIAL") && batch.order->items.front().quantity > 4 && random.Chance(18);
    // Losses of one part would leave the others without their match; where defects are demanded, an inspection writes them first.
    const bool hasLosses = !divides && batch.isOnlyPart && sector.trade != demo::TTrade::House && random.Chance(45);
    int staying = 0;
    const TMovementClerk::TArrival arrival = clerk.Move({.order = batch.order->number,
                                                            .part = std::string(batch.part),
                                                            .sector = std::string(batch.sector),
                                                            .batch = batch.number,
                                                            .destination = DestinationOf(random, batch)},
        [&](int pending) {
            const TLeaving leaving = divides ? Portion(pending)
                : hasLosses                  ? WithLosses(random, pending)
                                             : TLeaving{.good = pending};
            staying += divides ? pending - leaving.good : 0;
            return leaving;
        });

    if (staying > 0) {
        TBatch rest = batch;
        rest.isRest = true;
        elsewhere[batch.order] += batch.isMain ? 0 : 1;
        due.emplace(AddWorkdays(day, random.Between(1, 3)), rest);
    }
    if (arrival.sector.empty())
        return;
    TBatch next = batch;
    next.sector = demo::SectorOf(arrival.sector).code;
    next.number = arrival.batch;
    next.isRest = false;
    if (next.IsLast() && !next.isMain) {
        --elsewhere[batch.order];
        return;
    }
    const int percent = random.Between(70, 150);
    due.emplace(AddWorkdays(day, std::max(1, demo::SectorOf(next.sector).days * percent / 100)), next);
}

/// Empty where the plan decides, which the screen proposes.
std::string TDemoFactory::DestinationOf(TRandom& random, const TBatch& batch) const
{
    if (batch.IsLast())
        return std::string(demo::factoryCode);
    const auto sectors = batch.flow->sectors;
    const auto next = std::ranges::find(sectors, batch.sector) + 1;
    const demo::TSector& sector = demo::SectorOf(*next);
    if (batch.flow->free || sector.trade == demo::TTrade::House || !random.Chance(30))
        return {};
    return random.Pick(SubcontractorsFor(*batch.order->product, sector))->code;
}

/// What the accountants had closed by that day: all but the month and the one before.
void TDemoFactory::CloseInventory(TDateTime day)
{
    const TDateTime closing = TDateTime::FromDate(day.Year(), day.Month(), 1).AddMonths(-1).AddDays(-1);
    database_.ExecSQL(TStatement("UPDATE {EMPRESA} SET EMP_DTINV = ? WHERE EMP_PAT = '01'", closing));
    database_.CommitRetaining();
}

/// At the sectors that may demand it.
void TDemoFactory::DemandConsumptions(std::string_view flag)
{
    for (const demo::TSector& sector : demo::Sectors()) {
        if (HasSwitch(sector, "BAIXACONSUMO"))
            database_.ExecSQL(TStatement("UPDATE {CADFLUXO} SET BAIXACONSUMO = ? WHERE CODIGO = ?", flag, sector.code));
    }
}

} // namespace alinhavo
