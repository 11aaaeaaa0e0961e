#include "platform/web/TProperties.h"

#include "forms/TControl.h"

namespace alinhavo {

TProperties::TProperties(const TControl& control) { control.Describe(*this); }

void TProperties::Text(std::string_view name, std::string_view value) { all_.emplace_back(name, std::string(value)); }

void TProperties::Flag(std::string_view name, bool value) { all_.emplace_back(name, value); }

void TProperties::Number(std::string_view name, std::int64_t value) { all_.emplace_back(name, value); }

void TProperties::Texts(std::string_view name, const std::vector<std::string>& values)
{
    all_.emplace_back(name, values);
}

} // namespace alinhavo
