// The header, field by field, up to the moment at which the grid is loaded.

#include "forms/text.h"
#include "movement/TfmFacMov.h"

#include <algorithm>

namespace alinhavo {

void TfmFacMov::edtOFNumChange()
{
    edtQual.SetText("1");
    EdtPedido.SetText(Busca_Valor("OF1", "NUMERO", "PEDIDO", Aspas(edtOFNum.text())).AsString());
    DtFatPed.SetDate(Busca_Valor("PEDIDO", "NUMERO", "DT_FATURA", Aspas(EdtPedido.text())).AsDateTime());
}

void TfmFacMov::edtOFNumExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    const std::string numero = edtOFNum.text();
    if (!Existe("FACCAO", "NUMERO", Aspas(numero))) {
        if (!Existe("OF1", "NUMERO", Aspas(numero)))
            Recusa("Número da OF não encontrado.", edtOFNum);
        return;
    }

    CarregaPartesMov();
    TOrvQuery partes = Consulta(
        "SELECT PARTE, MIN(CODIGO) AS CODIGO FROM {FACCAO} WHERE NUMERO = ? GROUP BY PARTE ORDER BY PARTE", numero);
    const std::string codigo = partes.FieldByName("CODIGO").AsString();
    if (PedidoCancelado(EdtPedido.text(), codigo)
        && !Pergunta("Item do Pedido vinculado à OF está Cancelado, Deseja Continuar?"))
        return Cancela();

    CbParte.SetItemIndex(CbParte.IndexOfPrefix(partes.FieldByName("PARTE").AsString()));
    AtualizaFoto(codigo);
    CbParte.SetFocus();
}

void TfmFacMov::CbParteExit()
{
    if (FocusGoesTo(btn00Desiste))
        return Cancela();

    if (!Existe("FACCAO", "NUMERO,PARTE", Aspas(edtOFNum.text()), Aspas(Parte()))) {
        if (!Pergunta("Atenção, a parte \"" + CbParte.text()
                    + "\" não está lançada na Facção.\nDeseja realmente movimenta-la agora?",
                "Confirmação"))
            return CbParte.SetFocus();
    } else {
        edtFluxo.SetText(
            Busca_Valor("FACCAO", "NUMERO;PARTE", "FLUXO", Aspas(edtOFNum.text()), Aspas(Parte())).AsString());
    }
    TOrvQuery parte = Consulta("SELECT ESTOQUE, ATUALIZA, BAIXA FROM {TIPO_APL} WHERE CODIGO = ?", Parte());
    sLancaEstoque = parte.FieldByName("ESTOQUE").AsString();
    sAtualizaOF = parte.FieldByName("ATUALIZA").AsString();
    sBaixaOF = parte.FieldByName("BAIXA").AsString();
}

void TfmFacMov::edtSetorProxExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    const std::string proximo = edtSetorProx.text();
    if (!Existe("CADFLUXO", "CODIGO", Aspas(proximo)))
        return Recusa("Código do setor destino inválido.", edtSetorProx);
    if (proximo == EdtSetor.text())
        return Recusa("Impossível movimentar para o mesmo setor.", edtSetorProx);
    if (EdtReprocesso.empty()) {
        if (!Existe("FLUXO", "CODIGO,SETOR", Aspas(edtFluxo.text()), Aspas(proximo)))
            return Recusa("Setor não encontrado no Fluxo.", edtSetorProx);
        if (proximo != Pega_Setor_Normal() && !SetorLivre(proximo))
            return Recusa("Setor não liberado para movimentar fora da ordem do Fluxo.", edtSetorProx);
    } else if (UltimoSetorDoFluxo(proximo) && proximo != EdtReprocesso.text()) {
        Mensagem("Para concluir o reprocesso é necessário movimenta-lo ao setor de origem.\nImpossível continuar.", {},
            TIcon::Warning);
        edtSetorProx.SetText("");
        return edtSetorProx.SetFocus();
    }
    Proximo_Mov(edtOFNum.text(), proximo);
}

void TfmFacMov::cbMovimentoExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    if (!cbMovimento.empty()) {
        const std::string mov = cbMovimento.text();
        edtFaccao.SetText(Busca_Valor("FACCAO", "NUMERO;PARTE;OP;MOV", "CODCLI", Aspas(edtOFNum.text()), Aspas(Parte()),
            Aspas(EdtSetor.text()), mov)
                              .AsString());
        std::string reprocesso;
        ExisteQtdePendente(edtOFNum.text(), EdtSetor.text(), Parte(), mov, reprocesso);
        EdtReprocesso.SetText(reprocesso);
        if (!edtSetorProx.Enabled())
            edtSetorProx.SetText(reprocesso.empty() ? Pega_Setor_Normal() : reprocesso);
    }
    Proximo_Mov(edtOFNum.text(), edtSetorProx.text());
}

void TfmFacMov::edtDtEntradaExit() { edtDtProducao.SetDate(edtDtEntrada.Date()); }

void TfmFacMov::edtDtProducaoExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    const TDateTime hoje = Application().Today();
    if (sParamFAC90 == "S" && edtDtProducao.Date() != hoje) {
        if (!Pergunta("Data de produção diferente da atual. Deseja Continuar? ")
            || !Acessa(TDireito::Altera, TNivel::Supervisor))
            return edtDtProducao.SetFocus();
    } else if (edtDtProducao.Date() > hoje && !Pergunta("Data informada maior que o dia de hoje. Deseja continuar?")) {
        return edtDtProducao.SetFocus();
    }
    ValidaDataProducao();
    AtualizaPrevRetorno();
}

// Grouped, here and where the flow of a part is asked for: for a bare maximum PostgreSQL walks back through all that is newer
// than the order.
void TfmFacMov::ValidaDataProducao()
{
    TStatement select("SELECT MAX(DT_S) FROM {FACCAO} WHERE NUMERO = ? AND OP = ? AND PARTE = ?", edtOFNum.text(),
        EdtSetor.text(), Parte());
    if (!cbMovimento.empty())
        select.Add(" AND MOV = ?", BareNumber(cbMovimento.text()));
    select.Add(" GROUP BY NUMERO");
    const TDateTime ultima = ConsultaValor(select).AsDateTime();
    if (ultima.IsBlank() || edtDtProducao.Date() >= ultima)
        return;
    Recusa("A Data de Produção não pode ser menor que " + ultima.Text() + ",\nconforme última movimentação no setor "
            + LigaSetor(EdtSetor.text(), "DESCRICAO") + ".",
        edtDtProducao);
    Abort();
}

void TfmFacMov::AtualizaPrevRetorno()
{
    EdtRetorno.SetDate(
        Funcoes().CalculaPrevRetorno(edtDtProducao.Date(), edtSetorProx.text(), Parte(), edtOFNum.text()));
}

void TfmFacMov::EdtRetornoExit()
{
    const TDateTime retorno = EdtRetorno.Date();
    if (FocusGoesTo(btn00Desiste) || retorno.IsBlank())
        return;
    if (!DtFatPed.Date().IsBlank() && !EdtPedido.empty() && retorno > DtFatPed.Date())
        Mensagem("Data de retorno maior que a data de faturamento.");
    if (retorno < edtDtProducao.Date()
        && !Pergunta("Previsão de Retorno menor que a Data de Produção.\nDeseja Continuar?"))
        Abort();
}

void TfmFacMov::edtFluxoChange()
{
    QryFluxo.Close();
    if (edtFluxo.empty())
        return edtDescFluxo.SetText("");
    QryFluxo.SQL = TStatement(R"(
        SELECT FLUXO.ORDEM, FLUXO.SETOR, MAX(CADFLUXO.DESCRICAO) AS DESCRICAO,
               SUM(FACCAO.QT_ORIG) AS QUANT,
               SUM(FACCAO.QUANT + FACCAO.QUANT_2 + FACCAO.QUANT_I + FACCAO.QUANT_F) AS QUANT_B,
               SUM(FACCAO.QT_ORIG - FACCAO.QUANT - FACCAO.QUANT_2 - FACCAO.QUANT_I - FACCAO.QUANT_F) AS SALDO,
               (SELECT MAX(OF_SETOR.LOCAL) FROM {OF_SETOR} OF_SETOR
                 WHERE OF_SETOR.NUMERO = ? AND OF_SETOR.SETOR = FLUXO.SETOR AND OF_SETOR.PARTE = ?) AS LOCAL
          FROM {FLUXO} FLUXO
          LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FLUXO.SETOR
          LEFT JOIN {FACCAO} FACCAO ON FACCAO.NUMERO = ? AND FACCAO.OP = FLUXO.SETOR AND FACCAO.PARTE = ?
         WHERE FLUXO.CODIGO = ?
         GROUP BY FLUXO.IDENTIFICADOR, FLUXO.ORDEM, FLUXO.SETOR
         ORDER BY FLUXO.ORDEM, FLUXO.IDENTIFICADOR)",
        edtOFNum.text(), Parte(), edtOFNum.text(), Parte(), edtFluxo.text());
    QryFluxo.Open();
    edtDescFluxo.SetText(Busca_Valor("ROTEIRO", "CODIGO", "DESCRICAO", Aspas(edtFluxo.text())).AsString());
}

void TfmFacMov::edtFluxoExit()
{
    if (FocusGoesTo(btn00Desiste))
        return Cancela();
    if (!EdtReprocesso.empty())
        return;

    const std::string numero = edtOFNum.text();
    const std::string codigo = edtCodproduto.text();
    const std::string parte = Parte();
    const std::string fluxo = edtFluxo.text();
    if (!Existe("FLUXO", "CODIGO,SETOR", Aspas(fluxo), Aspas(EdtSetor.text())))
        return Recusa("Fluxo inválido. Setor não pertence ao fluxo informado.", edtFluxo);
    if (!Existe("FACCAO3", "NUMERO,PARTE,CODIGO", Aspas(numero), Aspas(parte), Aspas(codigo))
        && EdtSetor.text() != PrimeiroSetor(fluxo))
        return Recusa("Setor não é o primeiro na ordem do fluxo informado.", edtFluxo);

    const std::string antigo = Busca_Valor("FACCAO", "NUMERO;PARTE", "FLUXO", Aspas(numero), Aspas(parte)).AsString();
    if (!antigo.empty()) {
        const std::vector<std::string> equivalentes = FluxosEquivalentes(antigo, EdtSetor.text());
        if (std::ranges::find(equivalentes, fluxo) == equivalentes.end()) {
            Mensagem("Não é possível mudar para o novo fluxo.");
            edtFluxo.SetText(antigo);
            return edtFluxo.SetFocus();
        }
    }

    if (Existe("FACCAO", "NUMERO,CODIGO,PARTE,FLUXO", Aspas(numero), Aspas(codigo), Aspas(parte), Aspas(fluxo)))
        return;
    // The change of flow waits for the confirmation of the movement: it is not committed here.
    Executa(
        "UPDATE {FACCAO} SET FLUXO = ? WHERE NUMERO = ? AND CODIGO = ? AND PARTE = ?", fluxo, numero, codigo, parte);
    GeraLog("MOVIMENTO OF",
        "ALTERACAO DO FLUXO DA OF: " + numero + " PARTE: " + parte + " DE: " + antigo + " PARA: " + fluxo,
        TOperacaoLog::Processo, numero);
    edtSetorProx.SetText(Pega_Setor_Normal());
}

void TfmFacMov::edtFaccaoExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    if (edtFluxo.empty())
        return Recusa("Escolha um fluxo.", edtFluxo);
    if (!Existe("ENTIDADE", "CODCLI", Aspas(edtFaccao.text()))) {
        if (edtFaccao.empty())
            return PqFaccao.AbrePesquisa();
        return Recusa("Código não existe.", edtFaccao);
    }
    if (!Existe("FACCAO", "NUMERO,PARTE", Aspas(edtOFNum.text()), Aspas(Parte())))
        Gera_Normal();
    edtDtEntrada.SetEnabled(false);
    edtFaccao.SetEnabled(false);
}

// The gate to the grid.
void TfmFacMov::edtFacDestExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    ValidaDataProducao();
    if (edtFluxo.empty()) {
        Recusa("Escolha um fluxo.", edtFluxo);
        Abort();
    }
    if (edtFacDest.empty()) {
        PqEntidadeDest.AbrePesquisa();
        return edtFacDest.SetFocus();
    }
    if (!Existe("ENTIDADE", "CODCLI", Aspas(edtFacDest.text())))
        return Recusa("Código não existe.", edtFacDest);
    if (Busca_Valor("ENTIDADE", "CODCLI", "BLOQUEIO", Aspas(edtFacDest.text())).AsString() == "S")
        return Recusa("Cliente Bloqueado.", edtFacDest);

    std::string faltam;
    if (!Funcoes().ValidaCertificados(edtCodproduto.text(), edtFacDest.text(), edtDtEntrada.Date(), faltam, "P")) {
        Mensagem("Facção não possui os certificados exigidos.\n" + faltam + "\nImpossível continuar.");
        return;
    }
    if (sParamFAC30 == "S" && edtFaccao.text() != sParamFAC80
        && !ExisteNotaRetorno(edtNota.text(), edtOFNum.text(), edtFaccao.text()))
        return Recusa("Nota fiscal de retorno inválida. Impossível continuar.", edtNota);

    Retorno_Normal();
}

void TfmFacMov::edtFacDestKeyDown(TKey& key)
{
    if (key.name == "F5") {
        PqEntidadeDest.Filtro
            = TStatement("CODCLI IN (SELECT CODCLI FROM {FAC_PROD} WHERE PRODUTO = ? AND SETOR = ? AND PARTE = ?)",
                edtCodproduto.text(), edtSetorProx.text(), Parte());
        key.Swallow();
        PqEntidadeDest.AbrePesquisa();
    }
    // Every key drops the filter, that of blocked clients included: this is wanted, and leaving the field still
    // refuses a blocked one.
    PqEntidadeDest.Filtro = TStatement();
}

std::string TfmFacMov::Parte() const { return Left(CbParte.text(), 2); }

bool TfmFacMov::PedidoCancelado(std::string_view pedido, std::string_view codigo)
{
    TOrvQuery item = Consulta(R"(
        SELECT SUM(QTDE) AS QTDE, SUM(QTDE_F) AS QTDE_F, SUM(QTDE_CANC) AS QTDE_CANC
          FROM {PED_ITEN} WHERE NUMERO = ? AND CODIGO = ?)",
        pedido, codigo);
    return item.FieldByName("QTDE").AsFloat() == 0 && item.FieldByName("QTDE_F").AsFloat() == 0
        && item.FieldByName("QTDE_CANC").AsFloat() > 0;
}

bool TfmFacMov::ExisteNotaRetorno(std::string_view nota, std::string_view numero, std::string_view faccao)
{
    return Existe("NF_ENTRA_ITEN", "NUMERO,CODCRE,LOTE", Aspas(nota), Aspas(faccao), Aspas(numero));
}

void TfmFacMov::BuscaEmpDestPrincipal()
{
    std::string destino = Busca_Valor(
        "PCP_MOV", "NUMERO;SETOR;PARTE", "CODCLI", Aspas(edtOFNum.text()), Aspas(edtSetorProx.text()), Aspas(Parte()))
                              .AsString();
    if (destino.empty())
        destino = Busca_Valor("FAC_PROD", "PRODUTO;SETOR;PARTE;PRINCIPAL", "CODCLI", Aspas(edtCodproduto.text()),
            Aspas(edtSetorProx.text()), Aspas(Parte()), Aspas("S"))
                      .AsString();
    if (!destino.empty())
        edtFacDest.SetText(destino);
}

// A batch keeps its number from sector to sector unless the number is already taken there.
void TfmFacMov::Proximo_Mov(std::string_view numero, std::string_view setor)
{
    const std::string mov = cbMovimento.text();
    if (!mov.empty() && !Existe("FACCAO", "NUMERO,OP,PARTE,MOV", Aspas(numero), Aspas(setor), Aspas(Parte()), mov))
        return edtMov.SetText(mov);
    edtMov.SetText(Funcoes().Proximo_FacMov(numero, setor, Parte()));
}

void TfmFacMov::CarregaPartesMov()
{
    PreenchePartes(CbParte,
        TStatement(R"(
        SELECT PRO_FLUXO.PARTE, TIPO_APL.DESCRICAO
          FROM {OF1} OF1
          JOIN {PRO_FLUXO} PRO_FLUXO ON PRO_FLUXO.CODIGO = OF1.CODIGO
          JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = PRO_FLUXO.PARTE
         WHERE OF1.NUMERO = ? ORDER BY PRO_FLUXO.PARTE)",
            edtOFNum.text()));
}

void TfmFacMov::AtualizaFoto(std::string_view codigo)
{
    imgFoto.SetFile(Funcoes().BuscaArquivo(codigo, TTipo::Produto));
}

void TfmFacMov::Mostra_Normal()
{
    TOrvQuery produto = Consulta(R"(
        SELECT OF1.CODIGO, PRODUTO.DESCRICAO
          FROM {OF1} OF1 LEFT JOIN {PRODUTO} PRODUTO ON PRODUTO.CODIGO = OF1.CODIGO
         WHERE OF1.NUMERO = ?)",
        edtOFNum.text());
    edtCodproduto.SetText(produto.FieldByName("CODIGO").AsString());
    edtDescProduto.SetText(produto.FieldByName("DESCRICAO").AsString());

    std::string fluxo
        = Busca_Valor("FACCAO", "NUMERO;PARTE", "FLUXO", Aspas(edtOFNum.text()), Aspas(Parte())).AsString();
    if (fluxo.empty())
        fluxo
            = Busca_Valor("PRO_FLUXO", "CODIGO;PARTE", "FLUXO", Aspas(edtCodproduto.text()), Aspas(Parte())).AsString();
    edtFluxo.SetText(fluxo);

    const std::string propria = FaccaoFuncionario(Funcoes().vUsuarioCodigo());
    if (!propria.empty()) {
        edtFaccao.SetText(propria);
        return edtFaccaoExit();
    }
    const std::string detentor = ConsultaValor(R"(
        SELECT CODCLI FROM {FACCAO}
         WHERE NUMERO = ? AND OP = ? AND PARTE = ? AND QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0
         ORDER BY IDENTIFICADOR)",
        edtOFNum.text(), SetorAnterior(EdtSetor.text()), Parte())
                                     .AsString();
    edtFaccao.SetText(detentor.empty() ? Trim(sParamFAC80) : detentor);
}

// First entry of an order's part into production: one line for each group of its grid, committed at once.
void TfmFacMov::Gera_Normal()
{
    TStatement insert(R"(
        INSERT INTO {FACCAO} (NUMERO, PEDIDO, CODIGO, COR, TAM, QUANT, QUANT_2, QUANT_I, QUANT_F, QT_ORIG,
                              CODCLI, FLUXO, OP, PARTE, DT_S, DT_R)
        SELECT OF1.NUMERO, OF1.PEDIDO, OF1.CODIGO, )");
    // Any other depth leaves the statement without its two columns, and the database refuses it.
    if (sParamFAC20 == "N")
        insert.Add("ITEM.COR, ITEM.TAM,");
    else if (sParamFAC20 == "T")
        insert.Add("'' AS COR, ITEM.TAM,");
    else if (sParamFAC20 == "C")
        insert.Add("ITEM.COR, '' AS TAM,");
    else if (sParamFAC20 == "S")
        insert.Add("'' AS COR, '' AS TAM,");
    insert.Add(R"( 0, 0, 0, 0, SUM(ITEM.TOTAL), CAST(? AS VARCHAR(5)), CAST(? AS VARCHAR(3)), CAST(? AS VARCHAR(3)),
               CAST(? AS VARCHAR(2)), CAST(? AS DATE), CAST(? AS DATE)
          FROM {OF1} OF1
          JOIN (SELECT OF_ITEN.NUMERO, OF_ITEN.COR, OF_ITEN.TAM,
                       COALESCE(OF_ITEN.QTDE, 0) + COALESCE(OF_ITEN.QTDE_B, 0) + COALESCE(OF_ITEN.QTDE_C, 0) AS TOTAL
                  FROM {OF_ITEN} OF_ITEN) ITEM ON ITEM.NUMERO = OF1.NUMERO AND ITEM.TOTAL > 0
         WHERE OF1.NUMERO = ?
         GROUP BY OF1.NUMERO, OF1.PEDIDO, OF1.CODIGO)",
        edtFaccao.empty() ? Trim(sParamFAC80) : edtFaccao.text(), edtFluxo.text(), EdtSetor.text(), Parte(),
        edtDtEntrada.Date(), EdtRetorno.Date(), edtOFNum.text());
    if (sParamFAC20 == "N" || sParamFAC20 == "C")
        insert.Add(", ITEM.COR");
    if (sParamFAC20 == "N" || sParamFAC20 == "T")
        insert.Add(", ITEM.TAM");

    const std::int64_t linhas = Executa(insert);
    CommitRetaining();
    if (linhas > 0)
        return;
    Mensagem("OF não iniciada na Facção. Verifique o cadastro de OF.");
    Cancela();
    Abort();
}

} // namespace alinhavo
