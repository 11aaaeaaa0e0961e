#include "platform/session/roteiro/TChecks.h"

#include "forms/TMenuItem.h"
#include "host/TStatement.h"
#include "platform/session/roteiro/compare.h"
#include "platform/session/roteiro/EMismatch.h"

#include <algorithm>

namespace alinhavo::roteiro {
namespace {

std::string Counted(std::size_t count, std::string_view what)
{
    return std::to_string(count) + " " + std::string(what);
}

std::string Row(const TTableData& data, std::size_t row)
{
    std::string text;
    for (std::size_t column = 0; column < data.ColumnCount(); ++column)
        text.append(column == 0 ? "" : " ").append(Written(data.Column(column).Value(row)));
    return text;
}

std::string Row(const std::vector<TText>& values)
{
    std::string text;
    for (const auto& value : values)
        text.append(text.empty() ? "" : " ").append(Written(value));
    return text;
}

bool SameRow(const std::vector<TText>& expected, const TTableData& got)
{
    if (got.ColumnCount() != expected.size())
        return false;
    for (std::size_t column = 0; column < expected.size(); ++column) {
        if (!SameValue(expected[column], got.Column(column).Value(0)))
            return false;
    }
    return true;
}

std::string Texts(const std::vector<std::string>& texts)
{
    std::string list;
    for (const auto& text : texts)
        list.append(list.empty() ? "" : " ").append(Quoted(text));
    return list.empty() ? "none" : list;
}

void Expect(bool fulfilled, const std::string& name, std::string_view expected, std::string_view got)
{
    if (!fulfilled)
        throw EMismatch{name + " " + std::string(expected), std::string(got)};
}

} // namespace

IPlayedSession& TChecks::Session() const
{
    if (!session_)
        throw EMismatch{"a user (usuario)", "nobody is logged in"};
    return *session_;
}

void TChecks::operator()(const TExpectText& check) const
{
    const auto stage = Stage();
    const auto got = stage.Text(check.control);
    if (!SameShown(check.value.text, got))
        throw EMismatch{Quoted(check.value.text), Quoted(got)};
}

void TChecks::operator()(const TExpectState& check) const
{
    const auto stage = Stage();
    const auto& control = stage.Control(check.control);
    const auto& name = check.control;
    switch (check.state) {
    case TState::Enabled:
        return Expect(control.EffectivelyEnabled(), name, "habilitado", "desabilitado");
    case TState::Disabled:
        return Expect(!control.EffectivelyEnabled(), name, "desabilitado", "habilitado");
    case TState::Visible:
        return Expect(control.EffectivelyVisible(), name, "visivel", "invisivel");
    case TState::Invisible:
        return Expect(!control.EffectivelyVisible(), name, "invisivel", "visivel");
    case TState::Focused:
        return Expect(control.Focused(), name, "foco", "the focus in " + stage.FocusedControl());
    case TState::Checked:
        return Expect(stage.Checked(name), name, "marcado", "desmarcado");
    case TState::Unchecked:
        return Expect(!stage.Checked(name), name, "desmarcado", "marcado");
    case TState::ReadOnly:
    case TState::Editable:
        break;
    }
}

void TChecks::operator()(const TExpectRows& check) const
{
    const auto stage = Stage();
    const auto got = stage.Rows(check.grid).RecordCount();
    if (got != static_cast<std::size_t>(check.count))
        throw EMismatch{Counted(static_cast<std::size_t>(check.count), "rows"), Counted(got, "rows")};
}

void TChecks::operator()(const TExpectSum& check) const
{
    const auto stage = Stage();
    const TValue got(stage.Rows(check.grid).Sum(stage.Field(check.grid, check.column).Name()));
    if (!SameValue(check.value, got))
        throw EMismatch{check.value.text, got.AsString()};
}

void TChecks::operator()(const TExpectCell& check) const
{
    const auto stage = Stage();
    const auto row = stage.Row(check.grid, check.row);
    const auto& field = stage.Field(check.grid, check.column);
    const auto& rows = stage.Rows(check.grid);
    const auto got = rows.CellValue(row, field);
    if (!SameCell(check.value, got) && !SameShown(check.value.text, rows.CellText(row, field)))
        throw EMismatch{Written(check.value), Written(got)};
}

void TChecks::operator()(const TExpectItems& check) const
{
    const auto stage = Stage();
    const auto got = stage.Items(check.control);
    if (!std::ranges::equal(check.items, got, TextMatches))
        throw EMismatch{Texts(check.items), Texts(got)};
}

void TChecks::operator()(const TExpectColumn& check) const
{
    const auto stage = Stage();
    const auto& grid = stage.Grid(check.grid);
    const auto& field = stage.Column(grid, check.column).field;
    switch (check.state) {
    case TState::ReadOnly:
        return Expect(grid.ColumnReadOnly(field), check.column, "somenteleitura", "editavel");
    case TState::Editable:
        return Expect(!grid.ColumnReadOnly(field), check.column, "editavel", "somenteleitura");
    case TState::Visible:
        return Expect(grid.ColumnVisible(field), check.column, "visivel", "invisivel");
    case TState::Invisible:
        return Expect(!grid.ColumnVisible(field), check.column, "invisivel", "visivel");
    default:
        break;
    }
}

/// The menu has been opened, as its items are shown and hidden by that.
void TChecks::operator()(const TExpectMenu& check) const
{
    const auto stage = Stage();
    const auto& item = stage.MenuItem(check.control, check.item);
    switch (check.state) {
    case TState::Visible:
        return Expect(item.Visible(), check.item, "visivel", "invisivel");
    case TState::Invisible:
        return Expect(!item.Visible(), check.item, "invisivel", "visivel");
    case TState::Enabled:
        return Expect(item.Enabled(), check.item, "habilitado", "desabilitado");
    case TState::Disabled:
        return Expect(!item.Enabled(), check.item, "desabilitado", "habilitado");
    default:
        break;
    }
}

void TChecks::operator()(const TExpectSql& check) const
{
    const auto got = check.pending ? Session().Query(check.statement) : world_.Query(check.statement);
    if (got.RowCount() != 1)
        throw EMismatch{Row(check.values), Counted(got.RowCount(), "rows")};
    if (!SameRow(check.values, got))
        throw EMismatch{Row(check.values), Row(got, 0)};
}

std::vector<std::string> TChecks::LogTexts(const std::string& module) const
{
    const auto lines
        = Session().Query("SELECT TEXTO FROM {GERALOG} WHERE MODULO = " + Aspas(module) + " ORDER BY IDENTIFICADOR");
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < lines.RowCount(); ++row)
        texts.emplace_back(lines.Column(0).Text(row));
    return texts;
}

void TChecks::operator()(const TExpectLog& check) const
{
    auto texts = LogTexts(check.module);
    if (check.last && texts.size() > 1)
        texts.erase(texts.begin(), texts.end() - 1);
    if (std::ranges::none_of(texts, [&](const auto& text) { return TextMatches(check.text, text); }))
        throw EMismatch{Quoted(check.text), Texts(texts)};
}

void TChecks::operator()(const TExpectLogRows& check) const
{
    const auto got = LogTexts(check.module).size();
    if (got != static_cast<std::size_t>(check.count))
        throw EMismatch{Counted(static_cast<std::size_t>(check.count), "lines"), Counted(got, "lines")};
}

void TChecks::operator()(const TExpectReport& check) const
{
    const auto got = Session().LastReport();
    const auto named = [](const std::string& layout) { return layout.empty() ? "no report" : Quoted(layout); };
    if (got != check.layout)
        throw EMismatch{named(check.layout), named(got)};
}

void TChecks::operator()(const TExpectReportText& check) const
{
    const auto got = Session().LastReportText();
    if (!TextMatches("…" + check.text + "…", got))
        throw EMismatch{Quoted(check.text), got.empty() ? "a report without text" : Quoted(got)};
}

void TChecks::operator()(const TExpectSound&) const
{
    std::string list;
    for (const auto& violation : world_.Violations())
        list.append("\n    ").append(violation);
    if (!list.empty())
        throw EMismatch{"no error in the tables", list};
}

} // namespace alinhavo::roteiro
