#pragma once

#include "forms/TFieldControl.h"
#include "forms/TLabel.h"
#include "forms/TRow.h"
#include "host/TOrvTable.h"
#include "host/TPesquisa.h"

#include <memory>

namespace alinhavo {

class TfmTabela;

/// One column of the row that is on a tables screen: the control of its kind and, where it holds a code of another table,
/// the lookup and what the code means.
class TColumnControl final {
public:
    TColumnControl(TfmTabela& screen, TContainer& place, TOrvTable& row, const TColumnDecl& column);

    const TColumnDecl& Column() const { return column_; }
    TFieldControl& Control() const { return *control_; }
    TField& Field() const { return row_.FieldByName(column_.name); }
    /// Brings what the code means up to the row.
    void ShowMeaning();

private:
    std::unique_ptr<TRow> MakePair(TContainer& place) const;
    std::unique_ptr<TFieldControl> MakeControl(TContainer& place);
    std::unique_ptr<TFieldControl> MakeText(TContainer& place);
    std::unique_ptr<TFieldControl> MakeChoice(TContainer& place);
    std::string Name(std::string_view kind) const;
    void Exit();
    void Picked();

    TfmTabela& screen_;
    TOrvTable& row_;
    const TColumnDecl& column_;
    std::unique_ptr<TRow> pair_; ///< holds a code and its meaning together
    std::unique_ptr<TFieldControl> control_;
    std::unique_ptr<TPesquisa> lookup_;
    std::unique_ptr<TLabel> meaning_;
};

} // namespace alinhavo
