// The confirmation: what is checked and what is written.

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/WriteWhole.h"
#include "orders/TfmNovaOF.h"

namespace alinhavo {

void TfmNovaOF::btnConfirmarClick()
{
    if (!PodeConfirmar())
        return;
    const bool nova = modo_ == TModo::Inclusao;
    try {
        Grava();
    } catch (const EDatabaseError& erro) {
        if (!nova || erro.Kind() != TDatabaseErrorKind::Duplicate || !SameText(erro.Table(), "OF1"))
            throw;
        return NumeroJaUsado();
    }
    Fecha();
    MostraOF();
    lblSituacao.SetCaption("OF " + numero_ + (nova ? " incluída" : " alterada") + " com " + Pecas()
        + " peças. Pronta para entrar em produção.");
}

bool TfmNovaOF::PodeConfirmar()
{
    if (!CabecalhoCompleto() || !GradeCompleta() || !PedidoPodeSerGerado())
        return false;
    const auto pendentes = PartesPendentes();
    return pendentes.empty()
        || Pergunta("Partes que não podem entrar em produção:" + pendentes + "\nDeseja continuar?");
}

// One check after the other, in the order of the fields: the first refusal is the one that the user sees.
bool TfmNovaOF::CabecalhoCompleto()
{
    if (edtNumero.empty())
        return Recusa("Informe o número da OF.", edtNumero), false;
    if (modo_ == TModo::Inclusao && Existe("OF1", "NUMERO", Aspas(edtNumero.text())))
        return NumeroJaUsado(), false;
    if (modo_ == TModo::Alteracao && EmProducao())
        return Recusa("OF " + numero_ + " já está em produção na Facção. Alteração não permitida.", edtNumero), false;
    if (edtProduto.empty())
        return Recusa("Informe o produto.", edtProduto), false;
    if (!Existe("PRODUTO", "CODIGO", Aspas(edtProduto.text())))
        return Recusa("Código do produto não encontrado.", edtProduto), false;
    if (!edtCliente.empty() && !Existe("ENTIDADE", "CODCLI", Aspas(edtCliente.text())))
        return Recusa("Código não existe.", edtCliente), false;
    if (Busca_Valor("ENTIDADE", "CODCLI", "BLOQUEIO", Aspas(edtCliente.text())).AsString() == "S")
        return Recusa("Cliente Bloqueado.", edtCliente), false;
    if (!edtDtEntrega.empty() && !edtDtInicio.empty() && edtDtEntrega.Date() < edtDtInicio.Date())
        return Recusa("Data de entrega menor que a data de início.", edtDtEntrega), false;
    if (!edtPeriodo.empty() && !Existe("TABPRZ", "PRAZO", Aspas(edtPeriodo.text())))
        return Recusa("Período não encontrado.", edtPeriodo), false;
    if (!edtTipoOP.empty() && !Existe("TIPO_OP", "CODIGO", Aspas(edtTipoOP.text())))
        return Recusa("Tipo de OP não encontrado.", edtTipoOP), false;
    if (!edtTabela.empty() && !Existe("REGIAO", "REGIAO", Aspas(edtTabela.text())))
        return Recusa("Tabela de preços não encontrada.", edtTabela), false;
    return true;
}

bool TfmNovaOF::GradeCompleta()
{
    dbgGrade.Form().CommitFocused();
    TbGrade.CheckBrowse();
    SomaGrade();
    if (TbPartes.IsEmpty())
        return Recusa("O produto " + edtProduto.text() + " não tem partes. Cadastre em Fluxos do produto.", edtProduto),
               false;
    if (edtTotal.Value() <= 0)
        return Recusa("Informe as quantidades da grade.", dbgGrade), false;
    return true;
}

bool TfmNovaOF::PedidoPodeSerGerado()
{
    const bool existe = Existe("PEDIDO", "NUMERO", Aspas(edtPedido.text()));
    if (!cbPedido.Checked() && !edtPedido.empty() && !existe)
        return Recusa("Pedido " + edtPedido.text() + " não encontrado.", edtPedido), false;
    if (!cbPedido.Checked())
        return true;
    if (existe)
        return Recusa("O pedido " + edtPedido.text() + " já existe e não será gerado de novo.", edtPedido), false;
    if (edtCliente.empty())
        return Recusa("Informe o cliente do pedido.", edtCliente), false;
    return true;
}

/// The loser of a race for a number loses nothing that he typed.
void TfmNovaOF::NumeroJaUsado()
{
    const auto usado = edtNumero.text();
    edtNumero.SetText(ProximoNumero());
    Recusa("A OF " + usado + " já existe. O próximo número livre é " + edtNumero.text() + ": confirme de novo.",
        edtNumero);
}

void TfmNovaOF::Grava()
{
    const bool nova = modo_ == TModo::Inclusao;
    WriteWhole(Database(), [&] {
        if (cbPedido.Checked())
            GravaPedido();
        GravaOF();
        GravaItens();
        const auto ordem
            = " OF " + edtNumero.text() + " PRODUTO " + edtProduto.text() + " CLIENTE " + edtCliente.text();
        if (nova)
            Registra("INCLUSAO" + ordem + " PECAS " + Pecas(), TOperacaoLog::Inclusao);
        else
            Registra("ALTERACAO" + ordem + " PECAS DE " + pecasAntes_ + " PARA " + Pecas(), TOperacaoLog::Alteracao);
    });
}

/// The number of the sales order is given here, so that a confirmation that was refused takes none.
void TfmNovaOF::GravaPedido()
{
    if (edtPedido.empty())
        edtPedido.SetText(Funcoes().Proximo("PEDIDO", "NUMERO", 6));
    Executa("INSERT INTO {PEDIDO} (NUMERO, CODCLI, PERIODO, PROGRAMACAO, ENTREGA) VALUES (?, ?, ?, ?, ?)",
        edtPedido.text(), edtCliente.text(), edtPeriodo.text(), edtProgramacao.text(), edtDtEntrega.Date());
    TbGrade.ForEach([&] {
        for (const auto& tamanho : tamanhos_) {
            if (Quantidade(tamanho) > 0)
                Executa(R"(
                    INSERT INTO {PED_ITEN} (NUMERO, CODIGO, COR, TAM, QUANTIDADE, QTDE, QTDE_F, QTDE_CANC)
                    VALUES (?, ?, ?, ?, ?, ?, 0, 0))",
                    edtPedido.text(), edtProduto.text(), TbGrade.Cor.value(), tamanho, Quantidade(tamanho),
                    Quantidade(tamanho));
        }
    });
}

void TfmNovaOF::GravaOF()
{
    if (modo_ == TModo::Inclusao) {
        const auto ultimo = ConsultaValor("SELECT MAX(IDENTIFICADOR) FROM {OF1}").AsInteger();
        Executa("INSERT INTO {OF1} (NUMERO, FAC_QTDE, PERC, IDENTIFICADOR) VALUES (?, 'N', 0, ?)", edtNumero.text(),
            ultimo + 1);
    }
    Executa(R"(
        UPDATE {OF1} SET CODIGO = ?, PEDIDO = ?, CODCLI = ?, TIPO_OP = ?, TABELA = ?, PERIODO = ?, PROGRAMACAO = ?,
               DT_INICIO = ?, DT_FINAL = ?, ATIVOS = ?, OBSERVACAO = ?
         WHERE NUMERO = ?)",
        edtProduto.text(), edtPedido.text(), edtCliente.text(), edtTipoOP.text(), edtTabela.text(), edtPeriodo.text(),
        edtProgramacao.text(), edtDtInicio.Date(), edtDtEntrega.Date(), edtTotal.Value(), edtObs.text(),
        edtNumero.text());
}

/// The grid is replaced as a whole: what is not in production has nothing finished or cancelled yet.
void TfmNovaOF::GravaItens()
{
    Executa("DELETE FROM {OF_ITEN} WHERE NUMERO = ?", edtNumero.text());
    TbGrade.ForEach([&] {
        for (const auto& tamanho : tamanhos_) {
            if (Quantidade(tamanho) > 0)
                Executa(R"(
                    INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE, QTDE_B, QTDE_C, QTDE_OF, QTDE_OF_B)
                    VALUES (?, ?, ?, ?, 0, 0, ?, 0))",
                    edtNumero.text(), TbGrade.Cor.value(), tamanho, Quantidade(tamanho), Quantidade(tamanho));
        }
    });
}

void TfmNovaOF::Registra(const std::string& texto, TOperacaoLog operacao)
{
    GeraLog("CADASTRO DE OF", texto, operacao, edtNumero.text());
}

std::string TfmNovaOF::Pecas() const { return FloatToStr(edtTotal.Value()); }

} // namespace alinhavo
