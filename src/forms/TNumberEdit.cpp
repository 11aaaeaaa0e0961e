#include "forms/TNumberEdit.h"

#include "forms/IPropertySink.h"
#include "forms/numbers.h"
#include "forms/text.h"

#include <stdexcept>

namespace alinhavo {

TNumberEdit::TNumberEdit(TContainer& parent, std::string name, TNumberEditOptions options)
    : TTextControl(parent, std::move(name), CommonOptions(options),
        {.maxLength = options.maxLength, .alignment = options.alignment})
    , decimals_(options.decimals)
{
}

double TNumberEdit::Value() const { return StrToFloatDef(Trim(text()), 0); }

void TNumberEdit::SetValue(double value) { SetText(Written(value)); }

std::string TNumberEdit::Written(double value) const
{
    return decimals_ < 0 ? Replace(FloatToStr(value), ".", ",") : FormatDecimal(value, decimals_);
}

void TNumberEdit::FinishText()
{
    const auto typed = Trim(text());
    if (typed.empty())
        return;
    const auto value = ParseFloat(typed);
    if (!value)
        throw std::invalid_argument("\"" + typed + "\" não é um número válido.");
    if (decimals_ >= 0)
        Assign(Written(*value));
}

void TNumberEdit::Describe(IPropertySink& sink) const
{
    TTextControl::Describe(sink);
    sink.Number("decimals", decimals_);
}

} // namespace alinhavo
