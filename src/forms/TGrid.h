#pragma once

#include "forms/TControl.h"
#include "forms/TDataSet.h"
#include "forms/TGridColumn.h"
#include "forms/TGridOrder.h"
#include "forms/TPastedRows.h"

namespace alinhavo {

/// What the colour of a row says.
enum class TRowColor { Normal, Good, Warning, Bad, Muted, Highlight, Progress, Special };

enum class TGridExit {
    PostsRow, ///< leaving the grid posts a row in edit; an exception keeps the focus
    KeepsRow, ///< the row stays in edit, OnExit may post it
};

struct TGridOptions {
    std::string caption = {};
    std::string hint = {};
    std::vector<TGridColumn> columns = {}; ///< none: the dataset's visible fields
    TGridExit onExit = TGridExit::PostsRow;
    int lines = 10; ///< seen at once
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
    bool totals = false; ///< numbers are added up below the rows, until the user says otherwise
};

/// The rows of a dataset, in its order or in the one that a person has chosen for his eyes alone. The current row is the dataset's; what is typed stands in the editor of the current cell until
/// the cell is left, or a key other than those of typing is pressed, and then goes into the field.
///
/// Enter posts the row and goes to the next one in the same column; Tab goes to the next column that may be edited, and
/// behind the last one to the next row; Down behind the last row appends where the dataset lets a person do so; Esc
/// gives up the cell, then the row. Deleting is the screen's matter.
class TGrid : public TControl, private IDataSetListener {
public:
    TGrid(TContainer& parent, std::string name, TDataSet& dataset, TGridOptions options = {});
    /// Without rows until SetDataSet.
    TGrid(TContainer& parent, std::string name, TGridOptions options = {});
    ~TGrid() override;
    std::string_view Kind() const override { return "grid"; }

    TDataSet* DataSet() const { return dataset_; }
    /// The dataset must outlive the grid or be replaced before it ends. Null: no rows.
    void SetDataSet(TDataSet* dataset);

    /// In order; hidden ones included.
    const std::vector<TGridColumn>& Columns() const;
    void SetColumns(std::vector<TGridColumn> columns); ///< none: the dataset's visible fields, whichever they are
    /// Of that field, without regard to case; null when there is none.
    const TGridColumn* FindColumn(std::string_view field) const;
    /// std::out_of_range when there is no such column.
    void SetColumnReadOnly(std::string_view field, bool readOnly);
    void SetColumnVisible(std::string_view field, bool visible);
    void SetColumnTitle(std::string_view field, std::string_view title);
    void SetColumnPickList(std::string_view field, std::vector<std::string> items);
    bool ColumnReadOnly(std::string_view field) const; ///< the column, its field or the grid
    bool ColumnVisible(std::string_view field) const;

    /// Field of the current column, "" without columns.
    const std::string& Column() const;
    /// Leaves the one column and enters the other; nothing when it is hidden or unknown.
    void SetColumn(std::string_view field);
    /// SetFocus on a column.
    void SetFocusOn(std::string_view field);
    bool Editing() const { return editing_; } ///< what is typed is not in the field yet
    const std::string& EditorText() const { return editorText_; }

    // The order of the rows on the screen, which the dataset knows nothing of
    /// A click on a title sorts the rows: the screen has no rule of its own for it.
    bool SortsByTitle() const { return !OnTitleClick.connected(); }
    /// An empty field: as the dataset has them. While there is no such field, likewise.
    void SortRows(std::string_view field, TDirection direction);
    const TGridOrder& Order() const { return order_; }
    /// Index in the dataset of the row at that place, and the other way round.
    std::size_t DataRow(std::size_t place) const;
    std::size_t PlaceOf(std::size_t dataRow) const;

    // For what shows it: rows by their place on the screen.
    std::size_t RowCount() const;
    std::int64_t CurrentRow() const; ///< from 0, -1 when empty
    std::string CellText(std::size_t row, const TGridColumn& column) const;
    std::string TitleOf(const TGridColumn& column) const;
    TRowColor RowColor(std::size_t row) const;
    /// Another number when rows other than the current one may look different.
    std::uint64_t RowsVersion() const { return rowsVersion_; }

    TEvent<> OnColEnter; ///< Column() is the one entered
    TEvent<> OnColExit; ///< Column() is the one left; an exception stays in the cell
    TEvent<> OnCellEdit; ///< what was typed, ticked or picked in Column() went into its field
    TEvent<std::string_view> OnTitleClick;
    /// Cells were pasted. Without a handler they are typed one by one from the current cell on.
    TEvent<const TPastedRows&> OnPaste;
    TEvent<> OnDoubleClick;
    /// The popup menu is about to open on the current row and the column.
    TEvent<std::string_view> OnPopup;
    /// Asked per row in view, by its index in the dataset; reads the row by TDataSet::CellValue, changes nothing.
    TEvent<std::size_t, TRowColor&> OnRowColor;

    void Describe(IPropertySink& sink) const override;

protected:
    std::string Perform(const TUserEvent& event) override;
    std::string PerformOpenMenu(const TUserEvent& event) override;
    void MenuOpens() override;
    bool KeyEffect(const TKey& key) override;
    bool StopsTab() const override { return TabStop(); }
    bool CommitsOn(const TKey& key) const override;
    void CommitInput() override;
    void Exit() override;

private:
    void DataSetRowsChanged() override;
    void DataSetCursorChanged() override;
    void DataSetRowChanged() override;

    // What a person does
    std::string PerformCell(const TUserEvent& event);
    std::string PerformText(const TUserEvent& event);
    std::string PerformTick(const TUserEvent& event);
    std::string PerformTitle(const TUserEvent& event);
    std::string PerformPaste(const TUserEvent& event);
    std::string WhyNoCell(const TUserEvent& event) const;
    std::string WhyNotEditable(int column) const;
    bool EnterKey();
    bool TabKey(bool forward);
    bool DownKey();
    bool UpKey();
    bool EscKey();
    bool InsertKey();
    bool SpaceKey();
    void Step(std::int64_t rows);
    void GoToPlace(std::size_t place);
    void SortByTitle(std::string_view field);
    bool SideKey(int step);
    bool PageKey(const TKey& key);

    // The current cell
    void GoToCell(std::int64_t row, int column);
    void GoToColumn(int column);
    void BeginEdit();
    void SetTick(bool checked);
    void CancelEditor();
    bool AtLastRow() const;
    bool IsUntouchedNewRow() const;
    bool MayInsert() const;
    bool HasRows() const;

    // Columns
    int IndexOf(std::string_view fieldOrTitle) const; ///< -1 when there is none
    int CurrentIndex() const;
    bool Editable(int column) const;
    int NextColumn(int from, int step, bool editableOnly) const;
    TField* FieldOf(int column) const;
    TGridColumn& Existing(std::string_view field);
    void TakeFieldsAsColumns() const;

    TDataSet* dataset_ = nullptr;
    mutable std::vector<TGridColumn> columns_;
    bool ownColumns_ = false; ///< given by the screen, not taken from the dataset
    mutable int column_ = 0;
    TGridOrder order_;
    TGridExit onExit_;
    int lines_;
    bool totals_;
    bool editing_ = false;
    std::string editorText_;
    std::uint64_t rowsVersion_ = 0;
};

} // namespace alinhavo
