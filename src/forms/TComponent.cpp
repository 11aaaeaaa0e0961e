#include "forms/TComponent.h"

#include "forms/text.h"

#include <algorithm>
#include <utility>

namespace alinhavo {

TComponent::TComponent(std::string name)
    : name_(std::move(name))
{
}

TComponent::TComponent(TComponent& owner, std::string name)
    : name_(std::move(name))
    , owner_(&owner)
{
    owner.components_.push_back(this);
}

TComponent::~TComponent()
{
    for (TComponent* component : components_)
        component->owner_ = nullptr;
    if (owner_)
        std::erase(owner_->components_, this);
}

TComponent* TComponent::FindComponent(std::string_view name) const
{
    const auto found = std::ranges::find_if(
        components_, [name](const TComponent* component) { return SameText(component->Name(), name); });
    return found == components_.end() ? nullptr : *found;
}

} // namespace alinhavo
