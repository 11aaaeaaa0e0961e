#pragma once

#include "forms/TDataSet.h"

namespace alinhavo {

/// Gathers the notices of one operation; the operation itself tells them.
class TDataSet::THold {
public:
    explicit THold(TDataSet& dataset)
        : dataset_(dataset)
    {
        ++dataset_.off_;
    }
    ~THold() { --dataset_.off_; }
    THold(const THold&) = delete;
    THold& operator=(const THold&) = delete;

private:
    TDataSet& dataset_;
};

/// The fields stand on the row while this lives.
class TDataSet::TStanding {
public:
    TStanding(const TDataSet& dataset, TRowNumber row)
        : dataset_(dataset)
    {
        dataset_.standing_ = row;
    }
    ~TStanding() { dataset_.standing_.reset(); }
    TStanding(const TStanding&) = delete;
    TStanding& operator=(const TStanding&) = delete;

private:
    const TDataSet& dataset_;
};

} // namespace alinhavo
