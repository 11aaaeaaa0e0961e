#pragma once

#include "forms/TDateTime.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// The lines of a roteiro, one type for each form of the language (docs/roteiros.md). Names of controls, columns and
/// screens are as written; texts are without their quotes.
namespace alinhavo::roteiro {

/// A value as written. An unquoted `nulo` is the database's null.
struct TText {
    std::string text;
    bool quoted = false;

    bool IsNull() const { return !quoted && text == "nulo"; }
    friend bool operator==(const TText&, const TText&) = default;
};

/// COLUMN=value.
struct TMatch {
    std::string column;
    std::string value;
};
/// A row by what stands in it: all of the values at once.
using TMatches = std::vector<TMatch>;
/// A row of a grid or table: its number, from 1, or what stands in it.
using TRowName = std::variant<int, TMatches>;

// The world around the application.

enum class TFactory { Empty, Demonstration };
struct TDatabase {
    TFactory factory;
};
struct TParameter {
    std::string group;
    int number;
    std::string value;
};
struct TSetting {
    std::string name;
    std::string value;
};
struct TSql {
    std::string statement;
};
struct TReading {
    std::string code;
    double quantity;
};
struct TRfid {
    std::string batch;
    std::vector<TReading> readings;
    std::optional<std::string> failure;
};
struct TToday {
    TDateTime now;
};
struct TUser {
    std::string name;
};
struct TSwitchSession {
    std::string name;
};
struct TPlannedFailure {
    int count;
    std::string prefix; ///< of the statements that count; empty: all
    std::string text;
};

// What a person does.

struct TOpen {
    std::string screen;
};
struct TClose {
    std::string screen;
};
struct TActivate {
    std::string screen;
};
struct TClick {
    std::string control;
};
struct TFill {
    std::string control;
    std::string text;
};
struct TPass {
    std::string control;
};
struct TWrite {
    std::string control;
    std::string text;
};
struct TChoose {
    std::string control;
    std::string item;
};
struct TCheck {
    std::string control;
    bool checked;
};
struct TTurn {
    std::string control;
    std::string page;
};
struct TPress {
    std::string control;
    std::string key;
};
struct TFillCell {
    std::string grid;
    TRowName row;
    std::string column;
    std::string text;
};
struct TGoToRow {
    std::string grid;
    TRowName row;
};
struct TDoubleClick {
    std::string grid;
    TRowName row;
};
struct TPaste {
    std::string grid;
    std::vector<std::string> rows; ///< each with its cells between "|"
};
struct TMenu {
    std::string control;
    std::string column; ///< that it opens on; empty: the current one
    std::string item;
};
struct TTitleClick {
    std::string grid;
    std::string column;
};

// What must be so.

enum class TState { Enabled, Disabled, Visible, Invisible, Focused, Checked, Unchecked, ReadOnly, Editable };
struct TExpectText {
    std::string control;
    TText value;
};
struct TExpectState {
    std::string control;
    TState state;
};
struct TExpectRows {
    std::string grid;
    int count;
};
struct TExpectSum {
    std::string grid;
    std::string column;
    TText value;
};
struct TExpectCell {
    std::string grid;
    TRowName row;
    std::string column;
    TText value;
};
struct TExpectItems {
    std::string control;
    std::vector<std::string> items;
};
struct TExpectColumn {
    std::string grid;
    std::string column;
    TState state;
};
struct TExpectMenu {
    std::string control;
    std::string column;
    std::string item;
    TState state;
};
struct TExpectSql {
    std::string statement;
    bool pending;
    std::vector<TText> values;
};
struct TExpectLog {
    std::string module;
    std::string text;
    bool last;
};
struct TExpectLogRows {
    std::string module;
    int count;
};
struct TExpectReport {
    std::string layout; ///< empty: none
};
struct TExpectReportText {
    std::string text;
};
struct TExpectSound { }; ///< no error among the tables of production

// The dialogs that an action raises.

enum class TAnswer { Yes, No, Cancel, Ok, Enter, Esc };
struct TMessage {
    std::string text;
    std::optional<std::string> title;
};
struct TQuestion {
    std::string text;
    TAnswer answer;
    std::optional<std::string> title;
};
struct TInput {
    std::string title;
    std::string prompt;
    std::optional<std::string> value; ///< none: cancelled
};
struct TLookup {
    enum class TKind { Pick, Cancel, NotOffered };
    TKind kind;
    std::vector<TMatches> rows;
};
struct TSupervisor {
    std::optional<std::string> name; ///< none: refused
};
struct TFile {
    std::optional<std::string> name; ///< none: cancelled
};
struct TModal {
    std::string screen;
};

using TStep = std::variant<TDatabase, TParameter, TSetting, TSql, TRfid, TToday, TUser, TSwitchSession, TPlannedFailure,
    TOpen, TClose, TActivate, TClick, TFill, TPass, TWrite, TChoose, TCheck, TTurn, TPress, TFillCell, TGoToRow,
    TDoubleClick, TPaste, TMenu, TTitleClick, TExpectText, TExpectState, TExpectRows, TExpectSum, TExpectCell,
    TExpectItems, TExpectColumn, TExpectMenu, TExpectSql, TExpectLog, TExpectLogRows, TExpectReport, TExpectReportText,
    TExpectSound, TMessage, TQuestion, TInput, TLookup, TSupervisor, TFile, TModal>;

/// Where a line stands.
struct TPlace {
    std::string file;
    int line = 0;
};

struct TLine {
    TPlace place;
    std::string source; ///< as written, without indentation and comment
    TStep step;
    std::vector<TLine> inner; ///< the dialogs that it raises; of a modal screen, what is done in it
};

/// Stands for something that an action raises and waits for.
bool IsDialog(const TStep& step);
/// Something that a person does to a screen; only this raises dialogs.
bool IsUserAction(const TStep& step);

} // namespace alinhavo::roteiro
