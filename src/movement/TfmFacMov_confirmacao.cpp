// The confirmation: its checks in their order, and the steps around the writing of the lines.

#include "forms/numbers.h"
#include "forms/text.h"
#include "movement/TfmFacMov.h"

namespace alinhavo {

// Up to the first posting of stock every step can still say no, and nothing is written. From there on an exception
// leaves what was written pending, and the next commit of any screen writes it: this is wanted.
void TfmFacMov::btn00ConfirmarClick()
{
    if (!ConfereCabecalho() || !ConfereMovimentacaoParcial() || !ConfereTolerancias())
        return;
    TravaCabecalho(false);
    if (!ConfereEstoque())
        return;
    if (LigaSetor(EdtSetor.text(), "BAIXADEFEITO") == "S")
        ValidarDefeitos();
    if (!RecebeReprovados())
        return;
    BaixaConsumos();
    ConfereConsumos();

    LancaReprovados();
    AcrescentaObservacao();
    AtualizaQtdeOF();
    BaixaQtdeOF();
    LancaEstoque();
    if (!TbTemp.IsEmpty())
        Grava_Normal();
    if (CbGeraNotaFiscal.Checked())
        GeraNotaFiscal();
    CommitRetaining();
    const TOrderPosition aberta{
        .numero = edtOFNum.text(), .setor = edtSetorProx.text(), .parte = Parte(), .mov = edtMov.text()};
    MostraOcioso();
    Limpa_Normal();
    RepeteConsulta(aberta);
}

bool TfmFacMov::ConfereCabecalho()
{
    const TDateTime inventario = Busca_Valor("EMPRESA", "EMP_PAT", "EMP_DTINV", Aspas(Tabela().EMP_PAT())).AsDateTime();
    if (!inventario.IsBlank() && edtDtProducao.Date() <= inventario) {
        Mensagem("Não é possível fazer o lançamento com data inferior ou igual ao fechamento do inventário.");
        Cancela();
        return false;
    }
    // Closing a line without opening the next sector is a supervisor's matter.
    if (!CbProximo.Checked() && !Acessa(TDireito::Altera, TNivel::Supervisor))
        Abort();
    if (!ValidaData(edtDtEntrada.text()))
        return Recusa("Informe a data de Envio.", edtDtEntrada), false;
    if (!ValidaData(edtDtProducao.text()))
        return Recusa("Informe a data de Produção.", edtDtProducao), false;
    if (!ValidaData(EdtRetorno.text()))
        return Recusa("Informe a data de Prev. Retorno.", EdtRetorno), false;
    if (!Existe("ENTIDADE", "CODCLI", Aspas(edtFacDest.text())))
        return Recusa("Empresa de destino inválida."), false;
    if (!Consulta("SELECT IDENTIFICADOR FROM {FACCAO3} WHERE CODCLI = ? AND DT_PAGTO > ? AND PAGO = 'S'",
            edtFaccao.text(), edtDtProducao.Date())
             .IsEmpty()
        && !Pergunta(
            "Existem pagamentos para essa facção com data posterior a data do movimento atual. Deseja Continuar?"))
        return false;
    if (UltimoSetorDoFluxo(EdtSetor.text()) && !ProdutoControlaEstoque()
        && !Pergunta("Produto não está configurado para controlar estoque, deseja continuar?"))
        return false;

    const std::string anterior = SetorAnterior(EdtSetor.text());
    std::string reprocesso;
    if (!ExisteQtdePendente(edtOFNum.text(), anterior, Parte(), "", reprocesso)
        && Existe("FACCAO", "NUMERO,OP,PARTE", Aspas(edtOFNum.text()), Aspas(anterior), Aspas(Parte()))
        && !BaixaSetorMaior(EdtSetor.text()) && !SetorLivre(EdtSetor.text())) {
        Mensagem("Nada para Movimentar. OF já movimentada na Facção.");
        EdtSetor.SetText("");
        Cancela();
        Abort();
    }
    return true;
}

// Where free sectors may be passed in any order, a row can't stand in two of them.
bool TfmFacMov::ConfereMovimentacaoParcial()
{
    if (Busca_Valor("ROTEIRO", "CODIGO", "BAIXALIVRE", Aspas(edtFluxo.text())).AsString() != "S")
        return true;
    bool inteira = true;
    TbTemp.ForEach([&] { inteira = inteira && TbTemp.Leaving() >= TbTemp.Qt_Orig.value(); });
    if (!inteira)
        Mensagem("Não é possível fazer movimentação parcial.\n"
                 "O fluxo está habilitado para baixar setores fora da ordem estabelecida.");
    return inteira;
}

// One supervisor's password frees all the rows, and all that is asked of them.
bool TfmFacMov::ConfereTolerancias()
{
    if (BaixaSetorParcial(EdtSetor.text())
        || Busca_Valor("ACESSO_USUARIOS", "CODIGO", "TIPO", Aspas(Funcoes().vUsuarioCodigo())).AsString() != "0")
        return true;

    const double tolerancia = static_cast<double>(StrToIntDef(Trim(sParamFAC70), 0));
    const TBookmark atual = TbTemp.Bookmark();
    std::string motivo;
    for (TbTemp.First(); !TbTemp.Eof(); TbTemp.Next()) {
        const double sai = TbTemp.Leaving();
        motivo.clear();
        if (tolerancia > 0 && TbTemp.Qt_Orig.value() - sai > tolerancia)
            motivo = "Quantidade de defeitos maior que permitida. Necessidade de senha do Supervisor.";
        else if (tolerancia > 0 && sai - TbTemp.Qt_Orig.value() > tolerancia)
            motivo = "Quantidade movimentada maior que permitida. Necessidade de senha do Supervisor.";
        else if (sai < TbTemp.Saldo.value())
            motivo = "Setor não liberado para baixa Parcial. Necessidade de senha do Supervisor.";
        if (!motivo.empty())
            break;
    }
    TbTemp.GoToBookmark(atual);
    if (motivo.empty())
        return true;
    Mensagem(motivo);
    return Acessa(TDireito::Altera, TNivel::Supervisor);
}

bool TfmFacMov::ConfereEstoque()
{
    if (!UltimoSetorDoFluxo(EdtSetor.text()) || !ParteControlaEstoque(Parte()))
        return true;
    if (!Existe("TABQUL", "CODIGO", Aspas(edtQual.text())))
        return Recusa("Código da qualidade não encontrado.", edtQual), false;
    if (!ConfereTipoMovimento())
        return false;
    if (!Existe("DEPOSITO", "CODIGO", Aspas(edtCodDeposito.text())))
        return Recusa("Código do depósito não encontrado.", edtCodDeposito), false;
    return true;
}

bool TfmFacMov::ConfereTipoMovimento()
{
    if (Existe("TABBAI", "CODIGO", Aspas(EdtCodTip.text())))
        return true;
    Recusa("Código do tipo de movimento não encontrado.", EdtCodTip);
    return false;
}

// Second quality and incomplete pieces must be those that an inspection wrote down.
void TfmFacMov::ValidarDefeitos()
{
    const std::string mov = cbMovimento.empty() ? "1" : cbMovimento.text();
    const double total = Reprovados();
    const double apontados = BuscaQtdeDefCad(mov) - BuscaQtdeDefMov(mov);
    if (total <= 0 || apontados == total)
        return;
    if (apontados <= 0) {
        AbrirLancamentoDefeitos();
        Abort();
    }
    if (!Pergunta("Quantidade de segunda ou incompleta difere dos defeitos apontados. Deseja continuar?"))
        Abort();
}

double TfmFacMov::BuscaQtdeDefCad(std::string_view mov)
{
    return ConsultaValor("SELECT SUM(QUANT) FROM {DEF_MOV} WHERE NUMERO = ? AND SETOR = ? AND PARTE = ? AND MOV = ?",
        edtOFNum.text(), EdtSetor.text(), Parte(), BareNumber(mov))
        .AsFloat();
}

double TfmFacMov::BuscaQtdeDefMov(std::string_view mov)
{
    return ConsultaValor(
        "SELECT SUM(QUANT_I + QUANT_2) FROM {FACCAO} WHERE NUMERO = ? AND OP = ? AND PARTE = ? AND MOV = ?",
        edtOFNum.text(), EdtSetor.text(), Parte(), BareNumber(mov))
        .AsFloat();
}

double TfmFacMov::Reprovados()
{
    double total = 0;
    TbTemp.ForEach([&] { total += TbTemp.Quant_2.value() + TbTemp.Quant_I.value(); });
    return total;
}

bool TfmFacMov::MovimentaReprovados()
{
    return LigaSetor(EdtSetor.text(), "MOVREPROVADO") == "S" && ParteControlaEstoque(Parte()) && Reprovados() > 0;
}

bool TfmFacMov::RecebeReprovados()
{
    sDepositoReprovado.clear();
    sTipoMovReprovado.clear();
    if (!MovimentaReprovados())
        return true;
    if (!ConfereTipoMovimento())
        return false;
    if (!Executa_Form("TfmMovEstRej"))
        CancelaMovimentacao();
    return true;
}

void TfmFacMov::DefineReprovados(std::string_view deposito, std::string_view tipoMovimento)
{
    sDepositoReprovado = deposito;
    sTipoMovReprovado = tipoMovimento;
}

void TfmFacMov::BaixaConsumos()
{
    if (LigaSetor(EdtSetor.text(), "BAIXACONSUMO") != "S"
        || !Existe("PCPFTOF", "NUMERO,SETOR", Aspas(edtOFNum.text()), Aspas(EdtSetor.text())))
        return;
    TForm* tela = Carrega_Form("TfmFacDistrib");
    auto* distribuicao = dynamic_cast<IConsumptionScreen*>(tela);
    if (distribuicao == nullptr)
        CancelaMovimentacao();
    ModalResult = TModalResult::None;
    distribuicao->SetOrder(edtOFNum.text());
    distribuicao->InicializaSetor(edtCodproduto.text(), Parte(), TbTemp);
    tela->ShowModal();
    if (ModalResult != TModalResult::Ok)
        CancelaMovimentacao();
    ModalResult = TModalResult::None;
}

void TfmFacMov::CancelaMovimentacao()
{
    Mensagem("Movimentação Cancelada.");
    Abort();
}

void TfmFacMov::ConfereConsumos()
{
    const bool ultimo = UltimoSetorDoFluxo(EdtSetor.text());
    if (Busca_Valor("TIPO_APL", "CODIGO", "BAIXA", Aspas(Parte())).AsString() != "S"
        || !(sParamFAC60 == "S" || (sParamFAC60 == "U" && ultimo)))
        return;

    bool pendente = false;
    TbTemp.ForEach([&] {
        if (!pendente && TbTemp.Quant.value() > 0)
            pendente = ConsumoPendente(sParamFAC60 == "S" && !ultimo);
    });
    if (!pendente)
        return;
    Mensagem("OF com baixa de consumos pendente. Impossível continuar.");
    Abort();
}

bool TfmFacMov::ConsumoPendente(bool desteSetor)
{
    TStatement select(R"(
        SELECT PCPFTOF.INSUMO
          FROM {PCPFTOF} PCPFTOF
          JOIN {PCPFAIXA} PCPFAIXA ON PCPFAIXA.FAIXA = PCPFTOF.FAIXA
          JOIN {OF_ITEN} OF_ITEN ON OF_ITEN.NUMERO = PCPFTOF.NUMERO AND OF_ITEN.COR = PCPFTOF.COR
         WHERE PCPFTOF.NUMERO = ? AND PCPFTOF.COR = ? AND OF_ITEN.TAM = ?
           AND COALESCE(OF_ITEN.QTDE, 0) + COALESCE(OF_ITEN.QTDE_B, 0) > 0
           AND CAST(? AS VARCHAR(4)) IN (
               PCPFAIXA.TAM01, PCPFAIXA.TAM02, PCPFAIXA.TAM03, PCPFAIXA.TAM04, PCPFAIXA.TAM05, PCPFAIXA.TAM06,
               PCPFAIXA.TAM07, PCPFAIXA.TAM08, PCPFAIXA.TAM09, PCPFAIXA.TAM10, PCPFAIXA.TAM11, PCPFAIXA.TAM12,
               PCPFAIXA.TAM13, PCPFAIXA.TAM14, PCPFAIXA.TAM15, PCPFAIXA.TAM16, PCPFAIXA.TAM17, PCPFAIXA.TAM18,
               PCPFAIXA.TAM19, PCPFAIXA.TAM20, PCPFAIXA.TAM21, PCPFAIXA.TAM22, PCPFAIXA.TAM23, PCPFAIXA.TAM24)
           AND COALESCE(PCPFTOF.COR_I, '') NOT IN ('', '*****')
           AND COALESCE(PCPFTOF.SITUACAO, 'A') IN ('A', '')
           AND EXISTS (SELECT 1 FROM {FACCAO} FACCAO JOIN {FLUXO} FLUXO ON FLUXO.CODIGO = FACCAO.FLUXO
                        WHERE FACCAO.NUMERO = PCPFTOF.NUMERO AND FLUXO.SETOR = PCPFTOF.SETOR))",
        edtOFNum.text(), TbTemp.Cor.value(), TbTemp.Tam.value(), TbTemp.Tam.value());
    if (desteSetor)
        select.Add(" AND PCPFTOF.PARTE = ? AND PCPFTOF.SETOR = ?", Parte(), EdtSetor.text());
    select.Add(R"(
         GROUP BY PCPFTOF.NUMERO, PCPFTOF.INSUMO, PCPFTOF.COR, PCPFTOF.PARTE, PCPFTOF.FAIXA, PCPFTOF.APLICACAO)");
    return !Consulta(select).IsEmpty();
}

// Rejected goods enter a warehouse of their own. A posting that fails is told, and the confirmation goes on: this is
// wanted.
void TfmFacMov::LancaReprovados()
{
    if (!MovimentaReprovados())
        return;
    TEstoque estoque(App().Host.stock);
    try {
        TbTemp.ForEach([&] {
            const double quantidade = TbTemp.Quant_2.value() + TbTemp.Quant_I.value();
            if (quantidade <= 0)
                return;
            estoque.Deposito = sDepositoReprovado;
            estoque.Qualidade = "1";
            estoque.TipoMovimento = sTipoMovReprovado;
            EntraNoEstoque(estoque, quantidade);
        });
    } catch (const std::exception& error) {
        Mensagem("Ocorreu um erro na movimentação.\nErro: " + std::string(error.what()));
    }
}

void TfmFacMov::AcrescentaObservacao()
{
    if (edtObs.empty())
        return;
    const std::string antes = Busca_Valor("OF1", "NUMERO", "OBSERVACAO", Aspas(edtOFNum.text())).AsString();
    const std::string nova
        = "Setor:" + LigaSetor(EdtSetor.text(), "DESCRICAO") + " - Mov.:" + cbMovimento.text() + " - " + edtObs.text();
    Executa("UPDATE {OF1} SET OBSERVACAO = ? WHERE NUMERO = ?", antes.empty() ? nova : antes + "\n" + nova + " ",
        edtOFNum.text());
}

// The defects found are written down in the inspection, one line for each colour and size.
void TfmFacMov::AbrirLancamentoDefeitos()
{
    TForm* tela = Application().FindFormByClass("TfmFacInspecao");
    if (tela == nullptr)
        tela = Carrega_Form("TfmFacInspecao");
    auto* inspecao = dynamic_cast<IInspectionScreen*>(tela);
    if (inspecao == nullptr)
        return;
    std::vector<TInspectionDefect> defeitos;
    TbTemp.ForEach([&] {
        const double quantidade = TbTemp.Quant_2.value() + TbTemp.Quant_I.value();
        if (quantidade > 0)
            defeitos.push_back({.mov = cbMovimento.empty() ? "1" : cbMovimento.text(),
                .parte = Parte(),
                .data = Application().Today(),
                .cor = TbTemp.Cor.value(),
                .tam = TbTemp.Tam.value(),
                .quant = quantidade,
                .setor = EdtSetor.text()});
    });
    inspecao->LancaDefeitos(edtOFNum.text(), edtFaccao.text(), edtCodproduto.text(), defeitos);
    tela->Show();
}

void TfmFacMov::GeraNotaFiscal()
{
    if (!Funcoes().Acessa(*this, "TfmFatMetCobDev", TDireito::Altera, TNivel::Usuario))
        return;
    TForm* tela = TelaCarregada("TfmFatMetCobDev") ? Application().FindFormByClass("TfmFatMetCobDev")
                                                   : Carrega_Form("TfmFatMetCobDev");
    if (tela == nullptr || edtOFNum.empty())
        return;

    // A screen of another package: it is known by the names of its components alone.
    const auto part = [&]<typename TPart>(std::string_view name, TPart*) {
        auto* found = dynamic_cast<TPart*>(tela->FindComponent(name));
        if (found == nullptr)
            throw std::runtime_error("A tela de faturamento não tem o componente " + std::string(name) + ".");
        return found;
    };
    const auto fill = [&](std::string_view name, std::string_view text) {
        part(name, static_cast<TTextControl*>(nullptr))->SetText(text);
    };
    part("PageControl2", static_cast<TPageControl*>(nullptr))->SetActivePageIndex(0);
    fill("EdtNumeroDoc", edtOFNum.text());
    fill("edtCodSetor", edtSetorProx.text());
    fill("edtCodCli", edtFacDest.text());
    fill("edtCodParte", Parte());
    fill("edtMov", edtMov.text());
    fill("DtInicio", "01/01/2000");
    fill("DtFim", "01/01/2050");
    part("rgStatus", static_cast<TRadioGroup*>(nullptr))->SetItemIndex(0);
    part("rgDocumento", static_cast<TRadioGroup*>(nullptr))->SetItemIndex(1);
    part("btnConsultar", static_cast<TButton*>(nullptr))->Click();
    auto* documentos = part("tbDocto", static_cast<TDataSet*>(nullptr));
    documentos->Edit();
    documentos->FieldByName("Sel").Set("S");
    documentos->Post();
    part("GerarNotasFiscais1", static_cast<TMenuItem*>(nullptr))->Click();
    part("btnFechar", static_cast<TButton*>(nullptr))->Click();
}

} // namespace alinhavo
