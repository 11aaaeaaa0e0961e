// What a confirmation changes beyond the lines: the order's quantities and the stock of finished goods.

#include "forms/numbers.h"
#include "movement/TfmFacMov.h"

#include <optional>

namespace alinhavo {

bool TfmFacMov::ProdutoControlaEstoque()
{
    return Busca_Valor("PRODUTO", "CODIGO", "ESTOQUE", Aspas(edtCodproduto.text())).AsString() == "S";
}

bool TfmFacMov::ParteControlaEstoque(std::string_view parte)
{
    return Busca_Valor("TIPO_APL", "CODIGO", "ESTOQUE", Aspas(parte)).AsString() == "S";
}

std::string TfmFacMov::Lote() const { return sParamPCP140 == "2" ? edtOFNum.text() : "000000"; }

// Losses in any sector cancel pieces of the order, and an excess grows it. Fractions are cut.
void TfmFacMov::AtualizaQtdeOF()
{
    if (sAtualizaOF != "S")
        return;
    TbTemp.ForEach([&] {
        const std::int64_t perdas
            = TbTemp.Quant_2.AsInteger() + TbTemp.Quant_I.AsInteger() + TbTemp.Quant_F.AsInteger();
        if (perdas > 0)
            Executa("UPDATE {OF_ITEN} SET QTDE = QTDE - ?, QTDE_C = COALESCE(QTDE_C, 0) + ? WHERE NUMERO = ? AND COR = "
                    "? AND TAM = ?",
                perdas, perdas, edtOFNum.text(), TbTemp.Cor.value(), TbTemp.Tam.value());
        const std::int64_t excesso = TbTemp.Quant.AsInteger() + perdas - TbTemp.Saldo.AsInteger();
        if (excesso <= 0)
            return;
        Executa("UPDATE {OF_ITEN} SET QTDE = QTDE + ? WHERE NUMERO = ? AND COR = ? AND TAM = ?", excesso,
            edtOFNum.text(), TbTemp.Cor.value(), TbTemp.Tam.value());
        GeraLog("MOVIMENTO OF",
            "ATUALIZADO QTDE OF " + edtOFNum.text() + " SETOR " + EdtSetor.text() + " COR " + TbTemp.Cor.value()
                + " TAM " + TbTemp.Tam.value() + " QTDE " + std::to_string(excesso),
            TOperacaoLog::Alteracao, edtOFNum.text());
    });
    AtualizaAtivos();
}

void TfmFacMov::BaixaQtdeOF()
{
    if (sBaixaOF == "S" && UltimoSetorDoFluxo(EdtSetor.text())) {
        TbTemp.ForEach([&] {
            const std::int64_t aberta
                = ConsultaValor("SELECT QTDE FROM {OF_ITEN} WHERE NUMERO = ? AND COR = ? AND TAM = ?", edtOFNum.text(),
                    TbTemp.Cor.value(), TbTemp.Tam.value())
                      .AsInteger();
            const std::int64_t pronta = std::min(TbTemp.Quant.AsInteger(), aberta);
            Executa("UPDATE {OF_ITEN} SET QTDE_B = COALESCE(QTDE_B, 0) + ?, QTDE = QTDE - ? WHERE NUMERO = ? AND COR = "
                    "? AND TAM = ?",
                pronta, pronta, edtOFNum.text(), TbTemp.Cor.value(), TbTemp.Tam.value());
        });
    }
    // From here on production governs the order, whatever its parts do.
    AtualizaAtivos();
}

void TfmFacMov::AtualizaAtivos()
{
    const std::int64_t ativos
        = ConsultaValor("SELECT SUM(QTDE) FROM {OF_ITEN} WHERE NUMERO = ?", edtOFNum.text()).AsInteger();
    Executa("UPDATE {OF1} SET ATIVOS = ?, FAC_QTDE = 'S' WHERE NUMERO = ?", ativos, edtOFNum.text());
}

void TfmFacMov::LancaEstoque()
{
    if (sLancaEstoque != "S" || !ProdutoControlaEstoque() || !UltimoSetorDoFluxo(EdtSetor.text()))
        return;
    TEstoque estoque(App().Host.stock);
    std::optional<TCustosProduto> custos;
    const TEventOff afterPost(TbTemp.AfterPost); // no quantity changes
    TbTemp.ForEach([&] {
        const std::int64_t boas = TbTemp.Quant.AsInteger();
        if (boas <= 0)
            return;
        estoque.Deposito = edtCodDeposito.text();
        estoque.Qualidade = edtQual.text();
        estoque.TipoMovimento = EdtCodTip.text();
        if (sParamFAC10 == "S") {
            if (!custos)
                custos = Precos.CustosProduto(edtOFNum.text());
            estoque.Custo = custos->Preco(TbTemp.Cor.value());
        }
        EntraNoEstoque(estoque, static_cast<double>(boas));
    });
}

// Pieces of the grid's current row; its history then tells that stock was posted.
void TfmFacMov::EntraNoEstoque(TEstoque& estoque, double quantidade)
{
    estoque.Codigo = edtCodproduto.text();
    estoque.Cor = TbTemp.Cor.value();
    estoque.Tam = TbTemp.Tam.value();
    estoque.Lote = Lote();
    estoque.Documento = edtOFNum.text();
    estoque.Origem = "FC";
    estoque.Quantidade = quantidade;
    estoque.MovimentaEstoqueProduto();
    TbTemp.Edit();
    TbTemp.Est = "S";
    TbTemp.Post();
}

void TfmFacMov::AtualizaCodigoDeposito(std::string_view numero)
{
    const std::string deposito = ConsultaValor(R"(
        SELECT TIPO_OP.DEPOSITO
          FROM {OF1} OF1
          JOIN {TIPO_OP} TIPO_OP ON TIPO_OP.CODIGO = OF1.TIPO_OP
          JOIN {DEPOSITO} DEPOSITO ON DEPOSITO.CODIGO = TIPO_OP.DEPOSITO
         WHERE OF1.NUMERO = ?)",
        numero)
                                     .AsString();
    if (!deposito.empty())
        edtCodDeposito.SetText(deposito);
}

void TfmFacMov::edtQualExit()
{
    if (!Existe("TABQUL", "CODIGO", Aspas(edtQual.text())))
        return Recusa("Código da qualidade não encontrado.", edtQual);
    if (EdtCodTip.empty())
        EdtCodTip.SetFocus();
}

void TfmFacMov::EdtCodTipExit()
{
    if (!Existe("TABBAI", "CODIGO", Aspas(EdtCodTip.text())))
        return Recusa("Código do movimento não encontrado.", EdtCodTip);
    if (Busca_Valor("TABBAI", "CODIGO", "TIPO", Aspas(EdtCodTip.text())).AsString() == "S")
        return Recusa("O tipo de Movimento não pode ser de Saída.", EdtCodTip);
    if (edtCodDeposito.empty())
        edtCodDeposito.SetFocus();
}

void TfmFacMov::edtCodDepositoExit()
{
    if (!Existe("DEPOSITO", "CODIGO", Aspas(edtCodDeposito.text())))
        return Recusa("Código do depósito não encontrado.", edtCodDeposito);
    EdtBarra.SetFocus();
}

} // namespace alinhavo
