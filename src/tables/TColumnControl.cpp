#include "tables/TColumnControl.h"

#include "forms/TDBCheckBox.h"
#include "forms/TDBDateEdit.h"
#include "forms/TDBEdit.h"
#include "forms/TDBMemo.h"
#include "forms/TDBNumberEdit.h"
#include "forms/TDBRadioGroup.h"
#include "forms/text.h"
#include "tables/TfmTabela.h"

namespace alinhavo {
namespace {

/// A longer text is written over several lines.
constexpr int widestLine = 150;
constexpr int memoLines = 2;

} // namespace

TColumnControl::TColumnControl(TfmTabela& screen, TContainer& place, TOrvTable& row, const TColumnDecl& column)
    : screen_(screen)
    , row_(row)
    , column_(column)
    , pair_(MakePair(place))
    , control_(MakeControl(pair_ ? *pair_ : place))
{
    control_->OnExit.connect(this, &TColumnControl::Exit);
    const auto reference = ReferenceOf(column);
    if (!reference.table)
        return;
    lookup_ = std::make_unique<TPesquisa>(screen, Name("Pq"),
        TPesquisaOptions{.BuscaTabela = reference.table->name, .BuscaCampo = reference.column->name});
    lookup_->Serve(*control_);
    lookup_->OnFechaPesquisa.connect(this, &TColumnControl::Picked);
    if (pair_)
        meaning_ = std::make_unique<TLabel>(*pair_, Name("lbl"));
}

std::unique_ptr<TRow> TColumnControl::MakePair(TContainer& place) const
{
    const auto reference = ReferenceOf(column_);
    const bool hasMeaning = reference.table && !reference.table->description.empty();
    return hasMeaning ? std::make_unique<TRow>(place, Name("linha")) : nullptr;
}

std::string TColumnControl::Name(std::string_view kind) const { return std::string(kind) + std::string(column_.name); }

std::unique_ptr<TFieldControl> TColumnControl::MakeControl(TContainer& place)
{
    const std::string caption(column_.caption);
    if (IsTicked(column_))
        return std::make_unique<TDBCheckBox>(
            place, Name("cb"), row_, column_.name, TCheckBoxOptions{.caption = caption, .readOnly = column_.kept});
    if (!column_.choices.empty())
        return MakeChoice(place);
    switch (column_.kind) {
    case TColumnKind::Integer:
    case TColumnKind::Identity:
    case TColumnKind::Float:
        return std::make_unique<TDBNumberEdit>(
            place, Name("edt"), row_, column_.name, TNumberEditOptions{.caption = caption, .readOnly = column_.kept});
    case TColumnKind::Date:
        return std::make_unique<TDBDateEdit>(
            place, Name("edt"), row_, column_.name, TDateEditOptions{.caption = caption, .readOnly = column_.kept});
    case TColumnKind::DateTime:
    case TColumnKind::Text:
        break;
    }
    return MakeText(place);
}

std::unique_ptr<TFieldControl> TColumnControl::MakeText(TContainer& place)
{
    const std::string caption(column_.caption);
    const auto width = static_cast<std::size_t>(column_.width);
    if (column_.width > widestLine)
        return std::make_unique<TDBMemo>(place, Name("edt"), row_, column_.name,
            TMemoOptions{.caption = caption, .maxLength = width, .lines = memoLines, .readOnly = column_.kept});
    return std::make_unique<TDBEdit>(place, Name("edt"), row_, column_.name,
        TEditOptions{
            .caption = caption, .maxLength = width, .lookup = !column_.refersTo.empty(), .readOnly = column_.kept});
}

std::unique_ptr<TFieldControl> TColumnControl::MakeChoice(TContainer& place)
{
    std::vector<std::string> items;
    std::vector<std::string> values;
    for (const auto& choice : Choices(column_)) {
        items.emplace_back(choice.caption);
        values.emplace_back(choice.value);
    }
    return std::make_unique<TDBRadioGroup>(place, Name("rg"), row_, column_.name,
        TRadioGroupOptions{.caption = std::string(column_.caption),
            .items = std::move(items),
            .values = std::move(values),
            .readOnly = column_.kept});
}

void TColumnControl::ShowMeaning()
{
    if (meaning_)
        meaning_->SetCaption(Replace(screen_.Check().Meaning(column_, Field().Value()), "&", "&&"));
}

void TColumnControl::Exit()
{
    if (!row_.IsEditing() || screen_.GivesUp())
        return;
    Field().Set(screen_.Check().Completed(column_, Field().Value()));
    ShowMeaning();
    const auto refusal = screen_.WhyNot(column_, Field().Value());
    if (!refusal.empty())
        screen_.Recusa(refusal, *control_);
}

void TColumnControl::Picked()
{
    if (!row_.IsEditing())
        return;
    Field().Set(lookup_->RetornoPesquisa(ReferenceOf(column_).column->name));
    ShowMeaning();
}

} // namespace alinhavo
