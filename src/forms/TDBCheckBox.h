#pragma once

#include "forms/TCheckBox.h"

namespace alinhavo {

/// A TCheckBox over a field of a dataset.
class TDBCheckBox final : public TCheckBox {
public:
    TDBCheckBox(TContainer& parent, std::string name, TField& field, TCheckBoxOptions options = {})
        : TCheckBox(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBCheckBox(
        TContainer& parent, std::string name, TDataSet& dataset, std::string_view field, TCheckBoxOptions options = {})
        : TCheckBox(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
