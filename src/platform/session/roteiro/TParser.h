#pragma once

#include "platform/session/roteiro/TLine.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo::roteiro {

/// Reads roteiros. ERoteiro names file and line of what cannot be read.
class TParser {
public:
    /// The lines of a file and of those that it includes. The file is called by its path as given.
    static std::vector<TLine> ParseFile(const std::filesystem::path& path);
    /// Lines that are to be taken as those of a file at this path.
    static std::vector<TLine> ParseText(std::string_view text, const std::filesystem::path& path);

private:
    struct TSourceLine {
        TPlace place;
        std::size_t indent;
        std::string text; ///< without indentation and comment, not empty
    };
    /// What may stand at a place of the story.
    enum class TBlock { Story, Dialogs };

    explicit TParser(std::vector<std::filesystem::path> files);

    std::vector<TLine> Parse(std::string_view text);
    std::vector<TSourceLine> SourceLines(std::string_view text) const;
    std::vector<TLine> Block(TBlock block, std::size_t indent);
    void AddLine(TBlock block, std::vector<TLine>& lines);
    TLine Line();
    void AddIncluded(const TSourceLine& source, std::vector<TLine>& lines) const;
    std::filesystem::path FindIncluded(const TSourceLine& source, const std::string& name) const;

    std::vector<std::filesystem::path> files_; ///< that are being read, the outermost first
    std::vector<TSourceLine> source_;
    std::size_t next_ = 0;
};

} // namespace alinhavo::roteiro
