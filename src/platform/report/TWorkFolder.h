#pragma once

#include <filesystem>

namespace alinhavo {

/// A folder for files that other programs and libraries want, readable by nobody else and gone with this.
class TWorkFolder {
public:
    /// std::runtime_error when there can be none.
    TWorkFolder();
    ~TWorkFolder();
    TWorkFolder(const TWorkFolder&) = delete;
    TWorkFolder& operator=(const TWorkFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace alinhavo
