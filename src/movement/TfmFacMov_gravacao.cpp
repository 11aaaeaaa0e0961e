// The writing of the lines: what leaves the row, its priced history, the row of the next sector.

#include "forms/numbers.h"
#include "movement/TfmFacMov.h"

namespace alinhavo {

void TfmFacMov::Grava_Normal()
{
    indPag = IndPag(Busca_Valor("CADFLUXO", "CODIGO", "IND_PAG", Aspas(EdtSetor.text())));

    // The first row speaks for all: this is wanted. A reprocess that arrives where it came from is over.
    TbTemp.First();
    const std::string reprocesso = TbTemp.Reprocesso.value();
    const std::string reprocessoProximo = edtSetorProx.text() == reprocesso ? "" : reprocesso;
    TbTemp.ForEach([&] {
        Executa(R"(
            UPDATE {FACCAO} SET QUANT = QUANT + ?, QUANT_2 = QUANT_2 + ?, QUANT_I = QUANT_I + ?, QUANT_F = QUANT_F + ?, OP = ?
             WHERE IDENTIFICADOR = ? AND NUMERO = ? AND CODIGO = ? AND OP = ? AND COR = ? AND TAM = ? AND PARTE = ?)",
            TbTemp.Quant.value(), TbTemp.Quant_2.value(), TbTemp.Quant_I.value(), TbTemp.Quant_F.value(),
            EdtSetor.text(), TbTemp.ID.value(), TbTemp.Numero.value(), TbTemp.Codigo.value(), TbTemp.Setor.value(),
            TbTemp.Cor.value(), TbTemp.Tam.value(), Parte());
        Insere_Faccao3("N", Parte(), reprocesso);
        if (!edtSetorProx.empty() && TbTemp.Quant.AsInteger() > 0 && CbProximo.Checked())
            AbreProximoSetor(reprocessoProximo);
    });

    if (!tbBaixaPartes.IsEmpty())
        GravaPartesdaBaixa();
    if (bgNaoBipado)
        GeraLog("MOVIMENTO OF", "QUANTIDADE DA OF " + edtOFNum.text() + " PREENCHIDA MANUALMENTE NO ULTIMO SETOR.",
            TOperacaoLog::Processo, edtOFNum.text());
    GeraLog("MOVIMENTO OF",
        "MOVIMENTO DE OF NA FACCAO NR. " + edtOFNum.text() + " DO SETOR " + EdtSetor.text() + " PARA SETOR "
            + edtSetorProx.text() + " FACCAO " + edtFacDest.text() + " MOV N. " + edtMov.text() + " PARTE " + Parte()
            + " ABRIR SETOR " + (CbProximo.Checked() ? "S" : "N") + ".",
        TOperacaoLog::Processo, edtOFNum.text());
    CommitRetaining();
    bgNaoBipado = false;
}

// The price is that of the moment at which the grid was loaded; what is paid is counted in whole pieces.
void TfmFacMov::Insere_Faccao3(std::string_view tipo, std::string_view parte, std::string_view reprocesso)
{
    if (TbTemp.Leaving() <= 0)
        return;
    const double pagas = QuantidadePaga(indPag, static_cast<double>(TbTemp.Quant.AsInteger()),
        static_cast<double>(TbTemp.Quant_2.AsInteger()), static_cast<double>(TbTemp.Quant_I.AsInteger()));
    const bool comEstoque = TbTemp.Est.value() == "S";
    Executa(R"(
        INSERT INTO {FACCAO3} (NUMERO, PEDIDO, CODCLI, CODCLI_ANT, CODIGO, COR, TAM, REPROCESSO, QT_ORIG, QUANT, QUANT_2,
                               QUANT_I, QUANT_F, UNITARIO, VALOR, OP, PAGO, PARTE, DT_LAN, MOV, ID_ANT, NOTA, ESTOQUE, QUAL,
                               DEPOSITO, OBS)
        VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'N', ?, ?, ?, ?, ?, ?, ?, ?, ?))",
        TbTemp.Numero.value(), TbTemp.Pedido.value(), TbTemp.CodCli2.value(), TbTemp.Codcli.value(),
        TbTemp.Codigo.value(), tipo == "T" ? "" : TbTemp.Cor.value(), tipo == "C" ? "" : TbTemp.Tam.value(), reprocesso,
        TbTemp.Qt_Orig.value(), TbTemp.Quant.value(), TbTemp.Quant_2.value(), TbTemp.Quant_I.value(),
        TbTemp.Quant_F.value(), TbTemp.Preco.value(), TbTemp.Preco.value() * pagas, EdtSetor.text(), parte,
        edtDtProducao.Date(), BareNumber(edtMov.text()), TbTemp.ID.value(), edtNota.text(), comEstoque ? "S" : "N",
        edtQual.text(), comEstoque ? edtCodDeposito.text() : "", edtObs.text());
}

void TfmFacMov::AbreProximoSetor(std::string_view reprocesso)
{
    Executa(R"(
        INSERT INTO {FACCAO} (NUMERO, CODCLI, PEDIDO, CODIGO, COR, TAM, QT_ORIG, QUANT, QUANT_2, QUANT_I, QUANT_F, OP, FLUXO,
                              PARTE, DT_R, DT_S, MOV, ID_ANT, REPROCESSO)
        VALUES (?, ?, ?, ?, ?, ?, ?, 0, 0, 0, 0, ?, ?, ?, ?, ?, ?, ?, ?))",
        TbTemp.Numero.value(), edtFacDest.text(), TbTemp.Pedido.value(), TbTemp.Codigo.value(), TbTemp.Cor.value(),
        TbTemp.Tam.value(), TbTemp.Quant.value(), edtSetorProx.text(), edtFluxo.text(), Parte(), EdtRetorno.Date(),
        edtDtEntrada.Date(), BareNumber(edtMov.text()), TbTemp.ID.value(), reprocesso);
}

} // namespace alinhavo
