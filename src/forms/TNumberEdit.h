#pragma once

#include "forms/TTextControl.h"

namespace alinhavo {

struct TNumberEditOptions {
    std::string caption = {};
    std::string hint = {};
    std::size_t maxLength = 0;
    int decimals = -1; ///< digits behind the comma; -1: as they are typed
    TAlignment alignment = TAlignment::Right;
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// A number, typed with a point or a comma. A text that is none keeps the focus with a message; blank is allowed.
class TNumberEdit : public TTextControl {
public:
    TNumberEdit(TContainer& parent, std::string name, TNumberEditOptions options = {});
    std::string_view Kind() const override { return "number"; }

    double Value() const; ///< 0 when blank
    void SetValue(double value);
    void Describe(IPropertySink& sink) const override;

protected:
    void FinishText() override;

private:
    std::string Written(double value) const;

    int decimals_;
};

} // namespace alinhavo
