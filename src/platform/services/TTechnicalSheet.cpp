#include "platform/services/TTechnicalSheet.h"

namespace alinhavo {
namespace {

/// The consumption of one stock history that was posted for the order under an input's name, returns taken off.
void AddTaken(
    TStatement& sql, const char* history, const char* input, const char* colour, bool ofPart, const char* name)
{
    sql.Add(R"(,
        COALESCE((SELECT SUM(CASE WHEN X.SAIDA = 'S' THEN X.QUANTIDADE ELSE -X.QUANTIDADE END) FROM {?} X
                   WHERE X.DOCUMENTO = F.NUMERO AND X.ORIGEM = 'BC' AND X.CODIGO = F.? AND X.COR = F.?)",
        TName(history), TName(input), TName(colour));
    if (ofPart)
        sql.Add(" AND X.PARTE = F.PARTE");
    sql.Add("), 0) AS ?", TName(name));
}

} // namespace

void TTechnicalSheet::Load(const TFiltroPCPFTOF& filter, TOrvQuery& query)
{
    const bool ofPart = !filter.parte.empty();
    TStatement sql(R"(
        SELECT F.TIPO, F.INSUMO, F.COR, COALESCE(NULLIF(F.TAM, ''), I.TAM) AS TAM, F.PARTE, F.SETOR, F.COR_I, C.DESCRICAO AS DESCCOR_I, F.SITUACAO, F.FAIXA,
               CASE WHEN F.TIPO = 'M' THEN M.DESCRICAO ELSE P.DESCRICAO END AS DESCRICAO,
               CASE WHEN F.TIPO = 'M' THEN M.UNIDADE ELSE P.UNIDADE END AS UNIDADE,
               CASE WHEN F.TIPO = 'M' THEN M.GRUPO ELSE P.GRUPO END AS GRUPO,
               F.CONSUMO,
               F.CONSUMO * (COALESCE(I.QTDE, 0) + COALESCE(I.QTDE_B, 0)) AS CONSUMO_TOTAL,
               COALESCE((SELECT SUM(S.QTDE) FROM {MAT_ITEN} S
                   WHERE S.CODIGO = F.INSUMO AND S.COR = F.COR_I), 0) AS QTDE_EST,
               COALESCE((SELECT SUM(S.QUANTIDADE) FROM {PA_ITEN} S
                   WHERE S.CODIGO = F.INSUMO AND S.COR = F.COR_I AND S.TAM = '0'), 0) AS QTDE_EST_PROD)");
    AddTaken(sql, "MAT_MOV", "INSUMO", "COR_I", ofPart, "QTDE_BAI");
    AddTaken(sql, "MAT_MOV", "INSUMO_ORIG", "COR_I_ORIG", ofPart, "QTDE_BAI_SUBS");
    AddTaken(sql, "PA_MOV", "INSUMO", "COR_I", ofPart, "QTDE_BAI_PROD");
    AddTaken(sql, "PA_MOV", "INSUMO_ORIG", "COR_I_ORIG", ofPart, "QTDE_BAI_SUBS_PROD");
    sql.Add(R"(
          FROM {PCPFTOF} F
          LEFT JOIN {OF_ITEN} I
            ON I.NUMERO = F.NUMERO AND I.COR = F.COR AND I.TAM = COALESCE(NULLIF(F.TAM, ''), I.TAM)
          LEFT JOIN {MATERIAL} M ON M.CODIGO = F.INSUMO
          LEFT JOIN {PRODUTO} P ON P.CODIGO = F.INSUMO
          LEFT JOIN {CADCOR} C ON C.COR = F.COR_I
         WHERE F.NUMERO = ?)",
        filter.numero);
    if (!filter.setor.empty())
        sql.Add(" AND F.SETOR = ?", filter.setor);
    if (ofPart)
        sql.Add(" AND F.PARTE = ?", filter.parte);
    if (!filter.grupo.empty())
        sql.Add(" AND F.TIPO = 'M' AND M.GRUPO = ?", filter.grupo);
    query.SQL = sql.Add(" ORDER BY F.ID, F.IDENTIFICADOR, I.TAM");
    query.Open();
}

} // namespace alinhavo
