// Reading labels into the grid: when a code is complete, what it stands for, and the row that it adds to.

#include "forms/numbers.h"
#include "forms/text.h"
#include "movement/TfmFacMov.h"

namespace alinhavo {

namespace {

constexpr int Barra128 = 1; ///< index in CbFormato
constexpr std::size_t DigitosDaEtiqueta = 6; ///< of a label of 128, before what it says of the order
constexpr std::size_t DigitosDoEAN = 13;
constexpr std::size_t DigitosDoDUN = 14;

} // namespace

// The user starts from nothing when he reads codes, and from the whole balance when he types.
void TfmFacMov::cbBaixaBarrasClick()
{
    if (TbTemp.IsEmpty() && cbBaixaBarras.Checked())
        return cbBaixaBarras.SetChecked(false);
    const bool ligado = cbBaixaBarras.Checked();
    if (!QuantSomenteLeitura())
        PreencheQuantidades(ligado ? TPreenche::Zero : TPreenche::Saldo);
    GbBarra.SetVisible(ligado);
    if (ligado)
        EdtBarra.SetFocus();
}

void TfmFacMov::EdtBarraEnter()
{
    if (EdtCodTip.empty())
        EdtCodTip.SetText(App().Host.stock.CodigoTipoMovEstoque(TTipoMovimentoEstoque::EntradaProducao));
}

void TfmFacMov::EdtBarraChange()
{
    RetiraAspas();
    if (!EdtBarra.empty() && bLeitAutomatica && CodigoCompleto(EdtBarra.text()))
        EdtBarraExit();
}

void TfmFacMov::RetiraAspas() { EdtBarra.SetTextQuietly(Replace(EdtBarra.text(), "'", "")); }

// The Enter or Tab of a scanner ends a code, and the field waits for the next one; a person leaves it with the mouse, with
// Shift+Tab or by a shortcut.
void TfmFacMov::EdtBarraKeyDown(TKey& key)
{
    if (key.shift || key.ctrl || key.alt || (key.name != "Enter" && key.name != "Tab"))
        return;
    key.Swallow();
    EdtBarraExit();
}

/// A code is complete as soon as it is known; a box's is known by its length alone.
bool TfmFacMov::CodigoCompleto(const std::string& codigo)
{
    const std::size_t digitos = Length(codigo);
    const std::string etiqueta = Left(codigo, DigitosDaEtiqueta);
    TStatement select("SELECT BARRA28, BARRA, BARRACLI FROM {PA_ITEN} WHERE BARRACLI = ?", codigo);
    if (digitos == DigitosDaEtiqueta || (sParamEXP70 == "S" && digitos > DigitosDaEtiqueta))
        select.Add(" OR BARRA28 = ?", etiqueta);
    if (digitos == DigitosDoEAN)
        select.Add(" OR BARRA = ?", codigo);

    TOrvQuery item = Consulta(select);
    const std::string barra28 = item.FieldByName("BARRA28").AsString();
    if (!barra28.empty() && barra28 == etiqueta) {
        if (sParamEXP70 == "S")
            return digitos == 16 || digitos == 17;
        return sParamEXP70 == "N"; // any other value leaves labels of 128 to the leaving of the field: this is wanted
    }
    return !item.FieldByName("BARRA").AsString().empty() || !item.FieldByName("BARRACLI").AsString().empty()
        || digitos == DigitosDoDUN;
}

void TfmFacMov::EdtBarraExit()
{
    if (FocusGoesTo(btn00Desiste))
        return;
    RetiraAspas();
    if (EdtBarra.empty() || QuantSomenteLeitura() || !EtiquetaLiberada())
        return;

    std::int64_t quantidade = 0;
    VerificaCodigoBarraEAN14(EdtBarra.text(), quantidade);
    const bool aMaior = BaixaSetorMaior(EdtSetor.text());
    if (!LocalizaPeca(aMaior))
        return AlarmeDaBarra("Código de Barras não encontrado na OF ou já baixado.");
    if (!aMaior && TbTemp.Leaving() == TbTemp.Qt_Orig.value())
        return AlarmeDaBarra("Quantidade total já baixada.");
    SomaQuant(static_cast<double>(quantidade));
    EdtBarra.SetTextQuietly("");
}

/// Labels that bear the order are read once, and only on their order.
bool TfmFacMov::EtiquetaLiberada()
{
    if (CbFormato.ItemIndex() != Barra128 || sParamEXP70 != "S")
        return true;
    const std::string codigo = EdtBarra.text();
    if (!Existe("PA_ITEN", "BARRA28", Aspas(Left(codigo, DigitosDaEtiqueta))))
        return true;
    if (Right(codigo, 6) != edtOFNum.text())
        return AlarmeDaBarra("Número da OF não confere."), false;
    if (!sListaEtq.insert(codigo).second)
        return AlarmeDaBarra("Barra já lida. Impossível ler novamente."), false;
    return true;
}

void TfmFacMov::VerificaCodigoBarraEAN14(std::string_view codigo, std::int64_t& quantidade)
{
    quantidade = 0;
    if (Length(codigo) == DigitosDoDUN) {
        const std::string embalagem = Left(codigo, 1);
        const std::string barra
            = ConsultaValor("SELECT BARRA FROM {PA_ITEN} WHERE BARRA STARTING WITH ?", Copy(codigo, 2, 12)).AsString();
        if (!barra.empty()) {
            EdtBarra.SetTextQuietly(barra);
            quantidade = Busca_Valor("CADTAG", "CODIGO", "QTDE", Aspas(embalagem)).AsInteger();
        }
    }
    if (quantidade <= 0)
        quantidade = 1;
}

/// Goes to the first row of the piece that EdtBarra stands for.
bool TfmFacMov::LocalizaPeca(bool aMaior)
{
    TStatement select("SELECT CODIGO, COR, TAM FROM {PA_ITEN} WHERE ");
    if (CbFormato.ItemIndex() == Barra128)
        select.Add("BARRA28 = ?", Left(EdtBarra.text(), DigitosDaEtiqueta));
    else
        select.Add("BARRA = ? OR BARRACLI = ?", EdtBarra.text(), EdtBarra.text());
    TOrvQuery item = Consulta(select);
    if (item.IsEmpty())
        return false;
    const TPeca peca{
        item.FieldByName("CODIGO").AsString(), item.FieldByName("COR").AsString(), item.FieldByName("TAM").AsString()};
    for (std::size_t row = 0; row < TbTemp.RecordCount(); ++row) {
        if (!EhDaPeca(row, peca) || !(aMaior || TemPendente(row)))
            continue;
        TbTemp.GoToRow(row);
        return true;
    }
    return false;
}

bool TfmFacMov::EhDaPeca(std::size_t row, const TPeca& peca) const
{
    return TbTemp.CellValue(row, TbTemp.Cor).AsString() == peca.cor
        && TbTemp.CellValue(row, TbTemp.Tam).AsString() == peca.tam
        && TbTemp.CellValue(row, TbTemp.Codigo).AsString() == peca.codigo;
}

bool TfmFacMov::TemPendente(std::size_t row) const
{
    return TbTemp.CellValue(row, TbTemp.Qt_Orig).AsFloat()
        > TbTemp.CellValue(row, TbTemp.Quant_B).AsFloat() + TbTemp.CellValue(row, TbTemp.Quant).AsFloat();
}

void TfmFacMov::SomaQuant(double quantidade)
{
    TbTemp.Edit();
    TbTemp.Quant = TbTemp.Quant.value() + quantidade;
    TbTemp.Post();
}

void TfmFacMov::AlarmeDaBarra(std::string_view text)
{
    EdtBarra.SetTextQuietly("");
    Alarme(text);
    EdtBarra.SetFocus();
}

// What is read to the end shows, and so does what is read as far as sales need it.
void TfmFacMov::dbg00GradeRowColor(std::size_t row, TRowColor& color)
{
    if (!cbBaixaBarras.Checked())
        return;
    const double quant = TbTemp.CellValue(row, TbTemp.Quant).AsFloat();
    const double necessidade = TbTemp.CellValue(row, TbTemp.Necessidade).AsFloat();
    if (TbTemp.CellValue(row, TbTemp.Saldo).AsFloat() == quant)
        color = TRowColor::Good;
    else if (necessidade > 0 && necessidade <= quant)
        color = TRowColor::Highlight;
}

} // namespace alinhavo
