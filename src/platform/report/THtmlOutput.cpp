#include "platform/report/THtmlOutput.h"

namespace alinhavo {
namespace {

bool IsHarmlessInStyle(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ' || (c & 0x80) != 0;
}

/// Inside a quoted text of CSS, and outside of one, it stays what it is.
void AppendEscapedStyle(std::string& css, std::string_view text)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    for (const char c : text) {
        if (IsHarmlessInStyle(c)) {
            css += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        css += {'\\', '0', '0', '0', '0', Digits[byte >> 4], Digits[byte & 15]};
    }
}

} // namespace

void AppendEscapedHtml(std::string& html, std::string_view text)
{
    for (std::size_t from = 0; from < text.size();) {
        const auto at = text.find_first_of("&<>\"'", from);
        html += text.substr(from, at - from);
        if (at == std::string_view::npos)
            return;
        switch (text[at]) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        case '\'':
            html += "&#39;";
            break;
        default:
            html += text[at];
        }
        from = at + 1;
    }
}

void THtmlOutput::Value(const TReportValue& value, std::string_view shown, bool inStyle)
{
    if (inStyle)
        return AppendEscapedStyle(html_, shown);
    if (const auto* markup = std::get_if<TMarkup>(&value))
        html_ += markup->html;
    else
        AppendEscapedHtml(html_, shown);
}

} // namespace alinhavo
