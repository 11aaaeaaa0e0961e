#pragma once

#include "platform/report/IReportOutput.h"

#include <functional>
#include <string>

namespace alinhavo {

/// Pages of plain text. The strips at a page's top and base are made when the page is begun and ended.
class TTextOutput final : public IReportOutput {
public:
    /// A strip is rendered into the output that it is given.
    using TStrip = std::function<std::string()>;

    /// `pageLines` 0: one endless page.
    TTextOutput(int pageLines, int baseLines, TStrip top, TStrip base);

    void Text(std::string_view text) override;
    void Value(const TReportValue& value, std::string_view shown, bool inStyle) override;
    std::size_t Size() const override { return text_.size() + line_.size(); }

    int Page() const { return page_; }
    /// Ends the last page.
    std::string Finish();

private:
    void EndLine();
    void BeginPage();
    void EndPage();
    void AddStrip(const std::string& strip);

    int pageLines_;
    int baseLines_;
    TStrip top_;
    TStrip base_;
    std::string text_;
    std::string line_;
    int page_ = 0;
    int linesOnPage_ = 0;
    bool pageOpen_ = false;
};

} // namespace alinhavo
