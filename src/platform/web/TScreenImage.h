#pragma once

#include "platform/web/TRowsImage.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace alinhavo {

class TControl;
class TForm;
class TGrid;
class TSessionFiles;

/// What a client was last told of the controls of the screens it sees: the difference is what it is told next.
class TScreenImage {
public:
    /// The client knows the server's files by the tokens that `files` gives them.
    explicit TScreenImage(TSessionFiles& files)
        : files_(files)
    {
    }

    bool Knows(const TForm& form) const;
    /// A screen with all of its controls, none of which was told before.
    nlohmann::json Whole(TForm& form);
    /// Adds to the list what is another since it was last told. Nothing when the control's screen was not told.
    void AddChanges(nlohmann::json& list, const TControl& control);
    /// The client shows this value already: it is what its user entered.
    void Told(const TControl& control, std::string_view property, const nlohmann::json& value);
    /// Something other than what was told stands in the control's property.
    bool Differs(const TControl& control, std::string_view property) const;
    /// The client wants to see these rows of the grid.
    void SetWindow(const TGrid& grid, std::int64_t first, std::int64_t count);

    /// The server's files that the controls show.
    std::vector<std::string> Files() const;

    void Forget(const TForm& form);
    void Clear() { controls_.clear(); }

private:
    struct TGridImage {
        TRowsImage rows;
        std::uint64_t version = 0;
    };
    struct TControlImage {
        const TForm* form = nullptr;
        std::vector<std::pair<std::string, std::size_t>> values; ///< hashes
        std::unique_ptr<TGridImage> grid;
        std::string file; ///< that an image shows
    };

    void AddControls(nlohmann::json& list, const TControl& control);
    nlohmann::json Differences(TControlImage& image, const TControl& control);
    void TellGrid(nlohmann::json& message, TControlImage& image, const TGrid& grid);

    TSessionFiles& files_;
    std::unordered_map<const TControl*, TControlImage> controls_;
};

} // namespace alinhavo
