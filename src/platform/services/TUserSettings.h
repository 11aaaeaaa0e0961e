#pragma once

#include "platform/services/TPreferences.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// One user's own settings, by section and key.
class TUserSettings {
public:
    TUserSettings(TPreferences& preferences, std::string userCode)
        : preferences_(preferences)
        , user_(std::move(userCode))
    {
    }

    std::string Read(std::string_view section, std::string_view key, std::string_view otherwise);
    void Write(std::string_view section, std::string_view key, std::string_view value);

private:
    TPreferences& preferences_;
    std::string user_;
};

} // namespace alinhavo
