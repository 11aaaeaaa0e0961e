#pragma once

#include "forms/TEdit.h"

namespace alinhavo {

/// A TEdit over a field of a dataset.
class TDBEdit final : public TEdit {
public:
    TDBEdit(TContainer& parent, std::string name, TField& field, TEditOptions options = {})
        : TEdit(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBEdit(TContainer& parent, std::string name, TDataSet& dataset, std::string_view field, TEditOptions options = {})
        : TEdit(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
