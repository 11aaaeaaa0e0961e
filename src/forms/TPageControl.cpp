#include "forms/TPageControl.h"

#include "forms/IPropertySink.h"
#include "forms/TForm.h"
#include "forms/TTabSheet.h"
#include "forms/TUserEvent.h"

#include <algorithm>

namespace alinhavo {

TPageControl::TPageControl(TContainer& parent, std::string name, TPageControlOptions options)
    : TContainer(parent, std::move(name), CommonOptions(options))
{
}

TTabSheet* TPageControl::ActivePage() const { return active_ < 0 ? nullptr : pages_[active_]; }

void TPageControl::SetActivePageIndex(int index)
{
    if (index < 0 || index >= static_cast<int>(pages_.size()) || index == active_)
        return;
    active_ = index;
    Changed();
}

void TPageControl::SetActivePage(const TTabSheet& page) { SetActivePageIndex(page.PageIndex()); }

void TPageControl::Adopt(TTabSheet& page)
{
    pages_.push_back(&page);
    PageVisibilityChanged();
}

void TPageControl::Drop(const TTabSheet& page)
{
    std::erase(pages_, &page);
    active_ = -1;
}

/// A hidden page is not in front: the first visible one takes its place.
void TPageControl::PageVisibilityChanged()
{
    if (ActivePage() && ActivePage()->Visible())
        return;
    const auto visible = std::ranges::find_if(pages_, [](const TTabSheet* page) { return page->Visible(); });
    active_ = visible == pages_.end() ? -1 : static_cast<int>(visible - pages_.begin());
    Changed();
}

std::string TPageControl::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Page)
        return TContainer::Perform(event);
    if (event.index < 0 || event.index >= static_cast<int>(pages_.size()))
        return Named("não tem a página " + std::to_string(event.index + 1));
    const auto& page = *pages_[event.index];
    if (!page.Visible() || !page.Enabled())
        return "A página " + page.PlainCaption() + " não está disponível.";
    Turn(event.index);
    return {};
}

/// The field that is left is left on its own page, then the screen is asked; a refusal gives the focus back.
void TPageControl::Turn(int index)
{
    if (index == active_)
        return;
    auto* const before = Form().ActiveControl();
    if (!TakeFocus())
        return Changed();
    bool may = true;
    OnChanging(may);
    if (!may) {
        if (before)
            before->SetFocus();
        return Changed();
    }
    SetActivePageIndex(index);
    OnChange();
    if (Focused() && ActivePage())
        Form().FocusFirstIn(*ActivePage());
}

bool TPageControl::KeyEffect(const TKey& key)
{
    const int step = key.name == "Right" ? 1 : key.name == "Left" ? -1 : 0;
    if (step == 0)
        return false;
    int index = active_ + step;
    while (index >= 0 && index < static_cast<int>(pages_.size())) {
        if (pages_[index]->Visible() && pages_[index]->Enabled()) {
            Turn(index);
            break;
        }
        index += step;
    }
    return true;
}

void TPageControl::Describe(IPropertySink& sink) const
{
    TContainer::Describe(sink);
    sink.Number("activePage", active_);
}

} // namespace alinhavo
