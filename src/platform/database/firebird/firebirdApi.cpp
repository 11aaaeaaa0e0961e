#include "platform/database/firebird/firebirdApi.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ibase.h>
#include <sys/stat.h>
#include <unistd.h>

namespace alinhavo::firebird {
namespace {

std::string ServerText(Firebird::IStatus& status)
{
    char text[2048];
    Master().getUtilInterface()->formatStatus(text, sizeof text, &status);
    return text;
}

bool IsOurs(const std::filesystem::path& folder)
{
    struct stat status { };
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid()
        && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// The engine's own choice is one folder for the machine, which belongs to whoever came first.
void ChooseLockFolder()
{
    const auto folder = std::filesystem::temp_directory_path() / ("alinhavo-lock-" + std::to_string(geteuid()));
    mkdir(folder.c_str(), S_IRWXU);
    if (IsOurs(folder))
        setenv("FIREBIRD_LOCK", folder.c_str(), 0); // NOLINT(concurrency-mt-unsafe): once, before the engine starts
}

template <class TEnd>
void End(auto* held, TEnd end)
{
    TStatus status;
    end(held, &status);
    if (status.Failed())
        held->release();
}

} // namespace

Firebird::IMaster& Master()
{
    static Firebird::IMaster* const master = [] {
        ChooseLockFolder();
        return Firebird::fb_get_master_interface();
    }();
    return *master;
}

EFirebird::EFirebird(Firebird::IStatus& status)
    : std::runtime_error(ServerText(status))
{
    for (const auto* item = status.getErrors(); *item != isc_arg_end; item += *item == isc_arg_cstring ? 3 : 2) {
        if (*item == isc_arg_gds)
            items_.push_back({item[1], {}});
        else if (*item == isc_arg_string && !items_.empty())
            items_.back().texts.emplace_back(reinterpret_cast<const char*>(item[1]));
        else if (*item == isc_arg_cstring && !items_.empty())
            items_.back().texts.emplace_back(reinterpret_cast<const char*>(item[2]), static_cast<std::size_t>(item[1]));
    }
}

bool EFirebird::Has(ISC_STATUS code) const { return std::ranges::find(items_, code, &TItem::code) != items_.end(); }

std::vector<std::string> EFirebird::TextsOf(ISC_STATUS code) const
{
    const auto item = std::ranges::find(items_, code, &TItem::code);
    return item == items_.end() ? std::vector<std::string>{} : item->texts;
}

TStatus::TStatus()
    : wrapper_(Master().getStatus())
{
}

TStatus::~TStatus() { wrapper_.dispose(); }

void TCloser::operator()(Firebird::IAttachment* attachment) const
{
    End(attachment, [](auto* held, auto* status) { held->detach(status); });
}

void TCloser::operator()(Firebird::ITransaction* transaction) const
{
    End(transaction, [](auto* held, auto* status) { held->rollback(status); });
}

void TCloser::operator()(Firebird::IStatement* statement) const
{
    End(statement, [](auto* held, auto* status) { held->free(status); });
}

void TCloser::operator()(Firebird::IResultSet* cursor) const
{
    End(cursor, [](auto* held, auto* status) { held->close(status); });
}

void TCloser::operator()(Firebird::IBlob* blob) const
{
    End(blob, [](auto* held, auto* status) { held->close(status); });
}

} // namespace alinhavo::firebird
