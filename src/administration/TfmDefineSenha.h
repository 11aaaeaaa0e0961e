#pragma once

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "forms/TGroupBox.h"
#include "forms/TLabel.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"

#include <string>

namespace alinhavo {

/// "Definir senha": a supervisor gives a user a password, the first one or in place of one that was forgotten. The screen that
/// runs it has asked for the supervisor.
class TfmDefineSenha final : public TOrvForm {
public:
    static constexpr const char* Class = "TfmDefineSenha";

    explicit TfmDefineSenha(TApplication& application);

    TGroupBox pnlSenha{*this, "pnlSenha"};
    TEdit edtNova{pnlSenha, "edtNova", {.caption = "&Nova senha", .maxLength = 50, .password = true}};
    TEdit edtRepetida{pnlSenha, "edtRepetida", {.caption = "&Repita a nova senha", .maxLength = 50, .password = true}};
    TLabel lblRegra{
        pnlSenha, "lblRegra", {.caption = "De 8 a 50 caracteres. Quem a recebe deve trocá-la em \"Trocar senha\"."}};
    TRow pnlControle{*this, "pnlControle"};
    TButton btnConfirmar{pnlControle, "btnConfirmar", {.caption = "&Confirmar", .role = TButtonRole::Default}};
    TButton btnDesistir{pnlControle, "btnDesistir", {.caption = "&Desistir", .role = TButtonRole::Cancel}};

    /// Whose password it is. Before it is shown.
    void DefineUsuario(std::string codigo, std::string nome);

    void btnConfirmarClick();
    void btnDesistirClick();
    void TelaClose();

private:
    std::string codigo_;
    std::string nome_;
};

} // namespace alinhavo
