#include "reports/TfmRelFacPen.h"

namespace alinhavo {
namespace {

/// A set counts as two pieces where sets are summed.
void AddVezes(TStatement& sql, const TValue& multiplicador)
{
    sql.Add(" * (CASE WHEN PRODUTO.UNIDADE = 'CJ' THEN CAST(? AS INTEGER) ELSE 1 END)", multiplicador);
}

} // namespace

/// "S" or "N" for: grouped by order, always, finished rows too, summary by period.
std::string TfmRelFacPen::OPCOES() const
{
    const auto letra = [](const TCheckBox& opcao) { return opcao.Checked() ? "S" : "N"; };
    return std::string(letra(cb_Agrupar0)) + "S" + letra(cbTodos) + letra(CbPeriodo);
}

TValue TfmRelFacPen::Multiplicador() const { return CbSoma.Checked() ? 2 : 1; }

TStatement TfmRelFacPen::Pendencias()
{
    TStatement sql("SELECT ");
    AddColunasDaFaccao(sql);
    AddColunasDoCadastro(sql);
    AddColunasDeTempo(sql);
    AddColunasDePreco(sql);
    AddTabelas(sql);
    AddTabelasDePreco(sql);
    AddFiltros(sql);
    AddFiltroDoSaldo(sql);
    sql.Add(" ORDER BY FACCAO.NUMERO,FACCAO.CODIGO,FACCAO.OP, FACCAO.PARTE ");
    return sql;
}

void TfmRelFacPen::AddColunasDaFaccao(TStatement& sql)
{
    sql.Add(R"(
        FACCAO.IDENTIFICADOR AS FAC_IDENTIFICADOR, FACCAO.NUMERO AS FAC_NUMERO, FACCAO.PEDIDO AS FAC_PEDIDO,
        FACCAO.CODIGO AS FAC_CODIGO, FACCAO.COR AS FAC_COR, FACCAO.TAM AS FAC_TAM, FACCAO.PARTE AS FAC_PARTE,
        FACCAO.OP AS FAC_OP, FACCAO.FLUXO AS FAC_FLUXO, FACCAO.CODCLI AS FAC_CODCLI, FACCAO.MOV AS FAC_MOV,
        FACCAO.DT_S AS FAC_DT_S, FACCAO.DT_R AS FAC_DT_R, FACCAO.REPROCESSO AS FAC_REPROCESSO,
        FACCAO.UNITARIO AS FAC_UNITARIO, FACCAO.NOTA AS FAC_NOTA, FACCAO.NOTA_REM AS FAC_NOTA_REM,
        CAST(SUBSTRING(FACCAO.OBS FROM 1 FOR 250) AS VARCHAR(250)) AS FAC_OBS, FACCAO.QT_ORIG)");
    AddVezes(sql, Multiplicador());
    sql.Add(" AS FAC_QT_ORIG, FACCAO.QUANT");
    AddVezes(sql, Multiplicador());
    sql.Add(" AS FAC_QUANT, FACCAO.QUANT_2");
    AddVezes(sql, Multiplicador());
    sql.Add(" AS FAC_QUANT_2, FACCAO.QUANT_I");
    AddVezes(sql, Multiplicador());
    sql.Add(" AS FAC_QUANT_I, FACCAO.QUANT_F");
    AddVezes(sql, Multiplicador());
    sql.Add(" AS FAC_QUANT_F, ");
    AddSaldo(sql);
    AddVezes(sql, Multiplicador());
    sql.Add(R"( AS QUANT_PEND,
        'N' AS FAC_REPRO, '1' AS POSSE, CAST(0 AS DOUBLE PRECISION) AS PRECO_INV,
        CAST(? AS VARCHAR(4)) AS OPCOES, CAST(? AS VARCHAR(1)) AS SOMA_PECAS)",
        OPCOES(), cbSomarPecas.Checked() ? "S" : "N");
}

void TfmRelFacPen::AddColunasDoCadastro(TStatement& sql)
{
    sql.Add(R"(,
        CLIENTE.NOME AS CLIENTE_NOME, CLIENTE.TELEFONE AS CLIENTE_TELEFONE, CIDADE.NOME_CID AS CLIENTE_CIDADE,
        CLIENTE.GRUPO AS CLIENTE_GRUPO, GRUPO_FAC.DESCRICAO AS DESC_GRUPO_FAC, TABTRAN.NOME AS TRANSPORTADORA,
        CADFLUXO.DESCRICAO AS CADFLUXO_DESCRICAO, CADFLUXO.ORDEM AS ORD_SETOR, CADFLUXO.DIAS_SEMANA AS DIAS_SEMANA,
        CADFLUXO_REP.DESCRICAO AS DESC_REPROCESSO, GRUPO_SETOR.CODIGO AS GRUPO_SETOR,
        GRUPO_SETOR.DESCRICAO AS DESC_GRUPO_SETOR, ROTEIRO.DESCRICAO AS DESC_FLUXO,
        PRODUTO.DESCRICAO AS PRODUTO_DESCRICAO, PRODUTO.UNIDADE AS PRODUTO_UNIDADE, PRODUTO.GRUPO AS PRODUTO_GRUPO,
        GRUPO_PA.DESCRICAO AS DESC_GRUPO, PRODUTO.COLECAO AS PRODUTO_COLECAO, COLECAO.DESCRICAO AS DESC_COLECAO,
        PRODUTO.LINHA AS CODLIN, TABLIN.DESCRICAO AS DESC_LINHA, PRODUTO.MARCA AS PRODUTO_MARCA,
        PRODUTO.ETIQUETA AS PRODUTO_ETIQUETA, ETQ_PROD.DESCRICAO AS DESC_ETIQUETA, PRODUTO.FAMILIA AS PRODUTO_FAMILIA,
        FAMILIA.DESCRICAO AS DESC_FAMILIA, GRUPO_FAMILIA.DESCRICAO AS DESC_GRUPO_FAMILIA,
        LOCAL.DESCRICAO AS LOCAL_DESCRICAO, TIPO_APL.DESCRICAO AS DESC_PARTE, TIPO_APL.ESTOQUE AS ESTOQUE,
        CADCOR.DESCRICAO AS DESC_COR, TABTAM.ACRESCIMO AS ORD_TAM,
        OF1.PEDIDO AS OF1_PEDIDO, OF1.PERIODO AS OF1_PERIODO, PRZ_OF.DESCRICAO AS OF1_DESC_PERIODO,
        OF1.PROGRAMACAO AS OF1_PROGRAMACAO, OF1.DT_FINAL AS DT_FINAL, OF1.TIPO_OP AS OF1_TIPO_OP,
        TIPO_OP.DESCRICAO AS DESC_TIPO_OP, OF2.DESCRICAO AS OF2_DESCRICAO,
        PEDIDO.CODCLI AS PEDIDO_CODCLI, CLIENTE_PED.NOME AS CLIENTE_PED_NOME, CLIENTE_PED.GRUPO AS CLIENTE_PED_GRUPO,
        GRUPO_CLI.DESCRICAO AS DESC_GRUPO_CLI, PEDIDO.PED_CLI AS PED_CLI, PEDIDO.ART_CLI AS ART_CLI,
        PEDIDO.PERIODO AS PEDIDO_PERIODO, PRZ_PED.DESCRICAO AS PEDIDO_DESC_PERIODO,
        PEDIDO.DT_FATURA AS PEDIDO_DT_FATURA, PEDIDO.ENTREGA AS ENTREGA, PEDIDO4.DT_INSPECAO AS DT_INSPECAO)");
    if (EdtPedProg.empty())
        sql.Add(", CAST('' AS VARCHAR(1)) AS LISTA_PEDIDOS");
    else
        sql.Add(R"(, (SELECT LIST[DISTINCT PED_PROG.NUMERO, ', '] FROM {PEDIDO} PED_PROG
            WHERE PED_PROG.PROGRAMACAO = OF1.PROGRAMACAO AND OF1.PROGRAMACAO <> '') AS LISTA_PEDIDOS)");
}

void TfmRelFacPen::AddColunasDeTempo(TStatement& sql)
{
    sql.Add(R"(,
        (PEDIDO.DT_FATURA - CURRENT_DATE) AS DIAS_FATURA, (FACCAO.DT_R - CURRENT_DATE) AS DIAS_RETORNO,
        (CURRENT_DATE - FACCAO.DT_S) AS DIAS_PARADO,
        PCP_MOV.DT_INICIO AS DT_INI_MOV, PCP_MOV.DT_FIM AS DT_PREV_MOV, PCP_MOV.CODCLI AS PCP_CODCLI,
        (SELECT SUM(OPERACAO.TEMPO_TOTAL) FROM {PCPSEQPROC} PCPSEQ
           JOIN {OPERACAO} OPERACAO ON OPERACAO.CODIGO = PCPSEQ.OPERACAO
          WHERE PCPSEQ.PRODUTO = FACCAO.CODIGO AND COALESCE(PCPSEQ.PARTE, '') IN ('', FACCAO.PARTE)
            AND (PCPSEQ.GRUPO = FACCAO.OP OR PCPSEQ.GRUPO IS NULL)) AS TEMPO,
        CAST((SELECT SUM(OPERACAO.TEMPO_TOTAL / (COALESCE(PCPSEQ.PERC,1)/100)) FROM {PCPSEQPROC} PCPSEQ
           JOIN {OPERACAO} OPERACAO ON OPERACAO.CODIGO = PCPSEQ.OPERACAO
          WHERE PCPSEQ.PRODUTO = FACCAO.CODIGO AND COALESCE(PCPSEQ.PARTE, '') IN ('', FACCAO.PARTE)
            AND (PCPSEQ.GRUPO = FACCAO.OP OR PCPSEQ.GRUPO IS NULL)) AS NUMERIC(8,4)) AS TEMPO_TOTAL,
        (SELECT PCPSEQ.PERC FROM {PCPSEQPROC} PCPSEQ WHERE PCPSEQ.PRODUTO = FACCAO.CODIGO
          ORDER BY PCPSEQ.IDENTIFICADOR FETCH FIRST 1 ROWS ONLY) AS PERC,
        (SELECT COUNT(*) FROM {EST_PROD} EST_PROD JOIN {ESTAMPA} ESTAMPA ON ESTAMPA.CODIGO = EST_PROD.ESTAMPA
          WHERE EST_PROD.PRODUTO = FACCAO.CODIGO AND ESTAMPA.TIPO = 'E') AS QTDE_ESTAMPA,
        (SELECT MAX(OF_SETOR.LOCAL) FROM {OF_SETOR} OF_SETOR WHERE OF_SETOR.NUMERO = FACCAO.NUMERO
            AND OF_SETOR.SETOR = FACCAO.OP AND OF_SETOR.PARTE = FACCAO.PARTE) AS LOCAL,
        (SELECT MAX(FAC_TEMPO.OPERADORES) FROM {FAC_TEMPO} FAC_TEMPO
          WHERE FAC_TEMPO.CODCLI = FACCAO.CODCLI) AS FAC_OPERADORES)");
}

void TfmRelFacPen::AddColunasDePreco(TStatement& sql)
{
    sql.Add(R"(,
        TABELA.PRECO AS TABELA_PRECO, TAB_PADRAO.PRECO AS TAB_PADRAO_PRECO, TABELA_OF.PRECO AS TABELA_OF_PRECO,
        (SELECT MAX(TC.PRECO) FROM {TABELA} TC WHERE TC.NUMERO = CLIENTE.TABELA AND TC.CODIGO = FACCAO.CODIGO
            AND TC.SETOR = FACCAO.OP AND TC.PARTE = FACCAO.PARTE)");
    if (sParamFAC270 == "S")
        sql.Add(" AND TC.COR = FACCAO.COR AND TC.TAM = FACCAO.TAM");
    sql.Add(") AS TAB_CLI_PRECO");
    if (!TemTabelaDeVenda()) {
        sql.Add(", CAST(0.0 AS DOUBLE PRECISION) AS PRE_CUSTO, CAST(0.0 AS DOUBLE PRECISION) AS PRE_PRECO");
        return;
    }
    sql.Add(R"(,
        (SELECT SUM(PRECO_ITEN.VALOR) FROM {PRECO_ITEN} PRECO_ITEN
          WHERE PRECO_ITEN.ARTIGO = FACCAO.CODIGO) AS PRE_CUSTO,
        (SELECT MAX(TABPRECO.?) FROM {TABPRECO} TABPRECO
          WHERE TABPRECO.CODIGO = FACCAO.CODIGO AND TABPRECO.REGIAO = ?) AS PRE_PRECO)",
        TName("PRECO_" + edtNumDias.text()), EdtTabPre.text());
}

bool TfmRelFacPen::TemTabelaDeVenda()
{
    return !EdtTabPre.empty() && Existe("REGIAO", "REGIAO", Aspas(EdtTabPre.text()));
}

/// What is pending of a row: today, or as it stood at the base date.
void TfmRelFacPen::AddSaldo(TStatement& sql)
{
    if (!CbPosicaoFaccao.Checked()) {
        sql.Add("(FACCAO.QT_ORIG - (FACCAO.QUANT + FACCAO.QUANT_2 + FACCAO.QUANT_I + FACCAO.QUANT_F))");
        return;
    }
    sql.Add("(FACCAO.QT_ORIG - ");
    AddBaixado(sql);
    sql.Add(")");
}

void TfmRelFacPen::AddBaixado(TStatement& sql)
{
    sql.Add(
        R"(COALESCE((SELECT SUM(FACCAO3.QUANT+FACCAO3.QUANT_2+FACCAO3.QUANT_F+FACCAO3.QUANT_I) FROM {FACCAO3} FACCAO3
          WHERE FACCAO3.ID_ANT = FACCAO.IDENTIFICADOR AND FACCAO3.NUMERO = FACCAO.NUMERO AND FACCAO3.OP = FACCAO.OP
            AND FACCAO3.CODIGO = FACCAO.CODIGO AND FACCAO3.COR = FACCAO.COR AND FACCAO3.TAM = FACCAO.TAM
            AND FACCAO3.PARTE = FACCAO.PARTE AND FACCAO3.CODCLI = FACCAO.CODCLI AND FACCAO3.DT_LAN <= ?), 0))",
        EdtDtBase.Date());
}

void TfmRelFacPen::AddTabelas(TStatement& sql)
{
    sql.Add(R"(
         FROM {FACCAO} FACCAO
         JOIN {ENTIDADE} CLIENTE ON CLIENTE.CODCLI = FACCAO.CODCLI
         JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FACCAO.OP
         JOIN {PRODUTO} PRODUTO ON PRODUTO.CODIGO = FACCAO.CODIGO
         LEFT JOIN {LOCAL} LOCAL ON LOCAL.CODIGO = PRODUTO.LOCAL
         LEFT JOIN {CADFLUXO} CADFLUXO_REP ON CADFLUXO_REP.CODIGO = FACCAO.REPROCESSO
         LEFT JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = FACCAO.PARTE
         LEFT JOIN {OF1} OF1 ON OF1.NUMERO = FACCAO.NUMERO
         LEFT JOIN {PEDIDO} PEDIDO ON PEDIDO.NUMERO = OF1.PEDIDO
         LEFT JOIN {TABPRZ} PRZ_PED ON PRZ_PED.PRAZO = PEDIDO.PERIODO
         LEFT JOIN {PEDIDO4} PEDIDO4 ON PEDIDO4.NUMERO = OF1.PEDIDO
         LEFT JOIN {OF2} OF2 ON OF2.NUMERO = FACCAO.NUMERO AND OF2.TIPO = 'O' AND OF2.CODIGO = '170'
              AND COALESCE(OF2.SETOR, '') = '' AND COALESCE(OF2.PARTE, '') = '' AND OF2.MOV = 0
         LEFT JOIN {CADCOR} CADCOR ON CADCOR.COR = FACCAO.COR
         LEFT JOIN {REGIAO} REGIAO ON REGIAO.PADRAO = 'S'
         LEFT JOIN {ENTIDADE} CLIENTE_PED ON CLIENTE_PED.CODCLI = PEDIDO.CODCLI
         LEFT JOIN {GRUPO_CLI} GRUPO_CLI ON GRUPO_CLI.CODIGO = CLIENTE_PED.GRUPO
         LEFT JOIN {GRUPO_CLI} GRUPO_FAC ON GRUPO_FAC.CODIGO = CLIENTE.GRUPO
         LEFT JOIN {PCP_MOV} PCP_MOV ON PCP_MOV.NUMERO = FACCAO.NUMERO AND PCP_MOV.SETOR = FACCAO.OP
              AND PCP_MOV.PARTE = FACCAO.PARTE
         LEFT JOIN {GRUPO_PA} GRUPO_PA ON GRUPO_PA.CODIGO = PRODUTO.GRUPO
         LEFT JOIN {CADCEP} CADCEP ON CADCEP.CEP = CLIENTE.CEP
         LEFT JOIN {CIDADE} CIDADE ON CIDADE.COD_CID = CADCEP.COD_CID
         LEFT JOIN {TABTRAN} TABTRAN ON TABTRAN.CODIGO = CLIENTE.TRANSPORTE
         LEFT JOIN {TABPRZ} PRZ_OF ON PRZ_OF.PRAZO = OF1.PERIODO
         LEFT JOIN {TIPO_OP} TIPO_OP ON TIPO_OP.CODIGO = OF1.TIPO_OP
         LEFT JOIN {COLECAO} COLECAO ON COLECAO.CODIGO = PRODUTO.COLECAO
         LEFT JOIN {TABLIN} TABLIN ON TABLIN.CODIGO = PRODUTO.LINHA
         LEFT JOIN {TABTAM} TABTAM ON TABTAM.TAM = FACCAO.TAM
         LEFT JOIN {ETQ_PROD} ETQ_PROD ON ETQ_PROD.CODIGO = PRODUTO.ETIQUETA
         LEFT JOIN {ROTEIRO} ROTEIRO ON ROTEIRO.CODIGO = FACCAO.FLUXO
         LEFT JOIN {FAMILIA} FAMILIA ON FAMILIA.CODIGO = PRODUTO.FAMILIA
         LEFT JOIN {FAMILIA} GRUPO_FAMILIA ON GRUPO_FAMILIA.CODIGO = FAMILIA.GRUPO
         LEFT JOIN {CADFLUXO} GRUPO_SETOR ON GRUPO_SETOR.CODIGO = CADFLUXO.GRUPO)");
}

void TfmRelFacPen::AddTabelasDePreco(TStatement& sql)
{
    const bool porCorETamanho = sParamFAC270 == "S";
    sql.Add(R"(
         LEFT JOIN {TABELA} TABELA ON TABELA.NUMERO = CLIENTE.TABELA AND TABELA.CODIGO = FACCAO.CODIGO
              AND TABELA.SETOR = FACCAO.OP AND TABELA.PARTE = FACCAO.PARTE)");
    if (porCorETamanho)
        sql.Add(" AND TABELA.COR = FACCAO.COR AND TABELA.TAM = FACCAO.TAM");
    sql.Add(R"(
         LEFT JOIN {TABELA} TAB_PADRAO ON TAB_PADRAO.NUMERO = REGIAO.REGIAO AND TAB_PADRAO.CODIGO = FACCAO.CODIGO
              AND TAB_PADRAO.SETOR = FACCAO.OP AND TAB_PADRAO.PARTE = FACCAO.PARTE)");
    if (porCorETamanho)
        sql.Add(" AND TAB_PADRAO.COR = FACCAO.COR AND TAB_PADRAO.TAM = FACCAO.TAM");
    sql.Add(R"(
         LEFT JOIN {TABELA} TABELA_OF ON TABELA_OF.NUMERO = OF1.TABELA AND TABELA_OF.CODIGO = FACCAO.CODIGO
              AND TABELA_OF.SETOR = FACCAO.OP AND TABELA_OF.PARTE = FACCAO.PARTE)");
    if (porCorETamanho)
        sql.Add(" AND TABELA_OF.COR = FACCAO.COR AND TABELA_OF.TAM = FACCAO.TAM");
}

void TfmRelFacPen::AddFiltroDoSaldo(TStatement& sql)
{
    if (CbPosicaoFaccao.Checked()) {
        sql.Add(" AND FACCAO.QT_ORIG > ");
        AddBaixado(sql);
    } else if (!cbTodos.Checked()) {
        sql.Add(" AND ");
        AddSaldo(sql);
        sql.Add(" > 0");
    }
}

void TfmRelFacPen::AddFiltros(TStatement& sql)
{
    sql.Add(" WHERE FACCAO.DT_R BETWEEN ? AND ? AND FACCAO.DT_S BETWEEN ? AND ?", EdtDataIni.Date(), EdtDataFin.Date(),
        DtEnvIni.Date(), DtEnvFim.Date());
    if (!edtR0Empresa.empty() && cbConsiderarFaccao.ItemIndex() == 0)
        sql.Add(" AND FACCAO.CODCLI IN (?)", edtR0Empresa.Lista());
    else if (!edtR0Empresa.empty())
        sql.Add(" AND FACCAO.CODCLI NOT IN (?)", edtR0Empresa.Lista());
    if (!edtR0Setor.empty())
        sql.Add(" AND FACCAO.OP IN (?)", edtR0Setor.Lista());
    if (!EdtParte.empty())
        sql.Add(" AND FACCAO.PARTE IN (?)", EdtParte.Lista());
    if (!EdtGrupoFac.empty())
        sql.Add(" AND CLIENTE.GRUPO IN (?)", EdtGrupoFac.Lista());
    if (CbTipoMov.ItemIndex() == 1)
        sql.Add(" AND (FACCAO.REPROCESSO IS NULL OR FACCAO.REPROCESSO = '')");
    if (CbTipoMov.ItemIndex() == 2)
        sql.Add(" AND FACCAO.REPROCESSO IS NOT NULL AND FACCAO.REPROCESSO <> ''");
    AddFiltrosDoPedido(sql);
    AddFiltrosDaOP(sql);
    AddFiltrosDoProduto(sql);
}

void TfmRelFacPen::AddFiltrosDoPedido(TStatement& sql)
{
    if (!EdtCliente.empty())
        sql.Add(" AND PEDIDO.CODCLI IN (?)", EdtCliente.Lista());
    if (!EdtGrupoCli.empty())
        sql.Add(" AND CLIENTE_PED.GRUPO IN (?)", EdtGrupoCli.Lista());
    if (!edtR0Pedido.empty())
        sql.Add(" AND OF1.PEDIDO LIKE ?", edtR0Pedido.text());
    if (!EdtPedCli.empty())
        sql.Add(" AND PEDIDO.PED_CLI = ?", EdtPedCli.text());
    const TName data(rbFaturamento.Checked() ? "DT_FATURA" : "ENTREGA");
    if (!dtPedIni.empty())
        sql.Add(" AND PEDIDO.? >= ?", data, dtPedIni.Date());
    if (!dtPedFim.empty())
        sql.Add(" AND PEDIDO.? <= ?", data, dtPedFim.Date());
    if (!EdtPedProg.empty())
        sql.Add(R"( AND OF1.PROGRAMACAO <> '' AND EXISTS (SELECT PED_PROG.NUMERO FROM {PEDIDO} PED_PROG
             WHERE PED_PROG.PROGRAMACAO = OF1.PROGRAMACAO AND PED_PROG.NUMERO LIKE ?))",
            EdtPedProg.text());
}

void TfmRelFacPen::AddFiltrosDaOP(TStatement& sql)
{
    if (!EdtOfIni.empty())
        sql.Add(" AND FACCAO.NUMERO >= ?", EdtOfIni.text());
    if (!EdtOfFim.empty())
        sql.Add(" AND FACCAO.NUMERO <= ?", EdtOfFim.text());
    if (!edtListaOFs.empty())
        sql.Add(" AND FACCAO.NUMERO IN (?)", edtListaOFs.Lista());
    if (!EdtTipoOP.empty())
        sql.Add(" AND OF1.TIPO_OP = ?", EdtTipoOP.text());
    if (!DtFimOfini.empty())
        sql.Add(" AND OF1.DT_FINAL >= ?", DtFimOfini.Date());
    if (!DtFimOffim.empty())
        sql.Add(" AND OF1.DT_FINAL <= ?", DtFimOffim.Date());
    const auto periodo = TName(RbPerOF.Checked() ? "OF1" : "PEDIDO");
    if (!EdtPerIni.empty())
        sql.Add(" AND ?.PERIODO >= ?", periodo, EdtPerIni.text());
    if (!EdtPerFim.empty())
        sql.Add(" AND ?.PERIODO <= ?", periodo, EdtPerFim.text());
    if (!edtPerMult.empty())
        sql.Add(" AND ?.PERIODO IN (?)", periodo, edtPerMult.Lista());
}

void TfmRelFacPen::AddFiltrosDoProduto(TStatement& sql)
{
    if (!edtProduto.empty())
        sql.Add(" AND FACCAO.CODIGO IN (?)", edtProduto.Lista());
    if (!EdtCodCor.empty())
        sql.Add(" AND FACCAO.COR = ?", EdtCodCor.text());
    if (!edtTam.empty())
        sql.Add(" AND FACCAO.TAM = ?", edtTam.text());
    if (!edtGrupoProd.empty())
        sql.Add(" AND PRODUTO.GRUPO IN (?)", edtGrupoProd.Lista());
    if (!EdtCodCol.empty())
        sql.Add(" AND PRODUTO.COLECAO IN (?)", EdtCodCol.Lista());
    if (!EdtCodLin.empty())
        sql.Add(" AND PRODUTO.LINHA IN (?)", EdtCodLin.Lista());
    if (!edtCodMarca.empty())
        sql.Add(" AND PRODUTO.MARCA IN (?)", edtCodMarca.Lista());
    if (!edtCodEtiqueta.empty())
        sql.Add(" AND PRODUTO.ETIQUETA IN (?)", edtCodEtiqueta.Lista());
    if (!edtFamilia.empty())
        sql.Add(" AND PRODUTO.FAMILIA IN (?)", edtFamilia.Lista());
}

/// Pending defects as further lines: no quantity is pending in them, and they enter no period.
TStatement TfmRelFacPen::Defeitos()
{
    TStatement sql(R"(
        SELECT DEF_MOV.NUMERO AS FAC_NUMERO, OF1.CODIGO AS FAC_CODIGO, DEF_MOV.COR AS FAC_COR, DEF_MOV.TAM AS FAC_TAM,
               DEF_MOV.PARTE AS FAC_PARTE, DEF_MOV.SETOR AS FAC_OP, DEF_MOV.CODCLI AS FAC_CODCLI, DEF_MOV.MOV AS FAC_MOV,
               DEF_MOV.DT_LAN AS FAC_DT_S, 'C' AS FAC_REPRO, CAST(DEF_MOV.QUANT AS DOUBLE PRECISION))");
    AddVezes(sql, Multiplicador());
    sql.Add(R"( AS FAC_QT_ORIG, CAST(0 AS DOUBLE PRECISION) AS FAC_QUANT, CAST(0 AS DOUBLE PRECISION) AS FAC_QUANT_2,
               CAST(0 AS DOUBLE PRECISION) AS FAC_QUANT_I, CAST(0 AS DOUBLE PRECISION) AS FAC_QUANT_F,
               'N' AS ESTOQUE, 'N' AS SOMA_PECAS, CAST(? AS VARCHAR(4)) AS OPCOES,
               DEFEITO.DESCRICAO AS FAC_OBS, CLIENTE.NOME AS CLIENTE_NOME, CLIENTE.GRUPO AS CLIENTE_GRUPO,
               CADFLUXO.DESCRICAO AS CADFLUXO_DESCRICAO, CADFLUXO.ORDEM AS ORD_SETOR,
               GRUPO_SETOR.CODIGO AS GRUPO_SETOR, GRUPO_SETOR.DESCRICAO AS DESC_GRUPO_SETOR,
               PRODUTO.DESCRICAO AS PRODUTO_DESCRICAO, PRODUTO.UNIDADE AS PRODUTO_UNIDADE,
               PRODUTO.GRUPO AS PRODUTO_GRUPO, GRUPO_PA.DESCRICAO AS DESC_GRUPO, PRODUTO.LINHA AS CODLIN,
               PRODUTO.MARCA AS PRODUTO_MARCA, PRODUTO.ETIQUETA AS PRODUTO_ETIQUETA,
               PRODUTO.FAMILIA AS PRODUTO_FAMILIA, LOCAL.DESCRICAO AS LOCAL_DESCRICAO,
               TIPO_APL.DESCRICAO AS DESC_PARTE, CADCOR.DESCRICAO AS DESC_COR, OF1.PEDIDO AS OF1_PEDIDO,
               OF1.PERIODO AS OF1_PERIODO, OF1.DT_FINAL AS DT_FINAL, PEDIDO.CODCLI AS PEDIDO_CODCLI,
               CLIENTE_PED.NOME AS CLIENTE_PED_NOME, GRUPO_CLI.DESCRICAO AS DESC_GRUPO_CLI,
               PEDIDO.PERIODO AS PEDIDO_PERIODO, PEDIDO.DT_FATURA AS PEDIDO_DT_FATURA, PEDIDO.ENTREGA AS ENTREGA
          FROM {DEF_MOV} DEF_MOV
          LEFT JOIN {DEFEITO} DEFEITO ON DEFEITO.CODIGO = DEF_MOV.CODIGO
          LEFT JOIN {OF1} OF1 ON OF1.NUMERO = DEF_MOV.NUMERO
          LEFT JOIN {PRODUTO} PRODUTO ON PRODUTO.CODIGO = OF1.CODIGO
          LEFT JOIN {LOCAL} LOCAL ON LOCAL.CODIGO = PRODUTO.LOCAL
          LEFT JOIN {ENTIDADE} CLIENTE ON CLIENTE.CODCLI = DEF_MOV.CODCLI
          LEFT JOIN {PEDIDO} PEDIDO ON PEDIDO.NUMERO = OF1.PEDIDO
          LEFT JOIN {ENTIDADE} CLIENTE_PED ON CLIENTE_PED.CODCLI = PEDIDO.CODCLI
          LEFT JOIN {GRUPO_CLI} GRUPO_CLI ON GRUPO_CLI.CODIGO = CLIENTE_PED.GRUPO
          LEFT JOIN {GRUPO_PA} GRUPO_PA ON GRUPO_PA.CODIGO = PRODUTO.GRUPO
          LEFT JOIN {CADCOR} CADCOR ON CADCOR.COR = DEF_MOV.COR
          LEFT JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = DEF_MOV.PARTE
          LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = DEF_MOV.SETOR
          LEFT JOIN {CADFLUXO} GRUPO_SETOR ON GRUPO_SETOR.CODIGO = CADFLUXO.GRUPO
         WHERE DEF_MOV.PENDENTE = 'S')",
        OPCOES());
    AddFiltrosDosDefeitos(sql);
    sql.Add(" ORDER BY DEF_MOV.NUMERO ");
    return sql;
}

void TfmRelFacPen::AddFiltrosDosDefeitos(TStatement& sql)
{
    if (!EdtCliente.empty())
        sql.Add(" AND CLIENTE_PED.CODCLI IN (?)", EdtCliente.Lista());
    if (!edtR0Setor.empty())
        sql.Add(" AND DEFEITO.SETOR IN (?)", edtR0Setor.Lista());
    if (!EdtOfIni.empty())
        sql.Add(" AND DEF_MOV.NUMERO >= ?", EdtOfIni.text());
    if (!EdtOfFim.empty())
        sql.Add(" AND DEF_MOV.NUMERO <= ?", EdtOfFim.text());
    if (!edtListaOFs.empty())
        sql.Add(" AND DEF_MOV.NUMERO IN (?)", edtListaOFs.Lista());
    if (!edtR0Empresa.empty() && cbConsiderarFaccao.ItemIndex() == 0)
        sql.Add(" AND DEF_MOV.CODCLI IN (?)", edtR0Empresa.Lista());
    else if (!edtR0Empresa.empty())
        sql.Add(" AND DEF_MOV.CODCLI NOT IN (?)", edtR0Empresa.Lista());
    if (!edtProduto.empty())
        sql.Add(" AND OF1.CODIGO IN (?)", edtProduto.Lista());
    if (!edtR0Pedido.empty())
        sql.Add(" AND OF1.PEDIDO = ?", edtR0Pedido.text());
    if (!EdtGrupoCli.empty())
        sql.Add(" AND CLIENTE_PED.GRUPO IN (?)", EdtGrupoCli.Lista());
    if (!edtGrupoProd.empty())
        sql.Add(" AND PRODUTO.GRUPO IN (?)", edtGrupoProd.Lista());
    if (!edtCodMarca.empty())
        sql.Add(" AND PRODUTO.MARCA IN (?)", edtCodMarca.Lista());
    if (!edtCodEtiqueta.empty())
        sql.Add(" AND PRODUTO.ETIQUETA IN (?)", edtCodEtiqueta.Lista());
    if (!edtFamilia.empty())
        sql.Add(" AND PRODUTO.FAMILIA IN (?)", edtFamilia.Lista());
    if (cbTRep.ItemIndex() > 0)
        sql.Add(" AND DEF_MOV.TIPO = ?", std::to_string(cbTRep.ItemIndex()));
}

/// The filters that were filled in, as the report's head shows them.
std::string TfmRelFacPen::Filtros() const
{
    std::string filtros = "Prev. Retorno: " + EdtDataIni.text() + " a " + EdtDataFin.text()
        + "; Envio: " + DtEnvIni.text() + " a " + DtEnvFim.text();
    const auto acrescenta = [&](const std::string& nome, const std::string& valor) {
        if (!valor.empty())
            filtros += "; " + nome + ": " + valor;
    };
    const auto intervalo = [&](const std::string& nome, const TTextControl& de, const TTextControl& ate) {
        if (!de.empty() || !ate.empty())
            filtros += "; " + nome + ": " + (de.empty() ? "" : de.text()) + " a " + (ate.empty() ? "" : ate.text());
    };
    for (const auto* lista :
        {&edtR0Empresa, &EdtGrupoFac, &edtR0Setor, &EdtParte, &EdtCliente, &EdtGrupoCli, &edtListaOFs, &edtPerMult,
            &edtProduto, &edtGrupoProd, &EdtCodCol, &EdtCodLin, &edtCodMarca, &edtCodEtiqueta, &edtFamilia}) {
        const bool fora = lista == &edtR0Empresa && cbConsiderarFaccao.ItemIndex() == 1;
        acrescenta(lista->PlainCaption() + (fora ? " (menos)" : ""), lista->text());
    }
    for (const auto* campo : {&edtR0Pedido, &EdtPedCli, &EdtPedProg, &EdtTipoOP, &EdtCodCor, &edtTam, &EdtTabPre})
        acrescenta(campo->PlainCaption(), campo->text());
    intervalo("OP", EdtOfIni, EdtOfFim);
    intervalo(rbFaturamento.Checked() ? "Pedido Faturamento" : "Pedido Entrega", dtPedIni, dtPedFim);
    intervalo("Fim OP", DtFimOfini, DtFimOffim);
    intervalo(RbPerOF.Checked() ? "Período OP" : "Período Pedido", EdtPerIni, EdtPerFim);
    if (CbTipoMov.ItemIndex() > 0)
        acrescenta(CbTipoMov.PlainCaption(), CbTipoMov.text());
    if (CbPosicaoFaccao.Checked())
        acrescenta("Posição em", EdtDtBase.text());
    if (CbReproc.Checked() && cbTRep.ItemIndex() > 0)
        acrescenta(cbTRep.PlainCaption(), cbTRep.text());
    for (const auto* opcao : {&cbTodos, &CbSoma, &cbSomarPecas, &cbDiasUteis}) {
        if (opcao->Checked())
            filtros += "; " + opcao->PlainCaption();
    }
    return filtros;
}

} // namespace alinhavo
