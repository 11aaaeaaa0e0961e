#pragma once

#include "forms/TFieldControl.h"

namespace alinhavo {

struct TRadioGroupOptions {
    std::string caption = {};
    std::string hint = {};
    std::vector<std::string> items = {};
    /// What each item stands for in a bound field; none: the item's text.
    std::vector<std::string> values = {};
    int itemIndex = -1;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// Texts of which one, or none, is chosen.
class TRadioGroup : public TFieldControl {
public:
    TRadioGroup(TContainer& parent, std::string name, TRadioGroupOptions options = {});
    std::string_view Kind() const override { return "radioGroup"; }

    const std::vector<std::string>& Items() const { return items_; }
    void SetItems(std::vector<std::string> items);
    /// -1: nothing is chosen.
    int ItemIndex() const { return itemIndex_; }
    void SetItemIndex(int index); ///< fires OnClick when it is another
    void SetItemIndexQuietly(int index); ///< without OnClick
    /// Text of the chosen item, "" when there is none.
    std::string ItemText() const;

    TEvent<> OnClick; ///< another item is chosen, by a person or by SetItemIndex

    void Describe(IPropertySink& sink) const override;

protected:
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;
    void ShowField(const TField& field) override;
    void ShowNothing() override;
    void WriteField(TField& field) override;

private:
    const std::vector<std::string>& Values() const { return values_.empty() ? items_ : values_; }
    bool Assign(int index);

    std::vector<std::string> items_;
    std::vector<std::string> values_;
    int itemIndex_;
};

} // namespace alinhavo
