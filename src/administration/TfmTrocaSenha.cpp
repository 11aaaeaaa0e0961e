#include "administration/TfmTrocaSenha.h"

#include "administration/senhaNova.h"
#include "host/WriteWhole.h"

namespace alinhavo {

TfmTrocaSenha::TfmTrocaSenha(TApplication& application)
    : TOrvForm(application, Class, "Trocar senha")
{
    pnlSenha.SetCaption("Senha de " + Funcoes().vUsuario());
    btnTrocar.OnClick.connect(this, &TfmTrocaSenha::btnTrocarClick);
    btnFechar.OnClick.connect(this, &TfmTrocaSenha::btnFecharClick);
    OnClose.connect(this, &TfmTrocaSenha::TelaClose);
}

void TfmTrocaSenha::btnTrocarClick()
{
    if (!PodeTrocar())
        return;
    const auto usuario = Funcoes().vUsuarioCodigo();
    WriteWhole(Database(), [&] {
        App().Host.senhas.Grava(usuario, edtNova.text());
        GeraLog("USUARIOS", "Senha trocada pelo próprio usuário", TOperacaoLog::Alteracao, usuario);
    });
    Limpa();
    Mensagem("A senha foi trocada.");
    Close();
}

/// The present password comes last: looking at it takes time, and a wrong one counts.
bool TfmTrocaSenha::PodeTrocar()
{
    if (edtAtual.empty())
        return Recusa("Informe a senha atual.", edtAtual), false;
    const auto recusa = RecusaDaSenha({.senha = edtNova.text(),
        .repetida = edtRepetida.text(),
        .codigo = Funcoes().vUsuarioCodigo(),
        .nome = Funcoes().vUsuario()});
    if (!recusa.empty())
        return Recusa(recusa, edtNova), false;
    if (edtNova.text() == edtAtual.text())
        return Recusa("A nova senha é igual à atual.", edtNova), false;
    const auto errada = App().Host.senhas.Confere(edtAtual.text());
    if (!errada.empty()) {
        edtAtual.Clear();
        return Recusa(errada, edtAtual), false;
    }
    return true;
}

void TfmTrocaSenha::btnFecharClick() { Close(); }

void TfmTrocaSenha::TelaClose() { Limpa(); }

void TfmTrocaSenha::Limpa()
{
    edtAtual.Clear();
    edtNova.Clear();
    edtRepetida.Clear();
}

} // namespace alinhavo
