#pragma once

#include "forms/TButton.h"
#include "forms/TForm.h"
#include "forms/TRow.h"

namespace alinhavo {

/// "Folhas": reports that the factory's screens do not have.
class TfmFolhas final : public TForm {
public:
    explicit TfmFolhas(TApplication& app);

    TRow pnlBotoes{*this, "pnlBotoes"};
    TButton btnTexto{pnlBotoes, "btnTexto", {.caption = "&Texto"}};
    TButton btnLonga{pnlBotoes, "btnLonga", {.caption = "&Longa"}};
    TButton btnHostil{pnlBotoes, "btnHostil", {.caption = "&Hostil"}};

private:
    void btnTextoClick();
    void btnLongaClick();
    void btnHostilClick();
};

} // namespace alinhavo
