#include "platform/report/htmlText.h"

#include "forms/text.h"

#include <array>
#include <utility>

namespace alinhavo {
namespace {

constexpr std::string_view Seal
    = R"(<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; img-src data:; font-src data:">)";

constexpr std::string_view PaperOnly = "<style>@media screen { body { display: none } }</style>";

constexpr std::array<std::pair<std::string_view, char>, 6> Entities{{
    {"&amp;", '&'},
    {"&lt;", '<'},
    {"&gt;", '>'},
    {"&quot;", '"'},
    {"&#39;", '\''},
    {"&nbsp;", ' '},
}};

bool IsElement(std::string_view tag, std::string_view name)
{
    return SameText(tag.substr(0, name.size()), name)
        && (tag.size() == name.size() || tag[name.size()] == '>' || tag[name.size()] == ' ');
}

/// Behind a tag, or behind the whole of an element that shows nothing.
std::size_t BehindTag(std::string_view html, std::size_t at)
{
    const auto tag = html.substr(at);
    std::string_view end = ">";
    if (tag.starts_with("<!--"))
        end = "-->";
    else if (IsElement(tag, "<style"))
        end = "</style>";
    else if (IsElement(tag, "<title"))
        end = "</title>";
    const auto found = html.find(end, at);
    return found == std::string_view::npos ? html.size() : found + end.size();
}

char Entity(std::string_view html, std::size_t& at)
{
    for (const auto& [entity, character] : Entities) {
        if (html.substr(at).starts_with(entity)) {
            at += entity.size();
            return character;
        }
    }
    return html[at++];
}

/// The document with one element more, before anything that it could contain.
std::string Beginning(std::string html, std::string_view element)
{
    constexpr std::string_view Doctype = "<!doctype html>";
    if (!SameText(std::string_view(html).substr(0, Doctype.size()), Doctype))
        html.insert(0, Doctype);
    return html.insert(Doctype.size(), element);
}

} // namespace

std::string HtmlText(std::string_view html)
{
    std::string text;
    for (std::size_t at = 0; at < html.size();) {
        if (html[at] == '<') {
            at = BehindTag(html, at);
            text += ' ';
        } else {
            text += Entity(html, at);
        }
    }
    return text;
}

std::string SealedHtml(std::string html) { return Beginning(std::move(html), Seal); }

std::string PaperHtml(std::string html) { return Beginning(std::move(html), PaperOnly); }

} // namespace alinhavo
