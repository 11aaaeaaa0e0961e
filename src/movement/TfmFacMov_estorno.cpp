// The tab "Estornar Movimento": one recorded movement of one colour and size is undone.

#include "forms/numbers.h"
#include "forms/text.h"
#include "movement/TfmFacMov.h"

#include <algorithm>

namespace alinhavo {

namespace {

bool Branco(const TEdit& campo) { return Trim(campo.text()).empty(); }

} // namespace

void TfmFacMov::edtM02OFExit()
{
    if (PageControl2.ActivePage() != &tbsEstorno)
        return;
    if (!Existe("FACCAO", "NUMERO", Aspas(edtM02OF.text()))) {
        edtM02Produto.SetText("");
        if (!Branco(edtM02OF))
            Recusa("O.F não Existe.", edtM02OF);
        return;
    }
    edtM02Produto.SetText(Busca_Valor("OF1", "NUMERO", "CODIGO", Aspas(edtM02OF.text())).AsString());
    CarregaPartesBaixaEstorno();
    BuscaMovOF();
    BitBtn1Click();
    BitBtn1.SetFocus();
}

void TfmFacMov::edtM02ProdutoChange()
{
    edtM02DescProduto.SetText(Busca_Valor("PRODUTO", "CODIGO", "DESCRICAO", Aspas(edtM02Produto.text())).AsString());
}

void TfmFacMov::edtM02ProdutoExit()
{
    if (!Branco(edtM02Produto) && !Existe("PRODUTO", "CODIGO", Aspas(edtM02Produto.text())))
        Recusa("Produto não Encontrado.", edtM02Produto);
}

void TfmFacMov::CarregaPartesBaixaEstorno()
{
    PreenchePartes(CbEstorParte,
        TStatement(R"(
        SELECT F.PARTE, TIPO_APL.DESCRICAO
          FROM (SELECT DISTINCT PARTE FROM {FACCAO} WHERE NUMERO = ?) F
          LEFT JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = F.PARTE
         ORDER BY F.PARTE)",
            edtM02OF.text()));
}

void TfmFacMov::BuscaMovOF()
{
    cbEstorMov.SetItems({""});
    TOrvQuery movimentos = Consulta(
        "SELECT DISTINCT MOV FROM {FACCAO3} WHERE NUMERO = ? AND MOV IS NOT NULL ORDER BY MOV", edtM02OF.text());
    movimentos.ForEach([&] { cbEstorMov.AddItem(movimentos.FieldByName("MOV").AsString()); });
    cbEstorMov.SetItemIndex(0);
}

// A subcontractor's own user sees only what left his hands. The last movement is the one offered for reversal.
void TfmFacMov::BitBtn1Click()
{
    const std::string faccao = FaccaoFuncionario(Funcoes().vUsuarioCodigo());
    if (Branco(edtM02OF))
        return Recusa("Número de OF inválido.", edtM02OF);

    const std::string parte = Left(CbEstorParte.text(), 2);
    const TValue fluxo
        = ConsultaValor("SELECT MAX(FLUXO) AS FLUXO FROM {FACCAO} WHERE NUMERO = ? AND PARTE = ? GROUP BY NUMERO",
            edtM02OF.text(), parte);
    TStatement& select = QryEstorno.SQL = TStatement(R"(
        SELECT FACCAO.MOV, FACCAO.PARTE, PARTE.DESCRICAO AS DESC_PARTE, FACCAO.OP AS SETOR,
               CADFLUXO.DESCRICAO AS DESC_SETOR, FACCAO.CODCLI, CLIENTE.NOME, FACCAO.COR, COR.DESCRICAO AS DESC_COR,
               FACCAO.TAM, FACCAO.DT_LAN, FACCAO.QT_ORIG, FACCAO.QUANT, FACCAO.QUANT_2, FACCAO.QUANT_I, FACCAO.QUANT_F,
               FACCAO.NUMERO, FACCAO.CODIGO, FACCAO.CODCLI_ANT, FACCAO.NOTA, FACCAO.QUAL, FACCAO.DEPOSITO,
               DEPOSITO.DESCRICAO AS DESC_DEPOSITO, FACCAO.ESTOQUE, FACCAO.IDENTIFICADOR, FACCAO.ID_ANT
          FROM {FACCAO3} FACCAO
          JOIN {OF1} OF1 ON OF1.NUMERO = FACCAO.NUMERO
          JOIN {ENTIDADE} CLIENTE ON CLIENTE.CODCLI = FACCAO.CODCLI
          LEFT JOIN {FLUXO} FLUXO ON FLUXO.CODIGO = ? AND FLUXO.SETOR = FACCAO.OP
          LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FACCAO.OP
          JOIN {TABTAM} TABTAM ON TABTAM.TAM = FACCAO.TAM
          LEFT JOIN {CADCOR} COR ON COR.COR = FACCAO.COR
          LEFT JOIN {TIPO_APL} PARTE ON PARTE.CODIGO = FACCAO.PARTE
          LEFT JOIN {DEPOSITO} DEPOSITO ON DEPOSITO.CODIGO = FACCAO.DEPOSITO
         WHERE FACCAO.QUANT+FACCAO.QUANT_2+FACCAO.QUANT_I+FACCAO.QUANT_F > 0 AND FACCAO.PARTE = ? AND FACCAO.NUMERO = ?)",
        fluxo, parte, edtM02OF.text());
    if (!Branco(edtM02Produto))
        select.Add(" AND FACCAO.CODIGO = ?", edtM02Produto.text());
    if (!cbEstorMov.empty())
        select.Add(" AND FACCAO.MOV = ?", BareNumber(cbEstorMov.text()));
    if (!faccao.empty())
        select.Add(" AND FACCAO.CODCLI = ?", faccao);
    select.Add(" ORDER BY FACCAO.IDENTIFICADOR, FLUXO.ORDEM, FACCAO.CODIGO, FACCAO.OP, FACCAO.COR, TABTAM.ACRESCIMO, "
               "FACCAO.TAM");
    QryEstorno.Open();
    QryEstorno.Last();

    const bool comEstoque = Busca_Valor("TIPO_APL", "CODIGO", "ESTOQUE", Aspas(parte)).AsString() == "S"
        && Existe("FACCAO3", "NUMERO,ESTOQUE", Aspas(edtM02OF.text()), Aspas("S"));
    pnlEstornoBaixa.SetVisible(comEstoque);
    if (comEstoque)
        edtRTipMov.SetText(App().Host.stock.CodigoTipoMovEstoque(TTipoMovimentoEstoque::SaidaProducao));
}

void TfmFacMov::edtRTipMovChange()
{
    edtRDescMov.SetText(Busca_Valor("TABBAI", "CODIGO", "DESCRICAO", Aspas(edtRTipMov.text())).AsString());
}

void TfmFacMov::edtRTipMovExit()
{
    if (Branco(edtRTipMov))
        return;
    if (!Existe("TABBAI", "CODIGO", Aspas(edtRTipMov.text())))
        return Recusa("Código do movimento não encontrado.", edtRTipMov);
    // A reversal takes stock out.
    if (Busca_Valor("TABBAI", "CODIGO", "TIPO", Aspas(edtRTipMov.text())).AsString() == "E")
        return Recusa("O tipo de Movimento não pode ser de Entrada.", edtRTipMov);
    if (Branco(edtRDeposito))
        edtRDeposito.SetFocus();
}

void TfmFacMov::edtRDepositoChange()
{
    edtRDescDeposito.SetText(Busca_Valor("DEPOSITO", "CODIGO", "DESCRICAO", Aspas(edtRDeposito.text())).AsString());
}

void TfmFacMov::edtRDepositoExit()
{
    if (!Branco(edtRDeposito) && !Existe("DEPOSITO", "CODIGO", Aspas(edtRDeposito.text())))
        Recusa("Código do depósito não encontrado.", edtRDeposito);
}

void TfmFacMov::edtDepositoRepChange()
{
    edtDescDepositoRep.SetText(Busca_Valor("DEPOSITO", "CODIGO", "DESCRICAO", Aspas(edtDepositoRep.text())).AsString());
}

void TfmFacMov::edtDepositoRepExit()
{
    if (!Branco(edtDepositoRep) && !Existe("DEPOSITO", "CODIGO", Aspas(edtDepositoRep.text())))
        Recusa("Código do depósito não encontrado.", edtDepositoRep);
}

// Checks first, then the writes. Nothing is locked between them, and a failure leaves what was written pending.
void TfmFacMov::BitBtn6Click()
{
    if (!Acessa(TDireito::Exclui))
        Abort();
    if (QryEstorno.IsEmpty() || !ConfereEstorno() || !ConfereEstoqueEstorno())
        return;
    const std::string numero = QryEstorno.NUMERO.value();
    const std::string setor = QryEstorno.SETOR.value();
    const std::string parte = QryEstorno.PARTE.value();
    const std::string tam = QryEstorno.TAM.value();
    if (SetorComReprocesso(numero, setor, parte, tam))
        return Recusa("Setor com reprocesso lançado. Para continuar, exclua o reprocesso.");

    // The question speaks of all movements, and only the selected one is reversed: this is wanted.
    if (Pergunta("Deseja realmente estornar este movimento?\n"
                 "Serão estornados todos os movimentos do setor e tamanho selecionados.",
            "Estorno de Movimento"))
        GravaEstorno();
    // The line and the commit follow a No as well: this is wanted.
    GeraLog("MOVIMENTO OF.",
        "ESTORNO DE PROCESSO NA ORDEM FABR. FACCAO NR.: " + numero + " SETOR.: " + setor + " PARTE.: " + parte
            + " TAM.: " + tam,
        TOperacaoLog::Processo, numero);
    CommitRetaining();
    BitBtn1.Click();
}

bool TfmFacMov::ConfereEstorno()
{
    const TDateTime inventario = Busca_Valor("EMPRESA", "EMP_PAT", "EMP_DTINV", Aspas(Tabela().EMP_PAT())).AsDateTime();
    if (!inventario.IsBlank() && QryEstorno.DT_LAN.value() <= inventario)
        return Recusa("Não é possível fazer o estorno com data inferior ou igual ao fechamento do inventário."), false;
    if (!PodeExtornar(QryEstorno.SETOR.value(), QryEstorno.NUMERO.value(), QryEstorno.TAM.value(),
            QryEstorno.PARTE.value(), QryEstorno.MOV.AsString())) {
        Mensagem("Impossível estornar este movimento.\nSomente o último setor movimentado pode ser estornado.", {},
            TIcon::Stop);
        return false;
    }
    if (!PermissaoSetor(QryEstorno.SETOR.value()))
        return Recusa("Sem permissão para estornar do setor."), false;
    // Any line of the movement that was paid holds the others.
    if (!Consulta(
            "SELECT IDENTIFICADOR FROM {FACCAO3} WHERE NUMERO = ? AND PARTE = ? AND OP = ? AND MOV = ? AND PAGO = 'S'",
            QryEstorno.NUMERO.value(), QryEstorno.PARTE.value(), QryEstorno.SETOR.value(), QryEstorno.MOV.value())
             .IsEmpty()) {
        Mensagem("Baixa já paga. Impossível estornar.", {}, TIcon::Stop);
        return false;
    }
    return true;
}

// A movement is blocked only by a later one out of the position that it opened itself.
bool TfmFacMov::PodeExtornar(std::string_view, std::string_view, std::string_view, std::string_view, std::string_view)
{
    const std::int64_t destino = PosicaoAberta();
    return destino <= 0
        || !Existe("FACCAO3", "NUMERO,ID_ANT", Aspas(QryEstorno.NUMERO.value()), std::to_string(destino));
}

// Users who move the same position at the same moment give their movements the same number. Of their positions the one with as
// many pieces is this movement's and, of those, one that can still go.
std::int64_t TfmFacMov::PosicaoAberta()
{
    return ConsultaValor(R"(
        SELECT F.IDENTIFICADOR FROM {FACCAO} F WHERE F.NUMERO = ? AND F.MOV = ? AND F.ID_ANT = ?
         ORDER BY CASE WHEN F.QT_ORIG = ? THEN 0 ELSE 1 END,
                  CASE WHEN EXISTS (SELECT 1 FROM {FACCAO3} H WHERE H.NUMERO = F.NUMERO AND H.ID_ANT = F.IDENTIFICADOR)
                       THEN 1 ELSE 0 END,
                  F.IDENTIFICADOR)",
        QryEstorno.NUMERO.value(), QryEstorno.MOV.value(), QryEstorno.ID_ANT.value(), QryEstorno.QUANT.value())
        .AsInteger();
}

bool TfmFacMov::ConfereEstoqueEstorno()
{
    if (QryEstorno.ESTOQUE.value() != "S")
        return true;
    if (Branco(edtRTipMov))
        return Recusa("Informe o tipo de movimento de estoque.", edtRTipMov), false;
    if (Branco(edtRDeposito))
        return Recusa("Informe o código do depósito.", edtRDeposito), false;
    if (edtRDeposito.text() != QryEstorno.DEPOSITO.value()
        && !Pergunta("Atenção, Depósito de entrada do item e o depósito informado para estorno são diferentes, "
                     "continuar?"))
        return false;
    const bool comSegunda = EstornaReprovados() && QryEstorno.QUANT_2.value() > 0;
    if (comSegunda && Branco(edtDepositoRep))
        return Recusa("Depósito reprovado inválido.", edtDepositoRep), false;
    if (comSegunda && edtRDeposito.text() == edtDepositoRep.text())
        return Recusa("Campo Depósito e Depósito Reprovado com mesmo código. Impossível continuar.", edtDepositoRep),
               false;
    if (QryEstorno.QUANT.value() > EstoqueDoProduto(edtRDeposito.text()))
        return Recusa("Estoque insuficiente para fazer o estorno."), false;
    if (comSegunda && QryEstorno.QUANT_2.value() > EstoqueDoProduto(edtDepositoRep.text()))
        return Recusa("Estoque insuficiente para fazer o estorno da quantidade reprovada."), false;
    return true;
}

bool TfmFacMov::EstornaReprovados() { return LigaSetor(QryEstorno.SETOR.value(), "MOVREPROVADO") == "S"; }

std::string TfmFacMov::LoteEstorno() const { return sParamPCP140 == "2" ? QryEstorno.NUMERO.value() : "000000"; }

double TfmFacMov::EstoqueDoProduto(std::string_view deposito)
{
    return ConsultaValor(R"(
        SELECT QUANTIDADE FROM {PA_ITEN}
         WHERE CODIGO = ? AND COR = ? AND TAM = ? AND TIPO = ? AND DEPOSITO = ? AND LOTE = ? ORDER BY IDENTIFICADOR)",
        QryEstorno.CODIGO.value(), QryEstorno.COR.value(), QryEstorno.TAM.value(), QryEstorno.QUAL.value(), deposito,
        LoteEstorno())
        .AsFloat();
}

bool TfmFacMov::SetorComReprocesso(
    std::string_view numero, std::string_view setor, std::string_view parte, std::string_view tam)
{
    return !Consulta("SELECT IDENTIFICADOR FROM {FACCAO} WHERE NUMERO = ? AND OP = ? AND PARTE = ? AND TAM = ? AND "
                     "REPROCESSO <> ''",
        numero, setor, parte, tam)
                .IsEmpty();
}

void TfmFacMov::GravaEstorno()
{
    const std::string parte = QryEstorno.PARTE.value();
    const bool comEstoque = Busca_Valor("TIPO_APL", "CODIGO", "ESTOQUE", Aspas(parte)).AsString() == "S"
        && QryEstorno.ESTOQUE.value() == "S";
    const double reprovadas = QryEstorno.QUANT_I.value() + QryEstorno.QUANT_2.value();

    DevolveOrigem();
    RetiraDestino();
    if (comEstoque && QryEstorno.QUANT.value() > 0)
        EstornaEstoque(edtRDeposito.text(), QryEstorno.QUANT.value());
    // Incomplete pieces count here, and not in the checks: this is wanted.
    if (comEstoque && EstornaReprovados() && reprovadas > 0)
        EstornaEstoque(edtDepositoRep.text(), reprovadas);
    if (Busca_Valor("TIPO_APL", "CODIGO", "BAIXA", Aspas(parte)).AsString() == "S")
        EstornaBaixa();
    if (Busca_Valor("TIPO_APL", "CODIGO", "ATUALIZA", Aspas(parte)).AsString() == "S")
        EstornaPerdas();
    Executa(R"(
        DELETE FROM {FACCAO3}
         WHERE NUMERO = ? AND CODCLI = ? AND CODIGO = ? AND COR = ? AND TAM = ? AND PARTE = ? AND IDENTIFICADOR = ?)",
        QryEstorno.NUMERO.value(), QryEstorno.CODCLI.value(), QryEstorno.CODIGO.value(), QryEstorno.COR.value(),
        QryEstorno.TAM.value(), parte, QryEstorno.IDENTIFICADOR.value());
}

void TfmFacMov::DevolveOrigem()
{
    Executa(R"(
        UPDATE {FACCAO} SET QUANT = QUANT - ?, QUANT_2 = QUANT_2 - ?, QUANT_I = QUANT_I - ?, QUANT_F = QUANT_F - ?
         WHERE IDENTIFICADOR = ? AND NUMERO = ? AND CODCLI = ? AND CODIGO = ? AND COR = ? AND PARTE = ? AND TAM = ?)",
        QryEstorno.QUANT.value(), QryEstorno.QUANT_2.value(), QryEstorno.QUANT_I.value(), QryEstorno.QUANT_F.value(),
        QryEstorno.ID_ANT.value(), QryEstorno.NUMERO.value(), QryEstorno.CODCLI.value(), QryEstorno.CODIGO.value(),
        QryEstorno.COR.value(), QryEstorno.PARTE.value(), QryEstorno.TAM.value());
}

// The position that the movement opened or, where its number tells none, one that began with as many pieces.
std::int64_t TfmFacMov::DestinoDoMovimento()
{
    if (const std::int64_t aberta = PosicaoAberta(); aberta != 0)
        return aberta;
    return ConsultaValor("SELECT IDENTIFICADOR FROM {FACCAO} WHERE NUMERO = ? AND ID_ANT = ? AND QT_ORIG = ? "
                         "ORDER BY IDENTIFICADOR",
        QryEstorno.NUMERO.value(), QryEstorno.ID_ANT.value(), QryEstorno.QUANT.value())
        .AsInteger();
}

// What arrived goes, with the packets made of it; a position that others fed too keeps the rest.
void TfmFacMov::RetiraDestino()
{
    const std::int64_t destino = DestinoDoMovimento();
    if (destino == 0)
        return;
    Executa(
        "UPDATE {FACCAO} SET QT_ORIG = QT_ORIG - ? WHERE IDENTIFICADOR = ? AND NUMERO = ? AND CODIGO = ? AND PARTE = ?",
        QryEstorno.QUANT.value(), destino, QryEstorno.NUMERO.value(), QryEstorno.CODIGO.value(),
        QryEstorno.PARTE.value());

    TOrvQuery posicao
        = Consulta("SELECT NUMERO, COR, TAM, OP, PARTE, MOV FROM {FACCAO} WHERE IDENTIFICADOR = ?", destino);
    TStatement pacotes("DELETE FROM {PCP_PACOTE} WHERE NUMERO = ? AND COR = ? AND TAM = ? AND SETOR = ? AND PARTE = ?",
        posicao.FieldByName("NUMERO").AsString(), posicao.FieldByName("COR").AsString(),
        posicao.FieldByName("TAM").AsString(), posicao.FieldByName("OP").AsString(),
        posicao.FieldByName("PARTE").AsString());
    if (!posicao.FieldByName("MOV").IsNull())
        pacotes.Add(" AND MOV = ?", posicao.FieldByName("MOV").AsInteger());
    Executa(pacotes);
    Executa("DELETE FROM {FACCAO} WHERE IDENTIFICADOR = ? AND (QT_ORIG + QUANT) <= 0", destino);
}

void TfmFacMov::EstornaEstoque(std::string_view deposito, double quantidade)
{
    TEstoque estoque(App().Host.stock);
    estoque.Codigo = QryEstorno.CODIGO.value();
    estoque.Cor = QryEstorno.COR.value();
    estoque.Tam = QryEstorno.TAM.value();
    estoque.Lote = LoteEstorno();
    estoque.Deposito = deposito;
    estoque.Qualidade = QryEstorno.QUAL.value();
    estoque.Saida = true;
    estoque.Quantidade = quantidade;
    estoque.Documento = QryEstorno.NUMERO.value();
    estoque.TipoMovimento = edtRTipMov.text();
    estoque.Origem = "FC";
    estoque.MovimentaEstoqueProduto();
}

// Finished pieces are open again, as far as the order counts any as finished.
void TfmFacMov::EstornaBaixa()
{
    const std::string ultimo = ConsultaValor(R"(
        SELECT FLUXO.SETOR FROM {FLUXO} FLUXO
         WHERE FLUXO.CODIGO = (SELECT MAX(FACCAO.FLUXO) FROM {FACCAO} FACCAO
                                WHERE FACCAO.NUMERO = ? AND FACCAO.PARTE = ? GROUP BY FACCAO.NUMERO)
         ORDER BY FLUXO.ORDEM DESC, FLUXO.IDENTIFICADOR DESC)",
        QryEstorno.NUMERO.value(), QryEstorno.PARTE.value())
                                   .AsString();
    if (ultimo != QryEstorno.SETOR.value())
        return;
    const double prontas = ConsultaValor("SELECT QTDE_B FROM {OF_ITEN} WHERE NUMERO = ? AND COR = ? AND TAM = ?",
        QryEstorno.NUMERO.value(), QryEstorno.COR.value(), QryEstorno.TAM.value())
                               .AsFloat();
    const double reabertas = std::min(static_cast<double>(QryEstorno.QUANT.AsInteger()), prontas);
    Executa("UPDATE {OF_ITEN} SET QTDE_B = QTDE_B - ?, QTDE = QTDE + ? WHERE NUMERO = ? AND COR = ? AND TAM = ?",
        reabertas, reabertas, QryEstorno.NUMERO.value(), QryEstorno.COR.value(), QryEstorno.TAM.value());
}

// Cancelled pieces are open again; an excess that the movement had added goes. All movements out of the same position
// count, this one too.
void TfmFacMov::EstornaPerdas()
{
    TOrvQuery historico = Consulta(R"(
        SELECT SUM(QUANT) AS QTDE_E, SUM(QUANT_I + QUANT_2 + QUANT_F) AS QTDE_C
          FROM {FACCAO3} WHERE NUMERO = ? AND ID_ANT = ?)",
        QryEstorno.NUMERO.value(), QryEstorno.ID_ANT.value());
    const double perdas = QryEstorno.Losses();
    const double saiu = historico.FieldByName("QTDE_E").AsFloat() + perdas;
    const double cabia = QryEstorno.QT_ORIG.value() - historico.FieldByName("QTDE_C").AsFloat() + perdas;
    const double excesso = std::clamp(saiu - cabia, 0.0, QryEstorno.QUANT.value() + perdas);
    Executa("UPDATE {OF_ITEN} SET QTDE_C = QTDE_C - ?, QTDE = QTDE + ? WHERE NUMERO = ? AND COR = ? AND TAM = ?",
        perdas, perdas - excesso, QryEstorno.NUMERO.value(), QryEstorno.COR.value(), QryEstorno.TAM.value());
    Executa("UPDATE {OF1} SET ATIVOS = ATIVOS + ? WHERE NUMERO = ?", perdas - excesso, QryEstorno.NUMERO.value());
}

void TfmFacMov::PqEProdutoFechaPesquisa() { edtM02Produto.SetText(PqEProduto.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacMov::PqRTipMovFechaPesquisa() { edtRTipMov.SetText(PqRTipMov.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacMov::PqRDepositoFechaPesquisa() { edtRDeposito.SetText(PqRDeposito.RetornoPesquisa("CODIGO").AsString()); }

void TfmFacMov::PqDepositoRepFechaPesquisa()
{
    edtDepositoRep.SetText(PqDepositoRep.RetornoPesquisa("CODIGO").AsString());
}

} // namespace alinhavo
