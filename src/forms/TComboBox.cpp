#include "forms/TComboBox.h"

#include "forms/IPropertySink.h"
#include "forms/text.h"
#include "forms/TUserEvent.h"

#include <algorithm>

namespace alinhavo {

TComboBox::TComboBox(TContainer& parent, std::string name, TComboBoxOptions options)
    : TTextControl(parent, std::move(name), CommonOptions(options), {options.maxLength, options.upperCase})
    , items_(std::move(options.items))
    , style_(options.style)
{
    SetItemIndexQuietly(options.itemIndex);
}

void TComboBox::SetItems(std::vector<std::string> items)
{
    items_ = std::move(items);
    TextAssigned();
    Changed();
}

void TComboBox::AddItem(std::string item)
{
    items_.push_back(std::move(item));
    if (itemIndex_ < 0)
        TextAssigned();
    Changed();
}

void TComboBox::SetItemIndex(int index)
{
    SetText(ItemText(index));
    if (index >= 0 && index < static_cast<int>(items_.size()))
        itemIndex_ = index;
}

void TComboBox::SetItemIndexQuietly(int index)
{
    const TEventOff quiet(OnChange);
    SetItemIndex(index);
}

int TComboBox::IndexOfPrefix(std::string_view prefix) const
{
    const auto found = std::ranges::find_if(items_, [&](const std::string& item) { return item.starts_with(prefix); });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

std::string TComboBox::ItemText(int index) const
{
    return index >= 0 && index < static_cast<int>(items_.size()) ? items_[index] : std::string();
}

void TComboBox::TextAssigned()
{
    const auto found = std::ranges::find(items_, text());
    itemIndex_ = found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

std::string TComboBox::Perform(const TUserEvent& event)
{
    using enum TUserEvent::TKind;
    if (event.kind == Select) {
        if (event.index < 0 || event.index >= static_cast<int>(items_.size()))
            return Named("não tem o item " + std::to_string(event.index + 1));
        return Choose(event.index);
    }
    if (event.kind != Text || style_ == TComboStyle::Editable || event.text.empty())
        return TTextControl::Perform(event);
    const auto item = std::ranges::find_if(items_, [&](const std::string& text) { return SameText(text, event.text); });
    if (item == items_.end())
        return Named("não tem o item \"" + event.text + "\"");
    return Choose(static_cast<int>(item - items_.begin()));
}

std::string TComboBox::Choose(int index)
{
    const std::string chosen = items_[index];
    const auto refusal = PerformTyped(chosen);
    if (refusal.empty() && text() == chosen && ItemText(index) == chosen)
        itemIndex_ = index;
    return refusal;
}

bool TComboBox::KeyEffect(const TKey& key)
{
    const int step = key.name == "Down" ? 1 : key.name == "Up" ? -1 : 0;
    if (step == 0 || key.alt || key.ctrl)
        return false;
    const int index = itemIndex_ + step;
    if (!ReadOnly() && index >= 0 && index < static_cast<int>(items_.size()))
        Choose(index);
    return true;
}

void TComboBox::Describe(IPropertySink& sink) const
{
    TTextControl::Describe(sink);
    sink.Texts("items", items_);
    sink.Number("itemIndex", itemIndex_);
    sink.Flag("editable", style_ == TComboStyle::Editable);
}

} // namespace alinhavo
