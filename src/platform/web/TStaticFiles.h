#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace alinhavo {

/// A file of the client, ready to be sent.
struct TStaticFile {
    std::string content = {};
    std::string gzip = {}; ///< the same, compressed; empty when there is none
    std::string contentType = {};
    std::string etag = {};
    bool immutable = false; ///< its name changes with its content
};

/// The client's files, read once from their folder. A request looks for a name among them and never becomes a path, so
/// nothing outside the folder can be reached.
class TStaticFiles {
public:
    /// Throws std::runtime_error when there is no such folder. Symbolic links are not followed.
    explicit TStaticFiles(const std::filesystem::path& folder);

    /// By the path of a request ("/", "/assets/app.js"); null when there is none.
    const TStaticFile* Find(std::string_view path) const;

private:
    std::map<std::string, TStaticFile, std::less<>> files_;
};

} // namespace alinhavo
