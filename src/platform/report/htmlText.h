#pragma once

#include <string>
#include <string_view>

namespace alinhavo {

/// What a person reads in a document of HTML: without tags, styles and comments, with the characters that were escaped.
/// Cells, paragraphs and lines are divided by a blank or a line break.
std::string HtmlText(std::string_view html);

/// The document with the rule that nothing in it may run, or fetch anything from elsewhere.
std::string SealedHtml(std::string html);

/// The document, shown on paper only: a browser that is to print it need not lay it out for a window before.
std::string PaperHtml(std::string html);

} // namespace alinhavo
