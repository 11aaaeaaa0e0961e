#pragma once

#include "forms/TComponent.h"
#include "forms/TEvent.h"
#include "forms/TKey.h"
#include "forms/TValue.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TContainer;
class TForm;

/// Takes a control's visible properties, one by one, to show them elsewhere. Names are those of docs/protocol.md.
class IPropertySink {
public:
    virtual ~IPropertySink() = default;
    virtual void Text(std::string_view name, std::string_view value) = 0;
    virtual void Flag(std::string_view name, bool value) = 0;
    virtual void Number(std::string_view name, std::int64_t value) = 0;
    virtual void Texts(std::string_view name, const std::vector<std::string>& values) = 0;
};

/// A part of a screen that a person sees. It belongs to a container, in the order of its making.
/// Nothing here knows of pixels: how a kind of control looks is the client's matter.
class TControl : public TComponent {
public:
    TControl(TContainer& parent, std::string name, std::string caption = {}, std::string hint = {});
    ~TControl() override;

    TForm& Form() const;
    TContainer* Parent() const { return parent_; }
    /// "edit", "button", "grid" …: the kind of element that shows it.
    virtual std::string_view Kind() const = 0;

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string_view caption);
    const std::string& Hint() const { return hint_; }
    void SetHint(std::string_view hint);
    bool Enabled() const { return enabled_; }      ///< its own switch
    void SetEnabled(bool enabled);
    bool Visible() const { return visible_; }      ///< its own switch
    void SetVisible(bool visible);
    bool EffectivelyEnabled() const; ///< and all that it stands in
    bool EffectivelyVisible() const; ///< and all that it stands in, its tab being the one that shows
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly);
    bool TabStop() const { return tabStop_; }
    void SetTabStop(bool tabStop) { tabStop_ = tabStop; }

    /// Can take the focus now: an interactive kind, enabled, visible.
    bool CanFocus() const;
    bool Focused() const;
    /// From code. Outside a leaving: leaves the focused control and enters this one. Inside an OnExit: says where the
    /// focus goes in the end, without leaving anything else. Nothing when CanFocus() is false.
    void SetFocus();

    TEvent<> OnEnter;
    TEvent<> OnExit;
    /// Before the key's own effect; emptying the key's name swallows it.
    TEvent<TKey&> OnKeyDown;

    int Tag = 0;

    /// All that a person sees of it; calls the base first.
    virtual void Describe(IPropertySink& sink) const;

protected:
    virtual bool Interactive() const { return true; }
    void Changed(); ///< something visible is another: the application's view hears of it

private:
    friend class TForm;
    TContainer* parent_;
    std::string caption_; ///< an "&" stands before the letter that Alt reaches it by
    std::string hint_;
    bool enabled_ = true;
    bool visible_ = true;
    bool readOnly_ = false;
    bool tabStop_ = true;
};

/// A control that holds others: a form, a panel, a tab.
class TContainer : public TControl {
public:
    using TControl::TControl;
    const std::vector<TControl*>& Controls() const { return controls_; }

protected:
    bool Interactive() const override { return false; }
    explicit TContainer(std::string formName, std::string caption); ///< for TForm alone, which stands in nothing

private:
    friend class TControl;
    std::vector<TControl*> controls_;
};

} // namespace alinhavo
