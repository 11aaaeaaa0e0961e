#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace alinhavo {

/// A finished report, while a dialog shows it.
class IShownReport {
public:
    virtual ~IShownReport() = default;
    /// HTML that runs nothing and fetches nothing.
    virtual std::shared_ptr<const std::string> Document() const = 0;
    /// What a line printer gets, its pages divided by form feeds; null of a graphic report.
    virtual std::shared_ptr<const std::string> PlainText() const = 0;
    /// The address that it is offered to be sent to; may be empty.
    virtual const std::string& Recipient() const = 0;
    /// The data behind it as a spreadsheet (XLSX).
    virtual std::string Workbook() const = 0;
    /// Puts it into the outgoing mail; std::invalid_argument, with a text for the user, when that is no address.
    virtual void SendTo(std::string_view address) = 0;
};

} // namespace alinhavo
