#include "TAnsweringUser.h"

#include "forms/TDataSet.h"

#include <gtest/gtest.h>

namespace alinhavo {

void TAnsweringUser::Do(TApplication& application, std::function<void()> code)
{
    EXPECT_EQ(application.Handle({.kind = TUserEvent::TKind::Work, .work = std::move(code)}), "");
    EXPECT_TRUE(coming_.empty()) << "an answer was never asked for";
}

void TAnsweringUser::Says(TModalResult answer, std::string text, std::string password)
{
    coming_.push_back({.kind = TUserEvent::TKind::Answer,
        .text = std::move(text),
        .answer = answer,
        .password = std::move(password)});
}

void TAnsweringUser::Searches(std::string text)
{
    coming_.push_back({.kind = TUserEvent::TKind::Search, .text = std::move(text)});
}

void TAnsweringUser::Picks(std::vector<std::int64_t> rows)
{
    coming_.push_back({.kind = TUserEvent::TKind::Answer, .answer = TModalResult::Ok, .rows = std::move(rows)});
}

void TAnsweringUser::DialogOpened(TDialog& dialog)
{
    open_.push_back(&dialog);
    Titles.push_back(dialog.title);
    if (dialog.kind == TDialog::TKind::Message)
        Read.push_back(dialog.text);
    if (dialog.kind == TDialog::TKind::Picture)
        Files = dialog.files;
}

TUserEvent TAnsweringUser::Next()
{
    TUserEvent next{.kind = TUserEvent::TKind::Terminate};
    if (!coming_.empty()) {
        next = std::move(coming_.front());
        coming_.pop_front();
    } else if (!open_.empty()) {
        next = {.kind = TUserEvent::TKind::Answer, .answer = open_.back()->EscAnswer()};
    }
    if (!open_.empty() && open_.back()->rows && next.kind == TUserEvent::TKind::Answer)
        KeepOffer(*open_.back()->rows);
    return next;
}

void TAnsweringUser::KeepOffer(const TDataSet& rows)
{
    Offered.clear();
    for (std::size_t row = 0; row < rows.RecordCount(); ++row)
        Offered.push_back(rows.CellText(row, *rows.Fields().front()));
}

} // namespace alinhavo
