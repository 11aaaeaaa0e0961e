#pragma once

#include "forms/TKey.h"
#include "forms/TModalResult.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// What a person, or the session around him, did. Screens and controls are named by their component names; an empty
/// screen is the one in front, an empty control the one that has the focus.
struct TUserEvent {
    enum class TKind {
        Focus, ///< moved to `control` (mouse, or Tab with a target)
        Text, ///< `text` is now what stands in `control`, after one more keystroke or a paste
        Key, ///< `key` pressed in `control`
        Click, ///< button, label or image; the focus moves there first where it takes one
        DoubleClick, ///< on an image, or on file `index` of a list of files
        Check, ///< check box or radio button now `flag`
        Select, ///< item `index` of a combo box, radio group or list of files
        Page, ///< page `index` of a page control
        GridCell, ///< cell of `row` (from 0) and `column` of a grid took the focus; `row` = row count: a new row
        GridText, ///< `text` is now what stands in the editor of the current cell
        GridTitle, ///< click on the title of `column`
        GridDouble, ///< double click on `row`, `column`
        GridPaste, ///< `text` was pasted into a grid that takes whole rows: cells as a spreadsheet copies them
        GridTick, ///< the tick of `row`, `column` is now `flag`
        OpenMenu, ///< the popup menu of `control` is about to open; in a grid on `row`, `column`
        MenuItem, ///< `text` names the item of the popup menu of `control`
        Search, ///< `text` is now the search text of the lookup on top
        Answer, ///< the topmost dialog was answered: `answer` with `text`, `password` or `rows` as its kind asks
        OpenForm, ///< `text` is the class of a screen, from the menu
        ActivateForm, ///< the tab of `form` came to the front
        CloseForm, ///< the user closes `form`
        Work, ///< the session's own: `work` runs on the session's thread between two events
        Terminate, ///< the session ends: every modal run unwinds
    };

    TKind kind = TKind::Work;
    std::string form = {};
    std::string control = {};
    std::string text = {};
    TKey key = {};
    std::string column = {};
    std::int64_t row = -1;
    int index = -1;
    bool flag = false;
    TModalResult answer = TModalResult::None;
    std::string password = {};
    std::vector<std::int64_t> rows = {}; ///< Answer of a lookup: the rows picked, from 0
    std::function<void()> work = {};
};

/// Where the next event comes from: a browser, a scripted user, a test.
class IEventSource {
public:
    virtual ~IEventSource() = default;
    /// Called whenever the application has nothing to do, also from within dialogs and modal screens. Blocks until
    /// there is an event. What changed since the last call is to be shown before blocking.
    virtual TUserEvent Next() = 0;
    /// The event's handlers are done, after those of the events that they waited for; `refusal` as TApplication::Handle.
    virtual void Handled(const TUserEvent& event, std::string_view refusal);
};

} // namespace alinhavo
