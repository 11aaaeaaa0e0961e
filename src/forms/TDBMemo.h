#pragma once

#include "forms/TMemo.h"

namespace alinhavo {

/// A TMemo over a field of a dataset.
class TDBMemo final : public TMemo {
public:
    TDBMemo(TContainer& parent, std::string name, TField& field, TMemoOptions options = {})
        : TMemo(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBMemo(TContainer& parent, std::string name, TDataSet& dataset, std::string_view field, TMemoOptions options = {})
        : TMemo(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
