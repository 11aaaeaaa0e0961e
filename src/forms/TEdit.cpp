#include "forms/TEdit.h"

#include "forms/IPropertySink.h"

namespace alinhavo {

TEdit::TEdit(TContainer& parent, std::string name, TEditOptions options)
    : TTextControl(
        parent, std::move(name), CommonOptions(options), {options.maxLength, options.upperCase, options.alignment})
    , password_(options.password)
    , lookup_(options.lookup)
{
    SetTextQuietly(options.text);
}

void TEdit::Describe(IPropertySink& sink) const
{
    TTextControl::Describe(sink);
    sink.Flag("password", password_);
    sink.Flag("lookup", lookup_);
}

} // namespace alinhavo
