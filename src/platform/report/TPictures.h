#pragma once

#include "platform/report/TReportValue.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace alinhavo {

/// Pictures of a report, taken into its page so that it needs no file any more. Only PNG, JPEG, GIF and WebP below the root
/// of the shared files; what is another thing, or elsewhere, leaves the place empty.
class TPictures {
public:
    explicit TPictures(const std::filesystem::path& root);

    /// At most so high, in millimetres.
    TMarkup Picture(const std::string& file, double height, std::string_view description);

private:
    const std::string& Address(const std::string& file);
    std::string Load(const std::string& file) const;

    std::filesystem::path root_;
    std::map<std::string, std::string> addresses_; ///< data: addresses by file; "" when there is no picture
};

} // namespace alinhavo
