// The grid of colours by sizes: its columns, what is typed and what is pasted.

#include "forms/numbers.h"
#include "forms/text.h"
#include "orders/TfmNovaOF.h"

#include <algorithm>
#include <cmath>

namespace alinhavo {
namespace {

bool QuantidadeInteira(double quantidade) { return quantidade >= 0 && quantidade == std::floor(quantidade); }

} // namespace

std::vector<std::string> TfmNovaOF::TamanhosDoProduto(const std::string& produto)
{
    std::vector<std::string> tamanhos;
    TOrvQuery faixa = Consulta(R"(
        SELECT I.TAMANHO FROM {PRODUTO} P JOIN {FAIXA_ITEN} I ON I.FAIXA = P.FAIXA
         WHERE P.CODIGO = ? ORDER BY I.POSICAO, I.TAMANHO)",
        produto);
    faixa.ForEach([&] { tamanhos.push_back(faixa.FieldByName("TAMANHO").AsString()); });
    return tamanhos;
}

/// The same product, and another one of the same sizes, keeps what was typed.
void TfmNovaOF::MontaGrade(const std::string& produto)
{
    auto tamanhos = TamanhosDoProduto(produto);
    const bool mesmo = produto == produtoDaGrade_ || tamanhos == tamanhos_;
    produtoDaGrade_ = produto;
    if (!produto.empty() && mesmo)
        return;
    TbGrade.RemoveAddedFields();
    TbGrade.EmptyTable();
    tamanhos_.clear();
    for (const auto& tamanho : tamanhos)
        IncluiTamanho(tamanho);
    MontaColunas();
    SomaGrade();
}

void TfmNovaOF::IncluiTamanho(const std::string& tamanho)
{
    TbGrade.AddField(CampoDe(tamanho), TFieldKind::Float, 0, {.title = tamanho});
    tamanhos_.push_back(tamanho);
}

void TfmNovaOF::MontaColunas()
{
    std::vector<TGridColumn> colunas{{.field = "Cor", .title = "Cor", .width = 9, .lookup = true},
        {.field = "DescCor", .title = "Descrição", .width = 26, .readOnly = true}};
    for (const auto& tamanho : tamanhos_)
        colunas.push_back({.field = CampoDe(tamanho), .title = tamanho, .width = 8});
    colunas.push_back({.field = "Total", .title = "Total", .width = 9, .readOnly = true});
    dbgGrade.SetColumns(std::move(colunas));
}

/// A size that the product's range no longer has is shown as well: no piece is lost from sight.
void TfmNovaOF::CarregaGrade()
{
    MontaGrade("");
    MontaGrade(edtProduto.text());
    TOrvQuery itens = Consulta(R"(
        SELECT COR, TAM, QTDE + COALESCE(QTDE_B, 0) + COALESCE(QTDE_C, 0) AS QTDE
          FROM {OF_ITEN} WHERE NUMERO = ? ORDER BY COR, TAM)",
        numero_);
    const auto desligado = TbGrade.DisableControls();
    const TEventOff semConferir(TbGrade.BeforePost);
    itens.ForEach([&] {
        const auto tamanho = itens.FieldByName("TAM").AsString();
        if (std::ranges::find(tamanhos_, tamanho) == tamanhos_.end())
            IncluiTamanho(tamanho);
        VaiParaACor(itens.FieldByName("COR").AsString());
        TbGrade.Edit();
        TbGrade.FieldByName(CampoDe(tamanho)).Set(itens.FieldByName("QTDE").Value());
        SomaLinha();
        TbGrade.Post();
    });
    TbGrade.First();
    MontaColunas();
    SomaGrade();
}

std::string TfmNovaOF::DescricaoDaCor(std::string_view cor)
{
    return Busca_Valor("CADCOR", "COR", "DESCRICAO", Aspas(cor)).AsString();
}

/// To the row of the colour, which is added when there is none.
void TfmNovaOF::VaiParaACor(std::string_view cor)
{
    if (TbGrade.Locate("Cor", {cor}))
        return;
    TbGrade.Append();
    TbGrade.Cor = cor;
    TbGrade.DescCor = DescricaoDaCor(cor);
    TbGrade.Post();
}

void TfmNovaOF::SomaLinha()
{
    double total = 0;
    for (const auto& tamanho : tamanhos_)
        total += Quantidade(tamanho);
    TbGrade.Total = total;
}

void TfmNovaOF::SomaGrade() { edtTotal.SetValue(TbGrade.Sum("Total")); }

void TfmNovaOF::dbgGradeKeyDown(TKey& key)
{
    const bool procura = (key.name == "F4" || key.name == "F5") && dbgGrade.Column() == "Cor";
    if (modo_ == TModo::Consulta || (!procura && !(key.ctrl && key.name == "Del")))
        return;
    key.Swallow();
    if (procura)
        return PqCor.AbrePesquisa();
    if (!TbGrade.IsEmpty())
        TbGrade.Delete();
    SomaGrade();
}

/// Each colour picked gets a row; the last one is where the quantities are typed next.
void TfmNovaOF::PqCorFechaPesquisa()
{
    if (TbGrade.State() == TDataSetState::Insert && TbGrade.Cor.value().empty())
        TbGrade.Cancel();
    VaiParaACor(PqCor.RetornoPesquisa("COR").AsString());
    if (!tamanhos_.empty())
        dbgGrade.SetFocusOn(CampoDe(tamanhos_.front()));
}

void TfmNovaOF::dbgGradeCellEdit()
{
    if (dbgGrade.Column() == "Cor") {
        if (const auto cor = CorDe(TbGrade.Cor.value()); !cor.empty())
            TbGrade.Cor = cor;
        TbGrade.DescCor = DescricaoDaCor(TbGrade.Cor.value());
    }
    SomaLinha();
    SomaGrade();
}

// The first refusal is the one that the user sees; the row stays in edit.
void TfmNovaOF::TbGradeBeforePost()
{
    const auto cor = TbGrade.Cor.value();
    std::string recusa;
    if (cor.empty())
        recusa = "Informe a cor da linha.";
    else if (!Existe("CADCOR", "COR", Aspas(cor)))
        recusa = "Cor " + cor + " não cadastrada.";
    else if (CorRepetida(cor))
        recusa = "A cor " + cor + " já está na grade.";
    for (const auto& tamanho : tamanhos_) {
        if (recusa.empty() && !QuantidadeInteira(Quantidade(tamanho)))
            recusa = "Cor " + cor + ", tamanho " + tamanho + ": informe um número inteiro de peças, sem sinal.";
    }
    if (recusa.empty())
        return;
    Recusa(recusa, dbgGrade);
    Abort();
}

bool TfmNovaOF::CorRepetida(const std::string& cor) const
{
    for (std::size_t linha = 0; linha < TbGrade.RecordCount(); ++linha) {
        if (linha + 1 != TbGrade.RecNo() && TbGrade.CellText(linha, TbGrade.Cor) == cor)
            return true;
    }
    return false;
}

// Paste

void TfmNovaOF::dbgGradePaste(const TPastedRows& coladas)
{
    if (modo_ == TModo::Consulta)
        return Mensagem("Inclua ou altere uma OF para colar a grade.");
    if (tamanhos_.empty())
        return Mensagem("Informe o produto antes de colar a grade.");
    TbGrade.CheckBrowse();
    std::string erros;
    const auto celulas = LeColagem(coladas, erros);
    if (!erros.empty())
        return Mensagem("Nada foi colado:" + erros);
    Escreve(celulas);
}

/// The size of each pasted column, "" for that of the colours and "-" for one that says nothing; empty when the first row
/// is no heading.
std::vector<std::string> TfmNovaOF::CabecalhoColado(const TPastedRows& coladas) const
{
    std::vector<std::string> colunas;
    bool temTamanho = false;
    for (std::size_t coluna = 0; coluna < coladas.front().size(); ++coluna) {
        const auto tamanho = std::ranges::find_if(
            tamanhos_, [&](const std::string& um) { return SameText(um, coladas.front()[coluna]); });
        temTamanho = temTamanho || tamanho != tamanhos_.end();
        colunas.push_back(tamanho != tamanhos_.end() ? *tamanho : coluna == 0 ? "" : "-");
    }
    return temTamanho ? colunas : std::vector<std::string>();
}

/// Without a heading the cells stand for the columns from the current one on.
std::vector<TfmNovaOF::TCelula> TfmNovaOF::LeColagem(const TPastedRows& coladas, std::string& erros)
{
    std::vector<TCelula> lidas;
    if (coladas.empty())
        return lidas;
    auto colunas = CabecalhoColado(coladas);
    const std::size_t primeira = colunas.empty() ? 0 : 1;
    if (colunas.empty()) {
        const auto atual = std::ranges::find(tamanhos_, Copy(dbgGrade.Column(), 5, 100));
        if (atual == tamanhos_.end())
            colunas.push_back("");
        colunas.insert(colunas.end(), atual == tamanhos_.end() ? tamanhos_.begin() : atual, tamanhos_.end());
    }
    for (std::size_t linha = primeira; linha < coladas.size(); ++linha)
        LeLinhaColada(linha, coladas[linha], colunas, lidas, erros);
    return lidas;
}

void TfmNovaOF::LeLinhaColada(std::size_t linha, const std::vector<std::string>& celulas,
    const std::vector<std::string>& colunas, std::vector<TCelula>& lidas, std::string& erros)
{
    const auto queixa
        = [&](const std::string& motivo) { erros += "\nLinha " + std::to_string(linha + 1) + ": " + motivo; };
    std::string cor;
    if (colunas.front().empty()) {
        cor = CorDe(celulas.front());
        if (cor.empty())
            return queixa("a cor " + celulas.front() + " não está cadastrada.");
        lidas.push_back({cor, linha, {}, 0});
    }
    for (std::size_t coluna = 0; coluna < celulas.size(); ++coluna) {
        const auto& texto = celulas[coluna];
        if (texto.empty() || (coluna < colunas.size() && (colunas[coluna].empty() || colunas[coluna] == "-")))
            continue;
        if (coluna >= colunas.size()) {
            queixa(texto + " está além do último tamanho.");
            continue;
        }
        const auto quantidade = ParseFloat(texto);
        if (!quantidade || !QuantidadeInteira(*quantidade))
            queixa("tamanho " + colunas[coluna] + ": " + texto + " não é um número inteiro de peças.");
        else
            lidas.push_back({cor, linha, colunas[coluna], *quantidade});
    }
}

/// A colour is known by its code, to which a spreadsheet leaves no leading zeros, or by its name; empty when by neither.
std::string TfmNovaOF::CorDe(const std::string& texto)
{
    for (const auto& codigo : {texto, LeftPad(texto, '0', TbGrade.Cor.Size())}) {
        if (Existe("CADCOR", "COR", Aspas(codigo)))
            return codigo;
    }
    return ConsultaValor(
        "SELECT COR FROM {CADCOR} WHERE UPPER(DESCRICAO) = ? FETCH FIRST 1 ROWS ONLY", UpperCase(texto))
        .AsString();
}

void TfmNovaOF::Escreve(const std::vector<TCelula>& celulas)
{
    const auto primeiraLinha = celulas.empty() ? 0 : celulas.front().linha;
    const auto inicio = TbGrade.RecNo();
    for (const auto& celula : celulas) {
        const auto alvo = inicio + (celula.linha - primeiraLinha);
        if (celula.cor.empty() && alvo > TbGrade.RecordCount())
            continue;
        if (celula.cor.empty())
            TbGrade.GoToRow(alvo - 1);
        else
            VaiParaACor(celula.cor);
        if (celula.tamanho.empty())
            continue;
        TbGrade.Edit();
        TbGrade.FieldByName(CampoDe(celula.tamanho)).Set(celula.quantidade);
        SomaLinha();
        TbGrade.Post();
    }
    SomaGrade();
}

} // namespace alinhavo
