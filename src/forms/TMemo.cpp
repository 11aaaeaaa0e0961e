#include "forms/TMemo.h"

#include "forms/IPropertySink.h"
#include "forms/text.h"

namespace alinhavo {

TMemo::TMemo(TContainer& parent, std::string name, TMemoOptions options)
    : TTextControl(parent, std::move(name), CommonOptions(options), {options.maxLength, options.upperCase})
    , lines_(options.lines)
{
}

std::vector<std::string> TMemo::Lines() const { return Explode(text(), "\n"); }

void TMemo::AddLine(std::string_view line) { SetText(empty() ? std::string(line) : text() + "\n" + std::string(line)); }

bool TMemo::KeyEffect(const TKey& key)
{
    if (key.name != "Enter" || !key.ctrl)
        return false;
    if (!ReadOnly())
        PerformTyped(text() + "\n");
    return true;
}

void TMemo::Describe(IPropertySink& sink) const
{
    TTextControl::Describe(sink);
    sink.Number("lines", lines_);
}

} // namespace alinhavo
