#include "tables/TfmTabela.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/searchText.h"
#include "host/WriteWhole.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

/// Nobody scrolls further; and so a table of any size opens at once. The list's statement names the same number.
constexpr std::size_t mostListed = 1000;
/// Rows beyond are not counted, and such a table is searched when a person has finished typing. The count names it, too.
constexpr double mostCounted = 100'000;
constexpr int widestSearched = 100;
constexpr int widestColumn = 40;
/// Up to so many columns fill the width of the list.
constexpr std::size_t fewColumns = 6;
constexpr std::size_t longestKey = 60;
constexpr std::size_t longestLog = 8000;

/// Codes and names are searched; flags would match nearly everything.
std::vector<std::string> SearchedColumns(const TTableDecl& table)
{
    std::vector<std::string> searched;
    for (const auto* column : ListedColumns(table)) {
        if (column->kind == TColumnKind::Text && column->width > 1 && column->width <= widestSearched)
            searched.emplace_back(column->name);
    }
    return searched;
}

bool IsMemo(const TColumnDecl& column) { return column.kind == TColumnKind::Text && column.width > 150; }

/// "Descrição de Azul para Azul-marinho".
std::string ChangeOf(const TColumnDecl& column, const TField& field)
{
    return std::string(column.caption) + " de " + ShownValue(field.OldValue()) + " para " + ShownValue(field.Value());
}

/// Takes >, >=, < or <= off the beginning; "=" without one.
std::string TakeComparison(std::string& text)
{
    for (const std::string_view sign : {">=", "<=", ">", "<", "="}) {
        if (text.starts_with(sign)) {
            text = Trim(text.substr(sign.size()));
            return std::string(sign);
        }
    }
    return "=";
}

TStatement Compared(const TColumnDecl& column, std::string_view sign, const TValue& value)
{
    const TName name(column.name);
    if (sign == ">")
        return {"? > ?", name, value};
    if (sign == ">=")
        return {"? >= ?", name, value};
    if (sign == "<")
        return {"? < ?", name, value};
    if (sign == "<=")
        return {"? <= ?", name, value};
    return {"? = ?", name, value};
}

/// A person writes part of a name, but the whole of a code that stands for something else.
bool IsFilteredByPart(const TColumnDecl& column)
{
    return column.kind == TColumnKind::Text && column.refersTo.empty() && column.choices.empty();
}

} // namespace

TfmTabela::TfmTabela(TApplication& application, const TTableDecl& tabela)
    : TOrvForm(application, TableScreen(tabela), std::string(tabela.caption))
    , tabela_(tabela)
    , tbLinha(*this, "tbLinha", Database(), tabela.name)
    , chave_(Replace(tabela.key, ",", ";"))
{
    OnClose.connect(this, &TfmTabela::TelaClose);
    Btincluir.OnClick.connect(this, &TfmTabela::BtincluirClick);
    BtnAltera.OnClick.connect(this, &TfmTabela::BtnAlteraClick);
    BtExcluir.OnClick.connect(this, &TfmTabela::BtExcluirClick);
    BtnCadastro.OnClick.connect(this, &TfmTabela::BtnCadastroClick);
    BtnLog.OnClick.connect(this, &TfmTabela::BtnLogClick);
    BtSaida.OnClick.connect(this, &TfmTabela::BtSaidaClick);
    BitBtn1.OnClick.connect(this, &TfmTabela::BitBtn1Click);
    BtnDesistir.OnClick.connect(this, &TfmTabela::BtnDesistirClick);
    edtBusca.OnChange.connect(this, &TfmTabela::edtBuscaChange);
    edtBusca.OnExit.connect(this, &TfmTabela::edtBuscaExit);
    edtBusca.OnKeyDown.connect(this, &TfmTabela::edtBuscaKeyDown);
    CbFiltro.OnExit.connect(this, &TfmTabela::CbFiltroExit);
    edtFiltro.OnExit.connect(this, &TfmTabela::edtFiltroExit);
    QryLinhas.AfterScroll.connect(this, &TfmTabela::QryLinhasAfterScroll);
    DBGrid1.OnTitleClick.connect(this, &TfmTabela::DBGrid1TitleClick);
    DBGrid1.OnDoubleClick.connect(this, &TfmTabela::DBGrid1DoubleClick);
    DBGrid1.OnPaste.connect(this, &TfmTabela::DBGrid1Paste);

    pnlDados.SetCaption(tabela.caption);
    Btincluir.SetVisible(Mantida());
    BtnAltera.SetVisible(Mantida());
    BtExcluir.SetVisible(Mantida());
    BtnCadastro.SetVisible(DeOutraTela());
    tbLinha.Restrict(chave_, std::vector<TValue>(ColumnNames(tabela.key).size()));
    tbLinha.Open();
    MontaCampos();
    MontaColunas();
    Procura();
    edtBusca.SetFocus();
}

/// A row in edit is given up with the screen.
void TfmTabela::TelaClose() { tbLinha.Cancel(); }

// A person's part in the table

/// While the screen that is made for a table is not installed, its rows are kept here.
bool TfmTabela::Mantida() const
{
    return tabela_.keeper == TKeeper::Person || (tabela_.keeper == TKeeper::Screen && !DeOutraTela());
}

bool TfmTabela::DeOutraTela() const { return !tabela_.screen.empty() && App().KnowsForm(tabela_.screen); }

void TfmTabela::MontaCampos()
{
    std::vector<std::string> nomes{""};
    for (const auto* coluna : SeenColumns(tabela_)) {
        Campos.push_back(std::make_unique<TColumnControl>(*this, LugarDe(*coluna), tbLinha, *coluna));
        nomes.emplace_back(coluna->caption);
    }
    CbFiltro.SetItems(std::move(nomes));
    for (auto* lugar : {&linhaCampos, &linhaMarcas, &linhaTextos})
        lugar->SetVisible(!lugar->Controls().empty());
}

TContainer& TfmTabela::LugarDe(const TColumnDecl& coluna)
{
    if (IsTicked(coluna))
        return linhaMarcas;
    return IsMemo(coluna) ? linhaTextos : linhaCampos;
}

int TfmTabela::LinhasDaLista(const TTableDecl& tabela)
{
    const auto colunas = SeenColumns(tabela).size();
    return colunas > 20 ? 6 : colunas > 10 ? 9 : 12;
}

void TfmTabela::MontaColunas()
{
    std::vector<TGridColumn> colunas;
    const auto listadas = ListedColumns(tabela_);
    for (const auto* coluna : listadas) {
        colunas.push_back({.field = std::string(coluna->name),
            .title = std::string(coluna->caption),
            .width = listadas.size() > fewColumns && coluna->kind == TColumnKind::Text && !IsTicked(*coluna)
                ? std::min(coluna->width, widestColumn)
                : 0,
            .tick = IsTicked(*coluna)});
    }
    DBGrid1.SetColumns(std::move(colunas));
}

// The list

TStatement TfmTabela::CondicaoDoFiltro() const
{
    const auto* coluna = ColunaDoFiltro();
    std::string texto = Trim(edtFiltro.text());
    if (!coluna || texto.empty())
        return {};
    if (IsFilteredByPart(*coluna))
        return StandsIn({std::string(coluna->name)}, texto);
    const auto sinal = TakeComparison(texto);
    return Compared(*coluna, sinal, TRowCheck(Database(), tabela_).Typed(*coluna, texto));
}

TStatement TfmTabela::Condicao() const
{
    TStatement tudo;
    for (const auto& condicao : {StandsIn(SearchedColumns(tabela_), Trim(edtBusca.text())), filtro_}) {
        if (!condicao.IsEmpty())
            tudo.Add(tudo.IsEmpty() ? TFragment(" WHERE (") : TFragment(" AND (")).Add(condicao).Add(")");
    }
    return tudo;
}

/// By the title clicked last, and by key within it.
TStatement TfmTabela::Ordem() const
{
    TStatement ordem;
    if (!ordem_.empty())
        ordem.Add(descendente_ ? TFragment(" ORDER BY ? DESC") : TFragment(" ORDER BY ?"), TName(ordem_));
    for (const auto coluna : ColumnNames(tabela_.key)) {
        if (coluna != ordem_)
            ordem.Add(ordem.IsEmpty() ? TFragment(" ORDER BY ?") : TFragment(", ?"), TName(coluna));
    }
    return ordem;
}

TStatement TfmTabela::Linhas() const
{
    TStatement sql;
    for (const auto& coluna : tabela_.columns) {
        const auto listadas = ListedColumns(tabela_);
        const auto chave = ColumnNames(tabela_.key);
        if (std::ranges::find(listadas, &coluna) != listadas.end()
            || std::ranges::find(chave, coluna.name) != chave.end())
            sql.Add(sql.IsEmpty() ? TFragment("SELECT ?") : TFragment(", ?"), TName(coluna.name));
    }
    return sql.Add(" FROM {?}", TName(tabela_.name)).Add(Condicao()).Add(Ordem());
}

void TfmTabela::Procura()
{
    const auto ocupado = Ocupado();
    procurado_ = edtBusca.text();
    QryLinhas.SQL = Linhas().Add(" FETCH FIRST 1000 ROWS ONLY");
    QryLinhas.Open();
    MostraLinha();
    MostraAchados();
}

void TfmTabela::MostraAchados()
{
    const auto mostradas = QryLinhas.RecordCount();
    if (mostradas < mostListed) {
        const auto numero = FormatDecimal(static_cast<double>(mostradas), 0);
        return lblAchados.SetCaption(
            mostradas == 0 ? "Nenhuma linha." : numero + (mostradas == 1 ? " linha." : " linhas."));
    }
    const auto todas = ConsultaValor(TStatement("SELECT COUNT(*) FROM (SELECT 1 AS LINHA FROM {?}", TName(tabela_.name))
                                         .Add(Condicao())
                                         .Add(" FETCH FIRST 100001 ROWS ONLY) LINHAS"))
                           .AsFloat();
    grande_ = grande_ || todas > mostCounted;
    lblAchados.SetCaption("As primeiras " + FormatDecimal(static_cast<double>(mostradas), 0) + " de "
        + (todas > mostCounted ? "mais de " + FormatDecimal(mostCounted, 0) : FormatDecimal(todas, 0))
        + " linhas. Procure ou filtre para ver as outras.");
}

void TfmTabela::edtBuscaChange()
{
    if (!grande_)
        Procura();
}

void TfmTabela::edtBuscaExit()
{
    if (edtBusca.text() != procurado_)
        Procura();
}

void TfmTabela::edtBuscaKeyDown(TKey& key)
{
    if (key.name != "Down")
        return;
    key.Swallow();
    DBGrid1.SetFocus();
}

const TColumnDecl* TfmTabela::ColunaDoFiltro() const
{
    const int item = CbFiltro.ItemIndex() - 1;
    return item < 0 ? nullptr : SeenColumns(tabela_)[static_cast<std::size_t>(item)];
}

void TfmTabela::CbFiltroExit()
{
    if (!edtFiltro.empty() && FiltroAceito())
        Procura();
}

void TfmTabela::edtFiltroExit()
{
    if (FiltroAceito())
        Procura();
}

/// A text that the column cannot hold is no filter: it stays to be corrected, by another column too, and the list as it is.
bool TfmTabela::FiltroAceito()
{
    try {
        filtro_ = CondicaoDoFiltro();
        return true;
    } catch (const std::invalid_argument& recusa) {
        if (!FocusGoesTo(CbFiltro) && !FocusGoesTo(edtFiltro) && !FocusGoesTo(BtSaida)) {
            Mensagem(recusa.what());
            edtFiltro.SetFocus();
        }
        return false;
    }
}

void TfmTabela::DBGrid1TitleClick(std::string_view field)
{
    descendente_ = ordem_ == field && !descendente_;
    ordem_ = field;
    Procura();
}

void TfmTabela::DBGrid1DoubleClick()
{
    if (Mantida())
        BtnAlteraClick();
}

void TfmTabela::QryLinhasAfterScroll() { MostraLinha(); }

/// The row is read as it stands now; one that another user deleted shows blank.
void TfmTabela::MostraLinha()
{
    tbLinha.Restrict(chave_, ChaveDaLista());
    for (const auto& campo : Campos)
        campo->ShowMeaning();
}

/// Nulls when the list is empty: no row has such a key.
std::vector<TValue> TfmTabela::ChaveDaLista() const
{
    std::vector<TValue> chave;
    for (const auto coluna : ColumnNames(tabela_.key))
        chave.push_back(QryLinhas.IsEmpty() ? TValue() : QryLinhas.FieldByName(coluna).Value());
    return chave;
}

std::vector<TValue> TfmTabela::ChaveDaLinha() const
{
    std::vector<TValue> chave;
    for (const auto coluna : ColumnNames(tabela_.key))
        chave.push_back(tbLinha.FieldByName(coluna).Value());
    return chave;
}

/// A row that the search leaves out is shown all the same, so that a person sees what he wrote.
void TfmTabela::VaiParaALinha(const std::vector<TValue>& chave)
{
    Procura();
    if (QryLinhas.Locate(chave_, chave))
        return;
    tbLinha.Restrict(chave_, chave);
    for (const auto& campo : Campos)
        campo->ShowMeaning();
}

TRowValues TfmTabela::Valores() const
{
    return [this](const TColumnDecl& coluna) { return tbLinha.FieldByName(coluna.name).Value(); };
}

// One row in edit

void TfmTabela::BtincluirClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    tbLinha.Restrict(chave_, std::vector<TValue>(ColumnNames(tabela_.key).size()));
    tbLinha.Append();
    for (const auto& campo : Campos) {
        if (!campo->Column().initial.empty())
            campo->Field().Set(campo->Column().initial);
        campo->ShowMeaning();
    }
    AbreDados();
}

void TfmTabela::BtnAlteraClick()
{
    if (!Acessa(TDireito::Altera) || QryLinhas.IsEmpty())
        return;
    MostraLinha();
    if (tbLinha.IsEmpty()) {
        Mensagem("A linha foi excluída por outro usuário.");
        return Procura();
    }
    tbLinha.Edit();
    AbreDados();
}

/// The key of a row that is changed stays.
void TfmTabela::AbreDados()
{
    const bool nova = tbLinha.State() == TDataSetState::Insert;
    const auto chave = ColumnNames(tabela_.key);
    for (const auto& campo : Campos)
        campo->Control().SetEnabled(nova || std::ranges::find(chave, campo->Column().name) == chave.end());
    pnlControle.SetVisible(false);
    pnlConfirma.SetVisible(true);
    pnlDados.SetEnabled(true);
    FocusFirstIn(pnlDados);
    pnlBusca.SetEnabled(false);
    DBGrid1.SetEnabled(false);
}

void TfmTabela::FechaDados()
{
    pnlBusca.SetEnabled(true);
    DBGrid1.SetEnabled(true);
    DBGrid1.SetFocus();
    pnlDados.SetEnabled(false);
    pnlConfirma.SetVisible(false);
    pnlControle.SetVisible(true);
}

/// A key that exists is told when its last field is left, so that nobody fills a whole row in vain.
std::string TfmTabela::WhyNot(const TColumnDecl& coluna, const TValue& valor)
{
    auto check = Check();
    auto recusa = check.Wrong(coluna, valor);
    const bool completaAChave = tbLinha.State() == TDataSetState::Insert && !valor.IsEmpty()
        && ColumnNames(tabela_.key).back() == coluna.name;
    return recusa.empty() && completaAChave ? check.Duplicate(Valores()) : recusa;
}

void TfmTabela::BitBtn1Click()
{
    if (!PodeConfirmar())
        return;
    if (tbLinha.State() == TDataSetState::Edit && !tbLinha.Modified())
        return BtnDesistirClick();
    try {
        Grava();
    } catch (const EDatabaseError& erro) {
        RecusaRepetida(erro);
    }
    const auto chave = ChaveDaLinha();
    FechaDados();
    VaiParaALinha(chave);
}

// One column after the other, in the order of the screen: the first refusal is the one that the user sees.
bool TfmTabela::PodeConfirmar()
{
    auto check = Check();
    for (const auto& campo : Campos) {
        const auto valor = campo->Field().Value();
        const auto falta = check.Missing(campo->Column(), valor);
        if (!falta.empty())
            return Recusa(falta, campo->Control()), false;
        const auto errado = check.Wrong(campo->Column(), valor);
        if (!errado.empty())
            return Recusa(errado, campo->Control()), false;
    }
    const bool nova = tbLinha.State() == TDataSetState::Insert;
    const auto repetida = check.Duplicate(Valores(), nova ? std::vector<TValue>() : ChaveDaLinha());
    if (!repetida.empty())
        return Recusa(repetida, Campos.front()->Control()), false;
    return true;
}

void TfmTabela::Grava()
{
    const bool nova = tbLinha.State() == TDataSetState::Insert;
    const auto texto = TextoDoLog();
    WriteWhole(Database(), [&] {
        tbLinha.Post();
        Registra(texto, nova ? TOperacaoLog::Inclusao : TOperacaoLog::Alteracao, Valores());
    });
}

/// Another user was first; the row stays in edit, to be corrected.
void TfmTabela::RecusaRepetida(const EDatabaseError& erro)
{
    if (erro.Kind() != TDatabaseErrorKind::Duplicate || !tbLinha.IsEditing())
        throw;
    Recusa("Já existe em " + std::string(tabela_.caption) + ": " + Check().KeyText(Valores()) + ".",
        Campos.front()->Control());
    Abort();
}

void TfmTabela::BtnDesistirClick()
{
    tbLinha.Cancel();
    FechaDados();
    MostraLinha();
}

void TfmTabela::BtExcluirClick()
{
    if (!Acessa(TDireito::Exclui) || QryLinhas.IsEmpty())
        return;
    MostraLinha();
    auto check = Check();
    const auto emUso = tbLinha.IsEmpty() ? "A linha foi excluída por outro usuário." : check.InUse(Valores());
    if (!emUso.empty())
        return Mensagem(emUso);
    if (!Pergunta("Excluir de " + std::string(tabela_.caption) + ": " + check.KeyText(Valores()) + "?"))
        return;
    const auto texto = TextoDoLog();
    const auto lugar = QryLinhas.RecNo();
    WriteWhole(Database(), [&] {
        Registra(texto, TOperacaoLog::Exclusao, Valores());
        tbLinha.Delete();
    });
    Procura();
    QryLinhas.GoToRow(std::min(lugar, QryLinhas.RecordCount()) - (QryLinhas.IsEmpty() ? 0 : 1));
}

// What the log tells

std::string TfmTabela::Modulo() const { return "TABELA " + UpperCase(tabela_.caption); }

/// The columns that changed, or of a row that comes or goes all that hold something.
std::string TfmTabela::TextoDoLog() const
{
    const auto estado = tbLinha.State();
    std::string colunas;
    for (const auto& campo : Campos) {
        const auto& coluna = campo->Column();
        const auto& valor = campo->Field();
        if (estado == TDataSetState::Edit ? valor.Value() == valor.OldValue() : valor.Value().IsEmpty())
            continue;
        colunas += (colunas.empty() ? " " : ", ")
            + (estado == TDataSetState::Edit ? ChangeOf(coluna, valor)
                                             : std::string(coluna.caption) + " " + ShownValue(valor.Value()));
    }
    const std::string_view operacao = estado == TDataSetState::Edit ? "ALTERACAO"
        : estado == TDataSetState::Insert                           ? "INCLUSAO"
                                                                    : "EXCLUSAO";
    const auto chave = estado == TDataSetState::Edit ? " " + TRowCheck(Database(), tabela_).KeyValues(Valores()) : "";
    return Left(std::string(operacao) + " " + UpperCase(tabela_.caption) + chave + ":" + colunas, longestLog);
}

void TfmTabela::Registra(const std::string& texto, TOperacaoLog operacao, const TRowValues& linha)
{
    GeraLog(Modulo(), texto, operacao, Left(Check().KeyValues(linha), longestKey));
}

void TfmTabela::BtnLogClick()
{
    Funcoes().AcessaLog(*this, Modulo(), QryLinhas.IsEmpty() ? "" : Left(Check().KeyValues(Valores()), longestKey));
}

void TfmTabela::BtnCadastroClick()
{
    if (!Funcoes().Acessa(*this, tabela_.screen, TDireito::Consulta, TNivel::Usuario))
        return;
    if (auto* tela = Carrega_Form(tabela_.screen))
        tela->Show();
}

void TfmTabela::BtSaidaClick() { Close(); }

void RegisterTableScreens(TApplication& application)
{
    for (const auto& table : Tables()) {
        if (table.keeper == TKeeper::System)
            continue;
        application.RegisterForm(TableScreen(table), [&table](TApplication& maker) -> std::unique_ptr<TForm> {
            return std::make_unique<TfmTabela>(maker, table);
        });
    }
}

} // namespace alinhavo
