#include "forms/TApplication.h"
#include "forms/text.h"

namespace alinhavo {

std::string TApplication::Perform(const TUserEvent& event)
{
    using enum TUserEvent::TKind;
    switch (event.kind) {
    case Work:
        if (event.work)
            event.work();
        return {};
    case Terminate:
        terminated_ = true;
        return {};
    case Answer:
        return PerformAnswer(event);
    case Search:
        return PerformSearch(event);
    default:
        break;
    }
    if (const auto* dialog = TopDialog())
        return "A pergunta \"" + dialog->title + "\" espera uma resposta.";
    switch (event.kind) {
    case OpenForm:
        return PerformOpen(event);
    case ActivateForm:
        return PerformActivate(event);
    case CloseForm:
        return PerformClose(event);
    default:
        return PerformOnForm(event);
    }
}

std::string TApplication::PerformAnswer(const TUserEvent& event)
{
    auto* const dialog = TopDialog();
    return dialog ? dialog->Answer(event) : "Nenhuma pergunta espera uma resposta.";
}

std::string TApplication::PerformSearch(const TUserEvent& event)
{
    auto* const dialog = TopDialog();
    if (!dialog || dialog->kind != TDialog::TKind::Lookup)
        return "Nenhuma pesquisa está aberta.";
    auto refusal = dialog->Search(event);
    if (refusal.empty() && view_)
        view_->DialogChanged(*dialog);
    return refusal;
}

std::string TApplication::PerformOpen(const TUserEvent& event)
{
    if (const auto* modal = TopModalForm())
        return "A tela " + modal->PlainCaption() + " espera ser fechada.";
    if (auto* open = FindFormByClass(event.text)) {
        open->Show();
        return {};
    }
    if (!KnowsForm(event.text))
        return "A tela " + event.text + " não existe.";
    auto& form = LoadForm(event.text);
    try {
        form.Show();
    } catch (...) {
        form.Hide();
        form.closed_ = true;
        throw;
    }
    return {};
}

TForm* TApplication::FindOpenForm(std::string_view name) const
{
    if (name.empty())
        return ActiveForm();
    return FindForm([&](const TForm& form) {
        return form.Showing() && (SameText(form.Name(), name) || SameText(form.ClassName(), name));
    });
}

std::string TApplication::PerformActivate(const TUserEvent& event)
{
    auto* const form = FindOpenForm(event.form);
    if (!form)
        return "A tela " + event.form + " não está aberta.";
    const auto* modal = TopModalForm();
    if (modal && modal != form)
        return "A tela " + modal->PlainCaption() + " espera ser fechada.";
    form->Show();
    return {};
}

std::string TApplication::PerformClose(const TUserEvent& event)
{
    auto* const form = FindOpenForm(event.form);
    if (!form)
        return "A tela " + event.form + " não está aberta.";
    const auto* modal = TopModalForm();
    if (modal && modal != form)
        return "A tela " + modal->PlainCaption() + " espera ser fechada.";
    form->Close();
    return {};
}

std::string TApplication::PerformOnForm(const TUserEvent& event)
{
    auto* const form = FindOpenForm(event.form);
    if (!form)
        return "A tela " + event.form + " não está aberta.";
    if (form != ActiveForm())
        return "A tela " + form->PlainCaption() + " não está à frente.";
    if (event.control.empty())
        return PerformOnControl(*form, form->ActiveControl(), event);
    auto* const control = dynamic_cast<TControl*>(form->FindComponent(event.control));
    if (!control)
        return "A tela " + form->PlainCaption() + " não tem o controle " + event.control + ".";
    return PerformOnControl(*form, control, event);
}

std::string TApplication::PerformOnControl(TForm& form, TControl* control, const TUserEvent& event)
{
    using enum TUserEvent::TKind;
    if (!control)
        return event.kind == Key ? PerformKey(form, event) : "Nenhum controle tem o foco.";
    if (!control->EffectivelyVisible())
        return control->Named("não está visível");
    if (!control->EffectivelyEnabled())
        return control->Named("está desabilitado");
    switch (event.kind) {
    case Focus:
    case Key:
        if (!control->CanFocus())
            return control->Named("não recebe o foco");
        if (event.kind == Key && !event.key.IsKnown())
            return "A tecla \"" + event.key.Text() + "\" não existe.";
        if (!control->TakeFocus() || event.kind == Focus)
            return {};
        return PerformKey(form, event);
    case OpenMenu:
        return control->PerformOpenMenu(event);
    case MenuItem:
        return control->PerformMenuItem(event);
    default:
        return control->Perform(event);
    }
}

std::string TApplication::PerformKey(TForm& form, const TUserEvent& event)
{
    if (!event.key.IsKnown())
        return "A tecla \"" + event.key.Text() + "\" não existe.";
    keySwallowed_ = true;
    TKey key = event.key;
    form.HandleKey(key);
    keySwallowed_ = key.Swallowed();
    return {};
}

} // namespace alinhavo
