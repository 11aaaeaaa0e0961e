#pragma once

#include "forms/TTextControl.h"

namespace alinhavo {

struct TMemoOptions {
    std::string caption = {};
    std::string hint = {};
    std::size_t maxLength = 0;
    bool upperCase = false;
    int lines = 4; ///< seen at once
    bool readOnly = false;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
};

/// Several lines of text, divided by '\n'. Enter moves on as everywhere; Ctrl+Enter begins a new line at the end.
class TMemo : public TTextControl {
public:
    TMemo(TContainer& parent, std::string name, TMemoOptions options = {});
    std::string_view Kind() const override { return "memo"; }

    std::vector<std::string> Lines() const;
    void AddLine(std::string_view line);
    void Describe(IPropertySink& sink) const override;

protected:
    bool KeyEffect(const TKey& key) override;
    bool KeepsControlCharacter(char c) const override { return c == '\n'; }

private:
    int lines_;
};

} // namespace alinhavo
