#include "host/TfmImportaExporta.h"

#include "forms/text.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace alinhavo {
namespace {

/// In the order of TLineState, and of rgMostrar behind its first item.
constexpr std::array<std::string_view, 5> Situacoes = {"Nova", "Alterada", "Igual", "Ignorada", "Errada"};
constexpr std::array Cores
    = {TRowColor::Good, TRowColor::Highlight, TRowColor::Muted, TRowColor::Muted, TRowColor::Bad};

std::string_view Situacao(TLineState state) { return Situacoes[static_cast<std::size_t>(state)]; }

/// The tables that a person looks at, by their captions.
std::vector<const TTableDecl*> TabelasVisiveis()
{
    std::vector<const TTableDecl*> tabelas;
    for (const TTableDecl& tabela : Tables()) {
        if (tabela.keeper != TKeeper::System)
            tabelas.push_back(&tabela);
    }
    std::ranges::sort(
        tabelas, [](const TTableDecl* a, const TTableDecl* b) { return CompareText(a->caption, b->caption) < 0; });
    return tabelas;
}

/// The screen whose rights are those of the table.
std::string TelaDaTabela(const TTableDecl& tabela)
{
    return tabela.keeper == TKeeper::Screen ? std::string(tabela.screen) : TableScreen(tabela);
}

} // namespace

void TTbLinhas::Mostra(const std::vector<TImportRemark>& linhas)
{
    auto data = EmptyData();
    data.Reserve(linhas.size());
    const auto coluna = [&data](const TField& field) -> TColumnData& {
        return data.Column(static_cast<std::size_t>(data.FindColumn(field.Name())));
    };
    for (const TImportRemark& linha : linhas) {
        coluna(Linha).AppendInteger(linha.line);
        coluna(Situacao).AppendText(alinhavo::Situacao(linha.state));
        coluna(Chave).AppendText(linha.key);
        coluna(Coluna).AppendText(linha.column);
        coluna(Conteudo).AppendText(linha.content);
        coluna(Motivo).AppendText(linha.reason);
    }
    Adopt(std::move(data), false);
}

TfmImportaExporta::TfmImportaExporta(TApplication& application, std::unique_ptr<ITableExchange> exchange)
    : TOrvForm(application, Class, "Importar e exportar tabelas")
    , exchange_(std::move(exchange))
    , tabelas_(TabelasVisiveis())
{
    for (const TTableDecl* tabela : tabelas_)
        CbTabela.AddItem(std::string(tabela->caption) + " (" + std::string(tabela->name) + ")");
    lblExportar.SetCaption(
        "O menu da grade (botão direito ou Shift+F10) leva todas as linhas a uma planilha (XLSX) ou a um texto (CSV).");

    CbTabela.OnChange.connect(this, &TfmImportaExporta::CbTabelaChange);
    BtSaida.OnClick.connect(this, &TfmImportaExporta::BtSaidaClick);
    btnArquivo.OnClick.connect(this, &TfmImportaExporta::btnArquivoClick);
    rgExistentes.OnClick.connect(this, &TfmImportaExporta::rgExistentesClick);
    btnGravar.OnClick.connect(this, &TfmImportaExporta::btnGravarClick);
    rgMostrar.OnClick.connect(this, &TfmImportaExporta::rgMostrarClick);
    dbgLinhas.OnRowColor.connect(this, &TfmImportaExporta::dbgLinhasRowColor);
    btnMostrar.OnClick.connect(this, &TfmImportaExporta::btnMostrarClick);
    OnClose.connect(this, &TfmImportaExporta::TelaClose);
}

void TfmImportaExporta::CbTabelaChange()
{
    QryTabela.Close();
    arquivo_.clear();
    edtArquivo.SetText("");
    Esquece();
}

void TfmImportaExporta::BtSaidaClick() { Close(); }

void TfmImportaExporta::btnArquivoClick()
{
    if (!EscolheuTabela() || !PodeImportar(*Tabela()))
        return;
    const auto arquivo = EscolheArquivo("Arquivo a importar", "*.csv;*.txt;*.xlsx");
    if (arquivo.empty())
        return;
    arquivo_ = arquivo;
    edtArquivo.SetText(std::filesystem::path(arquivo).filename().string());
    Confere();
}

void TfmImportaExporta::rgExistentesClick()
{
    if (!arquivo_.empty())
        Confere();
}

void TfmImportaExporta::btnGravarClick()
{
    const auto* tabela = Tabela();
    if (!import_ || !tabela || !PodeImportar(*tabela) || !Confirma(*tabela))
        return;
    Grava(*tabela);
    lblResumo.SetCaption("Gravado. " + Summary(import_->Counts()) + ".");
    import_.reset();
    btnGravar.SetEnabled(false);
}

void TfmImportaExporta::rgMostrarClick()
{
    if (rgMostrar.ItemIndex() <= 0)
        return TbLinhas.ClearFilter();
    TbLinhas.FilterBy("Situacao", Situacoes[static_cast<std::size_t>(rgMostrar.ItemIndex() - 1)]);
}

void TfmImportaExporta::dbgLinhasRowColor(std::size_t linha, TRowColor& cor)
{
    const auto situacao = TbLinhas.CellValue(linha, TbLinhas.Situacao).AsString();
    cor = Cores[static_cast<std::size_t>(std::ranges::find(Situacoes, situacao) - Situacoes.begin())];
}

void TfmImportaExporta::btnMostrarClick()
{
    if (!EscolheuTabela() || !Funcoes().Acessa(*this, TelaDaTabela(*Tabela()), TDireito::Consulta, TNivel::Usuario))
        return;
    const auto busy = Ocupado();
    exchange_->Show(*Tabela(), QryTabela);
    dbgTabela.SetColumns({});
}

void TfmImportaExporta::TelaClose() { Esquece(); }

const TTableDecl* TfmImportaExporta::Tabela() const
{
    const int index = CbTabela.ItemIndex();
    return index < 0 ? nullptr : tabelas_[static_cast<std::size_t>(index)];
}

bool TfmImportaExporta::EscolheuTabela()
{
    if (Tabela())
        return true;
    return Recusa("Escolha a tabela.", CbTabela), false;
}

// What other screens have written and not committed would be committed, or lost, with the import.
bool TfmImportaExporta::PodeImportar(const TTableDecl& tabela)
{
    if (!TakesImport(tabela))
        return Recusa("Esta tabela é mantida pelo próprio sistema e não aceita importação; ela só pode ser exportada.",
                   CbTabela),
               false;
    if (Database().Pending())
        return Recusa("Há trabalho de outra tela por gravar. Termine-o antes de importar."), false;
    return Acessa(TDireito::Altera) && Funcoes().Acessa(*this, TelaDaTabela(tabela), TDireito::Altera, TNivel::Usuario);
}

void TfmImportaExporta::Confere()
{
    const auto busy = Ocupado();
    Esquece();
    import_ = exchange_->Compare(
        *Tabela(), arquivo_, rgExistentes.ItemIndex() == 1 ? TExistingRows::Skip : TExistingRows::Update);
    TbLinhas.Mostra(import_->Remarks());
    rgMostrar.SetItemIndexQuietly(import_->Counts().wrong > 0 ? static_cast<int>(Situacoes.size()) : 0);
    rgMostrarClick();
    lblResumo.SetCaption(Summary(import_->Counts()) + ". Nada foi gravado ainda.");
    lblResumo.SetStyle(import_->Counts().wrong > 0 ? TLabelStyle::Warning : TLabelStyle::Strong);
    lblForma.SetCaption("Lido como " + import_->Form() + ".");
    btnGravar.SetEnabled(import_->Counts().ToWrite() > 0);
}

void TfmImportaExporta::Esquece()
{
    import_.reset();
    TbLinhas.EmptyTable();
    lblResumo.SetCaption("");
    lblForma.SetCaption("");
    btnGravar.SetEnabled(false);
}

bool TfmImportaExporta::Confirma(const TTableDecl& tabela)
{
    const auto& counts = import_->Counts();
    std::string pergunta = "Gravar em " + std::string(tabela.caption) + "? " + Summary(counts) + ".";
    if (counts.wrong > 0)
        pergunta += "\nAs linhas erradas não serão gravadas.";
    return Pergunta(pergunta);
}

void TfmImportaExporta::Grava(const TTableDecl& tabela)
try {
    const auto busy = Ocupado();
    import_->Write();
    GeraLog(ImportLog, ImportLogText(edtArquivo.text(), import_->Counts()), TOperacaoLog::Processo, tabela.name);
    CommitRetaining();
} catch (...) {
    RollbackRetaining();
    Esquece();
    throw;
}

} // namespace alinhavo
