#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Something with a name that an owner holds as a member: a control, a table, a lookup. It registers with its owner
/// when it is made and is found there by name, without regard to case.
class TComponent {
public:
    explicit TComponent(std::string name);
    TComponent(TComponent& owner, std::string name);
    virtual ~TComponent();
    TComponent(const TComponent&) = delete;
    TComponent& operator=(const TComponent&) = delete;

    const std::string& Name() const { return name_; }
    TComponent* Owner() const { return owner_; }
    /// In the order of their making.
    const std::vector<TComponent*>& Components() const { return components_; }
    /// Null when there is none of that name.
    TComponent* FindComponent(std::string_view name) const;

private:
    std::string name_;
    TComponent* owner_ = nullptr;
    std::vector<TComponent*> components_;
};

} // namespace alinhavo
