#pragma once

#include "platform/report/TReportValue.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// A bar code as a drawing (SVG) of the given height in millimetres. Kinds: "EAN13", "DUN14", "128", "39", "QR". What the
/// kind cannot hold is shown as text, so that one bad code does not cost the sheet. std::invalid_argument for another kind.
TMarkup Barcode(const std::string& code, std::string_view kind, double height);

} // namespace alinhavo
