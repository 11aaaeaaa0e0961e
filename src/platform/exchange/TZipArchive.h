#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct zip;

namespace alinhavo {

/// The parts of a ZIP file, unpacked piece by piece: no more is held than what the reader keeps.
class TZipArchive {
public:
    /// EExchange when it is none. All parts together unfold to at most `limit` bytes.
    TZipArchive(const std::filesystem::path& file, std::size_t limit);

    bool Has(const std::string& part) const;
    /// Gives `take` the part's bytes in pieces. EExchange when it is damaged, or the limit is passed.
    void Read(const std::string& part, const std::function<void(std::string_view)>& take);

private:
    struct TClose {
        void operator()(zip* archive) const;
    };
    std::unique_ptr<zip, TClose> archive_;
    std::size_t left_; ///< bytes that may yet be unpacked
};

} // namespace alinhavo
