#pragma once

#include "forms/TContainer.h"

namespace alinhavo {

class TTabSheet;

struct TPageControlOptions {
    std::string caption = {};
    std::string hint = {};
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = false;
};

/// Pages of which one is in front. Its controls are TTabSheet only.
class TPageControl final : public TContainer {
public:
    TPageControl(TContainer& parent, std::string name, TPageControlOptions options = {});
    std::string_view Kind() const override { return "pages"; }

    const std::vector<TTabSheet*>& Pages() const { return pages_; }
    /// Null while there is no visible page.
    TTabSheet* ActivePage() const;
    int ActivePageIndex() const { return active_; } ///< -1 without a page
    /// From code: neither asks nor tells.
    void SetActivePageIndex(int index);
    void SetActivePage(const TTabSheet& page);

    /// A person wants another page; false refuses. The focused control was left before.
    TEvent<bool&> OnChanging;
    TEvent<> OnChange; ///< a person changed the page

    void Describe(IPropertySink& sink) const override;

protected:
    friend class TTabSheet;
    bool Interactive() const override { return true; }
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;

private:
    void Turn(int index);
    void Adopt(TTabSheet& page);
    void Drop(const TTabSheet& page);
    void PageVisibilityChanged();

    std::vector<TTabSheet*> pages_;
    int active_ = -1;
};

} // namespace alinhavo
