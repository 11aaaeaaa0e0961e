#pragma once

#include "forms/TControl.h"
#include "forms/TDataSet.h"

namespace alinhavo {

/// A control that may be bound to a field of a dataset: it shows the field of the current row, and writes what a person
/// entered when it is left, before OnExit. While the dataset is not being edited a bound control is read-only.
class TFieldControl : public TControl, private IDataSetListener {
public:
    TFieldControl(TContainer& parent, std::string name, TControlOptions options);
    ~TFieldControl() override;

    /// The field is looked for by name whenever it is needed, so the dataset may still be closed.
    void Bind(TDataSet& dataset, std::string_view field);
    void Bind(TField& field) { Bind(field.DataSet(), field.Name()); }
    void Unbind();
    bool Bound() const { return dataset_ != nullptr; }
    TDataSet* DataSet() const { return dataset_; }
    TField* Field() const; ///< null when unbound or unknown to the dataset

    bool ReadOnly() const override;

protected:
    /// Takes over the field's value, firing the control's OnChange when it is another.
    virtual void ShowField(const TField& field) = 0;
    /// Blank, as without a row.
    virtual void ShowNothing() = 0;
    /// Puts what stands in the control into the field; throws when it cannot.
    virtual void WriteField(TField& field) = 0;

    /// A person changed what stands in it.
    void Touched() { touched_ = true; }
    /// Code changed what stands in it: a field in edit takes it at once.
    void ChangedByCode();
    void CommitInput() override;

private:
    void DataSetRowsChanged() override;
    void DataSetCursorChanged() override;
    void DataSetRowChanged() override;
    void WriteTouched();
    void Refresh();
    void RefreshGuarded();
    bool Writable() const;

    TDataSet* dataset_ = nullptr;
    std::string fieldName_;
    bool touched_ = false; ///< holds what the field does not have yet
    bool writing_ = false;
};

} // namespace alinhavo
