// The grid of quantities: what is pending in the sector, and how the user says what leaves it.

#include "forms/numbers.h"
#include "forms/text.h"
#include "forms/TMemTableClone.h"
#include "movement/TfmFacMov.h"

namespace alinhavo {

namespace {

constexpr int Loading = 0;
constexpr int Open = 2; ///< the grid is the user's

} // namespace

void TfmFacMov::Retorno_Normal()
{
    if ((sParamFAC250 == "S" || LigaSetor(EdtSetor.text(), "BAIXAMOV") == "S")
        && EdtSetor.text() != PrimeiroSetor(edtFluxo.text()) && cbMovimento.empty()) {
        Recusa("Obrigatório informar o número do movimento.", cbMovimento);
        Abort();
    }
    const bool precoZero = !EdtReprocesso.empty() && Pergunta("Deseja zerar o preço do reprocesso?");

    CarregaGrade(precoZero);
    if (TbTemp.IsEmpty()) {
        Mensagem("Nenhuma quantidade para Movimentar no setor informado.");
        EdtSetor.SetText("");
        return Cancela();
    }

    bgUltimoSetor = UltimoSetorDoFluxo(EdtSetor.text());
    QuantSomenteLeitura(false);
    BaixaConjunta();

    TbTemp.SortBy(OrdemDaGrade);
    TbTemp.First();
    TbTemp.Tag = Open;
    pnlCabecalho.SetEnabled(false);
    tbsAcesso.SetEnabled(false);
    if (bgUltimoSetor && sLancaEstoque == "S") {
        AtualizaCodigoDeposito(edtOFNum.text());
        GbEstoque.SetVisible(true);
        if (sParamFAC240 != "N")
            cbBaixaBarras.SetChecked(true);
    }
    bgNaoBipado = false;
    SomaQuantidades();
    if (cbBaixaBarras.Checked())
        EdtBarra.SetFocus();
    else
        dbg00Grade.SetFocusOn(QuantSomenteLeitura() ? "Quant_2" : "Quant");
}

TStatement TfmFacMov::SelectPendentes()
{
    const bool comCor = sParamFAC20 == "N" || sParamFAC20 == "C";
    const bool comTam = sParamFAC20 == "N" || sParamFAC20 == "T";

    TStatement select("SELECT FACCAO.NUMERO, FACCAO.PEDIDO, FACCAO.CODCLI, FACCAO.CODIGO, FACCAO.OP, FACCAO.MOV, ");
    // Any other depth leaves the statement without its columns, and the database refuses it.
    if (comCor)
        select.Add("FACCAO.COR, CADCOR.DESCRICAO AS DESCCOR, ");
    else if (comTam || sParamFAC20 == "S")
        select.Add("'' AS COR, '' AS DESCCOR, ");
    if (comTam)
        select.Add("FACCAO.TAM, FAIXA_ITEN.POSICAO, ");
    else if (comCor || sParamFAC20 == "S")
        select.Add("'' AS TAM, 0 AS POSICAO, ");
    if (!comCor && !comTam && sParamFAC20 != "S")
        select.Add(", ");
    if (sParamFAC20 == "N")
        select.Add(R"(
            (SELECT SUM(PA_ITEN.QUANTIDADE) FROM {PA_ITEN} PA_ITEN
               JOIN {DEPOSITO} DEPOSITO ON DEPOSITO.CODIGO = PA_ITEN.DEPOSITO AND DEPOSITO.PRIORIDADE = '7'
              WHERE PA_ITEN.CODIGO = FACCAO.CODIGO AND PA_ITEN.COR = FACCAO.COR AND PA_ITEN.TAM = FACCAO.TAM
                AND PA_ITEN.QUANTIDADE > 0) AS QUANT_EST,
            (SELECT SUM(PED_ITEN.QTDE) FROM {PED_ITEN} PED_ITEN
              WHERE PED_ITEN.CODIGO = FACCAO.CODIGO AND PED_ITEN.COR = FACCAO.COR AND PED_ITEN.TAM = FACCAO.TAM
                AND PED_ITEN.QTDE > 0) AS QUANT_PED,)");
    else
        select.Add("0 AS QUANT_EST, 0 AS QUANT_PED,");
    select.Add(R"(
               FACCAO.QT_ORIG, FACCAO.IDENTIFICADOR, FACCAO.UNITARIO, FACCAO.REPROCESSO,
               FACCAO.QT_ORIG - FACCAO.QUANT - FACCAO.QUANT_2 - FACCAO.QUANT_I - FACCAO.QUANT_F AS QUANT,
               FACCAO.QUANT + FACCAO.QUANT_2 + FACCAO.QUANT_I + FACCAO.QUANT_F AS QUANT_B
          FROM {FACCAO} FACCAO
          LEFT JOIN {PRODUTO} PRODUTO ON PRODUTO.CODIGO = FACCAO.CODIGO
          LEFT JOIN {CADCOR} CADCOR ON CADCOR.COR = FACCAO.COR
          LEFT JOIN {FAIXA_ITEN} FAIXA_ITEN ON FAIXA_ITEN.FAIXA = PRODUTO.FAIXA AND FAIXA_ITEN.TAMANHO = FACCAO.TAM
         WHERE FACCAO.NUMERO = ? AND FACCAO.OP = ? AND FACCAO.PARTE = ? AND FACCAO.CODCLI = ?)",
        edtOFNum.text(), EdtSetor.text(), Parte(), edtFaccao.text());
    if (!EdtReprocesso.empty())
        select.Add(" AND FACCAO.REPROCESSO = ?", EdtReprocesso.text());
    if (!cbMovimento.empty())
        select.Add(" AND FACCAO.MOV = ?", BareNumber(cbMovimento.text()));
    if (!BaixaSetorMaior(EdtSetor.text()))
        select.Add(" AND FACCAO.QT_ORIG - FACCAO.QUANT - FACCAO.QUANT_2 - FACCAO.QUANT_I - FACCAO.QUANT_F > 0");
    select.Add(" ORDER BY FACCAO.IDENTIFICADOR");
    return select;
}

void TfmFacMov::CarregaGrade(bool precoZero)
{
    const auto controls = TbTemp.DisableControls();
    TbTemp.Tag = Loading;
    TbTemp.SortBy("");
    TbTemp.EmptyTable();
    tbBaixaPartes.EmptyTable();

    TOrvQuery linhas = Consulta(SelectPendentes());
    const TField& quant = linhas.FieldByName("QUANT");
    const TField& unitario = linhas.FieldByName("UNITARIO");
    double tabela = -1; // the tables give one price for all lines: it is looked up once, when a line needs it
    linhas.ForEach([&] {
        const double saldo = quant.AsFloat() > 0 ? quant.AsFloat() : 0;
        double preco = 0;
        if (!precoZero) {
            preco = unitario.AsFloat();
            if (preco <= 0) {
                if (tabela < 0)
                    tabela = PrecoFaccao("");
                preco = tabela;
            }
        }
        TbTemp.Append();
        TbTemp.Numero = linhas.FieldByName("NUMERO").AsString();
        TbTemp.Mov.Set(linhas.FieldByName("MOV").Value());
        TbTemp.Pedido = linhas.FieldByName("PEDIDO").AsString();
        TbTemp.Codigo = linhas.FieldByName("CODIGO").AsString();
        TbTemp.Codcli = edtFacDest.text();
        TbTemp.Setor = linhas.FieldByName("OP").AsString();
        TbTemp.CodCli2 = linhas.FieldByName("CODCLI").AsString();
        TbTemp.Cor = linhas.FieldByName("COR").AsString();
        TbTemp.DescCor = linhas.FieldByName("DESCCOR").AsString();
        TbTemp.Tam = linhas.FieldByName("TAM").AsString();
        TbTemp.Qt_Orig = linhas.FieldByName("QT_ORIG").AsFloat();
        TbTemp.Quant = saldo;
        TbTemp.Quant_2 = 0;
        TbTemp.Quant_I = 0;
        TbTemp.Quant_F = 0;
        TbTemp.Quant_B = linhas.FieldByName("QUANT_B").AsFloat();
        TbTemp.Saldo = saldo;
        TbTemp.Necessidade = linhas.FieldByName("QUANT_PED").AsFloat() - linhas.FieldByName("QUANT_EST").AsFloat();
        TbTemp.ID = linhas.FieldByName("IDENTIFICADOR").AsInteger();
        TbTemp.Preco = preco;
        TbTemp.Pos = linhas.FieldByName("POSICAO").AsInteger();
        TbTemp.Reprocesso = linhas.FieldByName("REPROCESSO").AsString();
        TbTemp.Post();
    });
    TbTemp.First();
}

double TfmFacMov::PrecoFaccao(std::string_view parte)
{
    return Precos.PrecoFaccao({.numero = edtOFNum.text(),
        .codigo = edtCodproduto.text(),
        .setor = EdtSetor.text(),
        .parte = parte.empty() ? Parte() : std::string(parte),
        .faccao = edtFaccao.text()});
}

void TfmFacMov::TbTempBeforeInsert()
{
    if (TbTemp.Tag == Open)
        Abort();
}

// What leaves a row may not pass what is pending there, unless the sector allows it.
void TfmFacMov::TbTempBeforePost()
{
    if (TbTemp.Tag != Open)
        return;
    const bool quantEditavel = !QuantSomenteLeitura();
    if (TbTemp.Leaving() > TbTemp.Qt_Orig.value() - TbTemp.Quant_B.value() && !BaixaSetorMaior(EdtSetor.text())) {
        Alarme("Quantidade Maior que pendente na OF.", "Movimento de Facção");
        if (!EdtBarra.empty() && quantEditavel) {
            // One piece is taken back, however many the read had added: this is wanted.
            TbTemp.Quant = TbTemp.Quant.value() - 1;
        } else {
            if (quantEditavel)
                TbTemp.Quant = 0;
            TbTemp.Quant_I = 0;
            if (TbTemp.Quant_2.value() > 0)
                TbTemp.Quant_2 = 0;
            TbTemp.Quant_F = 0;
        }
    }
    if (quantEditavel && TbTemp.Quant.value() < 0)
        TbTemp.Quant = 0;
    for (TFloatField* field : {&TbTemp.Quant_2, &TbTemp.Quant_I, &TbTemp.Quant_F}) {
        if (field->value() < 0)
            *field = 0;
    }
    if (TbTemp.Setor.value().empty())
        Abort();
}

void TfmFacMov::TbTempAfterPost()
{
    if (TbTemp.Tag == Open)
        SomaQuantidades();
}

void TfmFacMov::SomaQuantidades()
{
    std::int64_t total = 0;
    for (std::size_t row = 0; row < TbTemp.RecordCount(); ++row)
        total += TbTemp.CellValue(row, TbTemp.Quant).AsInteger();
    EdtQtde.SetValue(static_cast<double>(total));
}

void TfmFacMov::QuantSomenteLeitura(bool somenteLeitura) { dbg00Grade.SetColumnReadOnly("Quant", somenteLeitura); }

bool TfmFacMov::QuantSomenteLeitura() const { return dbg00Grade.ColumnReadOnly("Quant"); }

void TfmFacMov::PreencheQuantidades(TPreenche valor)
{
    {
        const TEventOff afterPost(TbTemp.AfterPost); // the total is told once
        TbTemp.ForEach([&] {
            TbTemp.Edit();
            TbTemp.Quant = valor == TPreenche::Zero ? 0 : TbTemp.Saldo.value();
            TbTemp.Post();
        });
    }
    SomaQuantidades();
}

void TfmFacMov::ZerarQuantidades1Click()
{
    if (!QuantSomenteLeitura())
        PreencheQuantidades(TPreenche::Zero);
}

// One amount over the rows of a colour and size, oldest batch first; what is left over goes to the last.
void TfmFacMov::Distribuirquantidade1Click()
{
    if (QuantSomenteLeitura())
        return;
    std::string text;
    if (!InputBox("Distribuir Quantidades", "Quantidade:", text))
        return;
    std::int64_t resto = StrToIntDef(Trim(text), 0);
    if (resto <= 0)
        return;

    {
        const auto controls = TbTemp.DisableControls();
        const TEventOff beforePost(TbTemp.BeforePost);
        const TEventOff afterPost(TbTemp.AfterPost);
        TMemTableClone linhas(TbTemp);
        const std::string cor = TbTemp.Cor.value();
        const std::string tam = TbTemp.Tam.value();
        linhas.SetFilter(
            [&] { return linhas.FieldByName("Cor").AsString() == cor && linhas.FieldByName("Tam").AsString() == tam; });
        linhas.SortBy("Cor;Tam;Mov");
        const std::size_t ultima = linhas.RecordCount();
        linhas.ForEach([&] {
            const double saldo = linhas.FieldByName("Saldo").AsFloat();
            double parcela = static_cast<double>(resto);
            if (parcela > saldo && linhas.RecNo() < ultima)
                parcela = saldo;
            linhas.Edit();
            linhas.FieldByName("Quant").Set(parcela);
            linhas.Post();
            resto -= Trunc(parcela);
        });
    }
    SomaQuantidades();
}

void TfmFacMov::dbg00GradeKeyDown(TKey& key)
{
    if (key.name == "F6" && !TbTemp.IsEmpty()) {
        key.Swallow();
        return AbrirLancamentoDefeitos();
    }
    if (key.name == "F5" && !TbTemp.IsEmpty()) {
        key.Swallow();
        return LeRFID();
    }
    if (key.name == "F10") {
        key.Swallow();
        return OrvRFIDMov.ConfigurarParametros(*this);
    }
    if (bgUltimoSetor && key.IsDigit() && dbg00Grade.Column() == "Quant")
        bgNaoBipado = true;
}

// A row that is not stored yet is stored, and the user stays in the grid to see it.
void TfmFacMov::dbg00GradeExit()
{
    if (FocusGoesTo(btn00Desiste) || !TbTemp.IsEditing())
        return;
    TbTemp.Post();
    dbg00Grade.SetFocus();
}

} // namespace alinhavo
