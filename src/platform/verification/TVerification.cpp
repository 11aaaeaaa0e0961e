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
        // What is left of a position that was deleted after, or while, it was moved is told apart below.
        {"origem_do_historico", Error, "O movimento não tem a posição de que saiu", R"(
            SELECT H.NUMERO, H.OP, H.PARTE, H.COR, H.TAM, H.IDENTIFICADOR
              FROM {FACCAO3} H
              LEFT JOIN {FACCAO} F ON F.IDENTIFICADOR = H.ID_ANT
             WHERE COALESCE(H.ID_ANT, 0) = 0 OR F.NUMERO <> H.NUMERO OR F.OP <> H.OP OR F.PARTE <> H.PARTE
                OR F.CODIGO <> H.CODIGO
                OR (F.IDENTIFICADOR > 0 AND (COALESCE(F.COR, '') <> COALESCE(H.COR, '')
                                             OR COALESCE(F.TAM, '') <> COALESCE(H.TAM, '')))
             ORDER BY H.IDENTIFICADOR)"},
        // A position of the first sector and one of a reprocess can be deleted after they were moved, and so can one that only
        // losses have left. A reversal takes any other back as well while another user moves it: neither looks again when it writes.
        {"historico_de_posicao_excluida", Remark, "A posição de que o movimento saiu foi excluída", R"(
            SELECT H.NUMERO, H.OP, H.PARTE, H.COR, H.TAM, H.IDENTIFICADOR
              FROM {FACCAO3} H
              LEFT JOIN {FACCAO} F ON F.IDENTIFICADOR = H.ID_ANT
             WHERE H.ID_ANT > 0 AND F.IDENTIFICADOR IS NULL
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
        {"quantidade_negativa", Error, "A posição tem quantidade de saída negativa", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO} WHERE QUANT < 0 OR QUANT_2 < 0 OR QUANT_I < 0 OR QUANT_F < 0
             ORDER BY IDENTIFICADOR)"},
        // Two users who send the same balance to reprocess take it off the position twice.
        {"original_negativa", Remark, "A posição tem quantidade de entrada negativa", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO} WHERE QT_ORIG < 0
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
        {"posicao_anterior", Error, "A posição de que esta veio é de outra OF, parte ou produto", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
              JOIN {FACCAO} P ON P.IDENTIFICADOR = F.ID_ANT
             WHERE P.NUMERO <> F.NUMERO OR P.PARTE <> F.PARTE OR P.CODIGO <> F.CODIGO
             ORDER BY F.IDENTIFICADOR)"},
        // The adjustment of a dispatch hangs the position of the new colour from the parent of the old one.
        {"cor_da_posicao_anterior", Remark, "A posição de que esta veio é de outra cor ou tamanho", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
              JOIN {FACCAO} P ON P.IDENTIFICADOR = F.ID_ANT
             WHERE COALESCE(P.COR, '') <> COALESCE(F.COR, '') OR COALESCE(P.TAM, '') <> COALESCE(F.TAM, '')
             ORDER BY F.IDENTIFICADOR)"},
        // Positions that a reprocess has emptied are deleted with the next adjustment of a dispatch, and the user may delete
        // some himself; one that should not have gone is missed by its history.
        {"posicao_anterior_excluida", Remark, "A posição de que esta veio foi excluída", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
              LEFT JOIN {FACCAO} P ON P.IDENTIFICADOR = F.ID_ANT
             WHERE F.ID_ANT > 0 AND P.IDENTIFICADOR IS NULL
             ORDER BY F.IDENTIFICADOR)"},
        {"ordem_das_posicoes", Error, "A posição é mais antiga que aquela de que veio", R"(
            SELECT NUMERO, OP, PARTE, COR, TAM, IDENTIFICADOR
              FROM {FACCAO} WHERE ID_ANT >= IDENTIFICADOR
             ORDER BY IDENTIFICADOR)"},
        // Less is opened than was moved where a supervisor closed lines without opening the next sector. A reprocess and the
        // adjustment of a dispatch open positions under the same parent with numbers that no movement of it bears.
        {"aberto_contra_movido", Error, "Abriu-se no próximo setor mais do que saiu como bom", R"(
            SELECT P.NUMERO, P.OP, P.PARTE, P.COR, P.TAM, P.IDENTIFICADOR
              FROM {FACCAO} P
              JOIN (SELECT F.ID_ANT, SUM(F.QT_ORIG) AS QT_ORIG
                      FROM {FACCAO} F
                     WHERE F.ID_ANT > 0 AND COALESCE(F.REPROCESSO, '') = ''
                       AND EXISTS (SELECT 1 FROM {FACCAO3} H WHERE H.ID_ANT = F.ID_ANT AND H.MOV = F.MOV)
                     GROUP BY F.ID_ANT) C
                ON C.ID_ANT = P.IDENTIFICADOR
             WHERE C.QT_ORIG - COALESCE(P.QUANT, 0) > 0.0001
             ORDER BY P.IDENTIFICADOR)"},
        {"movimento_da_posicao", Remark, "A posição foi aberta sem um movimento com o seu número", R"(
            SELECT F.NUMERO, F.OP, F.PARTE, F.COR, F.TAM, F.IDENTIFICADOR
              FROM {FACCAO} F
             WHERE F.ID_ANT > 0 AND COALESCE(F.REPROCESSO, '') = ''
               AND NOT EXISTS (SELECT 1 FROM {FACCAO3} H WHERE H.ID_ANT = F.ID_ANT AND H.MOV = F.MOV)
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
        // A reversal takes the packets along with their position; the user may delete a position and leave them.
        {"pacote_sem_posicao", Remark, "O pacote é de uma posição que não existe", R"(
            SELECT K.NUMERO, K.SETOR, K.PARTE, K.MOV, K.COR, K.TAM
              FROM {PCP_PACOTE} K
             WHERE NOT EXISTS (SELECT 1 FROM {FACCAO} F
                                WHERE F.NUMERO = K.NUMERO AND F.OP = K.SETOR AND F.PARTE = COALESCE(K.PARTE, F.PARTE)
                                  AND (COALESCE(K.MOV, 0) = 0 OR F.MOV = K.MOV)
                                  AND COALESCE(F.COR, '') IN ('', K.COR) AND COALESCE(F.TAM, '') IN ('', K.TAM))
             GROUP BY K.NUMERO, K.SETOR, K.PARTE, K.MOV, K.COR, K.TAM
             ORDER BY K.NUMERO, K.SETOR, K.PARTE, K.MOV, K.COR, K.TAM)"},
    };
}

std::vector<TInvariant> Orders()
{
    return {
        {"ordem", Error, "A posição é de uma OF que não existe", R"(
            SELECT F.NUMERO FROM {FACCAO} F LEFT JOIN {OF1} O ON O.NUMERO = F.NUMERO
             WHERE O.NUMERO IS NULL GROUP BY F.NUMERO ORDER BY F.NUMERO)"},
        // A reversal out of the last sector opens pieces of the grid alone, and of two confirmations at the same moment each
        // sums without the other; the next confirmation sets it right.
        {"ativos", Remark, "As peças abertas da OF não são a soma da sua grade", R"(
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
              JOIN (SELECT NUMERO, COUNT(DISTINCT PARTE) AS PARTES FROM {FACCAO} GROUP BY NUMERO) N ON N.NUMERO = H.NUMERO
             WHERE H.PERDAS > COALESCE(I.QTDE_C, 0) AND N.PARTES = 1
               AND COALESCE(I.QTDE_C, 0) = FLOOR(COALESCE(I.QTDE_C, 0))
             ORDER BY H.NUMERO, H.COR, H.TAM)"},
        // The reversal takes back losses that were never counted: those of a part that left with another, and the fractions.
        {"canceladas_estornadas", Remark,
            "As peças canceladas da OF são menos que as perdas em produção, em parte estornadas", R"(
            SELECT H.NUMERO, H.COR, H.TAM
              FROM (SELECT X.NUMERO, X.COR, X.TAM, SUM(FLOOR(X.QUANT_2) + FLOOR(X.QUANT_I) + FLOOR(X.QUANT_F)) AS PERDAS
                      FROM {FACCAO3} X JOIN {TIPO_APL} T ON T.CODIGO = X.PARTE AND T.ATUALIZA = 'S'
                     WHERE X.REPROCESSO IS NOT NULL
                     GROUP BY X.NUMERO, X.COR, X.TAM) H
              JOIN {OF_ITEN} I ON I.NUMERO = H.NUMERO AND I.COR = H.COR AND I.TAM = H.TAM
              JOIN (SELECT NUMERO, COUNT(DISTINCT PARTE) AS PARTES FROM {FACCAO} GROUP BY NUMERO) N ON N.NUMERO = H.NUMERO
             WHERE H.PERDAS > COALESCE(I.QTDE_C, 0) AND (N.PARTES > 1
                OR COALESCE(I.QTDE_C, 0) <> FLOOR(COALESCE(I.QTDE_C, 0)))
             ORDER BY H.NUMERO, H.COR, H.TAM)"},
        {"item_negativo", Remark, "A OF tem peças abertas negativas", R"(
            SELECT NUMERO, COR, TAM FROM {OF_ITEN} WHERE QTDE < 0 ORDER BY NUMERO, COR, TAM)"},
        // What is finished is limited to what is open, below zero too, and a reversal takes back losses that were not counted.
        {"item_pronto_negativo", Remark, "A OF tem peças prontas ou canceladas negativas", R"(
            SELECT NUMERO, COR, TAM FROM {OF_ITEN} WHERE QTDE_B < 0 OR QTDE_C < 0 ORDER BY NUMERO, COR, TAM)"},
        // Pieces finished before the order was taken out of production and entered again have no history.
        {"prontas", Remark, "As peças prontas da OF são mais que as que saíram do último setor", R"(
            SELECT I.NUMERO, I.COR, I.TAM
              FROM {OF_ITEN} I
              JOIN {OF1} O ON O.NUMERO = I.NUMERO AND O.FAC_QTDE = 'S'
              LEFT JOIN (SELECT X.NUMERO, X.COR, X.TAM, SUM(FLOOR(X.QUANT)) AS PRONTAS
                           FROM {FACCAO3} X
                           JOIN {TIPO_APL} T ON T.CODIGO = X.PARTE AND T.BAIXA = 'S'
                           JOIN {FACCAO} F ON F.IDENTIFICADOR = X.ID_ANT
                           JOIN (SELECT CODIGO, MAX(ORDEM) AS ORDEM FROM {FLUXO} GROUP BY CODIGO) U ON U.CODIGO = F.FLUXO
                           JOIN {FLUXO} L ON L.CODIGO = U.CODIGO AND L.ORDEM = U.ORDEM AND L.SETOR = X.OP
                          WHERE X.REPROCESSO IS NOT NULL
                          GROUP BY X.NUMERO, X.COR, X.TAM) H
                ON H.NUMERO = I.NUMERO AND H.COR = I.COR AND H.TAM = I.TAM
             WHERE I.QTDE_B > COALESCE(H.PRONTAS, 0)
             ORDER BY I.NUMERO, I.COR, I.TAM)"},
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
        // The history of a part that left with another says so by its part alone, whether or not anything was posted.
        {"entrada_no_estoque", Error, "O movimento diz que entrou no estoque, e a OF não tem entrada da cor e tamanho",
            R"(
            SELECT H.NUMERO, H.CODIGO, H.COR, H.TAM
              FROM {FACCAO3} H
             WHERE H.ESTOQUE = 'S' AND H.REPROCESSO IS NOT NULL
               AND NOT EXISTS (SELECT 1 FROM {PA_MOV} M
                                WHERE M.DOCUMENTO = H.NUMERO AND M.CODIGO = H.CODIGO AND M.ORIGEM = 'FC'
                                  AND M.SAIDA = 'N' AND COALESCE(M.COR, '') = COALESCE(H.COR, '')
                                  AND COALESCE(M.TAM, '') = COALESCE(H.TAM, ''))
             GROUP BY H.NUMERO, H.CODIGO, H.COR, H.TAM ORDER BY H.NUMERO, H.CODIGO, H.COR, H.TAM)"},
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
