#include "bench/carga/TLedger.h"

#include <cmath>
#include <set>

namespace alinhavo {

void TLedger::Add(const TLeavingPlace& place, double pieces)
{
    const std::lock_guard lock(mutex_);
    pieces_[place] += pieces;
    moved_ += std::abs(pieces);
}

double TLedger::Moved() const
{
    const std::lock_guard lock(mutex_);
    return moved_;
}

std::vector<std::string> TLedger::Differences(const TPieces& before, const TPieces& after) const
{
    const std::lock_guard lock(mutex_);
    std::set<TLeavingPlace> places;
    for (const auto* all : {&before, &after, &pieces_})
        for (const auto& [place, pieces] : *all)
            places.insert(place);
    const auto in = [](const TPieces& all, const TLeavingPlace& place) {
        const auto found = all.find(place);
        return found == all.end() ? 0.0 : found->second;
    };
    std::vector<std::string> differences;
    for (const auto& place : places) {
        const auto recorded = in(after, place) - in(before, place);
        const auto said = in(pieces_, place);
        if (std::abs(recorded - said) > 0.0005)
            differences.push_back("OF " + place.order + ", parte " + place.part + ", setor " + place.sector
                + ": gravado " + std::to_string(recorded) + ", dito " + std::to_string(said));
    }
    return differences;
}

TPieces RecordedMovements(TSqlDatabase& database)
{
    const auto rows = database.Open(TStatement(R"(
        SELECT NUMERO, PARTE, OP, SUM(QUANT + QUANT_2 + QUANT_I + QUANT_F) FROM {FACCAO3} GROUP BY NUMERO, PARTE, OP)"));
    TPieces pieces;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        const auto text = [&](std::size_t column) { return std::string(rows.Column(column).Text(row)); };
        pieces[{text(0), text(1), text(2)}] = rows.Column(3).Value(row).AsFloat();
    }
    return pieces;
}

} // namespace alinhavo
