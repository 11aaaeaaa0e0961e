#pragma once

#include "platform/report/TReportValue.h"

#include <string_view>

namespace alinhavo {

/// Where a report goes, piece by piece.
class IReportOutput {
public:
    virtual ~IReportOutput() = default;
    /// Of the template.
    virtual void Text(std::string_view text) = 0;
    /// Of the data: never more than text. `shown` is how a person reads it.
    virtual void Value(const TReportValue& value, std::string_view shown, bool inStyle) = 0;
    virtual std::size_t Size() const = 0;
};

} // namespace alinhavo
