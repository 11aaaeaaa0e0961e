#include "platform/web/TDialogStack.h"

#include "forms/IShownReport.h"
#include "forms/TDataSet.h"
#include "forms/TDialog.h"
#include "platform/web/TSessionFiles.h"

#include <algorithm>
#include <array>

namespace alinhavo {

namespace {

using json = nlohmann::json;

// In the order of the enumerations.
constexpr std::array KindNames = {"message", "input", "date", "lookup", "file", "supervisor", "picture", "report"};
constexpr std::array IconNames = {"information", "warning", "question", "stop"};
constexpr std::array ResultNames = {"none", "ok", "cancel", "yes", "no"};

template <typename TNames>
json NameOf(const TNames& names, auto value)
{
    return names[static_cast<std::size_t>(value)];
}

json ButtonsOf(const TDialog& dialog)
{
    auto buttons = json::array();
    for (auto answer : {TModalResult::Yes, TModalResult::No, TModalResult::Ok, TModalResult::Cancel}) {
        if (dialog.Offers(answer))
            buttons.push_back(NameOf(ResultNames, answer));
    }
    return buttons;
}

std::vector<const TField*> VisibleFields(const TDataSet& rows)
{
    std::vector<const TField*> fields;
    for (const auto* field : rows.Fields()) {
        if (field->options.visible)
            fields.push_back(field);
    }
    return fields;
}

json ColumnsOf(const TDataSet& rows)
{
    auto columns = json::array();
    for (const auto* field : VisibleFields(rows)) {
        const auto& title = field->options.title;
        const bool number = field->Kind() == TFieldKind::Integer || field->Kind() == TFieldKind::Float;
        columns.push_back(
            {{"field", field->Name()}, {"title", title.empty() ? field->Name() : title}, {"number", number}});
    }
    return columns;
}

json RowOf(const TDataSet& rows, const std::vector<const TField*>& fields, std::int64_t row)
{
    json cells = {0};
    for (const auto* field : fields)
        cells.push_back(rows.CellText(static_cast<std::size_t>(row), *field));
    return cells;
}

} // namespace

void TDialogStack::Open(TDialog& dialog)
{
    open_.push_back({++last_, &dialog, {}, dialog.report ? files_.OpenReport(*dialog.report) : std::string()});
    changed_ = true;
}

void TDialogStack::Close(const TDialog& dialog)
{
    for (const auto& open : open_) {
        if (open.dialog == &dialog)
            files_.CloseReport(open.report);
    }
    std::erase_if(open_, [&dialog](const TOpen& open) { return open.dialog == &dialog; });
    changed_ = true;
}

std::int64_t TDialogStack::Top() const { return open_.empty() ? 0 : open_.back().number; }

void TDialogStack::SetWindow(std::int64_t number, std::int64_t first, std::int64_t count)
{
    for (auto& open : open_) {
        if (open.number == number)
            open.rows.SetWindow(first, count);
    }
    rowsChanged_ = true;
}

void TDialogStack::Forget()
{
    changed_ = true;
    for (auto& open : open_)
        open.rows.Forget();
}

json TDialogStack::Whole(const TOpen& open) const
{
    const auto& dialog = *open.dialog;
    json object = {{"dialog", open.number}, {"kind", NameOf(KindNames, dialog.kind)}, {"title", dialog.title},
        {"text", dialog.text}, {"icon", NameOf(IconNames, dialog.icon)}, {"buttons", ButtonsOf(dialog)},
        {"default", NameOf(ResultNames, dialog.defaultButton)}, {"escape", NameOf(ResultNames, dialog.EscAnswer())},
        {"value", dialog.value}, {"filter", dialog.filter}, {"beep", dialog.beep}};
    if (dialog.rows) {
        object["columns"] = ColumnsOf(*dialog.rows);
        object["multiple"] = dialog.multiple;
        object["keepsPicks"] = dialog.keepsPicks;
    }
    if (dialog.report) {
        object["report"] = open.report;
        object["plainText"] = dialog.report->PlainText() != nullptr;
        object["recipient"] = dialog.report->Recipient();
    }
    for (const auto& file : dialog.files)
        object["files"].push_back(files_.TokenOf(file));
    return object;
}

IShownReport* TDialogStack::Report(std::string_view token) const
{
    const auto found = std::ranges::find(open_, token, &TOpen::report);
    return token.empty() || found == open_.end() ? nullptr : found->dialog->report;
}

std::vector<std::string> TDialogStack::Files() const
{
    std::vector<std::string> files;
    for (const auto& open : open_)
        files.insert(files.end(), open.dialog->files.begin(), open.dialog->files.end());
    return files;
}

void TDialogStack::Tell(json& message)
{
    if (changed_) {
        auto& list = message["dialogs"] = json::array();
        for (const auto& open : open_)
            list.push_back(Whole(open));
    }
    if ((changed_ || rowsChanged_) && !open_.empty() && open_.back().dialog->rows) {
        auto& [number, dialog, image, report] = open_.back();
        const auto& rows = *dialog->rows;
        const auto fields = VisibleFields(rows);
        json told = {{"dialog", number}};
        image.Tell(told, static_cast<std::int64_t>(rows.RecordCount()), -1, -1,
            [&](std::int64_t row) { return RowOf(rows, fields, row); });
        message["dialogRows"] = std::move(told);
    }
    changed_ = false;
    rowsChanged_ = false;
}

} // namespace alinhavo
