#include "platform/report/textPages.h"

#include "forms/text.h"
#include "platform/report/htmlText.h"
#include "platform/report/THtmlOutput.h"

#include <algorithm>
#include <vector>

namespace alinhavo {
namespace {

constexpr std::size_t PortraitColumns = 96; ///< more of them lie better on a sheet turned on its side
constexpr std::size_t MostLines = 100; ///< of a page; more of them are one endless page
constexpr double LetterWidth = 0.602; ///< of a monospaced letter, in its size
constexpr double LineHeight = 1.15;
constexpr double LargestLetter = 11; ///< points
constexpr double Margin = 28; ///< points, on each side

struct TPaper {
    std::string_view name;
    double width; ///< points
    double height;
};
constexpr TPaper Portrait{"A4 portrait", 595, 842};
constexpr TPaper Landscape{"A4 landscape", 842, 595};

std::vector<std::string_view> PagesOf(std::string_view text)
{
    std::vector<std::string_view> pages;
    for (;;) {
        const auto end = text.find('\f');
        pages.push_back(text.substr(0, end));
        if (end == std::string_view::npos || end + 1 == text.size())
            return pages;
        text.remove_prefix(end + 1);
    }
}

/// Lines, and the characters of the longest one.
struct TExtent {
    std::size_t lines = 1;
    std::size_t columns = 1;
};

TExtent ExtentOf(const std::vector<std::string_view>& pages)
{
    TExtent extent;
    for (auto page : pages) {
        std::size_t lines = 0;
        while (!page.empty()) {
            const auto line = page.substr(0, page.find('\n'));
            extent.columns = std::max(extent.columns, Length(line));
            page.remove_prefix(std::min(page.size(), line.size() + 1));
            ++lines;
        }
        extent.lines = std::max(extent.lines, lines);
    }
    return extent;
}

/// Points of the letters with which the page fits on the paper; an endless one is broken by its height.
double LetterSize(const TPaper& paper, const TExtent& extent)
{
    const double byWidth = (paper.width - 2 * Margin) / (LetterWidth * static_cast<double>(extent.columns));
    const double byHeight = (paper.height - 2 * Margin) / (LineHeight * static_cast<double>(extent.lines));
    return std::min({LargestLetter, byWidth, extent.lines > MostLines ? LargestLetter : byHeight});
}

std::string Number(double number)
{
    auto text = std::to_string(number);
    return text.substr(0, text.find('.') + 3);
}

} // namespace

std::string TextPages(std::string_view text)
{
    const auto pages = PagesOf(text);
    const auto extent = ExtentOf(pages);
    const auto& paper = extent.columns <= PortraitColumns ? Portrait : Landscape;
    const auto size = Number(LetterSize(paper, extent));
    std::string html = "<!doctype html><html lang=\"pt-BR\"><head><meta charset=\"utf-8\"><style>@page{size:"
        + std::string(paper.name) + ";margin:" + Number(Margin) + "pt}body{margin:0}pre{margin:0;font:" + size + "pt/"
        + Number(LineHeight) + " 'Liberation Mono','DejaVu Sans Mono',Consolas,monospace}pre+pre{break-before:page}"
        + "</style></head><body>";
    for (const auto page : pages) {
        html += "<pre>";
        // A line break at the very beginning of a <pre> would be lost.
        if (page.starts_with('\n'))
            html += '\n';
        AppendEscapedHtml(html, page);
        html += "</pre>";
    }
    return SealedHtml(html + "</body></html>");
}

} // namespace alinhavo
