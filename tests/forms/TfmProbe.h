#pragma once

#include "forms/TButton.h"
#include "forms/TDateEdit.h"
#include "forms/TEdit.h"
#include "forms/TMemo.h"
#include "forms/TPanel.h"
#include "TScriptedUser.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace alinhavo {

/// A screen that keeps a journal of what its controls are told.
class TfmProbe final : public TForm {
public:
    explicit TfmProbe(TApplication& app)
        : TForm(app, "TfmProbe", "Pro&va")
    {
        for (auto* control : ControlsInOrder()) {
            control->OnEnter.connect([this, control] { Journal.push_back("enter " + control->Name()); });
            control->OnExit.connect([this, control] { Journal.push_back("exit " + control->Name()); });
        }
        btnOk.OnClick.connect([this] { Journal.emplace_back("click"); });
        btnCancela.OnClick.connect([this] { Journal.emplace_back("cancel"); });
    }

    std::vector<std::string> Journal;

    TEdit edtA{*this, "edtA", {.caption = "&A", .maxLength = 5}};
    TEdit edtB{*this, "edtB", {.upperCase = true}};
    TEdit edtShown{*this, "edtShown", {.readOnly = true}};
    TPanel pnl{*this, "pnl"};
    TEdit edtC{pnl, "edtC"};
    TMemo mmObs{pnl, "mmObs"};
    TButton btnOk{*this, "btnOk", {.caption = "&Ok", .shortcut = "F2", .role = TButtonRole::Default}};
    TButton btnCancela{*this, "btnCancela", {.caption = "&Cancela", .role = TButtonRole::Cancel}};
    TButton btnLupa{*this, "btnLupa", {.shortcut = "F8", .takesFocus = false}};

    /// What was told since the last call.
    std::vector<std::string> Told() { return std::exchange(Journal, {}); }
};

/// An application with the screen shown and a person before it.
class ProbeTest : public testing::Test {
protected:
    ProbeTest()
    {
        user.Uses(app);
        form.Show();
        form.Told();
        user.Changed();
    }
    ~ProbeTest() override { EXPECT_EQ(user.Unused(), 0U); }

    using TJournal = std::vector<std::string>;

    TScriptedUser user;
    TApplication app{user, &user};
    TfmProbe form{app};
};

} // namespace alinhavo
