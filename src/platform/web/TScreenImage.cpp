#include "platform/web/TScreenImage.h"

#include "forms/TForm.h"
#include "forms/TGrid.h"
#include "forms/TImage.h"
#include "platform/web/TProperties.h"
#include "platform/web/TSessionFiles.h"

#include <algorithm>

namespace alinhavo {

namespace {

using json = nlohmann::json;

std::size_t HashOf(const json& value) { return std::hash<json>{}(value); }

/// The colour's number, then a text for each column; a hidden column's is empty.
json RowOf(const TGrid& grid, std::int64_t row)
{
    const auto index = static_cast<std::size_t>(row);
    json cells = {static_cast<int>(grid.RowColor(index))};
    for (const auto& column : grid.Columns())
        cells.push_back(column.visible ? grid.CellText(index, column) : std::string());
    return cells;
}

} // namespace

bool TScreenImage::Knows(const TForm& form) const { return controls_.contains(&form); }

json TScreenImage::Whole(TForm& form)
{
    Forget(form);
    auto controls = json::array();
    AddControls(controls, form);
    return {
        {"form", form.Name()}, {"class", form.ClassName()}, {"modal", form.Modal()}, {"controls", std::move(controls)}};
}

void TScreenImage::AddControls(json& list, const TControl& control)
{
    auto& image = controls_[&control];
    image.form = &control.Form();
    json object = {{"name", control.Name()}, {"kind", control.Kind()}};
    if (control.Parent())
        object["parent"] = control.Parent()->Name();
    object.update(Differences(image, control));
    list.push_back(std::move(object));
    if (const auto* container = dynamic_cast<const TContainer*>(&control)) {
        for (const auto* child : container->Controls())
            AddControls(list, *child);
    }
}

void TScreenImage::AddChanges(json& list, const TControl& control)
{
    if (!Knows(control.Form()))
        return;
    auto changes = json::array();
    if (const auto known = controls_.find(&control); known == controls_.end()) {
        AddControls(changes, control);
    } else if (auto differences = Differences(known->second, control); !differences.empty()) {
        differences["name"] = control.Name();
        changes.push_back(std::move(differences));
    }
    for (auto& change : changes) {
        change["form"] = control.Form().Name();
        list.push_back(std::move(change));
    }
}

json TScreenImage::Differences(TControlImage& image, const TControl& control)
{
    json differences = json::object();
    std::vector<std::pair<std::string, std::size_t>> values;
    const TProperties properties(control);
    for (const auto& [name, value] : properties.All()) {
        values.emplace_back(name, HashOf(value));
        if (std::ranges::find(image.values, values.back()) == image.values.end())
            differences[name] = value;
    }
    for (const auto& [name, hash] : image.values) {
        if (std::ranges::find(values, name, &std::pair<std::string, std::size_t>::first) == values.end())
            differences[name] = nullptr;
    }
    image.values = std::move(values);
    if (const auto* picture = dynamic_cast<const TImage*>(&control)) {
        image.file = picture->File();
        if (differences.contains("file"))
            differences["file"] = files_.TokenOf(image.file);
    }
    if (const auto* grid = dynamic_cast<const TGrid*>(&control))
        TellGrid(differences, image, *grid);
    return differences;
}

void TScreenImage::TellGrid(json& message, TControlImage& image, const TGrid& grid)
{
    if (!image.grid)
        image.grid = std::make_unique<TGridImage>();
    auto& told = *image.grid;
    const bool otherColumns = message.contains("columns") || message.contains("columnStates");
    if (otherColumns)
        told.rows.Forget();
    const bool allRows = otherColumns || told.version != grid.RowsVersion();
    told.version = grid.RowsVersion();
    told.rows.Tell(message, static_cast<std::int64_t>(grid.RowCount()), grid.CurrentRow(),
        allRows ? -1 : grid.CurrentRow(), [&grid](std::int64_t row) { return RowOf(grid, row); });
}

void TScreenImage::Told(const TControl& control, std::string_view property, const json& value)
{
    const auto image = controls_.find(&control);
    if (image == controls_.end())
        return;
    for (auto& [name, hash] : image->second.values) {
        if (name == property)
            hash = HashOf(value);
    }
}

bool TScreenImage::Differs(const TControl& control, std::string_view property) const
{
    const auto image = controls_.find(&control);
    if (image == controls_.end())
        return false;
    const TProperties properties(control);
    const auto value = std::ranges::find(properties.All(), property, &std::pair<std::string, json>::first);
    const auto known = std::ranges::find(image->second.values, property, &std::pair<std::string, std::size_t>::first);
    if (value == properties.All().end() || known == image->second.values.end())
        return false;
    return HashOf(value->second) != known->second;
}

void TScreenImage::SetWindow(const TGrid& grid, std::int64_t first, std::int64_t count)
{
    const auto image = controls_.find(&grid);
    if (image != controls_.end() && image->second.grid)
        image->second.grid->rows.SetWindow(first, count);
}

std::vector<std::string> TScreenImage::Files() const
{
    std::vector<std::string> files;
    for (const auto& [control, image] : controls_) {
        if (!image.file.empty())
            files.push_back(image.file);
    }
    return files;
}

void TScreenImage::Forget(const TForm& form)
{
    std::erase_if(controls_, [&form](const auto& known) { return known.second.form == &form; });
}

} // namespace alinhavo
