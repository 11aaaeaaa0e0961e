#include "host/TfmLog.h"

#include "forms/text.h"

#include <array>

namespace alinhavo {
namespace {

/// The text anywhere, its own wildcards taken as they stand.
std::string Parte(std::string_view texto)
{
    auto parte = UpperCase(texto);
    for (const auto* curinga : {"!", "%", "_"})
        parte = Replace(parte, curinga, std::string("!") + curinga);
    return "%" + parte + "%";
}

} // namespace

TfmLog::TfmLog(TApplication& application)
    : TOrvForm(application, Class, "Registro de alterações")
{
    OnShow.connect(this, &TfmLog::TelaShow);
    btnConsultar.OnClick.connect(this, &TfmLog::btnConsultarClick);
    btnAnteriores.OnClick.connect(this, &TfmLog::btnAnterioresClick);
    btnLimpar.OnClick.connect(this, &TfmLog::btnLimparClick);
    btnFechar.OnClick.connect(this, &TfmLog::btnFecharClick);
    PqModulo.Serve(edtModulo);
    PqModulo.OnFechaPesquisa.connect(this, &TfmLog::PqModuloFechaPesquisa);
    PqUsuario.Serve(edtUsuario);
    PqUsuario.OnFechaPesquisa.connect(this, &TfmLog::PqUsuarioFechaPesquisa);
    PqModulo.Select = TStatement("SELECT MODULO, COUNT(*) AS LINHAS FROM {GERALOG} GROUP BY MODULO");
}

void TfmLog::TelaShow()
{
    if (!QryLog.Active())
        btnConsultarClick();
}

void TfmLog::Consulta(std::string_view modulo, std::string_view chave)
{
    edtModulo.SetText(modulo);
    edtChave.SetText(chave);
    btnConsultarClick();
    dbgLog.SetFocus();
}

void TfmLog::btnConsultarClick()
{
    linhas_ = FirstLines;
    Mostra();
}

/// The current line stays the current one.
void TfmLog::btnAnterioresClick()
{
    const auto linha = QryLog.RecNo();
    linhas_ *= 2;
    Mostra();
    if (linha > 0)
        QryLog.GoToRow(linha - 1);
    dbgLog.SetFocus();
}

void TfmLog::btnLimparClick()
{
    for (TTextControl* filtro :
        std::to_array<TTextControl*>({&edtModulo, &edtChave, &edtUsuario, &edtDataDe, &edtDataAte, &edtTexto}))
        filtro->Clear();
    edtModulo.SetFocus();
    btnConsultarClick();
}

void TfmLog::btnFecharClick() { Close(); }

void TfmLog::PqModuloFechaPesquisa() { edtModulo.SetText(PqModulo.RetornoPesquisa("MODULO").AsString()); }

void TfmLog::PqUsuarioFechaPesquisa() { edtUsuario.SetText(PqUsuario.RetornoPesquisa("NOME").AsString()); }

TStatement TfmLog::Filtro() const
{
    TStatement filtro(" WHERE 1 = 1");
    if (!edtModulo.empty())
        filtro.Add(" AND MODULO = ?", edtModulo.text());
    if (!edtChave.empty())
        filtro.Add(" AND CHAVE = ?", edtChave.text());
    if (!edtUsuario.empty())
        filtro.Add(" AND UPPER(USUARIO) = ?", UpperCase(edtUsuario.text()));
    if (!edtDataDe.empty())
        filtro.Add(" AND DATA_HORA >= ?", edtDataDe.Date());
    if (!edtDataAte.empty())
        filtro.Add(" AND DATA_HORA < ?", edtDataAte.Date().AddDays(1));
    if (!edtTexto.empty())
        filtro.Add(" AND UPPER(TEXTO) LIKE CAST(? AS VARCHAR(200)) ESCAPE '!'", Parte(edtTexto.text()));
    return filtro;
}

/// As many lines as were asked for: there may be others.
void TfmLog::Mostra()
{
    const auto busy = Ocupado();
    QryLog.SQL = TStatement(R"(
        SELECT DATA_HORA, USUARIO, MODULO, CHAVE, TEXTO,
               CASE OPERACAO WHEN 0 THEN 'Inclusão' WHEN 1 THEN 'Alteração' WHEN 2 THEN 'Exclusão'
                             WHEN 3 THEN 'Processo' WHEN 6 THEN 'Financeiro' END AS OPERACAO
          FROM {GERALOG})");
    QryLog.SQL.Add(Filtro()).Add(" ORDER BY IDENTIFICADOR DESC FETCH FIRST ? ROWS ONLY", linhas_);
    QryLog.Open();
    const auto lidas = static_cast<int>(QryLog.RecordCount());
    const bool haMais = lidas == linhas_;
    btnAnteriores.SetEnabled(haMais);
    lblLinhas.SetCaption(lidas == 0 ? "Nenhuma linha."
            : haMais                ? "As " + std::to_string(lidas) + " linhas mais novas."
            : lidas == 1            ? "1 linha."
                                    : std::to_string(lidas) + " linhas.");
}

} // namespace alinhavo
