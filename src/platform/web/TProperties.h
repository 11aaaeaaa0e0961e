#pragma once

#include "forms/IPropertySink.h"

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace alinhavo {

class TControl;

/// What a control says of itself, as JSON, in its order.
class TProperties final : public IPropertySink {
public:
    explicit TProperties(const TControl& control);

    const std::vector<std::pair<std::string, nlohmann::json>>& All() const& { return all_; }

private:
    void Text(std::string_view name, std::string_view value) override;
    void Flag(std::string_view name, bool value) override;
    void Number(std::string_view name, std::int64_t value) override;
    void Texts(std::string_view name, const std::vector<std::string>& values) override;

    std::vector<std::pair<std::string, nlohmann::json>> all_;
};

} // namespace alinhavo
