#include "forms/text.h"
#include "forms/TGrid.h"
#include "forms/TPopupMenu.h"
#include "forms/TUserEvent.h"

#include <algorithm>
#include <array>

namespace alinhavo {

// The current cell

void TGrid::GoToColumn(int column)
{
    const int left = CurrentIndex();
    if (column == left)
        return;
    CommitInput();
    OnColExit();
    if (column_ != left)
        return;
    column_ = column;
    Changed();
    OnColEnter();
}

void TGrid::GoToCell(std::int64_t row, int column)
{
    CommitInput();
    if (row == static_cast<std::int64_t>(RowCount()))
        dataset_->Append();
    else if (row != CurrentRow())
        GoToPlace(static_cast<std::size_t>(row));
    GoToColumn(column);
}

/// The row of the cell is in edit afterwards; an empty grid gets its first row.
void TGrid::BeginEdit()
{
    if (HasRows())
        dataset_->Edit();
    else
        dataset_->Append();
}

void TGrid::CommitInput()
{
    if (!editing_)
        return;
    auto* const field = FieldOf(CurrentIndex());
    if (!field)
        return CancelEditor();
    field->SetTyped(editorText_);
    CancelEditor();
    OnCellEdit();
}

void TGrid::CancelEditor()
{
    editing_ = false;
    editorText_.clear();
    Changed();
}

void TGrid::SetTick(bool checked)
{
    auto* const field = FieldOf(CurrentIndex());
    BeginEdit();
    field->Set(checked ? "S" : "N");
    OnCellEdit();
}

void TGrid::Exit()
{
    CommitInput();
    if (onExit_ == TGridExit::PostsRow && !ReadOnly() && dataset_)
        dataset_->CheckBrowse();
    OnExit();
}

bool TGrid::AtLastRow() const { return CurrentRow() + 1 == static_cast<std::int64_t>(RowCount()); }

bool TGrid::IsUntouchedNewRow() const { return dataset_->State() == TDataSetState::Insert && !dataset_->Modified(); }

bool TGrid::MayInsert() const
{
    return dataset_ && dataset_->Active() && dataset_->CanInsert && !dataset_->ReadOnly && !ReadOnly();
}

// What a person does

std::string TGrid::Perform(const TUserEvent& event)
{
    using enum TUserEvent::TKind;
    switch (event.kind) {
    case GridCell:
    case GridDouble:
        return PerformCell(event);
    case GridText:
        return PerformText(event);
    case GridTick:
        return PerformTick(event);
    case GridTitle:
        return PerformTitle(event);
    case GridPaste:
        return PerformPaste(event);
    default:
        return TControl::Perform(event);
    }
}

std::string TGrid::WhyNoCell(const TUserEvent& event) const
{
    const auto rows = static_cast<std::int64_t>(RowCount());
    const bool fresh = event.kind == TUserEvent::TKind::GridCell && event.row == rows && MayInsert();
    if (event.row < 0 || (event.row >= rows && !fresh))
        return Named("não tem a linha " + std::to_string(event.row + 1));
    const int column = event.column.empty() ? CurrentIndex() : IndexOf(event.column);
    if (column < 0 || !columns_[column].visible)
        return Named("não tem a coluna " + event.column);
    return {};
}

std::string TGrid::WhyNotEditable(int column) const
{
    if (!dataset_ || !dataset_->Active() || column < 0)
        return Named("não tem linhas");
    if (!Editable(column))
        return "A coluna " + TitleOf(columns_[column]) + " de " + Name() + " é somente leitura.";
    if (!HasRows() && !MayInsert())
        return Named("não tem linhas");
    return {};
}

std::string TGrid::PerformCell(const TUserEvent& event)
{
    auto refusal = WhyNoCell(event);
    if (!refusal.empty())
        return refusal;
    if (!TakeFocus() || !WhyNoCell(event).empty())
        return {};
    GoToCell(event.row, event.column.empty() ? CurrentIndex() : IndexOf(event.column));
    if (event.kind == TUserEvent::TKind::GridDouble)
        OnDoubleClick();
    return {};
}

std::string TGrid::PerformText(const TUserEvent& event)
{
    if (!ValidUtf8(event.text))
        return "O texto não é válido.";
    auto refusal = WhyNotEditable(CurrentIndex());
    if (!refusal.empty())
        return refusal;
    if (!TakeFocus() || !WhyNotEditable(CurrentIndex()).empty())
        return {};
    BeginEdit();
    const auto* field = FieldOf(CurrentIndex());
    const auto size = field->Kind() == TFieldKind::Text ? static_cast<std::size_t>(field->Size()) : 0;
    editorText_ = size == 0 ? event.text : Left(event.text, size);
    editing_ = true;
    Changed();
    return {};
}

std::string TGrid::PerformTick(const TUserEvent& event)
{
    auto refusal = WhyNoCell(event);
    const int column = event.column.empty() ? CurrentIndex() : IndexOf(event.column);
    if (refusal.empty())
        refusal = WhyNotEditable(column);
    if (refusal.empty() && !columns_[column].tick)
        refusal = "A coluna " + TitleOf(columns_[column]) + " de " + Name() + " não é de marcar.";
    if (!refusal.empty())
        return refusal;
    if (!TakeFocus() || !WhyNoCell(event).empty())
        return {};
    GoToCell(event.row, column);
    if (CurrentIndex() == column && WhyNotEditable(column).empty())
        SetTick(event.flag);
    return {};
}

std::string TGrid::PerformTitle(const TUserEvent& event)
{
    const int column = IndexOf(event.column);
    if (column < 0 || !columns_[column].visible)
        return Named("não tem a coluna " + event.column);
    if (!TakeFocus())
        return {};
    CommitInput();
    const std::string field = columns_[column].field;
    if (SortsByTitle())
        SortByTitle(field);
    else
        OnTitleClick(field);
    return {};
}

std::string TGrid::PerformPaste(const TUserEvent& event)
{
    if (!OnPaste.connected())
        return Named("não recebe linhas coladas");
    if (!ValidUtf8(event.text))
        return "O texto não é válido.";
    if (!TakeFocus())
        return {};
    CommitInput();
    OnPaste(PastedRows(event.text));
    return {};
}

/// Upwards, downwards, and then as the screen has them.
void TGrid::SortByTitle(std::string_view field)
{
    const bool sorted = SameText(order_.Field(), field);
    if (sorted && order_.Direction() == TDirection::Descending)
        SortRows({}, TDirection::Ascending);
    else
        SortRows(field, sorted ? TDirection::Descending : TDirection::Ascending);
}

std::string TGrid::PerformOpenMenu(const TUserEvent& event)
{
    if (!PopupMenu())
        return Named("não tem menu");
    if (event.row < 0 && event.column.empty())
        return TControl::PerformOpenMenu(event);
    auto refusal = event.row < 0 ? std::string() : WhyNoCell(event);
    const int column = event.column.empty() ? CurrentIndex() : IndexOf(event.column);
    if (refusal.empty() && (column < 0 || !columns_[column].visible))
        refusal = Named("não tem a coluna " + event.column);
    if (!refusal.empty())
        return refusal;
    if (!TakeFocus())
        return {};
    CommitInput();
    if (event.row >= 0 && event.row < static_cast<std::int64_t>(RowCount()))
        GoToCell(event.row, column);
    else
        GoToColumn(column);
    MenuOpens();
    return {};
}

void TGrid::MenuOpens()
{
    const std::string field = Column();
    OnPopup(field);
    TControl::MenuOpens();
}

// Keys

bool TGrid::CommitsOn(const TKey& key) const
{
    static constexpr std::array<std::string_view, 7> leaving{"Enter", "Tab", "Up", "Down", "PgUp", "PgDn", "Ins"};
    return key.ctrl || std::ranges::find(leaving, key.name) != leaving.end() || TControl::CommitsOn(key);
}

bool TGrid::KeyEffect(const TKey& key)
{
    if (key.alt || !dataset_ || !dataset_->Active())
        return false;
    if (key.ctrl)
        return (key.name == "Home" || key.name == "End") && PageKey(key);
    if (key.name == "Enter")
        return EnterKey();
    if (key.name == "Tab")
        return TabKey(!key.shift);
    if (key.name == "Down")
        return DownKey();
    if (key.name == "Up")
        return UpKey();
    if (key.name == "Esc")
        return EscKey();
    if (key.name == "Ins")
        return InsertKey();
    if (key.name == "Space")
        return SpaceKey();
    if (key.name == "Left" || key.name == "Right")
        return SideKey(key.name == "Left" ? -1 : 1);
    if (key.name == "PgUp" || key.name == "PgDn")
        return PageKey(key);
    return false;
}

bool TGrid::EnterKey()
{
    if (!HasRows())
        return false;
    if (!AtLastRow())
        Step(1);
    else if (!ReadOnly())
        dataset_->CheckBrowse();
    return true;
}

/// Behind the last cell a person goes on in a new row where there may be one, else to the next control.
bool TGrid::TabKey(bool forward)
{
    const int step = forward ? 1 : -1;
    const int first = NextColumn(forward ? -1 : static_cast<int>(Columns().size()), step, true);
    if (first < 0 || !HasRows())
        return false;
    if (const int next = NextColumn(CurrentIndex(), step, true); next >= 0) {
        GoToColumn(next);
        return true;
    }
    if (forward ? !AtLastRow() : CurrentRow() > 0)
        Step(step);
    else if (forward && MayInsert() && !IsUntouchedNewRow())
        dataset_->Append();
    else
        return false;
    GoToColumn(first);
    return true;
}

bool TGrid::DownKey()
{
    if (HasRows() && !AtLastRow())
        Step(1);
    else if (MayInsert() && !IsUntouchedNewRow())
        dataset_->Append();
    return true;
}

bool TGrid::UpKey()
{
    Step(-1);
    return true;
}

bool TGrid::EscKey()
{
    if (editing_) {
        CancelEditor();
        return true;
    }
    if (ReadOnly() || !dataset_->IsEditing())
        return false;
    dataset_->Cancel();
    return true;
}

bool TGrid::InsertKey()
{
    if (!MayInsert())
        return false;
    dataset_->Insert();
    return true;
}

bool TGrid::SpaceKey()
{
    const int column = CurrentIndex();
    if (column < 0 || !columns_[column].tick)
        return false;
    if (HasRows() && Editable(column))
        SetTick(FieldOf(column)->AsString() != "S");
    return true;
}

bool TGrid::SideKey(int step)
{
    if (editing_)
        return false;
    if (const int next = NextColumn(CurrentIndex(), step, false); next >= 0)
        GoToColumn(next);
    return true;
}

bool TGrid::PageKey(const TKey& key)
{
    if (!HasRows())
        return true;
    if (key.name == "Home")
        Step(-static_cast<std::int64_t>(RowCount()));
    else if (key.name == "End")
        Step(static_cast<std::int64_t>(RowCount()));
    else
        Step(key.name == "PgUp" ? -lines_ : lines_);
    return true;
}

/// Among the rows as they stand on the screen, not beyond the first and the last one.
void TGrid::Step(std::int64_t rows)
{
    if (order_.Field().empty() || !HasRows())
        return dataset_->MoveBy(rows);
    const auto last = static_cast<std::int64_t>(RowCount()) - 1;
    const auto place = std::clamp<std::int64_t>(CurrentRow() + rows, 0, last);
    if (place == CurrentRow())
        dataset_->CheckBrowse();
    else
        GoToPlace(static_cast<std::size_t>(place));
}

void TGrid::GoToPlace(std::size_t place) { dataset_->GoToRow(DataRow(place)); }

} // namespace alinhavo
