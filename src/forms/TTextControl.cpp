#include "forms/TTextControl.h"

#include "forms/IPropertySink.h"
#include "forms/text.h"
#include "forms/TUserEvent.h"

namespace alinhavo {

namespace {

std::string_view AlignmentName(TAlignment alignment)
{
    switch (alignment) {
    case TAlignment::Right:
        return "right";
    case TAlignment::Center:
        return "center";
    case TAlignment::Left:
        break;
    }
    return "left";
}

} // namespace

TTextControl::TTextControl(TContainer& parent, std::string name, TControlOptions options, TTextOptions textOptions)
    : TFieldControl(parent, std::move(name), std::move(options))
    , maxLength_(textOptions.maxLength)
    , upperCase_(textOptions.upperCase)
    , alignment_(textOptions.alignment)
{
}

void TTextControl::SetText(std::string_view text)
{
    if (!Assign(Adjusted(text)))
        return;
    ChangedByCode();
    OnChange();
}

void TTextControl::SetTextQuietly(std::string_view text)
{
    const TEventOff quiet(OnChange);
    SetText(text);
}

void TTextControl::SetMaxLength(std::size_t maxLength)
{
    if (maxLength_ == maxLength)
        return;
    maxLength_ = maxLength;
    Changed();
}

/// Line breaks and other marks without a shape become blanks: what is pasted into a line stays in it.
std::string TTextControl::Adjusted(std::string_view text) const
{
    std::string adjusted = maxLength_ == 0 ? std::string(text) : Left(text, maxLength_);
    for (char& c : adjusted)
        if (IsControlCharacter(c) && !KeepsControlCharacter(c))
            c = ' ';
    return upperCase_ ? alinhavo::UpperCase(adjusted) : adjusted;
}

bool TTextControl::IsControlCharacter(char c) { return (c >= 0 && c < ' ') || c == 0x7F; }

bool TTextControl::Assign(std::string text)
{
    if (text_ == text)
        return false;
    text_ = std::move(text);
    TextAssigned();
    Changed();
    return true;
}

std::string TTextControl::Perform(const TUserEvent& event)
{
    if (event.kind != TUserEvent::TKind::Text)
        return TFieldControl::Perform(event);
    if (!ValidUtf8(event.text))
        return "O texto não é válido.";
    return PerformTyped(event.text);
}

std::string TTextControl::PerformTyped(const std::string& text)
{
    if (ReadOnly())
        return Named("é somente leitura");
    if (!TakeFocus() || ReadOnly())
        return {};
    if (Assign(Adjusted(text))) {
        Touched();
        OnChange();
    }
    if (text_ != text)
        Changed();
    return {};
}

/// A free text is complete only when it is left; a bound one must be in its field before a function key acts on the row.
void TTextControl::CommitInput()
{
    if (!Bound() || ReadOnly())
        return;
    FinishText();
    TFieldControl::CommitInput();
}

void TTextControl::Exit()
{
    if (!ReadOnly())
        FinishText();
    TFieldControl::Exit();
}

void TTextControl::ShowField(const TField& field)
{
    if (Assign(field.DisplayText()))
        OnChange();
}

void TTextControl::ShowNothing()
{
    if (Assign(Adjusted({})))
        OnChange();
}

void TTextControl::WriteField(TField& field) { field.SetTyped(text_); }

void TTextControl::Describe(IPropertySink& sink) const
{
    TFieldControl::Describe(sink);
    sink.Text("text", text_);
    sink.Number("maxLength", static_cast<std::int64_t>(maxLength_));
    sink.Flag("upperCase", upperCase_);
    sink.Text("alignment", AlignmentName(alignment_));
}

} // namespace alinhavo
