#include "forms/TButton.h"

#include "forms/IPropertySink.h"
#include "forms/TForm.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

TButton::TButton(TContainer& parent, std::string name, TButtonOptions options)
    : TControl(parent, std::move(name), CommonOptions(options))
    , shortcut_(TKey::Parse(options.shortcut))
    , role_(options.role)
    , icon_(std::move(options.icon))
    , takesFocus_(options.takesFocus)
    , modalResult_(options.modalResult)
{
}

void TButton::Click()
{
    OnClick();
    if (modalResult_ != TModalResult::None)
        Form().ModalResult = modalResult_;
}

void TButton::Press()
{
    if (takesFocus_ && !TakeFocus())
        return;
    if (!takesFocus_)
        Form().CommitFocused();
    if (CanBePressed())
        Click();
}

std::string TButton::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Click)
        return TControl::Perform(event);
    Press();
    return {};
}

bool TButton::KeyEffect(const TKey& key)
{
    if (key.ctrl || key.alt || (key.name != "Enter" && key.name != "Space"))
        return false;
    Press();
    return true;
}

void TButton::Describe(IPropertySink& sink) const
{
    TControl::Describe(sink);
    sink.Text("shortcut", shortcut_.Text());
    sink.Text("role", role_ == TButtonRole::Default ? "default" : role_ == TButtonRole::Cancel ? "cancel" : "");
    sink.Text("icon", icon_);
    sink.Flag("takesFocus", takesFocus_);
}

} // namespace alinhavo
