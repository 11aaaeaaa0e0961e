#include "platform/report/TScope.h"

#include "forms/text.h"

#include <algorithm>

namespace alinhavo {

TScope::TScope(const TprReportBase& report, std::map<std::string, TDataSet*, std::less<>> hosts)
    : report_(report)
{
    for (const auto& [name, rows] : report.DataSets)
        dataSets_.emplace(UpperCase(name), rows);
    for (const auto& [name, rows] : hosts)
        dataSets_.emplace(UpperCase(name), rows);
    for (const auto& [name, value] : report.Variables)
        variables_.emplace(UpperCase(name), value);
}

void TScope::SetStandard(std::string_view name, TValue value) { standard_[UpperCase(name)] = std::move(value); }

void TScope::Define(std::string_view name, TReportValue value) { defined_[UpperCase(name)] = std::move(value); }

TDataSet* TScope::FindDataSet(std::string_view name) const
{
    const auto found = dataSets_.find(UpperCase(name));
    return found == dataSets_.end() ? nullptr : found->second;
}

TScope::TPlaced TScope::FindPlaced(std::string_view name) const
{
    for (auto frame = frames_.rbegin(); frame != frames_.rend(); ++frame) {
        if (const auto* field = frame->rows->FindField(name))
            return {&*frame, field};
    }
    return {};
}

std::optional<TReportValue> TScope::Value(std::string_view name)
{
    const auto key = UpperCase(name);
    if (const auto found = defined_.find(key); found != defined_.end())
        return found->second;
    if (const auto [frame, field] = FindPlaced(name); field)
        return frame->rows->CellValue(frame->shown[frame->at], *field);
    if (const auto found = variables_.find(key); found != variables_.end())
        return found->second;
    if (const auto found = standard_.find(key); found != standard_.end())
        return found->second;
    return std::nullopt;
}

const TScope::TFrame* TScope::FindFrame(std::string_view dataset) const
{
    const auto found = std::find_if(
        frames_.rbegin(), frames_.rend(), [&](const auto& frame) { return SameText(frame.name, dataset); });
    return found == frames_.rend() ? nullptr : &*found;
}

/// Of the row that is run over, else of the first one.
TValue TScope::Cell(std::string_view dataset, std::string_view field)
{
    const auto* rows = FindDataSet(dataset);
    const auto* column = rows ? rows->FindField(field) : nullptr;
    if (!column)
        return Unknown(std::string(dataset) + "." + std::string(field), {});
    const auto* frame = FindFrame(dataset);
    return rows->CellValue(frame ? frame->shown[frame->at] : 0, *column);
}

TValue TScope::Unknown(std::string_view name, const std::vector<TValue>& arguments)
{
    TValue value = report_.OnUnknownFunction ? report_.OnUnknownFunction(name, arguments) : TValue();
    if (value.IsNull())
        unknown_.emplace(name);
    return value;
}

} // namespace alinhavo
