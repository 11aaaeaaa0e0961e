#include "platform/web/TSessionFiles.h"

#include "forms/IShownReport.h"
#include "platform/web/randomText.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace alinhavo {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LongestName = 80;

bool IsSafe(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9')
        || letter == '-' || letter == '_' || letter == '.';
}

/// A name's last component, from its end so that its extension stays, without what could mean something to a file system.
std::string SafeName(std::string_view name)
{
    name.remove_prefix(name.find_last_of("/\\") + 1);
    name.remove_prefix(name.size() - std::min(name.size(), LongestName));
    std::string safe(name);
    std::ranges::replace_if(
        safe, [](char letter) { return !IsSafe(letter); }, '_');
    if (safe.empty() || safe.front() == '.')
        safe.insert(0, "arquivo");
    return safe;
}

} // namespace

std::string TSessionFiles::Keep(std::string_view name, std::string_view content)
{
    const std::lock_guard lock(mutex_);
    if (content.size() > MaxUpload || together_ + content.size() > MaxTogether)
        throw std::runtime_error("Os arquivos enviados passam do tamanho permitido.");
    if (!folder_)
        folder_.emplace();
    const auto token = RandomText();
    const auto folder = folder_->Path() / token;
    fs::create_directory(folder);
    const auto file = folder / SafeName(name);
    std::ofstream stream(file, std::ios::binary);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream)
        throw std::runtime_error("O arquivo não pôde ser gravado.");
    together_ += content.size();
    brought_.emplace(token, file);
    return token;
}

void TSessionFiles::Delete()
{
    const std::lock_guard lock(mutex_);
    brought_.clear();
    folder_.reset();
}

std::optional<fs::path> TSessionFiles::Brought(std::string_view token) const
{
    const std::lock_guard lock(mutex_);
    const auto found = brought_.find(token);
    return found == brought_.end() ? std::nullopt : std::optional(found->second);
}

std::string TSessionFiles::TokenOf(const std::string& file)
{
    if (file.empty())
        return {};
    const std::lock_guard lock(mutex_);
    auto& token = tokens_[file];
    if (token.empty())
        token = RandomText();
    return token;
}

void TSessionFiles::Show(const std::vector<std::string>& files)
{
    std::map<std::string, std::string, std::less<>> shown;
    for (const auto& file : files)
        shown.emplace(TokenOf(file), file);
    const std::lock_guard lock(mutex_);
    shown_ = std::move(shown);
}

std::string TSessionFiles::OpenReport(const IShownReport& report)
{
    const std::lock_guard lock(mutex_);
    return reports_.emplace(RandomText(), TReport{report.Document(), report.PlainText()}).first->first;
}

void TSessionFiles::CloseReport(std::string_view token)
{
    const std::lock_guard lock(mutex_);
    if (const auto found = reports_.find(token); found != reports_.end())
        reports_.erase(found);
}

std::optional<TSessionFiles::TReport> TSessionFiles::Report(std::string_view token) const
{
    const std::lock_guard lock(mutex_);
    const auto found = reports_.find(token);
    return found == reports_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<fs::path> TSessionFiles::Find(std::string_view token) const
{
    if (auto file = Brought(token))
        return file;
    const std::lock_guard lock(mutex_);
    const auto found = shown_.find(token);
    return found == shown_.end() ? std::nullopt : std::optional<fs::path>(found->second);
}

} // namespace alinhavo
