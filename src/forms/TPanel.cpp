#include "forms/TPanel.h"

namespace alinhavo {

TPanel::TPanel(TContainer& parent, std::string name, TPanelOptions options)
    : TContainer(parent, std::move(name),
        {.caption = std::move(options.caption),
            .hint = std::move(options.hint),
            .enabled = options.enabled,
            .visible = options.visible})
{
}

} // namespace alinhavo
