#include "forms/TApplication.h"

#include "forms/text.h"

#include <algorithm>
#include <ctime>
#include <stdexcept>

namespace alinhavo {

/// A screen or a dialog on top of all others while this lives.
class TApplication::TModalScope {
public:
    TModalScope(TApplication& application, TModal modal)
        : application_(application)
    {
        application_.modals_.push_back(modal);
    }
    ~TModalScope()
    {
        application_.modals_.pop_back();
        application_.HandlersBelowResume();
    }
    TModalScope(const TModalScope&) = delete;
    TModalScope& operator=(const TModalScope&) = delete;

private:
    TApplication& application_;
};

TApplication::TApplication(IEventSource& source, IView* view)
    : source_(source)
    , view_(view)
{
}

TApplication::~TApplication()
{
    view_ = nullptr;
    while (!loaded_.empty())
        loaded_.pop_back();
}

// Events

void TApplication::Run()
{
    while (!terminated_)
        HandleNext();
}

void TApplication::HandleNext()
{
    const TUserEvent event = source_.Next();
    const std::string refusal = Handle(event);
    source_.Handled(event, refusal);
}

std::string TApplication::Handle(const TUserEvent& event)
{
    struct TDepth {
        int& depth;
        ~TDepth() { --depth; }
    };
    ++depth_;
    const TDepth depth{depth_};
    std::string refusal;
    try {
        Guarded([&] { refusal = Perform(event); });
        Guarded([&] { SettleFocus(); });
    } catch (...) {
        // Either the session ends, or its event source cannot go on.
        terminated_ = true;
    }
    DestroyClosedForms();
    return refusal;
}

void TApplication::Guarded(const std::function<void()>& action)
{
    try {
        action();
    } catch (const EAbort&) {
    } catch (const ETerminated&) {
        throw;
    } catch (const std::exception& error) {
        ShowException(error.what());
    } catch (...) {
        ShowException("Erro desconhecido.");
    }
}

void TApplication::ShowException(std::string_view text)
{
    TDialog dialog{.title = Title, .text = std::string(text), .icon = TIcon::Stop};
    ShowDialog(dialog);
}

void TApplication::SettleFocus()
{
    if (TopDialog() || terminated_)
        return;
    if (auto* form = ActiveForm())
        form->SettleFocus();
}

// Screens

void TApplication::RegisterForm(std::string className, TFormMaker maker)
{
    makers_.insert_or_assign(LowerCase(className), std::move(maker));
}

bool TApplication::KnowsForm(std::string_view className) const { return makers_.contains(LowerCase(className)); }

TForm& TApplication::LoadForm(std::string_view className)
{
    const auto maker = makers_.find(LowerCase(className));
    if (maker == makers_.end())
        throw std::runtime_error("A tela " + std::string(className) + " não existe.");
    loaded_.push_back(maker->second(*this));
    return *loaded_.back();
}

TForm* TApplication::FindForm(const std::function<bool(const TForm&)>& matches) const
{
    for (auto form = forms_.rbegin(); form != forms_.rend(); ++form)
        if (!(*form)->closed_ && matches(**form))
            return *form;
    return nullptr;
}

TForm* TApplication::FindFormByClass(std::string_view className) const
{
    return FindForm([&](const TForm& form) { return SameText(form.ClassName(), className); });
}

TForm* TApplication::FindFormByName(std::string_view componentName) const
{
    return FindForm([&](const TForm& form) { return SameText(form.Name(), componentName); });
}

std::vector<TForm*> TApplication::Forms() const
{
    std::vector<TForm*> open;
    std::ranges::copy_if(forms_, std::back_inserter(open), [](const TForm* form) { return !form->closed_; });
    return open;
}

TForm* TApplication::ActiveForm() const
{
    if (auto* modal = TopModalForm())
        return modal;
    return FindForm([](const TForm& form) { return form.Showing(); });
}

TForm* TApplication::TopModalForm() const
{
    for (auto modal = modals_.rbegin(); modal != modals_.rend(); ++modal)
        if (modal->form)
            return modal->form;
    return nullptr;
}

void TApplication::Enlist(TForm& form)
{
    form.loadedDepth_ = std::max(depth_, 1);
    forms_.push_back(&form);
}

void TApplication::Delist(TForm& form)
{
    std::erase(forms_, &form);
    if (form.showing_)
        FormHidden(form);
}

void TApplication::BringToFront(TForm& form)
{
    std::erase(forms_, &form);
    forms_.push_back(&form);
    if (form.showing_)
        FormShown(form);
}

/// A screen is destroyed when all handlers that began after it are done: those before cannot know it. A modal run that
/// ends gives its screens to the handler that waited for it.
void TApplication::DestroyClosedForms()
{
    std::vector<std::unique_ptr<TForm>> dead;
    for (auto& form : loaded_)
        if (form->closed_ && !form->modal_ && form->loadedDepth_ >= depth_)
            dead.push_back(std::move(form));
    std::erase(loaded_, nullptr);
}

void TApplication::HandlersBelowResume()
{
    for (auto* form : forms_)
        form->loadedDepth_ = std::min(form->loadedDepth_, std::max(depth_, 1));
}

// Modal runs

TModalResult TApplication::ShowDialog(TDialog& dialog)
{
    struct TShown {
        TApplication& application;
        TDialog& dialog;
        ~TShown()
        {
            if (application.view_)
                application.view_->DialogClosed(dialog);
        }
    };
    if (terminated_)
        throw ETerminated{};
    const TModalScope scope(*this, {.dialog = &dialog});
    dialog.result = TModalResult::None;
    if (view_)
        view_->DialogOpened(dialog);
    const TShown shown{*this, dialog};
    while (dialog.result == TModalResult::None) {
        HandleNext();
        if (terminated_)
            throw ETerminated{};
    }
    return dialog.result;
}

TDialog* TApplication::TopDialog() const { return modals_.empty() ? nullptr : modals_.back().dialog; }

TModalResult TApplication::RunModal(TForm& form)
{
    struct TShown {
        TForm& form;
        ~TShown()
        {
            form.modal_ = false;
            form.Hide();
        }
    };
    if (terminated_)
        throw ETerminated{};
    const TModalScope scope(*this, {.form = &form});
    form.modal_ = true;
    const TShown shown{form};
    form.Show();
    while (form.showing_) {
        if (form.ModalResult == TModalResult::None)
            HandleNext();
        if (terminated_)
            throw ETerminated{};
        if (form.showing_ && form.ModalResult != TModalResult::None)
            EndModal(form);
    }
    return form.ModalResult;
}

/// A screen that refuses to close goes on running.
void TApplication::EndModal(TForm& form)
{
    Guarded([&] { form.Close(); });
    if (form.showing_)
        form.ModalResult = TModalResult::None;
}

// What the view hears

void TApplication::ControlChanged(TControl& control)
{
    if (view_ && control.Form().Showing())
        view_->ControlChanged(control);
}

void TApplication::FocusChanged(TForm& form)
{
    if (view_)
        view_->FocusChanged(form);
}

void TApplication::FormShown(TForm& form)
{
    if (view_)
        view_->FormShown(form);
}

void TApplication::FormHidden(TForm& form)
{
    if (view_)
        view_->FormClosed(form);
}

void TApplication::SetBusy(bool busy)
{
    const bool before = busy_ > 0;
    busy_ = std::max(busy_ + (busy ? 1 : -1), 0);
    if (view_ && before != (busy_ > 0))
        view_->BusyChanged(busy_ > 0);
}

// The clock

TDateTime TApplication::Now() const
{
    if (!now_.IsBlank())
        return now_;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return TDateTime::FromDateTime(
        local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, std::min(local.tm_sec, 59));
}

void TApplication::SetNow(TDateTime now) { now_ = now; }

} // namespace alinhavo
