#include "forms/TDataSet.h"

#include "forms/TDataSet_guards.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {

namespace {

/// True while it lives.
class TFlagged {
public:
    explicit TFlagged(bool& flag)
        : flag_(flag)
    {
        flag_ = true;
    }
    ~TFlagged() { flag_ = false; }
    TFlagged(const TFlagged&) = delete;
    TFlagged& operator=(const TFlagged&) = delete;

private:
    bool& flag_;
};

/// The edit is over at the end of the block, however it is left.
class TEditEnd {
public:
    explicit TEditEnd(TRowEdit& edit)
        : edit_(edit)
    {
    }
    ~TEditEnd() { edit_.Clear(); }
    TEditEnd(const TEditEnd&) = delete;
    TEditEnd& operator=(const TEditEnd&) = delete;

private:
    TRowEdit& edit_;
};

} // namespace

void TDataSet::CheckBrowse()
{
    for (TDataSet* detail : std::vector(details_))
        detail->CheckBrowse();
    while (IsEditing()) {
        if (posting_)
            throw std::logic_error("the row of " + Name() + " is left while it is being posted");
        if (Modified())
            Post();
        else
            Cancel();
    }
}

void TDataSet::Edit()
{
    if (IsEditing())
        return;
    if (!Active())
        throw std::logic_error(Name() + " is closed");
    if (!CurrentRow())
        return Append();
    BeforeEdit();
    state_ = TDataSetState::Edit;
    Tell({.cursor = true});
}

void TDataSet::Append()
{
    CheckBrowse();
    BeforeInsert();
    BeginInsert(View().Count());
}

void TDataSet::Insert()
{
    CheckBrowse();
    BeforeInsert();
    BeginInsert(View().Cursor());
}

void TDataSet::BeginInsert(std::size_t position)
{
    if (!Active())
        throw std::logic_error(Name() + " is closed");
    if (off_ == 0)
        BeforeScroll();
    view_.SetCursor(position);
    state_ = TDataSetState::Insert;
    bof_ = false;
    eof_ = false;
    FillLinkedFields();
    Tell({.rows = true, .cursor = true});
    try {
        OnNewRecord();
    } catch (...) {
        DropEdit();
        Tell({.rows = true, .cursor = true});
        throw;
    }
    edit_.modified = false;
    Scrolled();
}

void TDataSet::FillLinkedFields()
{
    if (!linkTests_)
        return;
    for (const TCellTest& link : *linkTests_)
        edit_.Set(link.column, link.value);
}

void TDataSet::Post()
{
    if (!IsEditing() || posting_)
        return;
    {
        const TFlagged posting(posting_);
        BeforePost();
        if (!IsEditing())
            return;
        WriteRow();
    }
    const bool isShown = StoreRow();
    Tell({.rows = true, .cursor = true});
    AfterPost();
    if (!isShown)
        Scrolled();
}

/// False when the filter hides the row.
bool TDataSet::StoreRow()
{
    const THold hold(*this);
    const TEditEnd editEnd(edit_);
    const std::optional<TRowNumber> row = CurrentRow();
    state_ = TDataSetState::Browse;
    if (row) {
        rows_->Change(*row, edit_);
        return CurrentRow() == row;
    }
    const std::size_t count = view_.Count();
    if (view_.IsKeyed() || view_.Cursor() == count) {
        rows_->Append(edit_);
    } else {
        const std::size_t next = view_.Cursor();
        const auto previous = next > 0 ? std::optional(view_.Row(next - 1)) : std::nullopt;
        rows_->Insert(edit_, previous, view_.Row(next));
    }
    const bool isShown = view_.Count() > count;
    if (isShown)
        view_.SetCursorOnLastAdded();
    else
        KeepCursorInside();
    return isShown;
}

void TDataSet::Cancel()
{
    if (!IsEditing() || posting_)
        return;
    const bool wasInsert = state_ == TDataSetState::Insert;
    DropEdit();
    Tell({.rows = wasInsert, .cursor = true, .row = true});
    AfterCancel();
    if (wasInsert)
        Scrolled();
}

void TDataSet::DropEdit()
{
    edit_.Clear();
    if (!IsEditing())
        return;
    state_ = TDataSetState::Browse;
    KeepCursorInside();
}

void TDataSet::Delete()
{
    if (state_ == TDataSetState::Insert)
        return Cancel();
    for (TDataSet* detail : std::vector(details_))
        detail->CheckBrowse();
    if (!CurrentRow())
        throw std::logic_error(Name() + " has no row to delete");
    BeforeDelete();
    DropEdit();
    EraseRow();
    {
        const THold hold(*this);
        if (const std::optional<TRowNumber> row = CurrentRow())
            rows_->Remove(*row);
    }
    Tell({.rows = true, .cursor = true});
    AfterDelete();
    Scrolled();
}

} // namespace alinhavo
