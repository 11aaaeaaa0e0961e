#pragma once

#include "forms/TTextControl.h"

namespace alinhavo {

struct TEditOptions {
    std::string caption = {};
    std::string hint = {};
    std::size_t maxLength = 0; ///< in characters; 0 without limit
    bool upperCase = false;
    TAlignment alignment = TAlignment::Left;
    bool password = false; ///< what is typed is not shown
    bool lookup = false; ///< F4 or F5 helps to fill it: shown beside it
    std::string text = {};
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// One line of text.
class TEdit : public TTextControl {
public:
    TEdit(TContainer& parent, std::string name, TEditOptions options = {});
    std::string_view Kind() const override { return "edit"; }
    void Describe(IPropertySink& sink) const override;

private:
    bool password_;
    bool lookup_;
};

} // namespace alinhavo
