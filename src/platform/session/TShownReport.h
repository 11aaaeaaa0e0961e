#pragma once

#include "forms/IShownReport.h"
#include "platform/report/TReports.h"

#include <functional>

namespace alinhavo {

class TOrvEmail;

/// A report of the engine in its viewer.
class TShownReport final : public IShownReport {
public:
    static constexpr std::size_t LargestMail = 10 * 1024 * 1024; ///< bytes of a document

    /// Has the outgoing mail take a letter, and stores it.
    using TPost = std::function<void(const std::function<void(TOrvEmail&)>& write)>;

    /// The report's data outlives it.
    TShownReport(const TFinishedReport& report, TPost post);

    std::shared_ptr<const std::string> Document() const override { return document_; }
    std::shared_ptr<const std::string> PlainText() const override { return plainText_; }
    const std::string& Recipient() const override { return recipient_; }
    std::string Workbook() const override;
    void SendTo(std::string_view address) override;

private:
    const std::string title_;
    const std::string recipient_;
    const TprReportBase& data_;
    const TPost post_;
    std::shared_ptr<const std::string> document_;
    std::shared_ptr<const std::string> plainText_;
};

} // namespace alinhavo
