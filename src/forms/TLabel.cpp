#include "forms/TLabel.h"

#include "forms/IPropertySink.h"
#include "forms/TForm.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

TLabel::TLabel(TContainer& parent, std::string name, TLabelOptions options)
    : TControl(parent, std::move(name),
        {.caption = std::move(options.caption),
            .hint = std::move(options.hint),
            .enabled = options.enabled,
            .visible = options.visible})
    , style_(options.style)
{
}

void TLabel::SetStyle(TLabelStyle style)
{
    if (style_ == style)
        return;
    style_ = style;
    Changed();
}

std::string TLabel::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Click)
        return TControl::Perform(event);
    OnClick();
    return {};
}

void TLabel::Accelerate() { Form().FocusBehind(*this); }

void TLabel::Describe(IPropertySink& sink) const
{
    TControl::Describe(sink);
    sink.Text("style", style_ == TLabelStyle::Strong ? "strong" : style_ == TLabelStyle::Warning ? "warning" : "");
}

} // namespace alinhavo
