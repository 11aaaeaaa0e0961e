#pragma once

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "forms/TGroupBox.h"
#include "forms/TLabel.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"

namespace alinhavo {

/// "Trocar senha": a user gives himself another password. It needs no right but that of opening the screen.
class TfmTrocaSenha final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmTrocaSenha";

    explicit TfmTrocaSenha(TApplication& application);

    TGroupBox pnlSenha{*this, "pnlSenha"};
    TEdit edtAtual{pnlSenha, "edtAtual", {.caption = "Senha &atual", .maxLength = 200, .password = true}};
    TEdit edtNova{pnlSenha, "edtNova", {.caption = "&Nova senha", .maxLength = 50, .password = true}};
    TEdit edtRepetida{pnlSenha, "edtRepetida", {.caption = "&Repita a nova senha", .maxLength = 50, .password = true}};
    TLabel lblRegra{pnlSenha, "lblRegra",
        {.caption = "De 8 a 50 caracteres. Várias palavras são mais fáceis de lembrar e mais difíceis de adivinhar."}};
    TRow pnlControle{*this, "pnlControle"};
    TButton btnTrocar{pnlControle, "btnTrocar", {.caption = "&Trocar senha", .role = TButtonRole::Default}};
    TButton btnFechar{pnlControle, "btnFechar", {.caption = "&Fechar", .role = TButtonRole::Cancel}};

    void btnTrocarClick();
    void btnFecharClick();
    void TelaClose();

private:
    bool PodeTrocar();
    void Limpa();
};

} // namespace alinhavo
