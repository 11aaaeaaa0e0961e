#pragma once

#include "platform/session/roteiro/TDatabaseWorld.h"
#include "platform/session/roteiro/TRunner.h"

#include <filesystem>
#include <ostream>
#include <vector>

namespace alinhavo::roteiro {

/// Plays files, each in a world of its own, several at once.
class TSuite {
public:
    TSuite(TDatabaseCopies& copies, TScreenRegistry registerScreens, TReportFolders reports = {})
        : copies_(copies)
        , registerScreens_(std::move(registerScreens))
        , reports_(std::move(reports))
    {
    }

    /// The roteiros among files and folders, in the order of their names; those that only others include are left out.
    /// std::runtime_error for what is not there.
    static std::vector<std::filesystem::path> Find(const std::vector<std::filesystem::path>& filesAndFolders);
    /// Writes each failure and a closing line; the number of files that failed.
    int Play(const std::vector<std::filesystem::path>& files, std::ostream& report);

private:
    std::vector<TFailure> PlayFile(const std::filesystem::path& file);

    TDatabaseCopies& copies_;
    TScreenRegistry registerScreens_;
    TReportFolders reports_;
};

} // namespace alinhavo::roteiro
