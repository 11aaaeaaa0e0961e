#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Takes a control's visible properties, one by one, to show them elsewhere. Names are those of docs/protocol.md.
class IPropertySink {
public:
    virtual ~IPropertySink() = default;
    virtual void Text(std::string_view name, std::string_view value) = 0;
    virtual void Flag(std::string_view name, bool value) = 0;
    virtual void Number(std::string_view name, std::int64_t value) = 0;
    virtual void Texts(std::string_view name, const std::vector<std::string>& values) = 0;
};

} // namespace alinhavo
