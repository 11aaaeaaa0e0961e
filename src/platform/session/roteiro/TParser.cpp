#include "platform/session/roteiro/TParser.h"

#include "forms/text.h"
#include "platform/session/roteiro/ERoteiro.h"
#include "platform/session/roteiro/grammar.h"
#include "platform/session/roteiro/TScanner.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace alinhavo::roteiro {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file || fs::is_directory(path))
        throw ERoteiro({path.string(), 0}, "the file cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

fs::path Absolute(const fs::path& path) { return fs::absolute(path).lexically_normal(); }

bool IsSql(std::string_view line) { return line.starts_with("sql ") || line.starts_with("sql\t"); }

/// Up to the comment. Single quotes hide a "#" only in a statement, elsewhere they are apostrophes.
std::string_view WithoutComment(std::string_view line)
{
    const bool sql = IsSql(line);
    char open = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char character = line[i];
        const bool escaped = character == '"' && i > 0 && line[i - 1] == '\\';
        if (open != 0)
            open = character == open && !escaped ? '\0' : open;
        else if (character == '"' || (sql && character == '\''))
            open = character;
        else if (character == '#')
            return line.substr(0, i);
    }
    return line;
}

} // namespace

std::vector<TLine> TParser::ParseFile(const fs::path& path) { return TParser({path}).Parse(ReadFile(path)); }

std::vector<TLine> TParser::ParseText(std::string_view text, const fs::path& path)
{
    return TParser({path}).Parse(text);
}

TParser::TParser(std::vector<fs::path> files)
    : files_(std::move(files))
{
}

std::vector<TLine> TParser::Parse(std::string_view text)
{
    source_ = SourceLines(text);
    return source_.empty() ? std::vector<TLine>() : Block(TBlock::Story, 0);
}

std::vector<TParser::TSourceLine> TParser::SourceLines(std::string_view text) const
{
    std::vector<TSourceLine> lines;
    TPlace place{files_.back().string(), 0};
    for (const auto& line : Explode(text, "\n")) {
        ++place.line;
        if (!ValidUtf8(line))
            throw ERoteiro(place, "the line is not written in UTF-8");
        const auto indent = std::min(line.find_first_not_of(' '), line.size());
        if (indent < line.size() && line[indent] == '\t')
            throw ERoteiro(place, "lines are indented with blanks, not with tabs");
        auto content = TrimRight(WithoutComment(std::string_view(line).substr(indent)));
        if (!content.empty())
            lines.push_back({place, indent, std::move(content)});
    }
    return lines;
}

/// The lines from here on that are indented so, with those below them.
std::vector<TLine> TParser::Block(TBlock block, std::size_t indent)
{
    std::vector<TLine> lines;
    bool otherSession = false;
    while (next_ < source_.size() && source_[next_].indent >= indent) {
        const auto& source = source_[next_];
        if (source.indent > indent)
            throw ERoteiro(source.place, "the line is indented as none above it");
        const auto before = lines.size();
        AddLine(block, lines);
        if (block == TBlock::Story || lines.size() == before)
            continue;
        // While a dialog waits, another session may be at work.
        otherSession = otherSession || std::holds_alternative<TSwitchSession>(lines.back().step);
        if (IsUserAction(lines.back().step) && !otherSession)
            throw ERoteiro(source.place, "a dialog is expected here, not an action");
    }
    return lines;
}

void TParser::AddLine(TBlock block, std::vector<TLine>& lines)
{
    const auto& source = source_[next_];
    TScanner scanner(source.text, source.place);
    if (scanner.Take("inclui")) {
        if (block == TBlock::Dialogs)
            throw ERoteiro(source.place, "a file is not included among dialogs");
        ++next_;
        return AddIncluded(source, lines);
    }
    auto line = Line();
    if (block == TBlock::Story && IsDialog(line.step))
        throw ERoteiro(line.place, "a dialog stands indented under the action that raises it");
    lines.push_back(std::move(line));
}

TLine TParser::Line()
{
    const auto& source = source_[next_++];
    TLine line{source.place, source.text, ParseStep(source.text, source.place), {}};
    if (next_ == source_.size() || source_[next_].indent <= source.indent)
        return line;
    const bool modal = std::holds_alternative<TModal>(line.step);
    if (!modal && !IsUserAction(line.step))
        throw ERoteiro(source_[next_].place, "the line above raises no dialog, nothing is indented under it");
    line.inner = Block(modal ? TBlock::Story : TBlock::Dialogs, source_[next_].indent);
    return line;
}

void TParser::AddIncluded(const TSourceLine& source, std::vector<TLine>& lines) const
{
    TScanner scanner(source.text, source.place);
    scanner.Expect("inclui");
    const auto name = scanner.Text("the file").text;
    scanner.End();

    const auto path = FindIncluded(source, name);
    if (std::ranges::find(files_, Absolute(path), Absolute) != files_.end())
        throw ERoteiro(source.place, "the file includes itself: " + path.string());
    auto files = files_;
    files.push_back(path);
    auto included = TParser(std::move(files)).Parse(ReadFile(path));
    std::ranges::move(included, std::back_inserter(lines));
}

/// Beside the file that includes it, else in the nearest folder above.
fs::path TParser::FindIncluded(const TSourceLine& source, const std::string& name) const
{
    const auto including = Absolute(files_.back());
    for (auto folder = including.parent_path();; folder = folder.parent_path()) {
        std::error_code unreadable;
        const auto path = (folder / name).lexically_normal();
        if (fs::is_regular_file(path, unreadable))
            return files_.back().is_absolute() ? path : path.lexically_proximate(fs::current_path());
        if (folder == folder.parent_path())
            throw ERoteiro(source.place, "the file to include is not found: " + name);
    }
}

} // namespace alinhavo::roteiro
