#include "forms/TRadioGroup.h"

#include "forms/IPropertySink.h"
#include "forms/TUserEvent.h"

#include <algorithm>

namespace alinhavo {

TRadioGroup::TRadioGroup(TContainer& parent, std::string name, TRadioGroupOptions options)
    : TFieldControl(parent, std::move(name), CommonOptions(options))
    , items_(std::move(options.items))
    , values_(std::move(options.values))
    , itemIndex_(options.itemIndex)
{
}

void TRadioGroup::SetItems(std::vector<std::string> items)
{
    items_ = std::move(items);
    itemIndex_ = -1;
    Changed();
}

bool TRadioGroup::Assign(int index)
{
    const int valid = index >= 0 && index < static_cast<int>(items_.size()) ? index : -1;
    if (itemIndex_ == valid)
        return false;
    itemIndex_ = valid;
    Changed();
    return true;
}

void TRadioGroup::SetItemIndex(int index)
{
    if (!Assign(index))
        return;
    ChangedByCode();
    OnClick();
}

void TRadioGroup::SetItemIndexQuietly(int index)
{
    const TEventOff quiet(OnClick);
    SetItemIndex(index);
}

std::string TRadioGroup::ItemText() const { return itemIndex_ < 0 ? std::string() : items_[itemIndex_]; }

std::string TRadioGroup::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Select)
        return TFieldControl::Perform(event);
    if (event.index < 0 || event.index >= static_cast<int>(items_.size()))
        return Named("não tem a opção " + std::to_string(event.index + 1));
    if (ReadOnly())
        return Named("é somente leitura");
    if (TakeFocus() && !ReadOnly())
        SetItemIndex(event.index);
    if (itemIndex_ != event.index)
        Changed();
    return {};
}

bool TRadioGroup::KeyEffect(const TKey& key)
{
    const bool forward = key.name == "Down" || key.name == "Right";
    if (!forward && key.name != "Up" && key.name != "Left")
        return false;
    const int index = itemIndex_ + (forward ? 1 : -1);
    if (!ReadOnly() && index >= 0 && index < static_cast<int>(items_.size()))
        SetItemIndex(index);
    return true;
}

void TRadioGroup::ShowField(const TField& field)
{
    const auto value = std::ranges::find(Values(), field.AsString());
    if (Assign(field.IsNull() || value == Values().end() ? -1 : static_cast<int>(value - Values().begin())))
        OnClick();
}

void TRadioGroup::ShowNothing()
{
    if (Assign(-1))
        OnClick();
}

void TRadioGroup::WriteField(TField& field)
{
    if (itemIndex_ < 0 || itemIndex_ >= static_cast<int>(Values().size()))
        return field.Clear();
    field.SetTyped(Values()[itemIndex_]);
}

void TRadioGroup::Describe(IPropertySink& sink) const
{
    TFieldControl::Describe(sink);
    sink.Texts("items", items_);
    sink.Number("itemIndex", itemIndex_);
}

} // namespace alinhavo
