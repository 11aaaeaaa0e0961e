#pragma once

#include "forms/TNumberEdit.h"

namespace alinhavo {

/// A TNumberEdit over a field of a dataset.
class TDBNumberEdit final : public TNumberEdit {
public:
    TDBNumberEdit(TContainer& parent, std::string name, TField& field, TNumberEditOptions options = {})
        : TNumberEdit(parent, std::move(name), std::move(options))
    {
        Bind(field);
    }
    /// The field may be made later, when the dataset is opened.
    TDBNumberEdit(TContainer& parent, std::string name, TDataSet& dataset, std::string_view field,
        TNumberEditOptions options = {})
        : TNumberEdit(parent, std::move(name), std::move(options))
    {
        Bind(dataset, field);
    }
};

} // namespace alinhavo
