#include "forms/TCheckBox.h"

#include "forms/IPropertySink.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

TCheckBox::TCheckBox(TContainer& parent, std::string name, TCheckBoxOptions options)
    : TFieldControl(parent, std::move(name), CommonOptions(options))
    , checked_(options.checked)
{
}

bool TCheckBox::Assign(bool checked)
{
    if (checked_ == checked)
        return false;
    checked_ = checked;
    Changed();
    return true;
}

void TCheckBox::SetChecked(bool checked)
{
    if (!Assign(checked))
        return;
    ChangedByCode();
    OnClick();
}

void TCheckBox::SetCheckedQuietly(bool checked)
{
    const TEventOff quiet(OnClick);
    SetChecked(checked);
}

std::string TCheckBox::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Check)
        return TFieldControl::Perform(event);
    if (ReadOnly())
        return Named("é somente leitura");
    if (TakeFocus() && !ReadOnly())
        SetChecked(event.flag);
    if (checked_ != event.flag)
        Changed();
    return {};
}

bool TCheckBox::KeyEffect(const TKey& key)
{
    if (key.name != "Space" || !key.IsTyped())
        return false;
    if (!ReadOnly())
        SetChecked(!checked_);
    return true;
}

void TCheckBox::Accelerate()
{
    if (TakeFocus() && !ReadOnly())
        SetChecked(!checked_);
}

void TCheckBox::ShowField(const TField& field)
{
    if (Assign(field.AsString() == "S"))
        OnClick();
}

void TCheckBox::ShowNothing()
{
    if (Assign(false))
        OnClick();
}

void TCheckBox::WriteField(TField& field) { field.Set(checked_ ? "S" : "N"); }

void TCheckBox::Describe(IPropertySink& sink) const
{
    TFieldControl::Describe(sink);
    sink.Flag("checked", checked_);
}

} // namespace alinhavo
