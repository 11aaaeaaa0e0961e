#include "platform/services/TUserSettings.h"

namespace alinhavo {
namespace {

std::string KeyOf(std::string_view section, std::string_view key)
{
    return std::string(section) + "." + std::string(key);
}

} // namespace

std::string TUserSettings::Read(std::string_view section, std::string_view key, std::string_view otherwise)
{
    return preferences_.Read(user_, KeyOf(section, key)).value_or(std::string(otherwise));
}

void TUserSettings::Write(std::string_view section, std::string_view key, std::string_view value)
{
    preferences_.Write(user_, KeyOf(section, key), value);
}

} // namespace alinhavo
