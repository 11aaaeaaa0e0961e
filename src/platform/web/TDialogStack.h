#pragma once

#include "platform/web/TRowsImage.h"

#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <vector>

namespace alinhavo {

class IShownReport;
struct TDialog;
class TSessionFiles;

/// The dialogs that wait for an answer, each with a number of its own, and what the client was told of them.
class TDialogStack {
public:
    /// The client knows the server's files by the tokens that `files` gives them.
    explicit TDialogStack(TSessionFiles& files)
        : files_(files)
    {
    }

    void Open(TDialog& dialog);
    void Close(const TDialog& dialog);
    /// Number of the dialog on top, 0 when there is none.
    std::int64_t Top() const;
    /// The client wants to see these rows of the lookup; nothing when it is gone.
    void SetWindow(std::int64_t number, std::int64_t first, std::int64_t count);
    /// All of them as they are to be told; nothing was told before.
    void Forget();
    /// Adds "dialogs" to the message when they are others than were told, and "dialogRows" when those of a lookup are.
    void Tell(nlohmann::json& message);
    /// The server's files that they show.
    std::vector<std::string> Files() const;
    /// The report of that token; null when its dialog is closed.
    IShownReport* Report(std::string_view token) const;
    void Changed() { rowsChanged_ = true; }

private:
    struct TOpen {
        std::int64_t number;
        TDialog* dialog;
        TRowsImage rows;
        std::string report; ///< token of its document
    };

    nlohmann::json Whole(const TOpen& open) const;

    TSessionFiles& files_;
    std::vector<TOpen> open_;
    std::int64_t last_ = 0;
    bool changed_ = true;
    bool rowsChanged_ = false;
};

} // namespace alinhavo
