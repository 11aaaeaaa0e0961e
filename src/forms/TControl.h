#pragma once

#include "forms/TComponent.h"
#include "forms/TEvent.h"
#include "forms/TKey.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class IPropertySink;
class TContainer;
class TForm;
class TPopupMenu;
struct TUserEvent;

/// What every kind of control may be given when it is made.
struct TControlOptions {
    std::string caption = {};
    std::string hint = {};
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// The common options out of those of one kind of control.
template <typename TOptions>
TControlOptions CommonOptions(const TOptions& options)
{
    return {options.caption, options.hint, options.readOnly, options.enabled, options.visible, options.tabStop};
}

/// A part of a screen that a person sees. It belongs to a container, in the order of its making.
/// Nothing here knows of pixels: how a kind of control looks is the client's matter.
class TControl : public TComponent {
public:
    TControl(TContainer& parent, std::string name, TControlOptions options);
    ~TControl() override;

    TForm& Form() const;
    TContainer* Parent() const { return parent_; }
    /// "edit", "button", "grid" …: the kind of element that shows it.
    virtual std::string_view Kind() const = 0;

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    const std::string& Hint() const { return hint_; }
    void SetHint(std::string_view hint);
    bool Enabled() const { return enabled_; } ///< its own switch
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; } ///< its own switch
    void SetVisible(bool visible);
    bool EffectivelyEnabled() const; ///< and all that it stands in
    bool EffectivelyVisible() const; ///< and all that it stands in, its tab being the one that shows
    /// No person may change what stands in it: its own switch, or what it is bound to.
    virtual bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly);
    /// Tab and Enter stop at it.
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool tabStop) { tabStop_ = tabStop; }

    /// Can take the focus now: an interactive kind, enabled, visible.
    bool CanFocus() const;
    /// Stands somewhere in the container.
    bool IsWithin(const TContainer& container) const;
    bool Focused() const;
    /// From code. Outside a leaving: leaves the focused control and enters this one. Inside an OnExit: says where the
    /// focus goes in the end, without leaving anything else. Before the screen is shown: where it will stand.
    /// Nothing when CanFocus() is false.
    void SetFocus();

    /// What the right button or the menu key opens; null for none.
    TPopupMenu* PopupMenu() const { return popupMenu_; }
    void SetPopupMenu(TPopupMenu* menu);

    TEvent<> OnEnter;
    /// A person leaves it, or SetFocus of another control does. Form().ActiveControl() is where the focus is going; SetFocus
    /// in here has the last word. An exception keeps the focus where it was.
    TEvent<> OnExit;
    /// Before the key's own effect; swallowing the key prevents it. Moving the focus does as well.
    TEvent<TKey&> OnKeyDown;

    int Tag = 0;

    /// All that a person sees of it; calls the base first.
    virtual void Describe(IPropertySink& sink) const;
    /// The letter after the caption's "&", in lower case; empty when there is none.
    std::string AcceleratorLetter() const;
    /// The caption without its "&".
    std::string PlainCaption() const;

protected:
    friend class TForm;
    friend class TApplication;

    explicit TControl(std::string name, TControlOptions options); ///< for TForm, which stands in nothing

    /// Something visible is another: the application's view hears of it, once the screen is shown.
    void Changed();
    /// The focus goes to it as a person's click moves it; false when it ended elsewhere.
    bool TakeFocus();

    /// A kind that can hold the focus.
    virtual bool Interactive() const { return true; }
    /// A person did this to the control, which is visible and enabled. Empty, or why that cannot be.
    virtual std::string Perform(const TUserEvent& event);
    /// The key's own effect; false when it has none in this kind of control.
    virtual bool KeyEffect(const TKey& key);
    /// Alt and its letter.
    virtual void Accelerate();
    /// Tab and Enter stop at it as it is now.
    virtual bool StopsTab() const { return tabStop_ && !ReadOnly(); }
    /// The key ends the typing: what was typed is committed before its handlers run.
    virtual bool CommitsOn(const TKey& key) const;
    /// The popup menu is about to open: its items take the state that they have here.
    virtual void MenuOpens();
    /// The same, by a person and at a place.
    virtual std::string PerformOpenMenu(const TUserEvent& event);
    std::string PerformMenuItem(const TUserEvent& event);
    /// "O campo X …": how a refusal names it.
    std::string Named(std::string_view rest) const;
    /// What was typed goes to where it belongs; an exception says why it cannot.
    virtual void CommitInput() { }
    virtual void Enter();
    virtual void Exit();
    /// Shows what stands in it to a person: a page that is not in front does not.
    virtual bool ShowsContents() const { return visible_; }
    virtual void VisibilityChanged() { }

private:
    friend class TPopupMenu;
    TContainer* parent_ = nullptr;
    TPopupMenu* popupMenu_ = nullptr;
    std::string caption_; ///< an "&" stands before the letter that Alt reaches it by
    std::string hint_;
    bool readOnly_ = false;
    bool enabled_ = true;
    bool visible_ = true;
    bool tabStop_ = true;
};

} // namespace alinhavo
