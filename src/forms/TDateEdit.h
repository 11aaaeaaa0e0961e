#pragma once

#include "forms/TDateTime.h"
#include "forms/TTextControl.h"

namespace alinhavo {

struct TDateEditOptions {
    std::string caption = {};
    std::string hint = {};
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// A day. A blank one reads "  /  /    "; what is typed ("1/2/26", "010226") becomes "01/02/2026" when it is left,
/// "1/2" that day of this year, and a text that is no day keeps the focus with a message.
class TDateEdit : public TTextControl {
public:
    TDateEdit(TContainer& parent, std::string name, TDateEditOptions options = {});
    std::string_view Kind() const override { return "date"; }

    TDateTime Date() const; ///< blank while no day stands in it
    void SetDate(TDateTime date);
    bool empty() const override;

protected:
    std::string Adjusted(std::string_view text) const override;
    void FinishText() override;
    void ShowField(const TField& field) override;
    void WriteField(TField& field) override;
};

} // namespace alinhavo
