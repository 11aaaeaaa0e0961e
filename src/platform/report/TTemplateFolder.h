#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// The folders in which templates are looked for: the factory's own before those delivered.
class TTemplateFolder {
public:
    explicit TTemplateFolder(std::vector<std::filesystem::path> folders)
        : folders_(std::move(folders))
    {
    }

    /// The text of NAME.prt. ETemplate when there is none, when the name is more than letters, digits, "_" and "-", or when
    /// the file is none of text.
    std::string Read(std::string_view name) const;

private:
    std::filesystem::path Find(std::string_view name) const;

    std::vector<std::filesystem::path> folders_;
};

/// The file of a template: "WFacPen.prt".
std::string TemplateFile(std::string_view name);

} // namespace alinhavo
