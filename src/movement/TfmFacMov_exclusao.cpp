// The removal of an order's part from the subcontracting flow.

#include "movement/TfmFacMov.h"

namespace alinhavo {

void TfmFacMov::BtnExclusaoClick()
{
    if (!Acessa(TDireito::Exclui))
        Abort();
    const std::string numero = edtM01OF.text();
    const std::string parte = ParteConsultada();
    if (!Consulta(
            "SELECT INSUMO FROM {PCPFTOF} WHERE NUMERO = ? AND PARTE = ? AND SITUACAO IN ('B', 'P')", numero, parte)
             .IsEmpty())
        return Recusa("Existem consumos já baixados na OF. Impossível continuar.");
    if (!Pergunta("Deseja Excluir esta OF da Facção?"))
        return BtnAConsultarClick();
    if (Existe("FACCAO3", "NUMERO,ESTOQUE", Aspas(numero), Aspas("S")))
        return Recusa("Não é possível excluir a OF, já houve entrada no estoque.");
    if (!ReservaPermiteExcluir())
        return;
    // A reservation that was deleted above stays so, pending, when this refuses: this is wanted.
    if (Existe("FACCAO3", "NUMERO,PARTE,CODIGO,PAGO", Aspas(numero), Aspas(parte), Aspas(edtM01Produto.text()),
            Aspas("S")))
        return Mensagem("Baixa já paga. Impossível excluir.", {}, TIcon::Stop);
    ExcluiOF();
    GeraLog("MOVIMENTO OF", "EXCLUSAO DE ORDEM FABR. NA FACCAO NR.: " + numero + " PARTE: " + parte,
        TOperacaoLog::Exclusao, numero);
    CommitRetaining();
    BtnAConsultarClick();
}

// False when the user gives up. A reservation is deleted only where nothing of it was consumed, and he wants so.
bool TfmFacMov::ReservaPermiteExcluir()
{
    const std::string numero = edtM01OF.text();
    TOrvQuery reserva = Consulta(
        "SELECT SUM(QTDE_B) AS QTDE_B, SUM(QTDE) AS QTDE FROM {MAT_RESERVA} WHERE NUMERO = ? AND TIPO = 'F'", numero);
    if (reserva.FieldByName("QTDE_B").AsFloat() > 0)
        return Pergunta("OF possui itens com reserva baixada, somente a facção será excluída.\nDeseja continuar?");
    if (reserva.FieldByName("QTDE").AsFloat() > 0
        && Pergunta("OF possui itens com reserva.\nDeseja excluir a reserva?")) {
        Executa("DELETE FROM {MAT_RESERVA} WHERE NUMERO = ? AND TIPO = 'F'", numero);
        GeraLog("MOVIMENTO OF", "RESERVA EXCLUIDA PARA A OF " + numero, TOperacaoLog::Exclusao, numero);
    }
    return true;
}

// The other parts of the order stay, but its notes and the mark of its quantities are of the whole order.
void TfmFacMov::ExcluiOF()
{
    const std::string numero = edtM01OF.text();
    const std::string codigo = edtM01Produto.text();
    const std::string parte = ParteConsultada();
    Executa("DELETE FROM {FACCAO} WHERE NUMERO = ? AND CODIGO = ? AND PARTE = ?", numero, codigo, parte);
    Executa("DELETE FROM {FACCAO3} WHERE NUMERO = ? AND CODIGO = ? AND PARTE = ?", numero, codigo, parte);
    Executa("DELETE FROM {OF2} WHERE NUMERO = ? AND TIPO = 'F'", numero);
    Executa("UPDATE {OF1} SET FAC_QTDE = 'N' WHERE NUMERO = ?", numero);
    Executa("DELETE FROM {PCPFTOF} WHERE NUMERO = ? AND PARTE = ?", numero, parte);
    Executa("DELETE FROM {PCP_MOV} WHERE NUMERO = ? AND PARTE = ?", numero, parte);
}

} // namespace alinhavo
