#include "administration/TfmDefineSenha.h"

#include "administration/senhaNova.h"
#include "host/WriteWhole.h"

#include <utility>

namespace alinhavo {

TfmDefineSenha::TfmDefineSenha(TApplication& application)
    : TOrvForm(application, Class, "Definir senha")
{
    btnConfirmar.OnClick.connect(this, &TfmDefineSenha::btnConfirmarClick);
    btnDesistir.OnClick.connect(this, &TfmDefineSenha::btnDesistirClick);
    OnClose.connect(this, &TfmDefineSenha::TelaClose);
}

void TfmDefineSenha::DefineUsuario(std::string codigo, std::string nome)
{
    codigo_ = std::move(codigo);
    nome_ = std::move(nome);
    pnlSenha.SetCaption("Senha de " + nome_);
}

void TfmDefineSenha::btnConfirmarClick()
{
    const auto recusa
        = RecusaDaSenha({.senha = edtNova.text(), .repetida = edtRepetida.text(), .codigo = codigo_, .nome = nome_});
    if (!recusa.empty())
        return Recusa(recusa, edtNova);
    WriteWhole(Database(), [&] {
        App().Host.senhas.Grava(codigo_, edtNova.text());
        GeraLog("USUARIOS", "Senha do usuário " + nome_ + " definida", TOperacaoLog::Alteracao, codigo_);
    });
    Close();
    Mensagem("A senha de " + nome_ + " foi definida.");
}

void TfmDefineSenha::btnDesistirClick() { Close(); }

void TfmDefineSenha::TelaClose()
{
    edtNova.Clear();
    edtRepetida.Clear();
}

} // namespace alinhavo
