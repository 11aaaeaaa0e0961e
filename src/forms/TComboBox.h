#pragma once

#include "forms/TTextControl.h"

namespace alinhavo {

enum class TComboStyle {
    Editable, ///< any text may be typed
    List, ///< a person chooses an item; code may still set another text
};

struct TComboBoxOptions {
    std::string caption = {};
    std::string hint = {};
    std::vector<std::string> items = {};
    int itemIndex = -1;
    TComboStyle style = TComboStyle::List;
    std::size_t maxLength = 0;
    bool upperCase = false;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// A text with a list of texts to choose from. The text may stand outside the list.
class TComboBox : public TTextControl {
public:
    TComboBox(TContainer& parent, std::string name, TComboBoxOptions options = {});
    std::string_view Kind() const override { return "combo"; }

    const std::vector<std::string>& Items() const { return items_; }
    /// Keeps the text; fires nothing.
    void SetItems(std::vector<std::string> items);
    void AddItem(std::string item);
    void ClearItems() { SetItems({}); }
    /// The item that the text is, -1 when it is none of them.
    int ItemIndex() const { return itemIndex_; }
    /// Outside the list: no item and no text. Fires OnChange when the text is another.
    void SetItemIndex(int index);
    void SetItemIndexQuietly(int index);
    /// The first item that begins with the text, -1 when none does.
    int IndexOfPrefix(std::string_view prefix) const;

    void Describe(IPropertySink& sink) const override;

protected:
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;
    void TextAssigned() override;

private:
    std::string ItemText(int index) const;
    std::string Choose(int index);

    std::vector<std::string> items_;
    int itemIndex_ = -1;
    TComboStyle style_;
};

} // namespace alinhavo
