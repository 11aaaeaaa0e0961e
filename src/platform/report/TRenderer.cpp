#include "platform/report/TRenderer.h"

#include "forms/text.h"
#include "forms/TSortKey.h"
#include "platform/report/THtmlOutput.h"
#include "platform/report/TTextOutput.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace alinhavo {
namespace {

constexpr std::int64_t LongestLoop = 10000;

bool IsName(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    });
}

} // namespace

TRenderer::TRenderer(const TTemplate& layout, const TprReportBase& report, const TRenderSetup& setup)
    : template_(layout)
    , setup_(setup)
    , scope_(report, setup.dataSets)
    , lua_(scope_, setup.limits, setup.cancelled)
    , pictures_(setup.pictures)
{
    scope_.SetStandard("titulo", report.Title);
    for (const auto& [name, value] : setup.names)
        scope_.SetStandard(name, value);
    AddTextFunctions();
    AddNumberFunctions();
    AddDataFunctions();
    AddTotals();
    AddPictureFunctions();
}

TRendered TRenderer::Html()
{
    THtmlOutput output;
    output_ = &output;
    Nodes(template_.nodes);
    return {output.Take(), scope_.UnknownNames()};
}

TRendered TRenderer::Text()
{
    isText_ = true;
    const auto once = [&] {
        const auto baseLines = std::ranges::count(Strip(template_.base), '\n');
        TTextOutput output(
            template_.pageLines, static_cast<int>(baseLines), [&] { return Strip(template_.top); },
            [&] { return Strip(template_.base); });
        page_ = [&] { return output.Page(); };
        output_ = &output;
        Nodes(template_.nodes);
        auto text = output.Finish();
        pages_ = output.Page();
        return text;
    };
    page_ = [] { return 0; };
    auto text = once();
    if (asksForPages_)
        text = once();
    return {std::move(text), scope_.UnknownNames()};
}

/// Lines that belong to no page yet.
std::string TRenderer::Strip(const TTemplateNodes& nodes)
{
    auto* const output = output_;
    TTextOutput strip(
        0, 0, [] { return std::string(); }, [] { return std::string(); });
    output_ = &strip;
    Nodes(nodes);
    output_ = output;
    return strip.Finish();
}

void TRenderer::Nodes(const TTemplateNodes& nodes)
{
    for (const auto& node : nodes)
        std::visit([&](const auto& each) { Node(each); }, static_cast<const TTemplateNode::variant&>(node));
}

void TRenderer::Node(const TTemplateValue& node)
{
    place_ = node.expression.place;
    if (PlainField(node))
        return;
    const auto value = lua_.Evaluate(node.expression);
    output_->Value(value, Shown(value), node.inStyle);
}

/// A field alone shows as it does in a grid, and needs no Lua.
bool TRenderer::PlainField(const TTemplateValue& node)
{
    if (!IsName(node.expression.source))
        return false;
    const auto [frame, field] = scope_.FindPlaced(node.expression.source);
    if (!field)
        return false;
    output_->Value(TValue(), frame->rows->CellText(frame->shown[frame->at], *field), node.inStyle);
    return true;
}

void TRenderer::Node(const TTemplateAssignment& node)
{
    place_ = node.value.place;
    scope_.Define(node.name, lua_.Evaluate(node.value));
}

void TRenderer::Node(const TTemplateChoice& node)
{
    for (const auto& branch : node.branches) {
        place_ = branch.condition.place;
        if (branch.condition.source.empty() || Holds(lua_.Evaluate(branch.condition)))
            return Nodes(branch.nodes);
    }
}

void TRenderer::Node(const TTemplateLoop& node)
{
    const auto from = Whole(node.from);
    const auto to = Whole(node.to);
    if (to - from >= LongestLoop)
        throw ETemplate(node.from.place, node.from.source + ", " + node.to.source, "o laço é longo demais.");
    for (auto index = from; index <= to; ++index) {
        scope_.Define(node.variable, TValue(index));
        CheckProgress(node.from.place);
        Nodes(node.nodes);
    }
}

std::int64_t TRenderer::Whole(const TTemplateExpression& expression)
{
    const auto value = lua_.Evaluate(expression);
    const auto* plain = std::get_if<TValue>(&value);
    return plain ? plain->AsInteger() : 0;
}

void TRenderer::CheckProgress(const TTemplatePlace& place) const
{
    if (setup_.cancelled && *setup_.cancelled)
        throw EReportCancelled();
    if (output_->Size() > setup_.limits.output)
        throw ETemplate(place, {}, "o relatório fica grande demais.");
}

void TRenderer::Node(const TTemplateBand& node)
{
    auto* rows = scope_.FindDataSet(node.dataset);
    if (!rows)
        throw ETemplate(
            node.where.place, "% faixa " + node.dataset, "a tela não dá ao relatório uma tabela com este nome.");
    scope_.Enter({.name = node.dataset, .rows = rows, .shown = {}, .ranges = {}});
    scope_.Frame().shown = ShownRows(node, *rows);
    scope_.Frame().ranges.push_back({node.dataset, 0, scope_.Frame().shown.size()});
    if (scope_.Frame().shown.empty()) {
        scope_.Leave();
        return Nodes(node.empty);
    }
    Rows(node);
    scope_.Leave();
}

std::vector<std::size_t> TRenderer::ShownRows(const TTemplateBand& band, TDataSet& rows)
{
    std::vector<std::size_t> shown(rows.RecordCount());
    std::iota(shown.begin(), shown.end(), std::size_t(0));
    if (band.where.source.empty())
        return shown;
    auto& frame = scope_.Frame();
    std::vector<std::size_t> passing;
    for (const auto row : shown) {
        frame.shown = {row};
        frame.at = 0;
        if (Holds(lua_.Evaluate(band.where)))
            passing.push_back(row);
    }
    return passing;
}

void TRenderer::Rows(const TTemplateBand& band)
{
    const auto last = scope_.Frame().shown.size();
    scope_.Frame().at = 0;
    Nodes(band.header);
    Groups(band, 0, 0, last);
    scope_.Frame().at = last - 1;
    Nodes(band.footer);
}

void TRenderer::Groups(const TTemplateBand& band, std::size_t level, std::size_t first, std::size_t last)
{
    if (level == band.groups.size()) {
        for (std::size_t row = first; row < last; ++row) {
            scope_.Frame().at = row;
            CheckProgress(band.where.place);
            Nodes(band.row);
        }
        return;
    }
    const auto& group = band.groups[level];
    const auto fields = GroupFields(band, level);
    for (std::size_t begin = first; begin < last;) {
        const auto end = EndOfGroup(fields, begin, last);
        Range(group.name, begin, end, [&] {
            scope_.Frame().at = begin;
            Nodes(group.header);
            Groups(band, level + 1, begin, end);
            scope_.Frame().at = end - 1;
            Nodes(group.footer);
        });
        begin = end;
    }
}

void TRenderer::Range(std::string_view name, std::size_t first, std::size_t last, const std::function<void()>& action)
{
    scope_.Frame().ranges.push_back({std::string(name), first, last});
    action();
    scope_.Frame().ranges.pop_back();
}

std::size_t TRenderer::EndOfGroup(const std::vector<const TField*>& fields, std::size_t first, std::size_t last) const
{
    const auto& frame = const_cast<TScope&>(scope_).Frame();
    const auto same = [&](std::size_t row) {
        return std::ranges::all_of(fields, [&](const auto* field) {
            return frame.rows->CellValue(frame.shown[row], *field) == frame.rows->CellValue(frame.shown[first], *field);
        });
    };
    auto row = first + 1;
    while (row < last && same(row))
        ++row;
    return row;
}

std::vector<const TField*> TRenderer::GroupFields(const TTemplateBand& band, std::size_t level) const
{
    const auto& group = band.groups[level];
    const auto names = group.fields.empty() ? FieldsOfScreen(band, level) : group.fields;
    std::vector<const TField*> fields;
    for (const auto& name : FieldNames(names)) {
        const auto* field = scope_.FindDataSet(band.dataset)->FindField(name);
        if (!field)
            throw ETemplate(band.where.place, "% grupo " + group.name + " = " + names,
                "a tabela \"" + band.dataset + "\" não tem o campo \"" + name + "\".");
        fields.push_back(field);
    }
    return fields;
}

std::string TRenderer::FieldsOfScreen(const TTemplateBand& band, std::size_t level) const
{
    std::size_t found = 0;
    for (const auto& group : scope_.Report().Groups) {
        if (SameText(group.dataset, band.dataset) && found++ == level)
            return group.field;
    }
    throw ETemplate(band.where.place, "% grupo " + band.groups[level].name,
        "a tela não diz por que campos este grupo é feito; escreva-os depois de um \"=\".");
}

} // namespace alinhavo
