#pragma once

#include "platform/report/ETemplate.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace alinhavo {

class TTemplateFolder;

struct TTemplateNode;
using TTemplateNodes = std::vector<TTemplateNode>;

/// Text that goes to the page as it stands.
struct TTemplateText {
    std::string text;
};

/// An expression, with where it stands.
struct TTemplateExpression {
    std::string source;
    TTemplatePlace place;
};

/// {{ expression }}: its value goes to the page.
struct TTemplateValue {
    TTemplateExpression expression;
    bool inStyle = false; ///< inside <style>, where other characters are dangerous
};

/// % faixa: runs over the rows of a dataset.
struct TTemplateBand {
    struct TGroup {
        std::string name;
        std::string fields; ///< "FAC_CODCLI;FAC_NUMERO"; empty: those that the screen names for this level
        TTemplateNodes header;
        TTemplateNodes footer;
    };

    std::string dataset;
    TTemplateExpression where; ///< without source: all rows
    TTemplateNodes header;
    std::vector<TGroup> groups; ///< outermost first
    TTemplateNodes row;
    TTemplateNodes footer;
    TTemplateNodes empty; ///< in place of all else when there is no row
};

/// % se … % senaose … % senao
struct TTemplateChoice {
    struct TBranch {
        TTemplateExpression condition; ///< without source: holds always
        TTemplateNodes nodes;
    };
    std::vector<TBranch> branches;
};

/// % para i = 1, n
struct TTemplateLoop {
    std::string variable;
    TTemplateExpression from;
    TTemplateExpression to;
    TTemplateNodes nodes;
};

/// % define name = expression
struct TTemplateAssignment {
    std::string name;
    TTemplateExpression value;
};

struct TTemplateNode
    : std::variant<TTemplateText, TTemplateValue, TTemplateBand, TTemplateChoice, TTemplateLoop, TTemplateAssignment> {
    using variant::variant;
};

/// A template, read. A graphic one is HTML; a text one is plain text with lines of a page's top and base.
struct TTemplate {
    std::string file;
    TTemplateNodes nodes;
    /// Of a text template: its page. No lines: one endless page.
    int pageLines = 0;
    TTemplateNodes top;
    TTemplateNodes base;

    /// ETemplate when it cannot be understood. `folder` holds the files that it includes.
    static TTemplate Parse(std::string_view file, std::string_view text, const TTemplateFolder& folder);
};

} // namespace alinhavo
