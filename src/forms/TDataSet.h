#pragma once

#include "forms/TComponent.h"
#include "forms/TField.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

enum class TDataSetState { Inactive, Browse, Edit, Insert };
enum class TDirection { Ascending, Descending };

struct TSortKey {
    std::string field;
    TDirection direction = TDirection::Ascending;
};
/// "mov;codigo;cor" as sort keys; a leading '-' sorts that field downwards.
std::vector<TSortKey> SortKeys(std::string_view fields);

/// A row, wherever sorting and filtering put it. Lost when the row is deleted or the data is replaced.
struct TBookmark {
    std::int64_t row = -1;
    std::uint64_t generation = 0;
};

/// What a grid or a data-bound control needs to hear. Several listen to one dataset.
class IDataSetListener {
public:
    virtual ~IDataSetListener() = default;
    /// Rows, their order, the filter or the data as a whole are others.
    virtual void DataSetRowsChanged() = 0;
    /// The cursor moved, or the current row's state changed.
    virtual void DataSetCursorChanged() = 0;
    /// Cells of the current row changed.
    virtual void DataSetRowChanged() = 0;
};

/// Rows with a cursor, edit states and events. The base of memory tables, queries and tables of the database.
///
/// The visible rows (those that pass the filter, in the order of the index) are counted from 0 by RowIndex.
/// A row being edited is posted when the cursor moves, when the order or the filter changes; a row that then no longer
/// passes the filter leaves the view and its successor becomes current.
class TDataSet : public TComponent {
public:
    TDataSet(TComponent& owner, std::string name);
    explicit TDataSet(std::string name = {});
    ~TDataSet() override;

    // Fields. Members of a derived type register themselves; a rule may add others while the dataset is closed or empty.
    const std::vector<TField*>& Fields() const { return fields_; }
    TField* FindField(std::string_view name) const;
    TField& FieldByName(std::string_view name) const; ///< std::out_of_range with the name when there is none
    TField& AddField(std::string name, TFieldKind kind, int size = 0, TFieldOptions options = {});
    /// Removes the fields that AddField made, and with them all rows.
    void RemoveAddedFields();

    bool Active() const { return state_ != TDataSetState::Inactive; }
    TDataSetState State() const { return state_; }
    bool IsEditing() const { return state_ == TDataSetState::Edit || state_ == TDataSetState::Insert; }
    virtual void Close();

    // Cursor
    bool IsEmpty() const;
    bool Bof() const { return bof_; }
    bool Eof() const { return eof_; }
    std::size_t RecordCount() const; ///< visible rows
    /// Of the current row, from 1; 0 when empty.
    std::size_t RecNo() const;
    void First();
    void Last();
    void Next();
    void Prior();
    void MoveBy(std::int64_t rows);
    void GoToRow(std::size_t rowIndex);

    // Editing
    void Edit();
    void Append(); ///< at the end of the view; where an order is kept, it finds its place when posted
    void Insert(); ///< before the current row
    void Post();   ///< nothing while browsing
    void Cancel();
    void Delete(); ///< of the current row; an appended, unposted one is dropped
    void EmptyTable();

    TEvent<> BeforeInsert; ///< EAbort refuses the new row
    TEvent<> OnNewRecord;  ///< defaults; leaves the row unmodified
    TEvent<> BeforeEdit;
    TEvent<> BeforePost;   ///< EAbort keeps the row in edit
    TEvent<> AfterPost;
    TEvent<> BeforeDelete;
    TEvent<> AfterDelete;
    TEvent<> AfterCancel;
    TEvent<> BeforeScroll;
    TEvent<> AfterScroll;

    // Filter: the predicate reads the fields, which stand on the row in question while it runs.
    void SetFilter(std::function<bool()> accepts);
    void FilterBy(std::string_view field, const TValue& value);
    void ClearFilter();
    bool Filtered() const { return static_cast<bool>(filter_); }

    // Order
    void SortBy(std::string_view fields); ///< as SortKeys; "" returns to the order of arrival. Kept up while rows change.
    void AddIndex(std::string name, std::vector<TSortKey> keys);
    void UseIndex(std::string_view name); ///< "" returns to the order of arrival
    void DeleteIndex(std::string_view name);
    const std::vector<TSortKey>& Order() const { return order_; }

    /// Moves to the first visible row whose fields ("CODIGO;COR;TAM") equal the values; false and no move when none.
    bool Locate(std::string_view fields, const std::vector<TValue>& values);

    TBookmark Bookmark() const;
    bool GoToBookmark(const TBookmark& bookmark); ///< false when the row is gone or not visible

    /// Runs over the visible rows from first to last; the cursor returns to its row, also when an exception passes.
    /// Rows may be edited in it; an edited row is posted before the next. No screen update and no scroll event per row.
    void ForEach(const std::function<void()>& action);
    double Sum(std::string_view field) const; ///< over the visible rows

    /// The screen and AfterScroll hear nothing while this lives; what is bound is refreshed once at its end.
    class TControlsOff {
    public:
        explicit TControlsOff(TDataSet& dataset);
        ~TControlsOff();
        TControlsOff(const TControlsOff&) = delete;
        TControlsOff& operator=(const TControlsOff&) = delete;

    private:
        TDataSet& dataset_;
    };
    [[nodiscard]] TControlsOff DisableControls() { return TControlsOff(*this); }

    // For grids and the scripted user: cells of any visible row, without moving the cursor.
    TValue CellValue(std::size_t rowIndex, const TField& field) const;
    std::string CellText(std::size_t rowIndex, const TField& field) const;

    void AddListener(IDataSetListener& listener);
    void RemoveListener(IDataSetListener& listener);

    int Tag = 0;
    bool ReadOnly = false;    ///< refuses every change by a person
    bool CanInsert = true;    ///< a person may add a row in a grid
    bool CanDelete = true;

    /// Memory of the cells, texts included.
    std::size_t Bytes() const;

protected:
    /// Takes over rows fetched elsewhere; fields are bound to columns by name, missing fields are made when
    /// `makeFields`. Opens in Browse on the first row.
    void Adopt(TTableData data, bool makeFields);
    /// Shares another dataset's rows with a cursor, filter and order of its own.
    void ShareRowsOf(TDataSet& source);
    /// Called inside Post (after BeforePost, before the row is stored) and Delete: tables write through here, and an
    /// exception leaves the row as it is.
    virtual void WriteRow() { }
    virtual void EraseRow() { }

private:
    friend class TField;
    // The implementation is the dataset owner's: rows in a TTableData, a view of row numbers, an edit buffer.
    struct TImpl;
    std::shared_ptr<TImpl> impl_;
    std::vector<TField*> fields_;
    std::vector<TSortKey> order_;
    std::function<bool()> filter_;
    TDataSetState state_ = TDataSetState::Inactive;
    bool bof_ = true;
    bool eof_ = true;
};

} // namespace alinhavo
