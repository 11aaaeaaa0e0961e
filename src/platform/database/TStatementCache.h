#pragma once

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace alinhavo {

/// The statements used last, by their text. What falls out is destroyed.
template <class TPrepared>
class TStatementCache {
public:
    explicit TStatementCache(std::size_t limit)
        : limit_(limit)
    {
    }

    /// Null when there is none. Valid until the next Add or Clear.
    TPrepared* Find(std::string_view text)
    {
        const auto found = byText_.find(text);
        if (found == byText_.end())
            return nullptr;
        entries_.splice(entries_.begin(), entries_, found->second);
        return &found->second->prepared;
    }

    TPrepared& Add(std::string_view text, TPrepared prepared)
    {
        if (entries_.size() == limit_) {
            byText_.erase(entries_.back().text);
            entries_.pop_back();
        }
        entries_.push_front({std::string(text), std::move(prepared)});
        byText_.emplace(entries_.front().text, entries_.begin());
        return entries_.front().prepared;
    }

    void Clear()
    {
        byText_.clear();
        entries_.clear();
    }

private:
    struct TEntry {
        std::string text;
        TPrepared prepared;
    };

    std::size_t limit_;
    std::list<TEntry> entries_; ///< the one used last in front
    std::unordered_map<std::string_view, typename std::list<TEntry>::iterator> byText_;
};

} // namespace alinhavo
