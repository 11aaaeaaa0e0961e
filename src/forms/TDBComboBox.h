#pragma once

#include "forms/TComboBox.h"

namespace alinhavo {

/// A TComboBox over a field of a dataset.
class TDBComboBox final : public TComboBox {
public:
    TDBComboBox(TContainer& parent, std::string name, TField& field, TComboBoxOptions options = {})
        : TComboBox(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBComboBox(
        TContainer& parent, std::string name, TDataSet& dataset, std::string_view field, TComboBoxOptions options = {})
        : TComboBox(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
