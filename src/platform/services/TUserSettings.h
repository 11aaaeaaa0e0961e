#pragma once

#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// A user's own settings (PREFERENCIA). They are written at once, over a connection that is not the screens', so that they
/// never commit pending work.
class TUserSettings {
public:
    TUserSettings(TOrvDatabase& preferences, std::string userCode)
        : preferences_(preferences)
        , user_(std::move(userCode))
    {
    }

    std::string Read(std::string_view section, std::string_view key, std::string_view otherwise);
    void Write(std::string_view section, std::string_view key, std::string_view value);

private:
    bool Update(const std::string& key, std::string_view value);
    void Insert(const std::string& key, std::string_view value);

    TOrvDatabase& preferences_;
    std::string user_;
};

} // namespace alinhavo
