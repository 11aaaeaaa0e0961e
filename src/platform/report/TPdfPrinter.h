#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Prints documents of HTML into PDF, by a browser without a window that runs as a process of its own.
class TPdfPrinter {
public:
    /// `command` is the program and what it is always given, divided by blanks ("chromium"); empty: there is no PDF.
    explicit TPdfPrinter(std::string_view command, std::chrono::seconds patience = std::chrono::seconds(120));

    bool Available() const { return !command_.empty(); }
    /// The bytes of the PDF. std::runtime_error, in Portuguese, when the program is not there, fails or takes too long;
    /// EReportCancelled when `cancelled` is set meanwhile.
    std::string Print(std::string_view html, const std::atomic<bool>* cancelled = nullptr) const;

private:
    std::vector<std::string> Arguments(const std::filesystem::path& folder) const;
    void Run(const std::vector<std::string>& arguments, const std::atomic<bool>* cancelled) const;

    std::vector<std::string> command_;
    std::chrono::seconds patience_;
};

} // namespace alinhavo
