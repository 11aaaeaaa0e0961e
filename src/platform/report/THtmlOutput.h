#pragma once

#include "platform/report/IReportOutput.h"

#include <string>

namespace alinhavo {

/// A document of HTML. What comes from data is escaped, in the text, in an attribute and in a style.
class THtmlOutput final : public IReportOutput {
public:
    void Text(std::string_view text) override { html_ += text; }
    void Value(const TReportValue& value, std::string_view shown, bool inStyle) override;
    std::size_t Size() const override { return html_.size(); }

    std::string Take() { return std::move(html_); }

private:
    std::string html_;
};

void AppendEscapedHtml(std::string& html, std::string_view text);

} // namespace alinhavo
