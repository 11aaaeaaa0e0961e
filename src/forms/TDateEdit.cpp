#include "forms/TDateEdit.h"

#include "forms/TApplication.h"
#include "forms/text.h"
#include "forms/TForm.h"

#include <stdexcept>

namespace alinhavo {

namespace {

constexpr std::size_t dateLength = 10;

bool ReadsBlank(std::string_view text) { return text.find_first_not_of(" /") == std::string_view::npos; }

} // namespace

TDateEdit::TDateEdit(TContainer& parent, std::string name, TDateEditOptions options)
    : TTextControl(parent, std::move(name), CommonOptions(options), {.maxLength = dateLength})
{
    Assign(TDateTime().Text());
}

TDateTime TDateEdit::Date() const
{
    const auto day = Trim(text());
    const auto slash = day.find('/');
    const bool yearless = slash != std::string::npos && slash == day.rfind('/');
    return TDateTime::Parse(yearless ? day + "/" + std::to_string(Form().Application().Today().Year()) : day).Date();
}

void TDateEdit::SetDate(TDateTime date) { SetText(date.Text()); }

bool TDateEdit::empty() const { return ReadsBlank(text()); }

std::string TDateEdit::Adjusted(std::string_view text) const
{
    return ReadsBlank(text) ? TDateTime().Text() : TTextControl::Adjusted(text);
}

void TDateEdit::FinishText()
{
    if (empty())
        return;
    const auto date = Date();
    if (date.IsBlank())
        throw std::invalid_argument("\"" + Trim(text()) + "\" não é uma data válida.");
    Assign(date.Text());
}

void TDateEdit::ShowField(const TField& field)
{
    if (Assign(field.AsDateTime().Text()))
        OnChange();
}

void TDateEdit::WriteField(TField& field) { field.Set(TValue(Date())); }

} // namespace alinhavo
