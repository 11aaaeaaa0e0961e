#include "platform/report/TTextOutput.h"

#include "forms/text.h"

#include <algorithm>
#include <utility>

namespace alinhavo {

TTextOutput::TTextOutput(int pageLines, int baseLines, TStrip top, TStrip base)
    : pageLines_(pageLines)
    , baseLines_(baseLines)
    , top_(std::move(top))
    , base_(std::move(base))
{
}

void TTextOutput::Text(std::string_view text)
{
    for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        line_ += text.substr(0, end);
        EndLine();
        text.remove_prefix(end + 1);
    }
    line_ += text;
}

/// A line break or a control character of the data would carry the printer away.
void TTextOutput::Value(const TReportValue&, std::string_view shown, bool)
{
    for (const char c : shown)
        line_ += static_cast<unsigned char>(c) < ' ' || c == 0x7f ? ' ' : c;
}

void TTextOutput::EndLine()
{
    if (!pageOpen_)
        BeginPage();
    text_ += TrimRight(line_) + "\n";
    line_.clear();
    ++linesOnPage_;
    if (pageLines_ > 0 && linesOnPage_ >= pageLines_ - baseLines_)
        EndPage();
}

void TTextOutput::BeginPage()
{
    if (page_ > 0)
        text_ += '\f';
    ++page_;
    linesOnPage_ = 0;
    pageOpen_ = true;
    AddStrip(top_());
}

void TTextOutput::EndPage()
{
    pageOpen_ = false;
    if (baseLines_ == 0)
        return;
    for (; linesOnPage_ < pageLines_ - baseLines_; ++linesOnPage_)
        text_ += '\n';
    AddStrip(base_());
}

void TTextOutput::AddStrip(const std::string& strip)
{
    text_ += strip;
    linesOnPage_ += static_cast<int>(std::ranges::count(strip, '\n'));
}

std::string TTextOutput::Finish()
{
    if (!line_.empty())
        EndLine();
    if (pageOpen_)
        EndPage();
    return std::move(text_);
}

} // namespace alinhavo
