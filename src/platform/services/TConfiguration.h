#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace alinhavo {

/// The installation's configuration: an INI file (`alinhavo.ini`, UTF-8).
///
///     ; a comment
///     [Caminho]
///     path = /srv/alinhavo
///
/// Sections and keys are found without regard to case; values are taken without blanks around them.
class TConfiguration {
public:
    /// Without a file: only defaults, and the current folder is the root of the shared files.
    TConfiguration() = default;
    /// A file that is not there leaves everything at its default. std::runtime_error, which names file and line, when a
    /// line is neither a section, a key with its value nor a comment.
    static TConfiguration Load(const std::filesystem::path& file);
    static TConfiguration Parse(std::string_view text, std::string_view fileName = "alinhavo.ini");

    std::string Value(std::string_view section, std::string_view key, std::string_view otherwise = {}) const;
    /// Root of the shared files, absolute: "path" of section "Caminho", relative to the file's folder; by default that
    /// folder.
    std::filesystem::path SharedRoot() const;

private:
    void Read(std::string_view line, std::string& section, const std::string& place);

    std::filesystem::path folder_ = ".";
    std::map<std::string, std::string> values_; ///< by "section.key" in lower case
};

} // namespace alinhavo
