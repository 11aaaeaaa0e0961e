#include "forms/TTabSheet.h"

#include "forms/TPageControl.h"

#include <algorithm>

namespace alinhavo {

TTabSheet::TTabSheet(TPageControl& pages, std::string name, TPanelOptions options)
    : TContainer(pages, std::move(name),
        {.caption = std::move(options.caption),
            .hint = std::move(options.hint),
            .enabled = options.enabled,
            .visible = options.visible})
    , pages_(pages)
{
    pages.Adopt(*this);
}

TTabSheet::~TTabSheet() { pages_.Drop(*this); }

int TTabSheet::PageIndex() const
{
    const auto& all = pages_.Pages();
    return static_cast<int>(std::ranges::find(all, this) - all.begin());
}

bool TTabSheet::ShowsContents() const { return Visible() && pages_.ActivePage() == this; }

void TTabSheet::Accelerate() { pages_.Turn(PageIndex()); }

void TTabSheet::VisibilityChanged() { pages_.PageVisibilityChanged(); }

} // namespace alinhavo
