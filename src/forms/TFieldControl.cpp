#include "forms/TFieldControl.h"

#include "forms/TApplication.h"

namespace alinhavo {

TFieldControl::TFieldControl(TContainer& parent, std::string name, TControlOptions options)
    : TControl(parent, std::move(name), std::move(options))
{
}

TFieldControl::~TFieldControl()
{
    if (dataset_)
        dataset_->RemoveListener(*this);
}

void TFieldControl::Bind(TDataSet& dataset, std::string_view field)
{
    if (dataset_)
        dataset_->RemoveListener(*this);
    dataset_ = &dataset;
    fieldName_ = field;
    dataset.AddListener(*this);
    touched_ = false;
    Refresh();
    Changed();
}

void TFieldControl::Unbind()
{
    if (dataset_)
        dataset_->RemoveListener(*this);
    dataset_ = nullptr;
    touched_ = false;
    Changed();
}

TField* TFieldControl::Field() const { return dataset_ ? dataset_->FindField(fieldName_) : nullptr; }

bool TFieldControl::ReadOnly() const { return TControl::ReadOnly() || (Bound() && !Writable()); }

bool TFieldControl::Writable() const
{
    if (!dataset_ || !dataset_->IsEditing() || dataset_->ReadOnly)
        return false;
    const auto* field = Field();
    return field && !field->options.readOnly;
}

void TFieldControl::ChangedByCode()
{
    if (!Writable())
        return;
    touched_ = true;
    WriteTouched();
}

void TFieldControl::CommitInput()
{
    if (touched_ && Writable())
        WriteTouched();
}

void TFieldControl::WriteTouched()
{
    struct TWriting {
        bool& writing;
        ~TWriting() { writing = false; }
    };
    auto* const field = Field();
    {
        writing_ = true;
        const TWriting writing{writing_};
        WriteField(*field);
        touched_ = false;
    }
    Refresh();
}

void TFieldControl::DataSetRowsChanged() { DataSetCursorChanged(); }

void TFieldControl::DataSetCursorChanged()
{
    if (writing_)
        return;
    touched_ = false;
    RefreshGuarded();
    Changed();
}

/// What is being typed stays when other fields of the row change.
void TFieldControl::DataSetRowChanged()
{
    if (!writing_ && !touched_)
        RefreshGuarded();
}

/// A dataset's listener may not throw, the control's OnChange may.
void TFieldControl::RefreshGuarded()
{
    Form().Application().Guarded([this] { Refresh(); });
}

void TFieldControl::Refresh()
{
    const auto* field = Field();
    if (field && dataset_->Active())
        ShowField(*field);
    else
        ShowNothing();
}

} // namespace alinhavo
