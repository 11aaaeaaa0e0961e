#include "forms/TRadioButton.h"

#include "forms/IPropertySink.h"
#include "forms/TContainer.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

TRadioButton::TRadioButton(TContainer& parent, std::string name, TRadioButtonOptions options)
    : TControl(parent, std::move(name), CommonOptions(options))
    , checked_(options.checked)
{
}

void TRadioButton::SetChecked(bool checked)
{
    if (checked_ == checked)
        return;
    checked_ = checked;
    Changed();
    if (!checked)
        return;
    UncheckOthers();
    OnClick();
}

void TRadioButton::UncheckOthers()
{
    for (auto* control : Parent()->Controls())
        if (auto* other = dynamic_cast<TRadioButton*>(control); other && other != this)
            other->SetChecked(false);
}

std::string TRadioButton::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Check)
        return TControl::Perform(event);
    if (ReadOnly())
        return Named("é somente leitura");
    if (!event.flag)
        return Named("só é desmarcado por outra opção");
    if (TakeFocus())
        SetChecked(true);
    if (!checked_)
        Changed();
    return {};
}

bool TRadioButton::KeyEffect(const TKey& key)
{
    if (key.name != "Space" || !key.IsTyped())
        return false;
    if (!ReadOnly())
        SetChecked(true);
    return true;
}

void TRadioButton::Accelerate()
{
    if (TakeFocus() && !ReadOnly())
        SetChecked(true);
}

void TRadioButton::Describe(IPropertySink& sink) const
{
    TControl::Describe(sink);
    sink.Flag("checked", checked_);
}

} // namespace alinhavo
