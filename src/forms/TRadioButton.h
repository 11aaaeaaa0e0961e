#pragma once

#include "forms/TControl.h"

namespace alinhavo {

struct TRadioButtonOptions {
    std::string caption = {};
    std::string hint = {};
    bool checked = false;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// One of the radio buttons of its container: checking it unchecks the others.
class TRadioButton final : public TControl {
public:
    TRadioButton(TContainer& parent, std::string name, TRadioButtonOptions options = {});
    std::string_view Kind() const override { return "radio"; }

    bool Checked() const { return checked_; }
    void SetChecked(bool checked); ///< fires OnClick when it becomes checked

    TEvent<> OnClick; ///< it became checked, by a person or by SetChecked

    void Describe(IPropertySink& sink) const override;

protected:
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;
    void Accelerate() override;

private:
    void UncheckOthers();

    bool checked_;
};

} // namespace alinhavo
