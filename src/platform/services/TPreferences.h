#pragma once

#include "host/TOrvDatabase.h"

#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace alinhavo {

/// Settings of users (PREFERENCIA), by name. They are written at once, over a connection that is not the screens', so that they
/// never commit pending work. Any thread may use it, when nobody else uses the connection meanwhile.
class TPreferences {
public:
    explicit TPreferences(TOrvDatabase& database)
        : database_(database)
    {
    }

    std::optional<std::string> Read(std::string_view user, std::string_view key);
    /// Those whose name begins so, by the rest of it.
    std::map<std::string, std::string> ReadAll(std::string_view user, std::string_view beginning);
    void Write(std::string_view user, std::string_view key, std::string_view value);
    void Remove(std::string_view user, std::string_view key);

private:
    bool Update(std::string_view user, std::string_view key, std::string_view value);
    void Insert(std::string_view user, std::string_view key, std::string_view value);
    void Commit(const std::function<void()>& write);

    std::mutex mutex_;
    TOrvDatabase& database_;
};

} // namespace alinhavo
