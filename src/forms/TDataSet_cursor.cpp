#include "forms/TDataSet.h"

#include "forms/TDataSet_guards.h"

#include <algorithm>

namespace alinhavo {

std::size_t TDataSet::RecordCount() const { return View().Count() + (state_ == TDataSetState::Insert ? 1 : 0); }

std::size_t TDataSet::RecNo() const { return IsEmpty() ? 0 : View().Cursor() + 1; }

std::optional<TRowNumber> TDataSet::CurrentRow() const
{
    if (state_ == TDataSetState::Insert)
        return std::nullopt;
    const_cast<TDataSet*>(this)->NeedCurrentRow();
    CatchUpWithMaster();
    return view_.Current();
}

std::optional<TRowNumber> TDataSet::VisibleRow(std::size_t rowIndex) const
{
    const TRowView& view = View();
    if (state_ == TDataSetState::Insert) {
        if (rowIndex == view.Cursor())
            return std::nullopt;
        if (rowIndex > view.Cursor())
            --rowIndex;
    }
    if (rowIndex >= view.Count())
        return std::nullopt;
    return view.Row(rowIndex);
}

void TDataSet::First()
{
    CheckBrowse();
    StandOn(0, TEdge::Bof);
}

void TDataSet::Last()
{
    CheckBrowse();
    StandOn(std::max<std::size_t>(View().Count(), 1) - 1, TEdge::Eof);
}

void TDataSet::MoveBy(std::int64_t rows)
{
    if (IsEmpty())
        return;
    const auto wanted = static_cast<std::int64_t>(View().Cursor()) + rows;
    const auto last = static_cast<std::int64_t>(RecordCount()) - 1;
    const auto edge = wanted < 0 ? TEdge::Bof : wanted > last ? TEdge::Eof : TEdge::None;
    const std::optional<TRowNumber> target
        = VisibleRow(static_cast<std::size_t>(std::clamp<std::int64_t>(wanted, 0, last)));
    CheckBrowse();
    StandOn(target ? View().Seek(*target) : View().Cursor(), edge);
}

void TDataSet::GoToRow(std::size_t rowIndex)
{
    const std::optional<TRowNumber> target = VisibleRow(rowIndex);
    if (!target || target == CurrentRow())
        return;
    CheckBrowse();
    StandOn(View().Seek(*target), TEdge::None);
}

// A row that was to become current may have left the view meanwhile: then the one behind it does, or the last.
void TDataSet::StandOn(std::size_t position, TEdge edge)
{
    const std::size_t last = std::max<std::size_t>(View().Count(), 1) - 1;
    const std::size_t target = std::min(position, last);
    const bool moves = target != View().Cursor();
    if (moves && off_ == 0)
        BeforeScroll();
    view_.SetCursor(target);
    bof_ = edge == TEdge::Bof;
    eof_ = edge == TEdge::Eof;
    if (!moves)
        return;
    Tell({.cursor = true});
    Scrolled();
}

void TDataSet::KeepCursorInside()
{
    const std::size_t count = view_.Count();
    if (state_ == TDataSetState::Insert || count == 0 || view_.Cursor() < count)
        return;
    view_.SetCursor(count - 1);
    eof_ = true;
}

bool TDataSet::Locate(std::string_view fields, const std::vector<TValue>& values)
{
    const std::vector<TCellTest> tests = Tests(fields, values);
    CheckBrowse();
    const std::optional<std::size_t> found = View().FindFirst(tests);
    if (!found)
        return false;
    StandOn(*found, TEdge::None);
    return true;
}

TBookmark TDataSet::Bookmark() const
{
    const std::optional<TRowNumber> row = CurrentRow();
    return row ? TBookmark{*row, rows_->Generation()} : TBookmark{-1, rows_->Generation()};
}

bool TDataSet::GoToBookmark(const TBookmark& bookmark)
{
    CheckBrowse();
    if (bookmark.row < 0 || bookmark.generation != rows_->Generation())
        return false;
    const auto row = static_cast<TRowNumber>(bookmark.row);
    if (!rows_->IsAlive(row))
        return false;
    const std::optional<std::size_t> position = View().Find(row);
    if (!position)
        return false;
    StandOn(*position, TEdge::None);
    return true;
}

void TDataSet::ForEach(const std::function<void()>& action)
{
    CheckBrowse();
    const auto off = DisableControls();
    const std::vector<TRowNumber> rows = View().Shown();
    const std::optional<TRowNumber> current = CurrentRow();
    const std::uint64_t generation = rows_->Generation();
    const bool wasBof = bof_;
    const bool wasEof = eof_;
    const auto goBack = [&] {
        if (!current || generation != rows_->Generation())
            return;
        view_.SetCursor(View().Seek(*current));
        bof_ = wasBof;
        eof_ = wasEof;
        KeepCursorInside();
        Tell({.cursor = true});
    };
    try {
        VisitRows(rows, action);
    } catch (...) {
        DropEdit();
        goBack();
        throw;
    }
    goBack();
}

void TDataSet::VisitRows(const std::vector<TRowNumber>& rows, const std::function<void()>& action)
{
    const std::uint64_t generation = rows_->Generation();
    bof_ = false;
    eof_ = false;
    for (const TRowNumber row : rows) {
        if (generation != rows_->Generation())
            return;
        const std::optional<std::size_t> position = rows_->IsAlive(row) ? View().Find(row) : std::nullopt;
        if (!position)
            continue;
        view_.SetCursor(*position);
        Tell({.cursor = true});
        action();
        CheckBrowse();
    }
}

double TDataSet::Sum(std::string_view field) const
{
    const TField& summed = FieldByName(field);
    const TColumnData& cells = rows_->Data().Column(summed.column_);
    double sum = 0;
    for (const TRowNumber row : View().Shown())
        sum += cells.Float(row);
    if (IsEditing())
        sum += summed.AsFloat() - summed.OldValue().AsFloat();
    return sum;
}

TValue TDataSet::CellValue(std::size_t rowIndex, const TField& field) const
{
    if (IsEditing() && rowIndex == View().Cursor())
        return Cell(field);
    const std::optional<TRowNumber> row = VisibleRow(rowIndex);
    return row ? rows_->Data().Column(field.column_).Value(*row) : TValue();
}

std::string TDataSet::CellText(std::size_t rowIndex, const TField& field) const
{
    return field.DisplayText(CellValue(rowIndex, field));
}

} // namespace alinhavo
