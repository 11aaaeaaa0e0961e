#pragma once

#include "platform/report/TWorkFolder.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class IShownReport;

/// The files that a session's client may name: those that it brought, and those that its screens show. The client knows them by
/// tokens, never by paths. Any thread may use it.
class TSessionFiles {
public:
    static constexpr std::size_t MaxUpload = 20 * 1024 * 1024; ///< bytes of one file
    static constexpr std::size_t MaxTogether = 200 * 1024 * 1024; ///< bytes of all that the client brought

    /// Stores a file until the session ends; its token. The name keeps its last component and its safe characters.
    /// std::runtime_error, in Portuguese, when there is no room for it.
    std::string Keep(std::string_view name, std::string_view content);
    /// Deletes what the client brought: the session has ended.
    void Delete();
    /// Where a file is that the client brought; nothing for any other text.
    std::optional<std::filesystem::path> Brought(std::string_view token) const;

    /// The token of a file of the server; the same for the same file. Empty for an empty one.
    std::string TokenOf(const std::string& file);
    /// The screens show these at this moment, and no others.
    void Show(const std::vector<std::string>& files);
    /// What a dialog shows until it is closed.
    struct TReport {
        std::shared_ptr<const std::string> html;
        std::shared_ptr<const std::string> plainText; ///< null of a graphic report
    };
    /// Its token.
    std::string OpenReport(const IShownReport& report);
    void CloseReport(std::string_view token);
    std::optional<TReport> Report(std::string_view token) const;

    /// A file that the client brought, or that a screen shows at this moment.
    std::optional<std::filesystem::path> Find(std::string_view token) const;

private:
    mutable std::mutex mutex_;
    std::optional<TWorkFolder> folder_; ///< made for the first file
    std::size_t together_ = 0;
    std::map<std::string, std::filesystem::path, std::less<>> brought_; ///< by token
    std::map<std::string, std::string, std::less<>> tokens_; ///< of the server's files, by file
    std::map<std::string, std::string, std::less<>> shown_; ///< files, by token
    std::map<std::string, TReport, std::less<>> reports_; ///< by token
};

} // namespace alinhavo
