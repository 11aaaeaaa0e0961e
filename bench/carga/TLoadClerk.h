#pragma once

#include "bench/carga/TLedger.h"
#include "bench/carga/TLoadClient.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <vector>

namespace alinhavo {

/// Pieces that stand in a sector.
struct TLot {
    TLeavingPlace place;
    std::string batch;
};

/// What all clerks share. Written before they begin, the counts aside.
struct TLoadPlan {
    std::vector<TLot> lots;
    std::map<std::string, std::string> codes; ///< by product, colour and size, each followed by a blank
    std::chrono::milliseconds pause{
        1000}; ///< of a clerk before each step, half as much to one and a half times; a tenth before each key
    double shared = 0.05; ///< of the jobs are on an order that is anybody's, not the clerk's own
    std::chrono::steady_clock::duration warmUp{}; ///< in which the clerks come, one after the other
    std::chrono::steady_clock::time_point end;
    /// By order. Two who take back the same movement at the same moment are not kept apart by the screen, so here nobody tries
    /// while another does.
    std::map<std::string, std::mutex> takingBack = {};
};

/// What the clerks did and were told.
class TLoadCounts {
public:
    void Count(const std::string& what);
    std::map<std::string, int> All() const;

private:
    mutable std::mutex mutex_;
    std::map<std::string, int> counts_;
};

/// Somebody who works at the movement's screen until the plan's end: moves, reads, takes back, looks up.
class TLoadClerk {
public:
    using TLogIn = std::function<std::unique_ptr<TLoadClient>()>;

    /// Logs in.
    TLoadClerk(
        TLogIn logIn, TLoadPlan& plan, std::size_t number, std::size_t clerks, TLedger& ledger, TLoadCounts& counts);

    void Work();

private:
    struct TGaveUp { };

    void Job();
    void Move(bool reads);
    void Reverse();
    void Consult();
    const TLot& PickLot();

    bool EnterHeader(const TLot& lot);
    double TypeQuantities();
    double ReadCodes();
    void Confirm(const TLeavingPlace& place, double pieces);
    void GiveUp();
    void ComeAnew();
    void OpenScreen();
    bool InEntry() const;

    void Think(double share = 1);
    void Click(const std::string& control, TEventKind kind = TEventKind::Step);
    void Key(const std::string& control, const std::string& key);
    void Fill(const std::string& control, const std::string& text);
    bool Choose(const std::string& combo, const std::string& item);
    void TurnTo(int page);
    /// Answers what is asked, and counts what is said. True when nothing but known questions came.
    bool Answer(TEventKind kind = TEventKind::Step);
    void Do(nlohmann::json event, TEventKind kind = TEventKind::Step);
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

    const TLogIn logIn_;
    std::unique_ptr<TLoadClient> client_;
    bool leftPending_ = false; ///< something that he was told failed
    TLoadPlan& plan_;
    const std::size_t number_;
    const std::size_t clerks_;
    TLedger& ledger_;
    TLoadCounts& counts_;
    std::mt19937 random_;
};

} // namespace alinhavo
