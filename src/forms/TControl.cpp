#include "forms/TControl.h"

#include "forms/IPropertySink.h"
#include "forms/TApplication.h"
#include "forms/text.h"
#include "forms/TForm.h"
#include "forms/TMenuItem.h"
#include "forms/TPopupMenu.h"

#include <algorithm>

namespace alinhavo {

TControl::TControl(TContainer& parent, std::string name, TControlOptions options)
    : TComponent(parent.Form(), std::move(name))
    , parent_(&parent)
    , caption_(std::move(options.caption))
    , hint_(std::move(options.hint))
    , readOnly_(options.readOnly)
    , enabled_(options.enabled)
    , visible_(options.visible)
    , tabStop_(options.tabStop)
{
    parent.controls_.push_back(this);
}

TControl::TControl(std::string name, TControlOptions options)
    : TComponent(std::move(name))
    , caption_(std::move(options.caption))
    , hint_(std::move(options.hint))
{
}

TControl::~TControl()
{
    if (popupMenu_)
        std::erase(popupMenu_->users_, this);
    if (!parent_)
        return;
    Form().Forget(*this);
    std::erase(parent_->controls_, this);
}

TForm& TControl::Form() const
{
    auto* top = const_cast<TControl*>(this);
    while (top->parent_)
        top = top->parent_;
    return static_cast<TForm&>(*top);
}

void TControl::SetCaption(std::string_view caption)
{
    if (caption_ == caption)
        return;
    caption_ = caption;
    Changed();
}

void TControl::SetHint(std::string_view hint)
{
    if (hint_ == hint)
        return;
    hint_ = hint;
    Changed();
}

void TControl::SetEnabled(bool enabled)
{
    if (enabled_ == enabled)
        return;
    enabled_ = enabled;
    Changed();
}

void TControl::SetVisible(bool visible)
{
    if (visible_ == visible)
        return;
    visible_ = visible;
    VisibilityChanged();
    Changed();
}

void TControl::SetReadOnly(bool readOnly)
{
    if (readOnly_ == readOnly)
        return;
    readOnly_ = readOnly;
    Changed();
}

bool TControl::EffectivelyEnabled() const
{
    for (const auto* control = this; control; control = control->parent_)
        if (!control->enabled_)
            return false;
    return true;
}

bool TControl::EffectivelyVisible() const
{
    if (!visible_)
        return false;
    for (const auto* container = parent_; container; container = container->parent_)
        if (!container->ShowsContents())
            return false;
    return true;
}

bool TControl::CanFocus() const { return Interactive() && EffectivelyEnabled() && EffectivelyVisible(); }

bool TControl::IsWithin(const TContainer& container) const
{
    for (const auto* above = parent_; above; above = above->parent_)
        if (above == &container)
            return true;
    return false;
}

bool TControl::Focused() const { return Form().ActiveControl() == this; }

void TControl::SetFocus() { Form().SetFocusFromCode(*this); }

bool TControl::TakeFocus() { return Form().MoveFocus(*this); }

void TControl::SetPopupMenu(TPopupMenu* menu)
{
    if (popupMenu_)
        std::erase(popupMenu_->users_, this);
    popupMenu_ = menu;
    if (menu)
        menu->users_.push_back(this);
    Changed();
}

void TControl::Changed() { Form().Application().ControlChanged(*this); }

std::string TControl::Perform(const TUserEvent&) { return Named("não aceita essa ação"); }

bool TControl::KeyEffect(const TKey&) { return false; }

void TControl::Accelerate() { TakeFocus(); }

bool TControl::CommitsOn(const TKey& key) const { return key.IsFunctionKey(); }

void TControl::Enter() { OnEnter(); }

void TControl::Exit()
{
    CommitInput();
    OnExit();
}

void TControl::MenuOpens()
{
    if (popupMenu_)
        popupMenu_->OnPopup();
}

std::string TControl::PerformOpenMenu(const TUserEvent&)
{
    if (!popupMenu_)
        return Named("não tem menu");
    if (!CanFocus() || TakeFocus())
        MenuOpens();
    return {};
}

std::string TControl::PerformMenuItem(const TUserEvent& event)
{
    if (!popupMenu_)
        return Named("não tem menu");
    auto* const item = popupMenu_->FindItem(event.text);
    if (!item)
        return Named("não tem no menu o item \"" + event.text + "\"");
    if (!item->Visible() || !item->Enabled())
        return "O item \"" + event.text + "\" do menu não está disponível.";
    if (CanFocus() && !TakeFocus())
        return {};
    CommitInput();
    item->Click();
    return {};
}

std::string TControl::Named(std::string_view rest) const
{
    return "O controle " + Name() + " " + std::string(rest) + ".";
}

std::string TControl::AcceleratorLetter() const
{
    for (std::size_t at = caption_.find('&'); at != std::string::npos; at = caption_.find('&', at + 2)) {
        const auto rest = std::string_view(caption_).substr(at + 1);
        if (!rest.empty() && rest.front() != '&')
            return LowerCase(Left(rest, 1));
    }
    return {};
}

std::string TControl::PlainCaption() const
{
    std::string plain;
    for (std::size_t i = 0; i < caption_.size(); ++i) {
        if (caption_[i] == '&' && ++i == caption_.size())
            break;
        plain += caption_[i];
    }
    return plain;
}

void TControl::Describe(IPropertySink& sink) const
{
    sink.Text("caption", caption_);
    sink.Text("hint", hint_);
    sink.Flag("enabled", enabled_);
    sink.Flag("visible", visible_);
    sink.Flag("readOnly", ReadOnly());
    sink.Flag("hearsKeys", OnKeyDown.connected());
    if (!popupMenu_)
        return;
    std::vector<std::string> names, captions, shortcuts, states;
    for (const auto* item : popupMenu_->Items()) {
        names.push_back(item->Name());
        captions.push_back(item->Caption());
        shortcuts.push_back(item->Shortcut().Text());
        states.push_back(
            std::string(item->Visible() ? "v" : "") + (item->Enabled() ? "e" : "") + (item->Checked() ? "c" : ""));
    }
    sink.Texts("menuNames", names);
    sink.Texts("menuCaptions", captions);
    sink.Texts("menuShortcuts", shortcuts);
    sink.Texts("menuStates", states);
}

} // namespace alinhavo
