#pragma once

#include "forms/TDateEdit.h"

namespace alinhavo {

/// A TDateEdit over a field of a dataset.
class TDBDateEdit final : public TDateEdit {
public:
    TDBDateEdit(TContainer& parent, std::string name, TField& field, TDateEditOptions options = {})
        : TDateEdit(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBDateEdit(
        TContainer& parent, std::string name, TDataSet& dataset, std::string_view field, TDateEditOptions options = {})
        : TDateEdit(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
