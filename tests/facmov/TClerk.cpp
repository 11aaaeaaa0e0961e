#include "TClerk.h"

#include <gtest/gtest.h>
#include <utility>

namespace alinhavo {

using enum TUserEvent::TKind;

TUserEvent TClerk::Next()
{
    const TDialog* dialog = application_->TopDialog();
    if (!dialog) {
        ADD_FAILURE() << "nobody told the clerk what to do in " << application_->ActiveForm()->Name();
        return {.kind = Terminate};
    }
    heard_.push_back(dialog->text);
    if (dialog->kind == TDialog::TKind::Lookup)
        return {.kind = Answer, .answer = TModalResult::Cancel};
    return {.kind = Answer,
        .text = dialog->kind == TDialog::TKind::Supervisor ? "ADMIN" : "",
        .answer = dialog->Offers(TModalResult::Yes) ? TModalResult::Yes : TModalResult::Ok};
}

// What he answers is always one of the answers there are.
void TClerk::Handled(const TUserEvent& event, std::string_view refusal)
{
    if (event.kind != Answer || refusal.empty())
        return;
    ADD_FAILURE() << "the clerk could not answer: " << refusal;
    application_->Terminate();
}

std::vector<std::string> TClerk::Heard() { return std::exchange(heard_, {}); }

void TClerk::Do(const TUserEvent& event)
{
    const std::string refusal = application_->Handle(event);
    EXPECT_EQ(refusal, "") << event.control << " " << event.text;
}

void TClerk::Open(std::string className) { Do({.kind = OpenForm, .text = std::move(className)}); }

void TClerk::Close(std::string className) { Do({.kind = CloseForm, .form = std::move(className)}); }

void TClerk::Turn(std::string pages, int index) { Do({.kind = Page, .control = std::move(pages), .index = index}); }

void TClerk::Click(std::string control) { Do({.kind = TUserEvent::TKind::Click, .control = std::move(control)}); }

void TClerk::DoubleClick(std::string grid, std::size_t row)
{
    Do({.kind = GridDouble, .control = std::move(grid), .row = static_cast<std::int64_t>(row)});
}

void TClerk::Check(std::string control, bool checked)
{
    Do({.kind = TUserEvent::TKind::Check, .control = std::move(control), .flag = checked});
}

void TClerk::Select(std::string control, int index)
{
    Do({.kind = Focus, .control = control});
    Do({.kind = TUserEvent::TKind::Select, .control = control, .index = index});
    Do({.kind = Key, .control = std::move(control), .key = {.name = "Enter"}});
}

void TClerk::Type(std::string control, std::string_view text)
{
    Do({.kind = Focus, .control = control});
    Do({.kind = Text, .control = control, .text = std::string(text)});
    Do({.kind = Key, .control = std::move(control), .key = {.name = "Enter"}});
}

void TClerk::Pass(std::string control)
{
    Do({.kind = Focus, .control = control});
    Do({.kind = Key, .control = std::move(control), .key = {.name = "Enter"}});
}

void TClerk::GoTo(std::string grid, std::size_t row, std::string column)
{
    Do({.kind = GridCell,
        .control = std::move(grid),
        .column = std::move(column),
        .row = static_cast<std::int64_t>(row)});
}

bool TClerk::TryCell(std::string grid, std::size_t row, std::string column, std::string_view text)
{
    GoTo(grid, row, std::move(column));
    if (!application_->Handle({.kind = GridText, .control = grid, .text = std::string(text)}).empty())
        return false;
    Do({.kind = Key, .control = std::move(grid), .key = {.name = "Enter"}});
    return true;
}

} // namespace alinhavo
