// Parts that leave the last sector together: the grid of one part drives, and its quantities are spread over the lines
// of the others.

#include "movement/TfmFacMov.h"

#include <algorithm>
#include <set>

namespace alinhavo {

namespace {

/// What one line of another part takes of the grid's amounts.
struct TQuantidades {
    double quant = 0;
    double quant2 = 0;
    double quantI = 0;
    double quantF = 0;

    double Total() const { return quant + quant2 + quantI + quantF; }
};

/// The first of the combinations, from the whole to single kinds, that fits the line; a single kind is cut to fit. Incomplete and
/// missing pieces alone are never cut: where they do not fit, good and second quality do, being none.
TQuantidades CabeNaLinha(const TQuantidades& oferta, double saldo)
{
    if (oferta.Total() <= saldo)
        return oferta;
    if (oferta.quant + oferta.quant2 + oferta.quantI <= saldo)
        return {.quant = oferta.quant, .quant2 = oferta.quant2, .quantI = oferta.quantI};
    if (oferta.quant + oferta.quant2 <= saldo)
        return {.quant = oferta.quant, .quant2 = oferta.quant2};
    if (oferta.quant > 0)
        return {.quant = std::min(saldo, oferta.quant)};
    return {.quant2 = std::min(saldo, oferta.quant2)};
}

} // namespace

// Finished goods enter stock with all their parts: the scarcest decides how many.
void TfmFacMov::BaixaConjunta()
{
    if (!bgUltimoSetor || sParamFAC260 != "S" || !ParteControlaEstoque(Parte()))
        return;
    TOrvQuery partes = Consulta(R"(
        SELECT FACCAO.PARTE, MAX(TIPO_APL.DESCRICAO) AS DESCRICAO,
               SUM(CASE WHEN FACCAO.OP = ? AND FACCAO.QT_ORIG - FACCAO.QUANT - FACCAO.QUANT_2 - FACCAO.QUANT_I
                             - FACCAO.QUANT_F > 0 THEN 1 ELSE 0 END) AS PENDENTES
          FROM {FACCAO} FACCAO
          JOIN {FLUXO} FLUXO ON FLUXO.CODIGO = FACCAO.FLUXO AND FLUXO.SETOR = ?
           AND FLUXO.ORDEM = (SELECT MAX(ULTIMO.ORDEM) FROM {FLUXO} ULTIMO WHERE ULTIMO.CODIGO = FACCAO.FLUXO)
          LEFT JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = FACCAO.PARTE
         WHERE FACCAO.NUMERO = ? AND FACCAO.PARTE <> ?
         GROUP BY FACCAO.PARTE ORDER BY FACCAO.PARTE)",
        EdtSetor.text(), EdtSetor.text(), edtOFNum.text(), Parte());

    if (partes.Locate("PENDENTES", {0})) {
        Mensagem("Não existe quantidade pendente para ser baixada da parte \"" + partes.FieldByName("PARTE").AsString()
            + "\" - " + partes.FieldByName("DESCRICAO").AsString() + " no setor informado.\n"
            + "Somente é possível fazer a baixa de todas as partes juntas no último setor para dar entrada no "
              "estoque.");
        TbTemp.ForEach([&] {
            TbTemp.Edit();
            TbTemp.Quant = 0;
            TbTemp.Post();
        });
        QuantSomenteLeitura(true);
        return;
    }
    const std::size_t quantas = partes.RecordCount();
    partes.ForEach([&] { ProcessaPartesdaBaixa(partes.FieldByName("PARTE").AsString(), partes.RecNo() == quantas); });
}

void TfmFacMov::ProcessaPartesdaBaixa(std::string_view parte, bool ultima)
{
    std::vector<TCorTam> grades;
    std::set<TCorTam> vistas;
    TbTemp.ForEach([&] {
        TCorTam grade(TbTemp.Cor.value(), TbTemp.Tam.value());
        if (vistas.insert(grade).second)
            grades.push_back(std::move(grade));
    });

    auto pendentes = PendentesDaParte(parte);
    double tabela = -1; // looked up once, when a line without a price of its own needs it
    for (const TCorTam& grade : grades) {
        double disponivel = 0;
        for (const TLinhaDaParte& linha : pendentes[grade]) {
            double preco = linha.unitario;
            if (preco <= 0) {
                if (tabela < 0)
                    tabela = PrecoFaccao(parte);
                preco = tabela;
            }
            tbBaixaPartes.Append();
            tbBaixaPartes.QTDE = linha.qtde;
            tbBaixaPartes.IDENTIFICADOR = linha.id;
            tbBaixaPartes.COR = grade.first;
            tbBaixaPartes.TAM = grade.second;
            tbBaixaPartes.CODCLI = linha.codcli;
            tbBaixaPartes.PARTE = parte;
            tbBaixaPartes.ULT_PARTE = ultima ? "S" : "N";
            tbBaixaPartes.PRECO = preco;
            tbBaixaPartes.Post();
            disponivel += linha.qtde;
        }
        ReduzGrade(grade.first, grade.second, disponivel);
    }
}

// Read at once, since a round trip for each colour and size would cost more than the lines.
std::map<TfmFacMov::TCorTam, std::vector<TfmFacMov::TLinhaDaParte>> TfmFacMov::PendentesDaParte(std::string_view parte)
{
    TOrvQuery linhas = Consulta(R"(
        SELECT (QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F) * 1.000 AS QTDE, IDENTIFICADOR, COR, TAM, CODCLI, UNITARIO
          FROM {FACCAO}
         WHERE NUMERO = ? AND PARTE = ? AND OP = ? AND QT_ORIG - QUANT - QUANT_2 - QUANT_I - QUANT_F > 0
         ORDER BY IDENTIFICADOR)",
        edtOFNum.text(), parte, EdtSetor.text());
    std::map<TCorTam, std::vector<TLinhaDaParte>> pendentes;
    linhas.ForEach([&] {
        pendentes[{linhas.FieldByName("COR").AsString(), linhas.FieldByName("TAM").AsString()}].push_back(
            {.id = linhas.FieldByName("IDENTIFICADOR").AsInteger(),
                .codcli = linhas.FieldByName("CODCLI").AsString(),
                .qtde = linhas.FieldByName("QTDE").AsFloat(),
                .unitario = linhas.FieldByName("UNITARIO").AsFloat()});
    });
    return pendentes;
}

// The grid can't leave more than the other part has: the cut comes off the row with the largest quantity, piece by piece.
void TfmFacMov::ReduzGrade(const std::string& cor, const std::string& tam, double disponivel)
{
    const TBookmark atual = TbTemp.Bookmark();
    TbTemp.SetFilter(
        [&] { return TbTemp.Cor.value() == cor && TbTemp.Tam.value() == tam && TbTemp.Qt_Orig.value() > 0; });
    TbTemp.AddIndex("Indicequant", {{"quant"}});
    TbTemp.UseIndex("Indicequant");
    for (double soma = TbTemp.Sum("Qt_Orig"); disponivel < soma && !TbTemp.IsEmpty(); --soma) {
        TbTemp.Last();
        TbTemp.Edit();
        TbTemp.Qt_Orig = TbTemp.Qt_Orig.value() - 1;
        if (TbTemp.Qt_Orig.value() < TbTemp.Quant.value())
            TbTemp.Quant = TbTemp.Quant.value() - 1;
        TbTemp.Quant_B = 0;
        TbTemp.Post();
    }
    TbTemp.DeleteIndex("Indicequant");
    TbTemp.ClearFilter();
    TbTemp.GoToBookmark(atual);
}

// Each part moves the same pieces; only the last one takes them out of the pool.
void TfmFacMov::GravaPartesdaBaixa()
{
    TbBaixa.EmptyTable();
    TbTemp.ForEach([&] {
        if (TbBaixa.Locate("COR;TAM", {TbTemp.Cor.value(), TbTemp.Tam.value()})) {
            TbBaixa.Edit();
        } else {
            TbBaixa.Append();
            TbBaixa.COR = TbTemp.Cor.value();
            TbBaixa.TAM = TbTemp.Tam.value();
        }
        TbBaixa.QUANT = TbBaixa.QUANT.value() + TbTemp.Quant.value();
        TbBaixa.QUANT_2 = TbBaixa.QUANT_2.value() + TbTemp.Quant_2.value();
        TbBaixa.QUANT_I = TbBaixa.QUANT_I.value() + TbTemp.Quant_I.value();
        TbBaixa.QUANT_F = TbBaixa.QUANT_F.value() + TbTemp.Quant_F.value();
        TbBaixa.Post();
    });

    const bool produtoComEstoque = ProdutoControlaEstoque();
    std::map<std::string, bool> comEstoqueDaParte;
    tbBaixaPartes.ForEach([&] {
        if (!TbBaixa.Locate("COR;TAM", {tbBaixaPartes.COR.value(), tbBaixaPartes.TAM.value()}))
            return;
        const TQuantidades oferta{.quant = TbBaixa.QUANT.value(),
            .quant2 = TbBaixa.QUANT_2.value(),
            .quantI = TbBaixa.QUANT_I.value(),
            .quantF = TbBaixa.QUANT_F.value()};
        if (oferta.Total() <= 0)
            return;
        const TQuantidades sai = CabeNaLinha(oferta, tbBaixaPartes.QTDE.value());
        const auto [daParte, nova] = comEstoqueDaParte.try_emplace(tbBaixaPartes.PARTE.value());
        if (nova)
            daParte->second = produtoComEstoque && ParteControlaEstoque(daParte->first);
        const bool comEstoque = daParte->second;

        Executa(R"(
            UPDATE {FACCAO} SET QUANT = QUANT + ?, QUANT_2 = QUANT_2 + ?, QUANT_I = QUANT_I + ?, QUANT_F = QUANT_F + ?
             WHERE IDENTIFICADOR = ? AND NUMERO = ? AND CODIGO = ? AND OP = ? AND COR = ? AND TAM = ? AND PARTE = ?)",
            sai.quant, sai.quant2, sai.quantI, sai.quantF, tbBaixaPartes.IDENTIFICADOR.value(), TbTemp.Numero.value(),
            TbTemp.Codigo.value(), TbTemp.Setor.value(), tbBaixaPartes.COR.value(), tbBaixaPartes.TAM.value(),
            tbBaixaPartes.PARTE.value());
        Proximo_Mov(edtOFNum.text(), edtSetorProx.text());
        // Written even when nothing leaves the line, unlike the history of the grid's own rows.
        Executa(R"(
            INSERT INTO {FACCAO3} (NUMERO, PEDIDO, CODIGO, CODCLI, CODCLI_ANT, COR, TAM, QT_ORIG, QUANT, QUANT_2, QUANT_I,
                                   QUANT_F, OP, PAGO, PARTE, DT_LAN, MOV, ID_ANT, NOTA, ESTOQUE, QUAL, DEPOSITO, OBS,
                                   UNITARIO, VALOR)
            VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 'N', ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?))",
            TbTemp.Numero.value(), TbTemp.Pedido.value(), TbTemp.Codigo.value(), tbBaixaPartes.CODCLI.value(),
            edtFacDest.text(), tbBaixaPartes.COR.value(), tbBaixaPartes.TAM.value(), tbBaixaPartes.QTDE.value(),
            sai.quant, sai.quant2, sai.quantI, sai.quantF, TbTemp.Setor.value(), tbBaixaPartes.PARTE.value(),
            edtDtProducao.Date(), BareNumber(edtMov.text()), tbBaixaPartes.IDENTIFICADOR.value(), edtNota.text(),
            comEstoque ? "S" : "N", edtQual.text(), comEstoque ? edtCodDeposito.text() : "", edtObs.text(),
            tbBaixaPartes.PRECO.value(),
            tbBaixaPartes.PRECO.value() * QuantidadePaga(indPag, sai.quant, sai.quant2, sai.quantI));

        tbBaixaPartes.Edit();
        tbBaixaPartes.QTDE = tbBaixaPartes.QTDE.value() - sai.Total();
        tbBaixaPartes.Post();
        if (tbBaixaPartes.ULT_PARTE.value() != "S")
            return;
        TbBaixa.Edit();
        TbBaixa.QUANT = oferta.quant - sai.quant;
        TbBaixa.QUANT_2 = oferta.quant2 - sai.quant2;
        TbBaixa.QUANT_I = oferta.quantI - sai.quantI;
        TbBaixa.QUANT_F = oferta.quantF - sai.quantF;
        TbBaixa.Post();
    });
}

} // namespace alinhavo
