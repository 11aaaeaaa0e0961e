#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace alinhavo {

/// A fuzzer's input, taken from its beginning as choices and texts. Behind its end every choice is 0 and every text empty.
class TFuzzBytes {
public:
    TFuzzBytes(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size)
    {
    }

    bool AtEnd() const { return rest_.empty(); }
    std::uint8_t Byte()
    {
        if (rest_.empty())
            return 0;
        const auto byte = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    /// From 0 up to, without, `count`.
    std::size_t Choice(std::size_t count) { return Byte() % count; }
    const auto& Of(const auto& choices) { return choices[Choice(choices.size())]; }
    /// Up to the mark, which is taken as well, or all that is left.
    std::string Until(char mark)
    {
        const auto end = rest_.find(mark);
        std::string text(rest_.substr(0, end));
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        return text;
    }
    std::string Line() { return Until('\n'); }

private:
    std::string_view rest_;
};

} // namespace alinhavo
