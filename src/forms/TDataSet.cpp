#include "forms/TDataSet.h"

#include "forms/TDataSet_guards.h"
#include "forms/text.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace alinhavo {

namespace {

void CopyTexts(const TColumnData& from, const std::vector<TRowNumber>& rows, TColumnData& to)
{
    const auto limit = static_cast<std::size_t>(to.Size());
    for (const TRowNumber row : rows) {
        const std::string_view text = from.Text(row);
        if (from.IsNull(row))
            to.AppendNull();
        else if (limit == 0 || text.size() <= limit)
            to.AppendText(text);
        else
            to.AppendText(Left(text, limit));
    }
}

void CopyCells(const TColumnData& from, const std::vector<TRowNumber>& rows, TColumnData& to)
{
    if (from.Kind() == TFieldKind::Text && to.Kind() == TFieldKind::Text)
        return CopyTexts(from, rows, to);
    for (const TRowNumber row : rows)
        to.Append(from.Value(row));
}

void AppendNulls(TColumnData& column, std::size_t count)
{
    for (std::size_t row = 0; row < count; ++row)
        column.AppendNull();
}

} // namespace

TDataSet::TDataSet(TComponent& owner, std::string name)
    : TComponent(owner, std::move(name))
    , rows_(std::make_shared<TRows>())
    , view_(*rows_)
{
    rows_->Attach(*this);
}

TDataSet::TDataSet(std::string name)
    : TComponent(std::move(name))
    , rows_(std::make_shared<TRows>())
    , view_(*rows_)
{
    rows_->Attach(*this);
}

TDataSet::~TDataSet()
{
    if (master_)
        std::erase(master_->details_, this);
    for (TDataSet* detail : details_)
        detail->master_ = nullptr;
    rows_->Detach(*this);
}

// ---- Fields

void TDataSet::Register(TField& field)
{
    if (!fieldsByName_.emplace(UpperCase(field.name_), &field).second)
        throw std::logic_error(Name() + " has a field " + field.name_ + " already");
    fields_.push_back(&field);
    Bind(field);
}

void TDataSet::Bind(TField& field)
{
    const int column = rows_->Data().FindColumn(field.name_);
    field.column_
        = column >= 0 ? static_cast<std::size_t>(column) : rows_->AddColumn(field.name_, field.kind_, field.size_);
}

void TDataSet::Unregister(TField& field)
{
    std::erase(fields_, &field);
    fieldsByName_.erase(UpperCase(field.name_));
}

TField* TDataSet::FindField(std::string_view name) const
{
    const auto found = fieldsByName_.find(UpperCase(name));
    return found == fieldsByName_.end() ? nullptr : found->second;
}

TField& TDataSet::FieldByName(std::string_view name) const
{
    TField* field = FindField(name);
    if (!field)
        throw std::out_of_range(Name() + " has no field " + std::string(name));
    return *field;
}

TField& TDataSet::AddField(std::string name, TFieldKind kind, int size, TFieldOptions options)
{
    return *addedFields_.emplace_back(std::make_unique<TField>(*this, std::move(name), kind, size, std::move(options)));
}

void TDataSet::RemoveAddedFields()
{
    DropEdit();
    filter_ = nullptr;
    order_.clear();
    indexes_.clear();
    indexInUse_.clear();
    addedFields_.clear();
    madeFields_.clear();
    TTableData data;
    for (const TField* field : fields_)
        data.AddColumn(field->name_, field->kind_, field->size_);
    rows_->Replace(std::move(data));
}

void TDataSet::BindFields()
{
    std::erase_if(madeFields_, [this](const std::unique_ptr<TField>& field) {
        const int column = rows_->Data().FindColumn(field->name_);
        return column < 0 || rows_->Data().Column(static_cast<std::size_t>(column)).Kind() != field->kind_;
    });
    for (TField* field : fields_)
        Bind(*field);
    if (makesFields_)
        MakeFields();
}

void TDataSet::MakeFields()
{
    const TTableData& data = rows_->Data();
    for (std::size_t index = 0; index < data.ColumnCount(); ++index) {
        const TColumnData& column = data.Column(index);
        if (!FindField(column.Name()))
            madeFields_.push_back(std::make_unique<TField>(*this, column.Name(), column.Kind(), column.Size()));
    }
}

TValue TDataSet::Cell(const TField& field) const
{
    if (standing_)
        return rows_->Data().Column(field.column_).Value(*standing_);
    if (IsEditing()) {
        if (const TValue* written = edit_.Find(field.column_))
            return *written;
    }
    return StoredCell(field);
}

TValue TDataSet::StoredCell(const TField& field) const
{
    const std::optional<TRowNumber> row = CurrentRow();
    return row ? rows_->Data().Column(field.column_).Value(*row) : TValue();
}

bool TDataSet::SetCell(const TField& field, TValue value)
{
    if (!IsEditing())
        throw std::logic_error("field " + field.name_ + " is written in a row that is not in edit");
    if (Cell(field) == value)
        return false;
    edit_.Set(field.column_, std::move(value));
    edit_.modified = true;
    Tell({.row = true});
    return true;
}

// ---- Rows as a whole

void TDataSet::Open() { state_ = TDataSetState::Browse; }

void TDataSet::Close()
{
    DropEdit();
    state_ = TDataSetState::Inactive;
    auto rows = std::make_shared<TRows>();
    rows->Replace(EmptyData());
    AttachTo(std::move(rows));
}

void TDataSet::Adopt(TTableData data, bool makeFields)
{
    DropEdit();
    makesFields_ = makeFields;
    state_ = TDataSetState::Browse;
    rows_->Replace(WithKindsOfFields(std::move(data)));
    Scrolled();
}

void TDataSet::AdoptMore(const TTableData& block)
{
    {
        const THold hold(*this);
        rows_->Append(block);
    }
    TellNow();
}

void TDataSet::EmptyTable()
{
    DropEdit();
    rows_->Clear();
    Scrolled();
}

TTableData TDataSet::EmptyData() const
{
    TTableData data;
    for (std::size_t index = 0; index < rows_->Data().ColumnCount(); ++index) {
        const TColumnData& column = rows_->Data().Column(index);
        data.AddColumn(column.Name(), column.Kind(), column.Size());
    }
    return data;
}

TTableData TDataSet::Fitted(TDataSet& source) const
{
    source.CheckBrowse();
    const std::vector<TRowNumber>& rows = source.View().Shown();
    TTableData data = EmptyData();
    data.Reserve(rows.size());
    for (std::size_t index = 0; index < data.ColumnCount(); ++index) {
        TColumnData& column = data.Column(index);
        if (const TField* field = source.FindField(column.Name()))
            CopyCells(source.rows_->Data().Column(field->column_), rows, column);
        else
            AppendNulls(column, rows.size());
    }
    return data;
}

TTableData TDataSet::WithKindsOfFields(TTableData data) const
{
    const auto kindOf = [&](const TColumnData& column) {
        const TField* field = FindField(column.Name());
        const bool isMade = std::ranges::any_of(madeFields_, [field](const auto& made) { return made.get() == field; });
        return field && !isMade ? field->kind_ : column.Kind();
    };
    TTableData fitted;
    bool fits = true;
    for (std::size_t index = 0; index < data.ColumnCount(); ++index) {
        const TColumnData& column = data.Column(index);
        fitted.AddColumn(column.Name(), kindOf(column), column.Size());
        fits = fits && kindOf(column) == column.Kind();
    }
    if (fits)
        return data;
    for (std::size_t row = 0; row < data.RowCount(); ++row) {
        for (std::size_t index = 0; index < data.ColumnCount(); ++index)
            fitted.Column(index).Append(data.Column(index).Value(row));
    }
    return fitted;
}

void TDataSet::ShareRowsOf(TDataSet& source)
{
    DropEdit();
    makesFields_ = true;
    state_ = TDataSetState::Browse;
    AttachTo(source.rows_);
    for (const auto& field : madeFields_) {
        if (const TField* original = source.FindField(field->name_))
            field->options = original->options;
    }
}

void TDataSet::AttachTo(std::shared_ptr<TRows> rows)
{
    rows_->Detach(*this);
    rows_ = std::move(rows);
    rows_->Attach(*this);
    view_ = TRowView(*rows_);
    RowsReplaced();
}

std::size_t TDataSet::Bytes() const { return rows_->Bytes() + view_.Bytes(); }

// ---- Notices

void TDataSet::AddListener(IDataSetListener& listener)
{
    listeners_.push_back(&listener);
    ListenerAdded();
}

TDataSet::TControlsOff::TControlsOff(TDataSet& dataset)
    : dataset_(dataset)
    , before_(dataset.Bookmark())
    , exceptions_(std::uncaught_exceptions())
{
    ++dataset_.off_;
}

TDataSet::TControlsOff::~TControlsOff() noexcept(false)
{
    if (--dataset_.off_ > 0)
        return;
    dataset_.TellNow();
    const bool isUnwinding = std::uncaught_exceptions() > exceptions_;
    if (!isUnwinding && dataset_.Bookmark() != before_)
        dataset_.Scrolled();
}

void TDataSet::Tell(TNotices notices)
{
    untold_.rows = untold_.rows || notices.rows;
    untold_.cursor = untold_.cursor || notices.cursor;
    untold_.row = untold_.row || notices.row;
    for (TDataSet* detail : details_)
        detail->linkIsStale_ = true;
    if (off_ == 0)
        TellNow();
}

void TDataSet::TellNow()
{
    if (off_ > 0)
        return;
    const TNotices notices = std::exchange(untold_, {});
    for (IDataSetListener* listener : std::vector(listeners_)) {
        if (notices.rows)
            listener->DataSetRowsChanged();
        if (notices.cursor)
            listener->DataSetCursorChanged();
        if (notices.row)
            listener->DataSetRowChanged();
    }
    for (TDataSet* detail : details_)
        detail->MasterMoved();
}

void TDataSet::Scrolled()
{
    if (off_ > 0)
        return;
    AfterScroll();
    for (TDataSet* detail : std::vector(details_))
        detail->Scrolled();
}

void TDataSet::RowAdded(TRowNumber row)
{
    if (Accepts(row))
        view_.Add(row);
    Tell({.rows = true});
}

void TDataSet::RowChanging(TRowNumber row) { changing_ = view_.Find(row); }

void TDataSet::RowChanged(TRowNumber row)
{
    const std::optional<std::size_t> position = std::exchange(changing_, std::nullopt);
    const bool isAccepted = Accepts(row);
    if (position && isAccepted)
        view_.Replace(*position);
    else if (position)
        HideRow(*position);
    else if (isAccepted)
        view_.Add(row);
    Tell({.rows = true, .cursor = true});
}

void TDataSet::RowRemoving(TRowNumber row)
{
    const std::optional<std::size_t> position = view_.Find(row);
    if (!position)
        return;
    HideRow(*position);
    Tell({.rows = true, .cursor = true});
}

void TDataSet::HideRow(std::size_t position)
{
    if (state_ == TDataSetState::Edit && position == view_.Cursor())
        DropEdit();
    view_.Remove(position);
    KeepCursorInside();
}

void TDataSet::RowsReplaced()
{
    DropEdit();
    BindFields();
    DropLostKeys();
    view_.SetKeys(Columns(order_));
    linkTests_ = LinkTests();
    view_.FillFromStart([this](TRowNumber row) { return Accepts(row); });
    bof_ = true;
    eof_ = false;
    Tell({.rows = true, .cursor = true});
}

} // namespace alinhavo
