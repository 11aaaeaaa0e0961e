#pragma once

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <vector>

namespace alinhavo {

/// The part of a table's rows that a client sees, as it was last told.
class TRowsImage {
public:
    static constexpr std::int64_t FirstWindow = 100;

    /// One row as the client gets it.
    using TRowMaker = std::function<nlohmann::json(std::int64_t row)>;

    /// The client wants to see these rows.
    void SetWindow(std::int64_t first, std::int64_t count);
    /// What was told of the rows no longer holds.
    void Forget();
    /// Adds "count", "window" and "rows" (pairs of a row's number and its cells) to the message where they are others than
    /// the client was told. Only `onlyRow` may differ unless it is -1. The window follows `current` when that moved out of it.
    void Tell(
        nlohmann::json& message, std::int64_t count, std::int64_t current, std::int64_t onlyRow, const TRowMaker& make);

private:
    void Follow(std::int64_t current);
    nlohmann::json ChangedRows(std::int64_t count, std::int64_t onlyRow, const TRowMaker& make);

    std::int64_t first_ = 0;
    std::int64_t length_ = FirstWindow;
    bool windowTold_ = false;
    std::int64_t current_ = -1;
    std::int64_t count_ = -1; ///< -1: nothing was told yet
    std::vector<std::size_t> hashes_; ///< of the rows in the window, 0 where none was told
};

} // namespace alinhavo
