#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

struct THttpAnswer {
    int status = 0;
    std::string body;
};

struct THttpRequest {
    std::string url; ///< http or https
    std::vector<std::string> headers = {}; ///< "Name: value"
    std::chrono::seconds patience{10}; ///< for the whole exchange
    std::size_t largestBody = 4U << 20U;
};

/// Fetches a document. std::runtime_error with a Portuguese text when the other side can't be reached, does not answer in
/// time or sends too much; an answer that reports an error is an answer. Redirections are not followed.
THttpAnswer HttpGet(const THttpRequest& request);

/// The text as part of a URL's path.
std::string UrlEscaped(std::string_view text);

} // namespace alinhavo
