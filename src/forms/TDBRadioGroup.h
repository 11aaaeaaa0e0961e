#pragma once

#include "forms/TRadioGroup.h"

namespace alinhavo {

/// A TRadioGroup over a field of a dataset.
class TDBRadioGroup final : public TRadioGroup {
public:
    TDBRadioGroup(TContainer& parent, std::string name, TField& field, TRadioGroupOptions options = {})
        : TRadioGroup(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBRadioGroup(TContainer& parent, std::string name, TDataSet& dataset, std::string_view field,
        TRadioGroupOptions options = {})
        : TRadioGroup(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
