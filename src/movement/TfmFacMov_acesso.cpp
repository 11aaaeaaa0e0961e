// The tab "Acesso": where an order stands, and the way from there to the other screens.

#include "forms/TApplication.h"
#include "forms/text.h"
#include "host/TfmFotoProd.h"
#include "movement/TfmFacMov.h"

namespace alinhavo {

void TfmFacMov::LigaConsultas()
{
    edtM01OF.OnExit.connect(this, &TfmFacMov::edtM01OFExit);
    edtM01Produto.OnChange.connect(this, &TfmFacMov::edtM01ProdutoChange);
    edtM01Produto.OnExit.connect(this, &TfmFacMov::edtFaccao_CodProd);
    BtnAConsultar.OnClick.connect(this, &TfmFacMov::BtnAConsultarClick);
    DbGridGrade.OnTitleClick.connect(this, &TfmFacMov::DbGridGradeTitleClick);
    DbGridGrade.OnDoubleClick.connect(this, &TfmFacMov::DbGridGradeDblClick);
    DbGridGrade.OnRowColor.connect(this, &TfmFacMov::DbGridGradeRowColor);
    EdtCodFluxo.OnChange.connect(this, &TfmFacMov::EdtCodFluxoChange);
    SpeedButton1.OnClick.connect(this, &TfmFacMov::SpeedButton1Click);
    SpeedButton2.OnClick.connect(this, &TfmFacMov::SpeedButton2Click);
    BitBtn5.OnClick.connect(this, &TfmFacMov::BitBtn5Click);
    BitBtn7.OnClick.connect(this, &TfmFacMov::BitBtn7Click);
    BitBtn8.OnClick.connect(this, &TfmFacMov::BitBtn8Click);
    btnFichaCorte.OnClick.connect(this, &TfmFacMov::btnFichaCorteClick);
    BtnExclusao.OnClick.connect(this, &TfmFacMov::BtnExclusaoClick);
    PqMProduto.OnFechaPesquisa.connect(this, &TfmFacMov::PqMProdutoFechaPesquisa);

    edtM02OF.OnExit.connect(this, &TfmFacMov::edtM02OFExit);
    edtM02Produto.OnChange.connect(this, &TfmFacMov::edtM02ProdutoChange);
    edtM02Produto.OnExit.connect(this, &TfmFacMov::edtM02ProdutoExit);
    BitBtn1.OnClick.connect(this, &TfmFacMov::BitBtn1Click);
    edtRTipMov.OnChange.connect(this, &TfmFacMov::edtRTipMovChange);
    edtRTipMov.OnExit.connect(this, &TfmFacMov::edtRTipMovExit);
    edtRDeposito.OnChange.connect(this, &TfmFacMov::edtRDepositoChange);
    edtRDeposito.OnExit.connect(this, &TfmFacMov::edtRDepositoExit);
    edtDepositoRep.OnChange.connect(this, &TfmFacMov::edtDepositoRepChange);
    edtDepositoRep.OnExit.connect(this, &TfmFacMov::edtDepositoRepExit);
    BitBtn6.OnClick.connect(this, &TfmFacMov::BitBtn6Click);
    PqEProduto.OnFechaPesquisa.connect(this, &TfmFacMov::PqEProdutoFechaPesquisa);
    PqRTipMov.OnFechaPesquisa.connect(this, &TfmFacMov::PqRTipMovFechaPesquisa);
    PqRDeposito.OnFechaPesquisa.connect(this, &TfmFacMov::PqRDepositoFechaPesquisa);
    PqDepositoRep.OnFechaPesquisa.connect(this, &TfmFacMov::PqDepositoRepFechaPesquisa);

    BitBtn9.OnClick.connect(this, &TfmFacMov::BitBtn9Click);
    TbRastrear.SortBy("Ordem;Mov");
}

void TfmFacMov::edtM01OFExit()
{
    if (PageControl2.ActivePage() != &tbsAcesso)
        return;
    if (Trim(edtM01OF.text()).empty()) {
        edtM01Produto.SetText("");
        EdtCodFluxo.SetText("");
        return;
    }
    if (!Existe("FACCAO", "NUMERO", Aspas(edtM01OF.text()))) {
        edtM01Produto.SetText("");
        return Recusa("OF Inválida ou não localizada na Facção.", edtM01OF);
    }
    M01MostraDados();
    CarregaPartesBaixa();
    BtnAConsultarClick();
    BtnAConsultar.SetFocus();
}

void TfmFacMov::edtM01ProdutoChange()
{
    edtM01DescProduto.SetText(Busca_Valor("PRODUTO", "CODIGO", "DESCRICAO", Aspas(edtM01Produto.text())).AsString());
}

void TfmFacMov::edtFaccao_CodProd()
{
    const std::string codigo = Trim(edtM01Produto.text());
    if (codigo.empty())
        edtM01DescProduto.SetText("");
    else if (!Existe("PRODUTO", "CODIGO", Aspas(codigo)))
        Recusa("Produto Inválido.", edtM01Produto);
}

void TfmFacMov::BtnAConsultarClick()
{
    if (Trim(edtM01OF.text()).empty() && Trim(edtM01Produto.text()).empty()) {
        if (PageControl2.ActivePage() == &tbsAcesso)
            Recusa("OF e Produto Inválidos.", edtM01OF);
        return;
    }
    ConsultaOF("");
    M01MostraDados();
}

void TfmFacMov::M01MostraDados()
{
    const std::string numero = edtM01OF.text();
    if (Trim(numero).empty())
        return;
    edtM01Produto.SetText(Busca_Valor("FACCAO", "NUMERO", "CODIGO", Aspas(numero)).AsString());
    // The totals are read anew also where the flow is the same as before.
    EdtCodFluxo.SetTextQuietly(
        Busca_Valor("FACCAO", "NUMERO;PARTE", "FLUXO", Aspas(numero), Aspas(ParteConsultada())).AsString());
    EdtCodFluxoChange();
    mmObsOF.SetText(Busca_Valor("OF1", "NUMERO", "OBSERVACAO", Aspas(numero)).AsString());
    MostraObservacoes();
}

void TfmFacMov::MostraObservacoes()
{
    MmObs.Clear();
    TOrvQuery movimentos = Consulta(R"(
        SELECT CADFLUXO.DESCRICAO, FACCAO3.MOV, FACCAO3.OBS
          FROM {FACCAO3} FACCAO3
          LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FACCAO3.OP
         WHERE FACCAO3.NUMERO = ? AND FACCAO3.OBS <> ''
         GROUP BY CADFLUXO.DESCRICAO, FACCAO3.MOV, FACCAO3.OBS
         ORDER BY MIN(FACCAO3.IDENTIFICADOR))",
        edtM01OF.text());
    movimentos.ForEach([&] {
        MmObs.AddLine(movimentos.FieldByName("DESCRICAO").AsString() + " Mov. "
            + movimentos.FieldByName("MOV").AsString() + ": " + movimentos.FieldByName("OBS").AsString());
    });

    mmObsEnvio.Clear();
    TOrvQuery envios = Consulta(R"(
        SELECT DISTINCT FACCAO.PARTE, FACCAO.OP, FACCAO.CODCLI, FACCAO.MOV, FACCAO.OBS
          FROM {FACCAO} FACCAO
         WHERE FACCAO.NUMERO = ? AND FACCAO.OBS <> ''
         ORDER BY FACCAO.PARTE, FACCAO.OP, FACCAO.CODCLI, FACCAO.MOV, FACCAO.OBS)",
        edtM01OF.text());
    envios.ForEach([&] {
        mmObsEnvio.AddLine("Setor: " + envios.FieldByName("OP").AsString()
            + " Parte: " + envios.FieldByName("PARTE").AsString()
            + " Facção: " + envios.FieldByName("CODCLI").AsString() + " Mov: " + envios.FieldByName("MOV").AsString());
        mmObsEnvio.AddLine("Obs: " + envios.FieldByName("OBS").AsString());
    });
}

// A subcontractor's own user sees only what he holds.
void TfmFacMov::ConsultaOF(std::string_view ordem)
{
    const std::string faccao = FaccaoFuncionario(Funcoes().vUsuarioCodigo());
    TStatement& select = QryConsulta.SQL = TStatement(R"(
        SELECT POSICAO.* FROM (
        SELECT FACCAO.NUMERO, FACCAO.MOV, FACCAO.CODIGO, PRODUTO.CODIGO2, FACCAO.CODCLI, CLIENTE.NOME, FACCAO.COR,
               COR.DESCRICAO AS DESC_COR, FACCAO.TAM, FACCAO.OP, CADFLUXO.DESCRICAO AS DESC_SETOR,
               FACCAO.IDENTIFICADOR, FACCAO.ID_ANT, FACCAO.PEDIDO, FACCAO.PRECO, FACCAO.UNITARIO, FACCAO.QT_ORIG,
               FACCAO.QUANT, FACCAO.QUANT_2, FACCAO.QUANT_I, FACCAO.QUANT_F, FACCAO.PARTE, FACCAO.DT_R,
               FACCAO.REPROCESSO, SUBSTRING(FACCAO.OBS FROM 1 FOR 4000) AS OBSERVACAO, OF1.PERIODO,
               TABPRZ_OF1.DESCRICAO AS DESC_PERIODO, TABTAM.ACRESCIMO,
               FACCAO.QT_ORIG-FACCAO.QUANT-FACCAO.QUANT_2-FACCAO.QUANT_I-FACCAO.QUANT_F AS SALDO,
               FACCAO.DT_S AS DATA_SAI,
               (SELECT MAX(SAIU.DT_LAN) FROM {FACCAO3} SAIU
                 WHERE SAIU.ID_ANT = FACCAO.IDENTIFICADOR AND SAIU.NUMERO = FACCAO.NUMERO AND SAIU.OP = FACCAO.OP
                   AND SAIU.CODIGO = FACCAO.CODIGO AND SAIU.COR = FACCAO.COR AND SAIU.TAM = FACCAO.TAM
                   AND SAIU.PARTE = FACCAO.PARTE) AS DATA_RET,
               COALESCE((SELECT SUM(SAIU.QUANT + SAIU.QUANT_2 + SAIU.QUANT_I + SAIU.QUANT_F) FROM {FACCAO3} SAIU
                 WHERE SAIU.ID_ANT = FACCAO.IDENTIFICADOR AND SAIU.NUMERO = FACCAO.NUMERO AND SAIU.OP = FACCAO.OP
                   AND SAIU.CODIGO = FACCAO.CODIGO AND SAIU.COR = FACCAO.COR AND SAIU.TAM = FACCAO.TAM
                   AND SAIU.PARTE = FACCAO.PARTE), 0) AS QUANT_B,
               (SELECT MAX(FLUXO.ORDEM) FROM {FLUXO} FLUXO
                 WHERE FLUXO.CODIGO = FACCAO.FLUXO AND FLUXO.SETOR = FACCAO.OP) AS ORDEM,
               COMB_PARTE.COR_PARTE || '-' || CORPARTE.DESCRICAO AS CORPARTE
          FROM {FACCAO} FACCAO
          JOIN {ENTIDADE} CLIENTE ON CLIENTE.CODCLI = FACCAO.CODCLI
          JOIN {CADCOR} COR ON COR.COR = FACCAO.COR
          JOIN {TABTAM} TABTAM ON TABTAM.TAM = FACCAO.TAM
          JOIN {PRODUTO} PRODUTO ON PRODUTO.CODIGO = FACCAO.CODIGO
          LEFT JOIN {COMB_PARTE} COMB_PARTE ON COMB_PARTE.CODIGO = FACCAO.CODIGO AND COMB_PARTE.COR = FACCAO.COR
           AND COMB_PARTE.PARTE = FACCAO.PARTE
          LEFT JOIN {CADCOR} CORPARTE ON CORPARTE.COR = COMB_PARTE.COR_PARTE
          LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FACCAO.OP
          LEFT JOIN {OF1} OF1 ON OF1.NUMERO = FACCAO.NUMERO
          LEFT JOIN {TABPRZ} TABPRZ_OF1 ON TABPRZ_OF1.PRAZO = OF1.PERIODO
         WHERE FACCAO.PARTE = ?)",
        ParteConsultada());
    if (!Trim(edtM01Produto.text()).empty())
        select.Add(" AND FACCAO.CODIGO = ?", edtM01Produto.text());
    if (!Trim(edtM01OF.text()).empty())
        select.Add(" AND FACCAO.NUMERO = ?", edtM01OF.text());
    if (!faccao.empty())
        select.Add(" AND FACCAO.CODCLI = ?", faccao);
    select.Add(") POSICAO ORDER BY ");
    if (!ordem.empty())
        select.Add("POSICAO.?, ", TName(ordem));
    // A sector outside the flow comes last.
    select.Add(R"(COALESCE(POSICAO.ORDEM, 9999), POSICAO.OP, POSICAO.MOV, POSICAO.COR, POSICAO.ACRESCIMO, POSICAO.TAM,
                  POSICAO.IDENTIFICADOR)");
    QryConsulta.Open();
    QryConsulta.Last();
}

void TfmFacMov::PreenchePartes(TComboBox& partes, const TStatement& select)
{
    partes.ClearItems();
    TOrvQuery linhas = Consulta(select);
    linhas.ForEach([&] {
        partes.AddItem(linhas.FieldByName("PARTE").AsString() + " |" + linhas.FieldByName("DESCRICAO").AsString());
    });
    partes.SetItemIndex(0);
}

// The part of the product's default flow leads.
void TfmFacMov::CarregaPartesBaixa()
{
    PreenchePartes(CbConsParte,
        TStatement(R"(
        SELECT F.PARTE, TIPO_APL.DESCRICAO
          FROM (SELECT DISTINCT NUMERO, CODIGO, PARTE FROM {FACCAO} WHERE NUMERO = ?) F
          LEFT JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = F.PARTE
          LEFT JOIN {PRO_FLUXO} PRO_FLUXO ON PRO_FLUXO.CODIGO = F.CODIGO AND PRO_FLUXO.PARTE = F.PARTE
         ORDER BY PRO_FLUXO.PADRAO DESC, F.PARTE)",
            edtM01OF.text()));
}

std::string TfmFacMov::ParteConsultada() const { return Left(CbConsParte.text(), 2); }

void TfmFacMov::EdtCodFluxoChange()
{
    TbFluxo.EmptyTable();
    const std::string fluxo = EdtCodFluxo.text();
    EdtDesFluxo.SetText(Busca_Valor("ROTEIRO", "CODIGO", "DESCRICAO", Aspas(fluxo)).AsString());
    if (fluxo.empty())
        return;
    const std::string numero = edtM01OF.text();
    const std::string parte = ParteConsultada();
    SomaFluxo(Consulta(R"(
        SELECT FLUXO.ORDEM, FLUXO.SETOR, MAX(CADFLUXO.DESCRICAO) AS DESCRICAO, SUM(FACCAO.QT_ORIG) AS QUANT,
               SUM(FACCAO.QUANT + FACCAO.QUANT_2 + FACCAO.QUANT_I + FACCAO.QUANT_F) AS QUANT_B,
               COALESCE(FACCAO.REPROCESSO,'') AS REPROCESSO,
               (SELECT MAX(OF_SETOR.LOCAL) FROM {OF_SETOR} OF_SETOR
                 WHERE OF_SETOR.NUMERO = ? AND OF_SETOR.SETOR = FLUXO.SETOR AND OF_SETOR.PARTE = ?) AS LOCAL,
               COALESCE((SELECT MAX(PLANEJADA.NOME) FROM {PCP_MOV} PCP_MOV
                           JOIN {ENTIDADE} PLANEJADA ON PLANEJADA.CODCLI = PCP_MOV.CODCLI
                          WHERE PCP_MOV.NUMERO = ? AND PCP_MOV.SETOR = FLUXO.SETOR AND PCP_MOV.PARTE = ?),
                        (SELECT MAX(PRINCIPAL.NOME) FROM {FAC_PROD} FAC_PROD
                           JOIN {ENTIDADE} PRINCIPAL ON PRINCIPAL.CODCLI = FAC_PROD.CODCLI
                          WHERE FAC_PROD.PRODUTO = ? AND FAC_PROD.SETOR = FLUXO.SETOR AND FAC_PROD.PARTE = ?
                            AND FAC_PROD.PRINCIPAL = 'S')) AS NOME,
               (SELECT MAX(PCP_MOV.DT_INICIO) FROM {PCP_MOV} PCP_MOV
                 WHERE PCP_MOV.NUMERO = ? AND PCP_MOV.SETOR = FLUXO.SETOR AND PCP_MOV.PARTE = ?) AS DT_INICIO,
               (SELECT MAX(PCP_MOV.DT_FIM) FROM {PCP_MOV} PCP_MOV
                 WHERE PCP_MOV.NUMERO = ? AND PCP_MOV.SETOR = FLUXO.SETOR AND PCP_MOV.PARTE = ?) AS DT_FIM,
               (SELECT MAX(PCP_MOV.DIAS) FROM {PCP_MOV} PCP_MOV
                 WHERE PCP_MOV.NUMERO = ? AND PCP_MOV.SETOR = FLUXO.SETOR AND PCP_MOV.PARTE = ?) AS DIAS
          FROM {FLUXO} FLUXO
          LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FLUXO.SETOR
          LEFT JOIN {FACCAO} FACCAO ON FACCAO.NUMERO = ? AND FACCAO.OP = FLUXO.SETOR AND FACCAO.PARTE = ?
         WHERE FLUXO.CODIGO = ?
         GROUP BY FLUXO.ORDEM, FLUXO.SETOR, COALESCE(FACCAO.REPROCESSO,'')
         ORDER BY FLUXO.ORDEM, FLUXO.SETOR, 6)",
        numero, parte, numero, parte, edtM01Produto.text(), parte, numero, parte, numero, parte, numero, parte, numero,
        parte, fluxo));
}

// A sector's positions in reprocess are told apart from the others. The grid is left on the first sector that nothing
// has left yet.
void TfmFacMov::SomaFluxo(TOrvQuery linhas)
{
    std::vector<TValue> aberto;
    linhas.ForEach([&] {
        const std::vector<TValue> chave{linhas.FieldByName("ORDEM").Value(), linhas.FieldByName("SETOR").Value()};
        const double quant = linhas.FieldByName("QUANT").AsFloat();
        const double saiu = linhas.FieldByName("QUANT_B").AsFloat();
        if (TbFluxo.Locate("Ordem;Setor", chave)) {
            TbFluxo.Edit();
        } else {
            TbFluxo.Append();
            TbFluxo.Ordem.Set(chave[0]);
            TbFluxo.Setor.Set(chave[1]);
            TbFluxo.Descricao = linhas.FieldByName("DESCRICAO").AsString();
            TbFluxo.Endereco = linhas.FieldByName("LOCAL").AsString();
            TbFluxo.Quant = quant;
            TbFluxo.Quant_B = saiu;
            TbFluxo.Saldo = 0;
            TbFluxo.Reprocesso = 0;
            TbFluxo.Faccao = linhas.FieldByName("NOME").AsString();
            TbFluxo.DT_Inicio.Set(linhas.FieldByName("DT_INICIO").Value());
            TbFluxo.DT_Fim.Set(linhas.FieldByName("DT_FIM").Value());
            TbFluxo.Dias.Set(linhas.FieldByName("DIAS").Value());
        }
        (linhas.FieldByName("REPROCESSO").AsString().empty() ? TbFluxo.Saldo : TbFluxo.Reprocesso) = quant - saiu;
        TbFluxo.Post();
        if (saiu == 0 && aberto.empty())
            aberto = chave;
    });
    if (aberto.empty())
        TbFluxo.First();
    else
        TbFluxo.Locate("Ordem;Setor", aberto);
}

void TfmFacMov::DbGridGradeTitleClick(std::string_view column) { ConsultaOF(column); }

void TfmFacMov::DbGridGradeRowColor(std::size_t row, TRowColor& color)
{
    const auto cell = [&](const TField& field) { return QryConsulta.CellValue(row, field); };
    const double saiu = cell(QryConsulta.QUANT).AsFloat() + cell(QryConsulta.QUANT_2).AsFloat()
        + cell(QryConsulta.QUANT_I).AsFloat() + cell(QryConsulta.QUANT_F).AsFloat();
    if (!cell(QryConsulta.REPROCESSO).IsEmpty())
        color = TRowColor::Special;
    else if (saiu >= cell(QryConsulta.QT_ORIG).AsFloat())
        color = TRowColor::Good;
    else
        color = saiu > 0 ? TRowColor::Progress : TRowColor::Bad;
}

// From a position straight into its movement.
void TfmFacMov::DbGridGradeDblClick()
{
    if (QryConsulta.IsEmpty() || !Acessa(TDireito::Altera))
        return;
    PageControl2.SetActivePage(tbsNormal);
    Limpa_Normal();
    edtOFNum.SetText(QryConsulta.NUMERO.value());
    EdtSetor.SetText(QryConsulta.OP.value());
    edtFaccao.SetText(QryConsulta.CODCLI.value());
    if (PedidoCancelado(EdtPedido.text(), QryConsulta.CODIGO.value())
        && !Pergunta("Item do Pedido vinculado à OF está Cancelado, Deseja Continuar?")) {
        btn00DesisteClick();
        PageControl2.SetActivePage(tbsAcesso);
        return DbGridGrade.SetFocus();
    }
    CbParte.SetItemIndex(CbParte.IndexOfPrefix(QryConsulta.PARTE.value() + " |"));
    AbreEntrada();
    CbParte.SetFocus();
}

// The consultation follows the movement of the order that it shows, to the positions that this one has opened.
void TfmFacMov::RepeteConsulta(const TOrderPosition& posicao)
{
    if (posicao.numero.empty() || edtM01OF.text() != posicao.numero)
        return;
    BtnAConsultarClick();
    QryConsulta.Locate("NUMERO;PARTE;OP;MOV", {posicao.numero, posicao.parte, posicao.setor, posicao.mov});
}

void TfmFacMov::SpeedButton1Click()
{
    TbFluxo.CheckBrowse();
    const std::string parte = ParteConsultada();
    Executa("DELETE FROM {OF_SETOR} WHERE NUMERO = ? AND PARTE = ?", edtM01OF.text(), parte);
    TbFluxo.ForEach([&] {
        Executa(R"(
            INSERT INTO {OF_SETOR} (NUMERO, SETOR, CODIGO, POSICAO, ORDEM, PARTE, LOCAL) VALUES (?, ?, '0', '0', ?, ?, ?))",
            edtM01OF.text(), TbFluxo.Setor.value(), TbFluxo.Ordem.value(), parte, TbFluxo.Endereco.value());
    });
    CommitRetaining();
}

void TfmFacMov::SpeedButton2Click()
{
    TfmFotoProd foto(*this);
    foto.Arquivo = Funcoes().BuscaArquivo(edtM01Produto.text(), TTipo::Produto);
    foto.Arquivo2 = Funcoes().BuscaArquivo(edtM01Produto.text(), TTipo::Produto2);
    foto.Mostra();
}

bool TfmFacMov::TemPosicao()
{
    if (QryConsulta.IsEmpty())
        Mensagem("Selecione uma OP. Impossível Continuar.");
    return !QryConsulta.IsEmpty();
}

void TfmFacMov::BitBtn5Click()
{
    if (!TemPosicao())
        return;
    TForm* tela = Carrega_Form("TfmCadPacote");
    if (auto* pacotes = dynamic_cast<IPacketScreen*>(tela)) {
        pacotes->Inicializa(edtM01OF.text(), QryConsulta.OP.value(), ParteConsultada());
        tela->Show();
    }
}

void TfmFacMov::BitBtn7Click()
{
    if (!TemPosicao())
        return;
    TForm* tela = Carrega_Form("TfmFacDistrib");
    if (auto* consumos = dynamic_cast<IConsumptionScreen*>(tela)) {
        consumos->Inicializa(edtM01Produto.text(), edtM01OF.text(), QryConsulta.OP.value(), ParteConsultada(),
            QryConsulta.MOV.AsString());
        tela->ShowModal();
    }
}

TOrderPosition TfmFacMov::PosicaoConsultada() const
{
    return {.numero = QryConsulta.NUMERO.value(),
        .setor = QryConsulta.OP.value(),
        .parte = QryConsulta.PARTE.value(),
        .codcli = QryConsulta.CODCLI.value(),
        .mov = QryConsulta.MOV.AsString()};
}

void TfmFacMov::BitBtn8Click()
{
    if (!Funcoes().Acessa(*this, "TfmRelFaccao01", TDireito::Consulta, TNivel::Usuario))
        return;
    TForm* tela = Application().FindFormByClass("TfmRelFaccao01");
    if (tela == nullptr)
        tela = Carrega_Form("TfmRelFaccao01");
    if (tela == nullptr)
        return;
    tela->Show();
    if (auto* ficha = dynamic_cast<IPositionSheet*>(tela); ficha != nullptr && !QryConsulta.IsEmpty())
        ficha->MostraPosicao(PosicaoConsultada());
}

// A sheet that is open already stays as the user left it.
void TfmFacMov::btnFichaCorteClick()
{
    if (!Funcoes().Acessa(*this, "TfmRelFacCorte", TDireito::Consulta, TNivel::Usuario))
        return;
    if (TForm* aberta = Application().FindFormByClass("TfmRelFacCorte"))
        return aberta->Show();
    TForm* tela = Carrega_Form("TfmRelFacCorte");
    if (tela == nullptr)
        return;
    tela->Show();
    if (auto* ficha = dynamic_cast<IPositionSheet*>(tela); ficha != nullptr && !QryConsulta.IsEmpty())
        ficha->MostraPosicao(PosicaoConsultada());
}

void TfmFacMov::PqMProdutoFechaPesquisa() { edtM01Produto.SetText(PqMProduto.RetornoPesquisa("CODIGO").AsString()); }

} // namespace alinhavo
