#include "platform/session/roteiro/TSuite.h"

#include "platform/session/roteiro/ERoteiro.h"
#include "platform/session/roteiro/TParser.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <thread>

namespace alinhavo::roteiro {
namespace {

namespace fs = std::filesystem;

/// Folders of lines that several files share: what is in them is no story of its own.
constexpr std::string_view sharedFolder = "comum";

bool IsShared(const fs::path& file) { return std::ranges::find(file, fs::path(sharedFolder)) != file.end(); }

std::vector<fs::path> FindIn(const fs::path& folder)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto inside = entry.path().lexically_relative(folder);
        if (entry.is_regular_file() && entry.path().extension() == ".rot" && !IsShared(inside))
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

void Write(std::ostream& report, const TFailure& failure)
{
    report << failure.place.file << ":" << failure.place.line << ": expected " << failure.mismatch.expected << ", got "
           << failure.mismatch.got << "\n";
    if (!failure.source.empty())
        report << "    " << failure.source << "\n";
}

} // namespace

std::vector<fs::path> TSuite::Find(const std::vector<fs::path>& filesAndFolders)
{
    std::vector<fs::path> files;
    for (const auto& path : filesAndFolders) {
        if (!fs::exists(path))
            throw std::runtime_error(path.string() + " não existe.");
        const auto found = fs::is_directory(path) ? FindIn(path) : std::vector{path};
        files.insert(files.end(), found.begin(), found.end());
    }
    return files;
}

int TSuite::Play(const std::vector<fs::path>& files, std::ostream& report)
{
    std::vector<std::vector<TFailure>> results(files.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (auto file = next++; file < files.size(); file = next++)
            results[file] = PlayFile(files[file]);
    };
    std::vector<std::jthread> workers;
    for (auto count = std::min<std::size_t>(files.size(), std::thread::hardware_concurrency()); count > 1; --count)
        workers.emplace_back(work);
    work();
    workers.clear();

    int failed = 0;
    for (const auto& failures : results) {
        failed += failures.empty() ? 0 : 1;
        for (const auto& failure : failures)
            Write(report, failure);
    }
    report << files.size() - static_cast<std::size_t>(failed) << " passed, " << failed << " failed\n";
    return failed;
}

std::vector<TFailure> TSuite::PlayFile(const fs::path& file)
{
    try {
        const auto lines = TParser::ParseFile(file);
        TDatabaseWorld world(copies_, registerScreens_, reports_);
        return TRunner(world).Run(lines);
    } catch (const ERoteiro& error) {
        return {{error.Place(), {}, {"a line of the language", error.what()}}};
    } catch (const std::exception& error) {
        return {{{file.string(), 0}, {}, {"no error", error.what()}}};
    }
}

} // namespace alinhavo::roteiro
