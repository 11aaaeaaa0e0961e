#pragma once

#include <string>
#include <string_view>

namespace alinhavo {

/// A key with its modifiers. `name` is "Enter", "Tab", "Esc", "Space", "Del", "Ins", "Home", "End", "PgUp", "PgDn",
/// "Up", "Down", "Left", "Right", "Backspace", "F1" to "F12", or the character that it types ("5", "a", "Á").
struct TKey {
    std::string name = {};
    bool shift = false;
    bool ctrl = false;
    bool alt = false;

    /// "F5", "Ctrl+Del", "Shift+Tab", "Alt+c"; an unknown text is taken as the character that is typed.
    static TKey Parse(std::string_view text);
    std::string Text() const;
    /// One of the names above.
    bool IsKnown() const;
    bool IsDigit() const;
    bool IsFunctionKey() const;
    /// The same key, a letter's case aside; no key matches a swallowed one.
    bool Matches(const TKey& other) const;
    /// A character, without Ctrl and Alt.
    bool IsTyped() const;
    /// Swallowed keys have no further effect.
    void Swallow() { name.clear(); }
    bool Swallowed() const { return name.empty(); }
    friend bool operator==(const TKey&, const TKey&) = default;
};

} // namespace alinhavo
