#pragma once

#include "platform/report/TReportValue.h"

#include <optional>
#include <string_view>
#include <vector>

namespace alinhavo {

/// What the names of an expression stand for.
class INames {
public:
    virtual ~INames() = default;
    /// A field of the rows that are run over, a variable; nothing when there is no such name.
    virtual std::optional<TReportValue> Value(std::string_view name) = 0;
    /// The name of a dataset: NAME.FIELD is then asked for by Cell.
    virtual bool IsDataSet(std::string_view name) const = 0;
    virtual TValue Cell(std::string_view dataset, std::string_view field) = 0;
    /// A name that the data lack, or a function that the engine lacks.
    virtual TValue Unknown(std::string_view name, const std::vector<TValue>& arguments) = 0;
};

} // namespace alinhavo
