#pragma once

#include "forms/TControl.h"

namespace alinhavo {

enum class TLabelStyle { Plain, Strong, Warning };

struct TLabelOptions {
    std::string caption = {};
    std::string hint = {};
    TLabelStyle style = TLabelStyle::Plain;
    bool enabled = true;
    bool visible = true;
};

/// A text beside other controls. Its Alt letter goes to the control behind it.
class TLabel final : public TControl {
public:
    TLabel(TContainer& parent, std::string name, TLabelOptions options = {});
    std::string_view Kind() const override { return "label"; }

    TLabelStyle Style() const { return style_; }
    void SetStyle(TLabelStyle style);
    TEvent<> OnClick;

    void Describe(IPropertySink& sink) const override;

protected:
    bool Interactive() const override { return false; }
    std::string Perform(const TUserEvent& event) override;
    void Accelerate() override;

private:
    TLabelStyle style_;
};

} // namespace alinhavo
