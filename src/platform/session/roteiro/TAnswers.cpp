#include "platform/session/roteiro/TAnswers.h"

#include "forms/text.h"
#include "platform/session/roteiro/compare.h"
#include "platform/session/roteiro/EMismatch.h"

#include <utility>

namespace alinhavo::roteiro {
namespace {

std::string Expected(const TInput& written) { return "> " + Quoted(written.title) + " " + Quoted(written.prompt); }

TModalResult Result(TAnswer answer, const TDialog& dialog)
{
    switch (answer) {
    case TAnswer::Yes:
        return TModalResult::Yes;
    case TAnswer::No:
        return TModalResult::No;
    case TAnswer::Cancel:
        return TModalResult::Cancel;
    case TAnswer::Ok:
        return TModalResult::Ok;
    case TAnswer::Enter:
        return dialog.defaultButton;
    case TAnswer::Esc:
        return dialog.EscAnswer();
    }
    return TModalResult::None;
}

} // namespace

TAnswers::TAnswers(IWorld& world, TApplication& application, THands::TSend send, std::filesystem::path roteiro)
    : world_(world)
    , application_(application)
    , stage_(application)
    , send_(std::move(send))
    , folder_(roteiro.parent_path())
{
}

TDialog& TAnswers::Top(TDialog::TKind kind, const std::string& written) const
{
    auto* dialog = application_.TopDialog();
    if (!dialog || dialog->kind != kind)
        throw EMismatch{written, stage_.Top()};
    return *dialog;
}

void TAnswers::CheckTitle(const TDialog& dialog, const std::optional<std::string>& title) const
{
    if (title && !TextMatches(*title, dialog.title))
        throw EMismatch{"titulo " + Quoted(*title), "titulo " + Quoted(dialog.title)};
}

void TAnswers::operator()(const TMessage& written) const
{
    const auto expected = "! " + Quoted(written.text);
    const auto& dialog = Top(TDialog::TKind::Message, expected);
    if (dialog.buttons != TButtons::Ok || !TextMatches(written.text, dialog.text))
        throw EMismatch{expected, stage_.Top()};
    CheckTitle(dialog, written.title);
    Answer(TModalResult::Ok);
}

void TAnswers::operator()(const TQuestion& written) const
{
    const auto expected = "? " + Quoted(written.text);
    const auto& dialog = Top(TDialog::TKind::Message, expected);
    if (dialog.buttons == TButtons::Ok || !TextMatches(written.text, dialog.text))
        throw EMismatch{expected, stage_.Top()};
    CheckTitle(dialog, written.title);
    Answer(Result(written.answer, dialog));
}

void TAnswers::operator()(const TInput& written) const
{
    const auto* dialog = application_.TopDialog();
    const bool asksText = dialog && (dialog->kind == TDialog::TKind::Input || dialog->kind == TDialog::TKind::Date);
    if (!asksText || !TextMatches(written.title, dialog->title) || !TextMatches(written.prompt, dialog->text))
        throw EMismatch{Expected(written), stage_.Top()};
    AnswerOrCancel(written.value);
}

void TAnswers::operator()(const TLookup& written) const
{
    Top(TDialog::TKind::Lookup, "pesquisa");
    if (written.kind == TLookup::TKind::Cancel)
        return Answer(TModalResult::Cancel);
    if (written.kind == TLookup::TKind::NotOffered) {
        if (OfferedRow(written.rows.front()) >= 0)
            throw EMismatch{"no row " + Written(written.rows.front()) + " in the lookup", "it is offered"};
        return Answer(TModalResult::Cancel);
    }
    std::vector<std::int64_t> rows;
    for (const auto& wanted : written.rows) {
        const auto row
            = written.rows.size() == 1 ? OfferedRow(wanted) : FindRow(*application_.TopDialog()->rows, wanted);
        if (row < 0)
            throw EMismatch{"the row " + Written(wanted) + " in the lookup", "it is not offered"};
        rows.push_back(row);
    }
    Answer(TModalResult::Ok, {}, std::move(rows));
}

/// A lookup over many rows shows the first ones: a person then types what he looks for.
std::int64_t TAnswers::OfferedRow(const TMatches& row) const
{
    const auto& rows = *application_.TopDialog()->rows;
    const auto shown = FindRow(rows, row);
    if (shown >= 0 || row.front().value.empty())
        return shown;
    send_({.kind = TUserEvent::TKind::Search, .text = row.front().value});
    return FindRow(rows, row);
}

void TAnswers::operator()(const TSupervisor& written) const
{
    Top(TDialog::TKind::Supervisor, "supervisor");
    AnswerOrCancel(written.name);
}

void TAnswers::operator()(const TFile& written) const
{
    Top(TDialog::TKind::File, "arquivo");
    if (!written.name)
        return Answer(TModalResult::Cancel);
    Answer(TModalResult::Ok, world_.Upload(folder_ / *written.name).string());
}

void TAnswers::operator()(const TModal& written) const
{
    const auto* dialog = application_.TopDialog();
    if (dialog && dialog->kind == TDialog::TKind::Picture && written.screen == "TfmFotoProd")
        return Answer(TModalResult::Ok);
    const auto* form = application_.ActiveForm();
    if (dialog || !form || !SameText(form->ClassName(), written.screen))
        throw EMismatch{"the modal screen " + written.screen, stage_.Top()};
}

void TAnswers::Answer(TModalResult answer, std::string text, std::vector<std::int64_t> rows) const
{
    send_({.kind = TUserEvent::TKind::Answer, .text = std::move(text), .answer = answer, .rows = std::move(rows)});
}

void TAnswers::AnswerOrCancel(const std::optional<std::string>& text) const
{
    Answer(text ? TModalResult::Ok : TModalResult::Cancel, text.value_or(""));
}

} // namespace alinhavo::roteiro
