#pragma once

#include "forms/TPanel.h"

namespace alinhavo {

class TPageControl;

/// One page of a page control. A hidden page shows no tab; a disabled one cannot be turned to.
class TTabSheet final : public TContainer {
public:
    TTabSheet(TPageControl& pages, std::string name, TPanelOptions options = {});
    ~TTabSheet() override;
    std::string_view Kind() const override { return "page"; }

    TPageControl& Pages() const { return pages_; }
    int PageIndex() const;

protected:
    bool ShowsContents() const override;
    void Accelerate() override;
    void VisibilityChanged() override;

private:
    TPageControl& pages_;
};

} // namespace alinhavo
