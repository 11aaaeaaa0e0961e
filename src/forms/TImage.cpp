#include "forms/TImage.h"

#include "forms/IPropertySink.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

TImage::TImage(TContainer& parent, std::string name, TImageOptions options)
    : TControl(parent, std::move(name),
        {.caption = std::move(options.caption),
            .hint = std::move(options.hint),
            .enabled = options.enabled,
            .visible = options.visible})
{
}

void TImage::SetFile(std::string_view file)
{
    if (file_.empty() && file.empty())
        return;
    file_ = file;
    ++version_;
    Changed();
}

std::string TImage::Perform(const TUserEvent& event)
{
    switch (event.kind) {
    case TUserEvent::TKind::Click:
        OnClick();
        return {};
    case TUserEvent::TKind::DoubleClick:
        OnDoubleClick();
        return {};
    default:
        return TControl::Perform(event);
    }
}

void TImage::Describe(IPropertySink& sink) const
{
    TControl::Describe(sink);
    sink.Text("file", file_);
    sink.Number("version", version_);
}

} // namespace alinhavo
