#include "host/TfmLog.h"

namespace alinhavo {

TfmLog::TfmLog(TApplication& application)
    : TOrvForm(application, Class, "Log de alterações")
{
    btnConsultar.OnClick.connect(this, &TfmLog::btnConsultarClick);
    btnFechar.OnClick.connect(this, &TfmLog::btnFecharClick);
}

void TfmLog::Consulta(std::string_view modulo, std::string_view chave)
{
    edtModulo.SetText(modulo);
    edtChave.SetText(chave);
    btnConsultarClick();
}

void TfmLog::btnConsultarClick()
{
    TStatement sql(R"(
        SELECT DATA_HORA, USUARIO, MODULO, CHAVE, TEXTO,
               CASE OPERACAO WHEN 0 THEN 'Inclusão' WHEN 1 THEN 'Alteração' WHEN 2 THEN 'Exclusão'
                             WHEN 3 THEN 'Processo' WHEN 6 THEN 'Financeiro' END AS OPERACAO
          FROM {GERALOG} WHERE 1 = 1)");
    if (!edtModulo.empty())
        sql.Add(" AND MODULO = ?", edtModulo.text());
    if (!edtChave.empty())
        sql.Add(" AND CHAVE = ?", edtChave.text());
    sql.Add(" ORDER BY IDENTIFICADOR DESC FETCH FIRST 1000 ROWS ONLY");

    const auto busy = Ocupado();
    QryLog.SQL = sql;
    QryLog.Open();
}

void TfmLog::btnFecharClick() { Close(); }

} // namespace alinhavo
