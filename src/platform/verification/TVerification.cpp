#include "platform/verification/TVerification.h"

namespace alinhavo {

namespace {

constexpr auto Error = TSeverity::Error;
constexpr auto Remark = TSeverity::Remark;

std::vector<TInvariant> LinesAgainstHistory()
{
    return {
        {"historico", Error, "As quantidades que saíram da posição não são as do seu histórico", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
              LEFT JOIN (SELECT ID_ANT, SUM(QUANT) AS QUANT, SUM(QUANT_2) AS QUANT_2, SUM(QUANT_I) AS QUANT_I,
                                SUM(QUANT_F) AS QUANT_F
                           FROM {FACCAO3} GROUP BY ID_ANT) H ON H.ID_ANT = F.IDENTIFICADOR
             WHERE ABS(COALESCE(F.QUANT, 0) - COALESCE(H.QUANT, 0)) > 0.0001
                OR ABS(COALESCE(F.QUANT_2, 0) - COALESCE(H.QUANT_2, 0)) > 0.0001
                OR ABS(COALESCE(F.QUANT_I, 0) - COALESCE(H.QUANT_I, 0)) > 0.0001
                OR ABS(COALESCE(F.QUANT_F, 0) - COALESCE(H.QUANT_F, 0)) > 0.0001
             ORDER BY F.IDENTIFICADOR)"},
        {"origem_do_historico", Error, "O movimento não tem a posição de que saiu", R"(
            SELECT H.NUMERO, H.OP, H.PARTE, H.COR, H.TAM, H.IDENTIFICADOR
              FROM {FACCAO3} H
              LEFT JOIN {FACCAO} F ON F.IDENTIFICADOR = H.ID_ANT AND F.NUMERO = H.NUMERO AND F.OP = H.OP
                                  AND F.PARTE = H.PARTE AND F.CODIGO = H.CODIGO
                                  AND COALESCE(F.COR, '') = COALESCE(H.COR, '') AND COALESCE(F.TAM, '') = COALESCE(H.TAM, '')
             WHERE F.IDENTIFICADOR IS NULL
             ORDER BY H.IDENTIFICADOR)"},
        // The lines of other parts that leave the last sector with the grid's have a history without a reprocess column,
        // and are written even when nothing is left for them.
        {"movimento_vazio", Error, "O movimento não levou quantidade alguma", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO3}
             WHERE COALESCE(QUANT, 0) + COALESCE(QUANT_2, 0) + COALESCE(QUANT_I, 0) + COALESCE(QUANT_F, 0) = 0
               AND REPROCESSO IS NOT NULL
             ORDER BY IDENTIFICADOR)"},
        {"movimento_vazio_de_parte", Remark, "A parte saiu junto sem quantidade", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO3}
             WHERE COALESCE(QUANT, 0) + COALESCE(QUANT_2, 0) + COALESCE(QUANT_I, 0) + COALESCE(QUANT_F, 0) = 0
               AND REPROCESSO IS NULL
             ORDER BY IDENTIFICADOR)"},
        {"quantidade_negativa", Error, "A posição tem quantidade negativa", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO} WHERE QT_ORIG < 0 OR QUANT < 0 OR QUANT_2 < 0 OR QUANT_I < 0 OR QUANT_F < 0
             ORDER BY IDENTIFICADOR)"},
        {"movimento_negativo", Error, "O movimento tem quantidade negativa", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO3} WHERE QUANT < 0 OR QUANT_2 < 0 OR QUANT_I < 0 OR QUANT_F < 0
             ORDER BY IDENTIFICADOR)"},
        {"excesso", Remark, "Saiu do setor mais do que entrou", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO} WHERE QUANT + QUANT_2 + QUANT_I + QUANT_F - QT_ORIG > 0.0001
             ORDER BY IDENTIFICADOR)"},
        {"fracao", Remark, "O movimento tem fração de peça", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO3}
             WHERE QUANT <> FLOOR(QUANT) OR QUANT_2 <> FLOOR(QUANT_2) OR QUANT_I <> FLOOR(QUANT_I)
                OR QUANT_F <> FLOOR(QUANT_F)
             ORDER BY IDENTIFICADOR)"},
    };
}

std::vector<TInvariant> TreeOfLines()
{
    return {
        {"posicao_anterior", Error, "A posição de que esta veio não existe, ou é de outra OF, parte, cor ou tamanho",
            R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
              LEFT JOIN {FACCAO} P ON P.IDENTIFICADOR = F.ID_ANT AND P.NUMERO = F.NUMERO AND P.PARTE = F.PARTE
                                  AND P.CODIGO = F.CODIGO AND COALESCE(P.COR, '') = COALESCE(F.COR, '')
                                  AND COALESCE(P.TAM, '') = COALESCE(F.TAM, '')
             WHERE F.ID_ANT > 0 AND P.IDENTIFICADOR IS NULL
             ORDER BY F.IDENTIFICADOR)"},
        {"ordem_das_posicoes", Error, "A posição é mais antiga que aquela de que veio", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO} WHERE ID_ANT >= IDENTIFICADOR
             ORDER BY IDENTIFICADOR)"},
        // A line stands in one sector once for each movement that fed it, so what was opened can't pass what was moved;
        // less is opened where a supervisor closed lines without opening the next sector.
        {"aberto_contra_movido", Error, "Abriu-se no próximo setor mais do que saiu como bom", R"(
            SELECT P.NUMERO, P.OP, P.PARTE, P.COR, P.TAM, P.IDENTIFICADOR
              FROM {FACCAO} P
              JOIN (SELECT ID_ANT, SUM(QT_ORIG) AS QT_ORIG FROM {FACCAO} WHERE ID_ANT > 0 GROUP BY ID_ANT) C
                ON C.ID_ANT = P.IDENTIFICADOR
             WHERE C.QT_ORIG - P.QUANT > 0.0001
             ORDER BY P.IDENTIFICADOR)"},
        {"movimento_da_posicao", Error, "A posição foi aberta sem um movimento com a sua quantidade e número", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
             WHERE F.ID_ANT > 0
               AND NOT EXISTS (SELECT 1 FROM {FACCAO3} H
                                WHERE H.ID_ANT = F.ID_ANT AND H.MOV = F.MOV AND ABS(H.QUANT - F.QT_ORIG) <= 0.0001)
             ORDER BY F.IDENTIFICADOR)"},
        {"um_fluxo", Error, "A parte da OF tem posições de mais de um fluxo", R"(
            SELECT NUMERO, PARTE
              FROM {FACCAO} GROUP BY NUMERO, PARTE
             HAVING MIN(COALESCE(FLUXO, '')) <> MAX(COALESCE(FLUXO, ''))
             ORDER BY NUMERO, PARTE)"},
        {"setor_fora_do_fluxo", Remark, "A posição está em um setor que não é do seu fluxo", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.FLUXO
              FROM {FACCAO} F
             WHERE NOT EXISTS (SELECT 1 FROM {FLUXO} L WHERE L.CODIGO = F.FLUXO AND L.SETOR = F.OP)
             GROUP BY F.NUMERO, F.OP, F.PARTE, F.FLUXO ORDER BY F.NUMERO, F.OP, F.PARTE)"},
        {"grade_parcial", Remark, "A posição não distingue cor ou tamanho", R"(
            SELECT NUMERO, OP, PARTE
              FROM {FACCAO} WHERE COALESCE(COR, '') = '' OR COALESCE(TAM, '') = ''
             GROUP BY NUMERO, OP, PARTE ORDER BY NUMERO, OP, PARTE)"},
    };
}

std::vector<TInvariant> Orders()
{
    return {
        {"ordem", Error, "A posição é de uma OF que não existe", R"(
            SELECT F.NUMERO FROM {FACCAO} F LEFT JOIN {OF1} O ON O.NUMERO = F.NUMERO
             WHERE O.NUMERO IS NULL GROUP BY F.NUMERO ORDER BY F.NUMERO)"},
        {"ativos", Error, "As peças abertas da OF não são a soma da sua grade", R"(
            SELECT O.NUMERO
              FROM {OF1} O
              LEFT JOIN (SELECT NUMERO, SUM(QTDE) AS QTDE FROM {OF_ITEN} GROUP BY NUMERO) I ON I.NUMERO = O.NUMERO
             WHERE O.FAC_QTDE = 'S' AND ABS(COALESCE(O.ATIVOS, 0) - COALESCE(I.QTDE, 0)) >= 1
             ORDER BY O.NUMERO)"},
        // Only whole pieces of parts that keep the order in step count, and only what the grid itself moved: lines of
        // other parts that left with it have a history without a reprocess column.
        {"canceladas", Error, "As peças canceladas da OF são menos que as perdas em produção", R"(
            SELECT H.NUMERO, H.COR, H.TAM
              FROM (SELECT X.NUMERO, X.COR, X.TAM, SUM(FLOOR(X.QUANT_2) + FLOOR(X.QUANT_I) + FLOOR(X.QUANT_F)) AS PERDAS
                      FROM {FACCAO3} X JOIN {TIPO_APL} T ON T.CODIGO = X.PARTE AND T.ATUALIZA = 'S'
                     WHERE X.REPROCESSO IS NOT NULL
                     GROUP BY X.NUMERO, X.COR, X.TAM) H
              JOIN {OF_ITEN} I ON I.NUMERO = H.NUMERO AND I.COR = H.COR AND I.TAM = H.TAM
             WHERE H.PERDAS > COALESCE(I.QTDE_C, 0)
             ORDER BY H.NUMERO, H.COR, H.TAM)"},
        {"item_negativo", Remark, "A OF tem peças abertas negativas", R"(
            SELECT NUMERO, COR, TAM FROM {OF_ITEN} WHERE QTDE < 0 ORDER BY NUMERO, COR, TAM)"},
        {"item_pronto_negativo", Error, "A OF tem peças prontas ou canceladas negativas", R"(
            SELECT NUMERO, COR, TAM FROM {OF_ITEN} WHERE QTDE_B < 0 OR QTDE_C < 0 ORDER BY NUMERO, COR, TAM)"},
        {"valor", Remark, "O valor do movimento não é o preço vezes as peças pagas pelo setor", R"(
            SELECT H.NUMERO, H.OP, H.PARTE, H.COR, H.TAM, H.IDENTIFICADOR
              FROM {FACCAO3} H JOIN {CADFLUXO} S ON S.CODIGO = H.OP
             WHERE ABS(COALESCE(H.VALOR, 0) - COALESCE(H.UNITARIO, 0)
                       * CASE S.IND_PAG WHEN 1 THEN H.QUANT WHEN 2 THEN H.QUANT + H.QUANT_2
                                        WHEN 3 THEN H.QUANT + H.QUANT_2 + H.QUANT_I WHEN 4 THEN H.QUANT + H.QUANT_I
                                        ELSE 0 END) > 0.005
             ORDER BY H.IDENTIFICADOR)"},
    };
}

std::vector<TInvariant> Stock()
{
    return {
        {"estoque_de_produtos", Error, "O estoque do produto não é a soma do seu histórico", R"(
            SELECT E.CODIGO, E.COR, E.TAM, E.QUALIDADE, E.DEPOSITO, E.LOTE
              FROM (SELECT CODIGO, COALESCE(COR, '') AS COR, COALESCE(TAM, '') AS TAM, COALESCE(TIPO, '') AS QUALIDADE,
                           COALESCE(DEPOSITO, '') AS DEPOSITO, COALESCE(LOTE, '') AS LOTE, COALESCE(QUANTIDADE, 0) AS QTDE
                      FROM {PA_ITEN}
                    UNION ALL
                    SELECT CODIGO, COALESCE(COR, ''), COALESCE(TAM, ''), COALESCE(QUALIDADE, ''), COALESCE(DEPOSITO, ''),
                           COALESCE(LOTE, ''), CASE WHEN SAIDA = 'S' THEN QUANTIDADE ELSE -QUANTIDADE END
                      FROM {PA_MOV}) E
             GROUP BY E.CODIGO, E.COR, E.TAM, E.QUALIDADE, E.DEPOSITO, E.LOTE
             HAVING ABS(SUM(E.QTDE)) > 0.0001
             ORDER BY E.CODIGO, E.COR, E.TAM, E.QUALIDADE, E.DEPOSITO, E.LOTE)"},
        {"estoque_de_materiais", Error, "O estoque do material não é a soma do seu histórico", R"(
            SELECT E.CODIGO, E.COR, E.QUALIDADE, E.DEPOSITO, E.LOTE
              FROM (SELECT CODIGO, COALESCE(COR, '') AS COR, COALESCE(QUALIDADE, '') AS QUALIDADE,
                           COALESCE(DEPOSITO, '') AS DEPOSITO, COALESCE(LOTE, '') AS LOTE, COALESCE(QTDE, 0) AS QTDE
                      FROM {MAT_ITEN}
                    UNION ALL
                    SELECT CODIGO, COALESCE(COR, ''), COALESCE(QUALIDADE, ''), COALESCE(DEPOSITO, ''), COALESCE(LOTE, ''),
                           CASE WHEN SAIDA = 'S' THEN QUANTIDADE ELSE -QUANTIDADE END
                      FROM {MAT_MOV}) E
             GROUP BY E.CODIGO, E.COR, E.QUALIDADE, E.DEPOSITO, E.LOTE
             HAVING ABS(SUM(E.QTDE)) > 0.0001
             ORDER BY E.CODIGO, E.COR, E.QUALIDADE, E.DEPOSITO, E.LOTE)"},
        {"entrada_no_estoque", Error, "O movimento diz que entrou no estoque, e a OF não tem entrada", R"(
            SELECT H.NUMERO, H.CODIGO
              FROM {FACCAO3} H
             WHERE H.ESTOQUE = 'S'
               AND NOT EXISTS (SELECT 1 FROM {PA_MOV} M WHERE M.DOCUMENTO = H.NUMERO AND M.CODIGO = H.CODIGO AND M.ORIGEM = 'FC')
             GROUP BY H.NUMERO, H.CODIGO ORDER BY H.NUMERO, H.CODIGO)"},
    };
}

std::string Keys(const TTableData& rows, std::size_t row)
{
    std::string keys;
    for (std::size_t column = 0; column < rows.ColumnCount(); ++column)
        keys
            += (keys.empty() ? "" : " ") + rows.Column(column).Name() + "=" + rows.Column(column).Value(row).AsString();
    return keys;
}

} // namespace

const std::vector<TInvariant>& Invariants()
{
    static const std::vector<TInvariant> all = [] {
        std::vector<TInvariant> invariants;
        for (auto& group : {LinesAgainstHistory(), TreeOfLines(), Orders(), Stock()})
            invariants.insert(invariants.end(), group.begin(), group.end());
        return invariants;
    }();
    return all;
}

std::vector<TViolation> Verify(TOrvDatabase& database)
{
    std::vector<TViolation> violations;
    for (const TInvariant& invariant : Invariants()) {
        const TTableData rows = database.Open(TStatement(invariant.statement));
        for (std::size_t row = 0; row < rows.RowCount(); ++row)
            violations.push_back({invariant.severity, invariant.name, invariant.text, Keys(rows, row)});
    }
    return violations;
}

} // namespace alinhavo
