#pragma once

#include "forms/TFieldControl.h"

namespace alinhavo {

struct TCheckBoxOptions {
    std::string caption = {};
    std::string hint = {};
    bool checked = false;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// Yes or no. Bound to a field it stands for "S" and "N"; a null is no.
class TCheckBox : public TFieldControl {
public:
    TCheckBox(TContainer& parent, std::string name, TCheckBoxOptions options = {});
    std::string_view Kind() const override { return "check"; }

    bool Checked() const { return checked_; }
    void SetChecked(bool checked); ///< fires OnClick when it is another
    void SetCheckedQuietly(bool checked); ///< without OnClick

    TEvent<> OnClick; ///< its state changed, by a person or by SetChecked

    void Describe(IPropertySink& sink) const override;

protected:
    std::string Perform(const TUserEvent& event) override;
    bool KeyEffect(const TKey& key) override;
    void Accelerate() override;
    void ShowField(const TField& field) override;
    void ShowNothing() override;
    void WriteField(TField& field) override;

private:
    bool Assign(bool checked);

    bool checked_;
};

} // namespace alinhavo
