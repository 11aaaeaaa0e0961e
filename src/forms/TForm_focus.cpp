#include "forms/TApplication.h"
#include "forms/TForm.h"

#include <algorithm>

namespace alinhavo {

namespace {

void AppendDeep(const TContainer& container, std::vector<TControl*>& order)
{
    for (auto* control : container.Controls()) {
        order.push_back(control);
        if (const auto* inner = dynamic_cast<const TContainer*>(control))
            AppendDeep(*inner, order);
    }
}

} // namespace

std::vector<TControl*> TForm::ControlsInOrder() const
{
    std::vector<TControl*> order;
    AppendDeep(*this, order);
    return order;
}

void TForm::FocusFirst()
{
    if (auto* first = NextToFill(nullptr, true))
        SetFocusFromCode(*first);
}

void TForm::FocusFirstIn(const TContainer& container)
{
    for (auto* control : ControlsInOrder())
        if (control->IsWithin(container) && control->CanFocus() && control->StopsTab())
            return SetFocusFromCode(*control);
}

void TForm::FocusBehind(const TControl& control)
{
    if (auto* next = NextToFill(&control, true))
        SetFocusFromCode(*next);
}

void TForm::CommitFocused()
{
    if (activeControl_)
        activeControl_->CommitInput();
}

void TForm::SelectNext(bool forward)
{
    if (auto* next = NextToFill(activeControl_, forward))
        SetFocusFromCode(*next);
}

/// The controls behind `from` (or before it, backwards), all around and without it; all of them from the first one for
/// a null.
std::vector<TControl*> TForm::Around(const TControl* from, bool forward) const
{
    auto order = ControlsInOrder();
    if (!forward)
        std::ranges::reverse(order);
    const auto at = std::ranges::find(order, from);
    if (at == order.end())
        return order;
    std::rotate(order.begin(), at, order.end());
    order.erase(order.begin());
    return order;
}

TControl* TForm::NextToFill(const TControl* from, bool forward) const
{
    for (auto* control : Around(from, forward))
        if (control->CanFocus() && control->StopsTab())
            return control;
    return nullptr;
}

TControl* TForm::NextFocusable(const TControl& from) const
{
    if (auto* next = NextToFill(&from, true))
        return next;
    for (auto* control : Around(&from, true))
        if (control->CanFocus())
            return control;
    return nullptr;
}

void TForm::SetFocusFromCode(TControl& target)
{
    if (!target.CanFocus())
        return;
    if (leaving_)
        focusSaid_ = true;
    if (leaving_ || !showing_)
        activeControl_ = &target;
    else
        MoveFocus(target);
}

bool TForm::MoveFocus(TControl& target) { return Move(target, TMove::To); }

/// Enter and Tab: where the leaving changed what can be filled, the next control is looked for anew after it.
bool TForm::MoveOn(bool forward)
{
    auto* const next = NextToFill(activeControl_, forward);
    return next && Move(*next, forward ? TMove::Forward : TMove::Back);
}

bool TForm::Move(TControl& target, TMove move)
{
    auto* const old = activeControl_;
    if (old == &target && entered_)
        return true;
    activeControl_ = &target;
    const auto failure = old && entered_ ? Leave(*old) : nullptr;
    if (!failure && !focusSaid_ && move != TMove::To)
        if (auto* next = NextToFill(old, move == TMove::Forward))
            activeControl_ = next;
    if (showing_ && activeControl_ && !activeControl_->CanFocus())
        activeControl_ = NextFocusable(*activeControl_);
    focusSaid_ = false;
    Arrive(old);
    if (failure)
        std::rethrow_exception(failure);
    return activeControl_ == &target;
}

std::exception_ptr TForm::Leave(TControl& old)
{
    struct TLeaving {
        bool& leaving;
        ~TLeaving() { leaving = false; }
    };
    focusSaid_ = false;
    leaving_ = true;
    const TLeaving leaving{leaving_};
    try {
        old.Exit();
        return nullptr;
    } catch (const ETerminated&) {
        activeControl_ = &old;
        throw;
    } catch (...) {
        if (!focusSaid_ && showing_)
            activeControl_ = &old;
        return std::current_exception();
    }
}

void TForm::Arrive(TControl* old)
{
    if (!showing_)
        return;
    application_.FocusChanged(*this);
    if (!activeControl_ || (activeControl_ == old && entered_))
        return;
    entered_ = true;
    activeControl_->Enter();
}

void TForm::SettleFocus()
{
    if (!showing_ || leaving_)
        return;
    if (activeControl_ && activeControl_->CanFocus())
        return;
    auto* const old = activeControl_;
    activeControl_ = old ? NextFocusable(*old) : NextToFill(nullptr, true);
    if (activeControl_ != old)
        Arrive(old);
}

void TForm::Forget(const TControl& control)
{
    if (activeControl_ == &control)
        activeControl_ = nullptr;
}

} // namespace alinhavo
