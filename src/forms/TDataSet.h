#pragma once

#include "forms/TComponent.h"
#include "forms/TField.h"
#include "forms/TRowEdit.h"
#include "forms/TRows.h"
#include "forms/TRowView.h"
#include "forms/TSortKey.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace alinhavo {

enum class TDataSetState { Inactive, Browse, Edit, Insert };

/// A row, wherever sorting and filtering put it. Lost when the row is deleted or the data is replaced.
struct TBookmark {
    std::int64_t row = -1; ///< -1: there was no stored row
    std::uint64_t generation = 0;

    friend bool operator==(const TBookmark&, const TBookmark&) = default;
};

/// What a grid or a data-bound control needs to hear. Several listen to one dataset. A notice comes once for each
/// operation, after it and before the events that follow on it. Listeners neither throw nor change the dataset.
class IDataSetListener {
public:
    virtual ~IDataSetListener() = default;
    /// Rows, their order, the filter or the data as a whole are others; after a query has run, the fields may be too.
    virtual void DataSetRowsChanged() = 0;
    /// The cursor moved, or the current row's state changed.
    virtual void DataSetCursorChanged() = 0;
    /// Cells of the current row changed.
    virtual void DataSetRowChanged() = 0;
};

/// Rows with a cursor, edit states and events. The base of memory tables, queries and tables of the database.
///
/// The visible rows (those that pass the filter, in the order of the index, with the new row that is being inserted)
/// are counted from 0. The row being edited keeps its stored values until Post.
///
/// Leaving the row that is being edited posts it when it was modified; otherwise the edit, and with it an untouched new
/// row, is dropped. It is left by every move of the cursor, by Append and Insert, by a change of order or filter and when
/// a master's cursor moves. An exception of BeforePost keeps the row in edit, and the move does not happen.
///
/// The events of an operation come in this order:
///
///     Append, Insert   the row before is left, BeforeInsert, BeforeScroll, OnNewRecord, AfterScroll
///     Edit             BeforeEdit
///     Post             BeforePost, (the row is stored), AfterPost; AfterScroll when the filter then hides the row
///     Cancel           AfterCancel; AfterScroll when a new row is dropped
///     Delete           BeforeDelete, (the row goes), AfterDelete, AfterScroll
///     a move           the row before is left, BeforeScroll, AfterScroll; neither when the cursor stays on its row
///     filter, order    AfterScroll when another row is current
///     opening, loading AfterScroll
class TDataSet : public TComponent, private IRowsObserver {
public:
    TDataSet(TComponent& owner, std::string name);
    explicit TDataSet(std::string name = {});
    ~TDataSet() override;

    // Fields. Members of a derived type register themselves; a rule may add others, which are null in the rows there are.
    const std::vector<TField*>& Fields() const { return fields_; }
    TField* FindField(std::string_view name) const;
    TField& FieldByName(std::string_view name) const; ///< std::out_of_range with the name when there is none
    /// std::logic_error when the name is taken.
    TField& AddField(std::string name, TFieldKind kind, int size = 0, TFieldOptions options = {});
    /// Removes the fields that are no members of the type, and with them all rows, the filter and the indexes.
    void RemoveAddedFields();

    bool Active() const { return state_ != TDataSetState::Inactive; }
    TDataSetState State() const { return state_; }
    bool IsEditing() const { return state_ == TDataSetState::Edit || state_ == TDataSetState::Insert; }
    /// The row in edit was written to since its edit began, by more than the defaults of a new row.
    bool Modified() const { return edit_.modified; }
    /// Drops an edit and lets go of the rows. Clones keep them.
    virtual void Close();

    // Cursor
    bool IsEmpty() const { return RecordCount() == 0; }
    /// The last move wanted to go before the first row, or went to First; also when empty.
    bool Bof() const { return bof_ || IsEmpty(); }
    /// The last move wanted to go behind the last row, or went to Last; a deleted last row leaves it so; also when empty.
    bool Eof() const { return eof_ || IsEmpty(); }
    std::size_t RecordCount() const; ///< visible rows
    /// Of the current row, from 1; 0 when empty.
    std::size_t RecNo() const;
    void First();
    void Last();
    /// Next, Prior and MoveBy go to the row that stands there before the row in edit is posted.
    void Next() { MoveBy(1); }
    void Prior() { MoveBy(-1); }
    void MoveBy(std::int64_t rows);
    void GoToRow(std::size_t rowIndex); ///< beyond the last row nothing happens

    // Editing
    void Edit(); ///< nothing while editing; on an empty dataset a row is inserted
    void Append(); ///< at the end of the view; where an order is kept, it finds its place when posted
    void Insert(); ///< before the current row
    void Post(); ///< nothing while browsing
    void Cancel();
    /// Of the current row, std::logic_error when there is none; an appended, unposted one is dropped.
    void Delete();
    void EmptyTable(); ///< all rows, hidden ones too, without events per row
    /// Leaves the row that is being edited, as a move does.
    void CheckBrowse();

    TEvent<> BeforeInsert; ///< EAbort refuses the new row
    TEvent<> OnNewRecord; ///< defaults; leaves the row unmodified
    TEvent<> BeforeEdit;
    TEvent<> BeforePost; ///< EAbort keeps the row in edit
    TEvent<> AfterPost;
    TEvent<> BeforeDelete;
    TEvent<> AfterDelete;
    TEvent<> AfterCancel;
    TEvent<> BeforeScroll;
    TEvent<> AfterScroll;

    // Filter: the predicate reads the fields, which stand on the row in question while it runs. The cursor stays on its
    // row, or goes to the next visible one.
    void SetFilter(std::function<bool()> accepts);
    void FilterBy(std::string_view field, const TValue& value);
    void ClearFilter() { SetFilter(nullptr); }
    bool Filtered() const { return static_cast<bool>(filter_); }

    // Order. Kept up while rows change; rows with equal keys stand in the order of arrival. The cursor stays on its row.
    void SortBy(std::string_view fields); ///< as SortKeys; "" returns to the order of arrival
    void AddIndex(std::string name, std::vector<TSortKey> keys);
    /// "" returns to the order of arrival; std::out_of_range when there is no such index.
    void UseIndex(std::string_view name);
    void DeleteIndex(std::string_view name); ///< the one in use: back to the order of arrival
    const std::vector<TSortKey>& Order() const { return order_; }

    /// Leaves the row in edit, then moves to the first visible row whose fields ("CODIGO;COR;TAM") equal the values; false
    /// and no move when none. Fast on the leading fields of the order, a scan on others.
    virtual bool Locate(std::string_view fields, const std::vector<TValue>& values);

    TBookmark Bookmark() const;
    bool GoToBookmark(const TBookmark& bookmark); ///< false when the row is gone or not visible

    /// Runs over the rows that are visible at its beginning, from first to last; the cursor returns to its row. Rows may be
    /// edited, deleted and added in it; an edited row is posted before the next. No screen update and no scroll event per
    /// row. When an exception passes, the edit of its row is dropped and the cursor returns all the same.
    void ForEach(const std::function<void()>& action);
    double Sum(std::string_view field) const; ///< over the visible rows

    /// The screen and the scroll events hear nothing while this lives; at its end what is bound is refreshed once, and
    /// AfterScroll runs when another row is current than at its beginning (unless an exception is passing).
    class TControlsOff {
    public:
        explicit TControlsOff(TDataSet& dataset);
        ~TControlsOff() noexcept(false);
        TControlsOff(const TControlsOff&) = delete;
        TControlsOff& operator=(const TControlsOff&) = delete;

    private:
        TDataSet& dataset_;
        TBookmark before_;
        int exceptions_;
    };
    [[nodiscard]] TControlsOff DisableControls() { return TControlsOff(*this); }

    // For grids and the scripted user: cells of any visible row, without moving the cursor.
    TValue CellValue(std::size_t rowIndex, const TField& field) const; ///< null beyond the last row
    std::string CellText(std::size_t rowIndex, const TField& field) const;

    /// The visible rows in the order of a field, each by its present index; equal ones stand as they do now, a new row that is being
    /// inserted comes last. Nothing changes.
    std::vector<std::size_t> Sorted(std::string_view field, TDirection direction) const;
    /// What bookmarks know the visible rows by; -1 for a new row that is being inserted.
    std::vector<std::int64_t> RowNumbers() const;

    void AddListener(IDataSetListener& listener);
    void RemoveListener(IDataSetListener& listener) { std::erase(listeners_, &listener); }

    int Tag = 0;
    bool ReadOnly = false; ///< refuses every change by a person
    bool CanInsert = true; ///< a person may add a row in a grid
    bool CanDelete = true;

    /// Memory of the cells, texts included.
    std::size_t Bytes() const;

protected:
    void Open(); ///< in Browse, with the rows that there are
    /// Takes over rows fetched elsewhere; fields are bound to columns by name, and fields are made for the other columns
    /// when `makeFields`. Filter and order stay. Opens in Browse on the first row. Clones show the new rows too.
    void Adopt(TTableData data, bool makeFields);
    /// Adds the rows behind those present. The columns must be those of an EmptyData().
    void AdoptMore(const TTableData& block);
    /// The columns of this dataset, without rows.
    TTableData EmptyData() const;
    /// The visible rows of the source under the columns of this dataset, matched by field name.
    TTableData Fitted(TDataSet& source) const;
    /// Shares another dataset's rows with a cursor, filter and order of its own.
    void ShareRowsOf(TDataSet& source);
    /// Shows only the rows whose `fields` equal the master's current `masterFields`, as its cursor moves; a new row takes
    /// their values.
    void FollowMaster(TDataSet& master, std::string_view masterFields, std::string_view fields);
    void LeaveMaster();

    /// Called inside Post (after BeforePost, before the row is stored) and Delete: tables write through here, and an
    /// exception leaves the row as it is. State() is still Edit or Insert, and OldValue() of the fields as stored.
    virtual void WriteRow() { }
    virtual void EraseRow() { }

    // A dataset that fetches its rows only when they are asked for does so in these, by Adopt; what asked goes on with the
    // rows that are then there. They are called often, and also while the dataset is closed.
    virtual void NeedAllRows() { }
    virtual void NeedCurrentRow() { } ///< only the row that is current; there may be others to fetch
    virtual void ListenerAdded() { }
    bool HasListeners() const { return !listeners_.empty(); }

private:
    friend class TField;

    enum class TEdge { None, Bof, Eof };
    struct TNotices {
        bool rows = false;
        bool cursor = false;
        bool row = false;
    };
    struct TLink {
        std::string masterField;
        std::string field;
    };
    class THold;
    class TStanding;

    // Fields
    void Register(TField& field);
    void Unregister(TField& field);
    /// To its column, which is added when there is none.
    void Bind(TField& field);
    void BindFields();
    void MakeFields();
    TTableData WithKindsOfFields(TTableData data) const;
    TValue Cell(const TField& field) const;
    TValue StoredCell(const TField& field) const;
    bool SetCell(const TField& field, TValue value);

    // Cursor
    std::optional<TRowNumber> CurrentRow() const;
    std::optional<TRowNumber> VisibleRow(std::size_t rowIndex) const;
    void StandOn(std::size_t position, TEdge edge);
    void KeepCursorInside();
    void Scrolled();

    // Editing
    void BeginInsert(std::size_t position);
    void FillLinkedFields();
    bool StoreRow();
    void DropEdit();
    void VisitRows(const std::vector<TRowNumber>& rows, const std::function<void()>& action);

    // View
    /// Asks for all rows and follows the master first.
    TRowView& View() const;
    void CatchUpWithMaster() const;
    bool Accepts(TRowNumber row) const;
    void Refill();
    void HideRow(std::size_t position);
    void UseKeys(std::vector<TSortKey> keys);
    std::vector<TRowView::TKey> Columns(const std::vector<TSortKey>& keys) const;
    void DropLostKeys();
    std::vector<TCellTest> Tests(std::string_view fields, const std::vector<TValue>& values) const;
    void ChangeView(const std::function<void()>& change);
    void AttachTo(std::shared_ptr<TRows> rows);

    // Master and details
    using TLinkTests = std::optional<std::vector<TCellTest>>; ///< nothing while the master is empty
    TLinkTests LinkTests() const;
    void Relink() const;
    void MasterMoved();

    void Tell(TNotices notices);
    void TellNow();

    void RowAdded(TRowNumber row) override;
    void RowChanging(TRowNumber row) override;
    void RowChanged(TRowNumber row) override;
    void RowRemoving(TRowNumber row) override;
    void RowsReplaced() override;

    std::shared_ptr<TRows> rows_;
    mutable TRowView view_;
    std::optional<std::size_t> changing_; ///< position of the row between RowChanging and RowChanged
    mutable std::optional<TRowNumber> standing_; ///< row on which the fields stand while the filter looks at it

    std::vector<TField*> fields_;
    std::unordered_map<std::string, TField*> fieldsByName_;
    std::vector<std::unique_ptr<TField>> addedFields_; ///< by AddField
    std::vector<std::unique_ptr<TField>> madeFields_; ///< for columns that had none
    bool makesFields_ = false;

    TDataSetState state_ = TDataSetState::Inactive;
    bool bof_ = true;
    bool eof_ = true;
    TRowEdit edit_;
    bool posting_ = false;

    std::function<bool()> filter_;
    std::vector<TSortKey> order_;
    std::unordered_map<std::string, std::vector<TSortKey>> indexes_;
    std::string indexInUse_;

    TDataSet* master_ = nullptr;
    std::vector<TLink> links_;
    mutable TLinkTests linkTests_; ///< what the rows shown were chosen by
    mutable bool linkIsStale_ = false; ///< the master's cursor may stand on other values
    mutable bool linkIsUntold_ = false; ///< the listeners have not heard of the rows shown
    std::vector<TDataSet*> details_;

    std::vector<IDataSetListener*> listeners_;
    TNotices untold_;
    int off_ = 0;
};

} // namespace alinhavo
