#pragma once

#include "platform/report/TTemplate.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Reads the lines of a template. Lines whose first mark is % are directives, all others go to the page.
class TTemplateParser {
public:
    explicit TTemplateParser(const TTemplateFolder& folder)
        : folder_(folder)
    {
    }

    TTemplate Parse(std::string_view file, std::string_view text);

private:
    struct TLine {
        std::string text;
        TTemplatePlace place;
        bool isDirective = false;
        std::string verb = {}; ///< of a directive: its first word
        std::string argument = {}; ///< of a directive: the rest
    };

    void Load(std::string_view file, std::string_view text, int depth);
    void LoadLine(std::string_view text, const TTemplatePlace& place, int depth);
    TLine Directive(std::string_view text, const TTemplatePlace& place) const;

    bool AtEnd() const { return next_ == lines_.size(); }
    const TLine& Line() const { return lines_[next_]; }
    bool At(std::string_view verb) const { return !AtEnd() && Line().verb == verb; }
    const TLine& Take() { return lines_[next_++]; }
    [[noreturn]] void Fail(const TLine& line, const std::string& reason) const;
    void ExpectEnd(const TLine& opener);

    void Page(TTemplate& result);
    TTemplateNodes Strip();
    /// Up to the directive that belongs to what is around.
    TTemplateNodes Nodes();
    void Text(TTemplateNodes& nodes, const TLine& line);
    void Plain(TTemplateNodes& nodes, std::string_view text, const TLine& line);
    static std::size_t EndOfExpression(std::string_view text, std::size_t from);
    TTemplateBand Band();
    TTemplateBand::TGroup Group(const TTemplateBand& band);
    void Footer(TTemplateBand& band);
    TTemplateChoice Choice();
    TTemplateLoop Loop();
    TTemplateAssignment Assignment();
    TTemplateExpression Expression(const TLine& line, std::string_view source) const;
    std::string Name(const TLine& line, std::string_view text) const;

    const TTemplateFolder& folder_;
    std::vector<TLine> lines_;
    std::size_t next_ = 0;
    bool inStyle_ = false;
};

} // namespace alinhavo
