#include "forms/TKey.h"

#include "forms/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace alinhavo {

namespace {

constexpr std::array<std::string_view, 26> namedKeys{"Enter", "Tab", "Esc", "Space", "Del", "Ins", "Home", "End",
    "PgUp", "PgDn", "Up", "Down", "Left", "Right", "F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9", "F10", "F11",
    "F12"};
constexpr std::string_view backspace = "Backspace";

/// The key's own spelling, whatever the case it was written in; nothing for what is no key.
std::optional<std::string> KeyName(std::string_view text)
{
    if (text == " ")
        return "Space";
    if (Length(text) == 1)
        return std::string(text);
    if (SameText(text, backspace))
        return std::string(backspace);
    const auto found = std::ranges::find_if(namedKeys, [&](std::string_view name) { return SameText(name, text); });
    if (found == namedKeys.end())
        return std::nullopt;
    return std::string(*found);
}

/// Takes "Ctrl+" off the front.
bool TakeModifier(std::string_view& text, std::string_view modifier)
{
    const bool found = text.size() > modifier.size() && SameText(text.substr(0, modifier.size()), modifier);
    if (found)
        text.remove_prefix(modifier.size());
    return found;
}

} // namespace

TKey TKey::Parse(std::string_view text)
{
    TKey key;
    std::string_view rest = text;
    for (bool found = true; found;) {
        found = false;
        if (TakeModifier(rest, "Ctrl+"))
            found = key.ctrl = true;
        else if (TakeModifier(rest, "Shift+"))
            found = key.shift = true;
        else if (TakeModifier(rest, "Alt+"))
            found = key.alt = true;
    }
    const auto name = KeyName(rest);
    if (!name)
        return TKey{.name = std::string(text)};
    key.name = *name;
    return key;
}

bool TKey::IsKnown() const { return KeyName(name) == name; }

std::string TKey::Text() const
{
    return std::string(ctrl ? "Ctrl+" : "") + (shift ? "Shift+" : "") + (alt ? "Alt+" : "") + name;
}

bool TKey::IsDigit() const { return IsTyped() && name.size() == 1 && name[0] >= '0' && name[0] <= '9'; }

bool TKey::IsTyped() const { return !ctrl && !alt && (name == "Space" || Length(name) == 1); }

bool TKey::IsFunctionKey() const { return name.size() > 1 && name[0] == 'F'; }

bool TKey::Matches(const TKey& other) const
{
    return ctrl == other.ctrl && shift == other.shift && alt == other.alt && !name.empty()
        && SameText(name, other.name);
}

} // namespace alinhavo
