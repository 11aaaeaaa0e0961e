#pragma once

#include "forms/TFieldControl.h"

namespace alinhavo {

enum class TAlignment { Left, Right, Center };

/// A control in which a person types.
class TTextControl : public TFieldControl {
public:
    const std::string& text() const { return text_; }
    virtual bool empty() const { return text_.empty(); }
    /// As the control holds it: cut to its length, in upper case where it asks so. Fires OnChange when it is another text.
    void SetText(std::string_view text);
    void SetTextQuietly(std::string_view text); ///< without OnChange
    void Clear() { SetText({}); }

    std::size_t MaxLength() const { return maxLength_; } ///< in characters; 0 without limit
    void SetMaxLength(std::size_t maxLength);
    bool UpperCase() const { return upperCase_; }
    TAlignment Alignment() const { return alignment_; }

    TEvent<> OnChange; ///< by a keystroke or by SetText

    void Describe(IPropertySink& sink) const override;

protected:
    struct TTextOptions {
        std::size_t maxLength = 0;
        bool upperCase = false;
        TAlignment alignment = TAlignment::Left;
    };
    TTextControl(TContainer& parent, std::string name, TControlOptions options, TTextOptions textOptions);

    /// The text as the control holds it.
    virtual std::string Adjusted(std::string_view text) const;
    /// The text is complete: brings it into its form; throws with a Portuguese text when it is none of its kind.
    virtual void FinishText() { }
    /// Takes an adjusted text; true when it is another.
    bool Assign(std::string text);
    /// The text is another, whoever changed it.
    virtual void TextAssigned() { }

    /// A mark without a shape that may stand in the text.
    virtual bool KeepsControlCharacter(char) const { return false; }

    std::string Perform(const TUserEvent& event) override;
    std::string PerformTyped(const std::string& text);
    void CommitInput() override;
    void Exit() override;
    void ShowField(const TField& field) override;
    void ShowNothing() override;
    void WriteField(TField& field) override;

private:
    static bool IsControlCharacter(char c);

    std::string text_;
    std::size_t maxLength_;
    bool upperCase_;
    TAlignment alignment_;
};

} // namespace alinhavo
