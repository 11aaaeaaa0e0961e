#include "forms/TDialog.h"

#include "forms/TDataSet.h"
#include "forms/TDateTime.h"
#include "forms/text.h"
#include "forms/TUserEvent.h"

#include <algorithm>

namespace alinhavo {

bool TDialog::Offers(TModalResult answer) const
{
    using enum TModalResult;
    if (kind != TKind::Message)
        return answer == Ok || answer == Cancel;
    switch (buttons) {
    case TButtons::Ok:
        return answer == Ok;
    case TButtons::OkCancel:
        return answer == Ok || answer == Cancel;
    case TButtons::YesNo:
        return answer == Yes || answer == No;
    case TButtons::YesNoCancel:
        return answer == Yes || answer == No || answer == Cancel;
    }
    return false;
}

TModalResult TDialog::EscAnswer() const
{
    using enum TModalResult;
    for (const auto answer : {Cancel, No})
        if (Offers(answer))
            return answer;
    return Ok;
}

std::string TDialog::Answer(const TUserEvent& event)
{
    if (!Offers(event.answer))
        return "A pergunta \"" + title + "\" não oferece essa resposta.";
    if (event.answer == TModalResult::Ok) {
        const auto refusal = kind == TKind::Lookup ? TakeRows(event) : TakeValue(event);
        if (!refusal.empty())
            return refusal;
    }
    result = event.answer;
    return {};
}

std::string TDialog::TakeRows(const TUserEvent& event)
{
    if (event.rows.empty() || (event.rows.size() > 1 && !multiple))
        return multiple ? "Escolha ao menos uma linha." : "Escolha uma linha.";
    if (!HasRows(event.rows))
        return "A pesquisa não tem essa linha.";
    picked = event.rows;
    return {};
}

bool TDialog::HasRows(const std::vector<std::int64_t>& wanted) const
{
    const auto count = rows ? static_cast<std::int64_t>(rows->RecordCount()) : 0;
    return std::ranges::all_of(wanted, [count](std::int64_t row) { return row >= 0 && row < count; });
}

std::string TDialog::Search(const TUserEvent& event)
{
    if (!ValidUtf8(event.text))
        return "O texto não é válido.";
    if (!event.rows.empty() && !keepsPicks)
        return "A pesquisa não guarda as linhas escolhidas.";
    if (!HasRows(event.rows))
        return "A pesquisa não tem essa linha.";
    picked = event.rows;
    OnSearch(event.text);
    return {};
}

std::string TDialog::TakeValue(const TUserEvent& event)
{
    if (kind == TKind::Message || kind == TKind::Picture || kind == TKind::Report)
        return {};
    if (!ValidUtf8(event.text) || !ValidUtf8(event.password))
        return "O texto não é válido.";
    if (kind == TKind::Date && !IsBlankDate(event.text) && TDateTime::Parse(event.text).IsBlank())
        return "\"" + event.text + "\" não é uma data válida.";
    value = event.text;
    password = event.password;
    return {};
}

bool TDialog::IsBlankDate(std::string_view text) { return text.find_first_not_of(" /") == std::string_view::npos; }

} // namespace alinhavo
