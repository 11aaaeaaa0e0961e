#pragma once

#include "forms/TControl.h"

namespace alinhavo {

struct TFileListOptions {
    std::string caption = {};
    std::string hint = {};
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// Files of the server of which one is chosen; a person sees their names.
class TFileList final : public TControl {
public:
    TFileList(TContainer& parent, std::string name, TFileListOptions options = {});
    std::string_view Kind() const override { return "files"; }

    const std::vector<std::string>& Files() const { return files_; }
    void SetFiles(std::vector<std::string> files); ///< nothing is chosen
    int ItemIndex() const { return itemIndex_; }
    /// Outside the list: nothing is chosen. Fires OnChange when it is another.
    void SetItemIndex(int index);
    std::string File() const; ///< the chosen one, "" for none

    TEvent<> OnChange;
    TEvent<> OnDoubleClick;

    void Describe(IPropertySink& sink) const override;

protected:
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;
    bool StopsTab() const override { return TabStop(); }

private:
    std::vector<std::string> files_;
    int itemIndex_ = -1;
};

} // namespace alinhavo
