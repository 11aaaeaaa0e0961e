#include "forms/TForm.h"

#include "forms/IPropertySink.h"
#include "forms/TApplication.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {

namespace {

std::string ComponentName(const std::string& className)
{
    return className.starts_with('T') ? className.substr(1) : className;
}

} // namespace

TForm::TForm(TApplication& application, std::string className, std::string caption)
    : TContainer(ComponentName(className), TControlOptions{.caption = std::move(caption)})
    , application_(application)
    , className_(std::move(className))
{
    application_.Enlist(*this);
}

TForm::~TForm() { application_.Delist(*this); }

void TForm::Show()
{
    closed_ = false;
    application_.BringToFront(*this);
    if (!showing_)
        BeginShowing();
}

TModalResult TForm::ShowModal()
{
    if (modal_)
        throw std::logic_error("A tela " + PlainCaption() + " já espera por uma resposta.");
    closed_ = false;
    ModalResult = TModalResult::None;
    return application_.RunModal(*this);
}

bool TForm::Close()
{
    if (!showing_) {
        closed_ = true;
        return true;
    }
    if (!MayClose())
        return false;
    EndShowing();
    return true;
}

void TForm::BeginShowing()
{
    showing_ = true;
    application_.FormShown(*this);
    OnShow();
    if (!showing_)
        return;
    if (activeControl_ && !entered_ && activeControl_->CanFocus())
        return Arrive(nullptr);
    if (!activeControl_ || !activeControl_->CanFocus())
        FocusFirst();
}

bool TForm::MayClose()
{
    bool may = true;
    OnCloseQuery(may);
    return may;
}

void TForm::EndShowing()
{
    OnClose();
    if (ModalResult == TModalResult::None)
        ModalResult = TModalResult::Cancel;
    Hide();
}

void TForm::Hide()
{
    if (!showing_)
        return;
    showing_ = false;
    closed_ = true;
    entered_ = false;
    activeControl_ = nullptr;
    application_.FormHidden(*this);
}

void TForm::Describe(IPropertySink& sink) const
{
    TContainer::Describe(sink);
    sink.Text("class", className_);
    sink.Flag("modal", modal_);
    sink.Text("focus", activeControl_ ? std::string_view(activeControl_->Name()) : std::string_view());
}

std::string TForm::TitleOr(std::string_view title) const { return title.empty() ? PlainCaption() : std::string(title); }

void TForm::Mensagem(std::string_view text, std::string_view title, TIcon icon)
{
    TDialog dialog{.title = TitleOr(title), .text = std::string(text), .icon = icon};
    application_.ShowDialog(dialog);
}

void TForm::Recusa(std::string_view text) { Mensagem(text); }

void TForm::Recusa(std::string_view text, TControl& focus)
{
    Mensagem(text);
    focus.SetFocus();
}

bool TForm::Pergunta(std::string_view text, std::string_view title)
{
    TDialog dialog{.title = TitleOr(title),
        .text = std::string(text),
        .icon = TIcon::Question,
        .buttons = TButtons::YesNo,
        .defaultButton = TModalResult::No};
    return application_.ShowDialog(dialog) == TModalResult::Yes;
}

TModalResult TForm::PerguntaCancelar(std::string_view text, std::string_view title)
{
    TDialog dialog{.title = TitleOr(title),
        .text = std::string(text),
        .icon = TIcon::Question,
        .buttons = TButtons::YesNoCancel,
        .defaultButton = TModalResult::Cancel};
    return application_.ShowDialog(dialog);
}

void TForm::Alarme(std::string_view text, std::string_view title)
{
    TModalResult answer = TModalResult::None;
    while (answer != TModalResult::Ok) {
        TDialog dialog{.title = TitleOr(title),
            .text = std::string(text),
            .icon = TIcon::Warning,
            .buttons = TButtons::OkCancel,
            .defaultButton = TModalResult::Cancel,
            .beep = true};
        answer = application_.ShowDialog(dialog);
    }
}

bool TForm::InputBox(std::string_view caption, std::string_view prompt, std::string& value)
{
    return AskValue(TDialog::TKind::Input, caption, prompt, value);
}

bool TForm::InputBoxData(std::string_view caption, std::string_view prompt, std::string& value)
{
    return AskValue(TDialog::TKind::Date, caption, prompt, value);
}

bool TForm::AskValue(TDialog::TKind kind, std::string_view title, std::string_view text, std::string& value)
{
    TDialog dialog{.kind = kind, .title = TitleOr(title), .text = std::string(text), .value = value};
    if (application_.ShowDialog(dialog) != TModalResult::Ok)
        return false;
    value = dialog.value;
    return true;
}

std::string TForm::EscolheArquivo(std::string_view title, std::string_view filter)
{
    TDialog dialog{.kind = TDialog::TKind::File, .title = TitleOr(title), .filter = std::string(filter)};
    return application_.ShowDialog(dialog) == TModalResult::Ok ? dialog.value : std::string();
}

} // namespace alinhavo
