#include "administration/TfmParametros.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "host/WriteWhole.h"

#include <algorithm>
#include <cctype>

namespace alinhavo {
namespace {

constexpr std::string_view Modulo = "PARAMETROS";
constexpr std::string_view SemValor = "(sem valor)";

std::string Item(const TOpcaoParametro& opcao)
{
    return std::string(opcao.valor) + " |" + std::string(opcao.significado);
}

std::string ItemSemValor(const TParametroDecl& parametro)
{
    return std::string(SemValor) + " |" + std::string(parametro.semValor);
}

bool Contem(std::string_view texto, std::string_view parte)
{
    return UpperCase(texto).find(UpperCase(parte)) != std::string::npos;
}

bool Menciona(const TParametroDecl& parametro, const std::string& procura)
{
    return Contem(NomeDoParametro(parametro), procura) || Contem(parametro.titulo, procura)
        || Contem(parametro.significado, procura);
}

bool TemOpcao(const TParametroDecl& parametro, std::string_view valor)
{
    return std::ranges::find(parametro.opcoes, valor, &TOpcaoParametro::valor) != parametro.opcoes.end();
}

/// Digits alone: a sign or blanks would be read by one screen and not by another.
bool NumeroInteiro(std::string_view texto)
{
    return !texto.empty() && texto.size() <= 9
        && std::ranges::all_of(texto, [](unsigned char c) { return std::isdigit(c) != 0; });
}

std::string Permitidos(const TParametroDecl& parametro)
{
    std::string lista;
    for (const auto& opcao : parametro.opcoes)
        lista.append(lista.empty() ? "" : ", ").append(opcao.valor);
    return lista;
}

} // namespace

TfmParametros::TfmParametros(TApplication& application)
    : TOrvForm(application, Class, "Parâmetros")
{
    btnAlterar.OnClick.connect(this, &TfmParametros::btnAlterarClick);
    btnLog.OnClick.connect(this, &TfmParametros::btnLogClick);
    btnFechar.OnClick.connect(this, &TfmParametros::btnFecharClick);
    btnConfirmar.OnClick.connect(this, &TfmParametros::btnConfirmarClick);
    btnDesistir.OnClick.connect(this, &TfmParametros::btnDesistirClick);
    edtProcura.OnChange.connect(this, &TfmParametros::edtProcuraChange);
    dbgParametros.OnDoubleClick.connect(this, &TfmParametros::btnAlterarClick);
    edtValor.OnChange.connect(this, &TfmParametros::edtValorChange);
    edtValor.OnKeyDown.connect(this, &TfmParametros::edtValorKeyDown);
    chkLeitura.OnClick.connect(this, &TfmParametros::chkLeituraClick);
    PqCliente.OnFechaPesquisa.connect(this, &TfmParametros::PqClienteFechaPesquisa);
    TbParametros.AfterScroll.connect(this, &TfmParametros::TbParametrosAfterScroll);

    pnlMinhas.SetCaption("Preferências de " + Funcoes().vUsuario());
    chkLeitura.SetCheckedQuietly(Funcoes().LeAjuste("Parametros", "CodBarLeitAut", "S") != "N");
    Carrega();
    dbgParametros.SetFocus();
}

const TParametroDecl* TfmParametros::Atual() const
{
    return TbParametros.IsEmpty()
        ? nullptr
        : BuscaDeclaracao(TbParametros.Grupo.value(), static_cast<int>(TbParametros.Numero.value()));
}

/// Stays on the parameter where it stands, if the search leaves it.
void TfmParametros::Carrega()
{
    const auto antes = TbParametros.Parametro.AsString();
    {
        const auto quieto = TbParametros.DisableControls();
        TbParametros.EmptyTable();
        for (const auto& parametro : Parametros()) {
            if (!Menciona(parametro, edtProcura.text()))
                continue;
            const auto valor = BuscaParametro(parametro.grupo, parametro.numero);
            TbParametros.Append();
            TbParametros.Parametro = NomeDoParametro(parametro);
            TbParametros.Grupo = parametro.grupo;
            TbParametros.Numero = parametro.numero;
            TbParametros.Titulo = parametro.titulo;
            TbParametros.Valor = valor;
            TbParametros.Significado = Significado(parametro, valor);
            TbParametros.Post();
        }
        if (!TbParametros.Locate("Parametro", {antes}))
            TbParametros.First();
    }
    Mostra();
}

/// A client is told by his name.
std::string TfmParametros::Significado(const TParametroDecl& parametro, const std::string& valor)
{
    const auto nome = parametro.livre == TValorLivre::Cliente ? NomeDoCliente(valor) : std::string();
    return nome.empty() ? SignificadoDoValor(parametro, valor) : nome;
}

std::string TfmParametros::NomeDoCliente(const std::string& codigo)
{
    return codigo.empty() ? std::string() : Busca_Valor("ENTIDADE", "CODCLI", "NOME", Aspas(codigo)).AsString();
}

void TfmParametros::TbParametrosAfterScroll() { Mostra(); }

void TfmParametros::Mostra()
{
    const auto* parametro = Atual();
    btnAlterar.SetEnabled(parametro != nullptr);
    pnlParametro.SetVisible(parametro != nullptr);
    if (!parametro)
        return;
    pnlParametro.SetCaption(NomeDoParametro(*parametro) + " – " + std::string(parametro->titulo));
    mmSignificado.SetText(parametro->significado);
    lblTelas.SetCaption("Usado em: " + std::string(parametro->telas));
    const bool lista = parametro->livre == TValorLivre::Nenhum;
    cbValor.SetVisible(lista);
    edtValor.SetVisible(!lista);
    edtNome.SetVisible(parametro->livre == TValorLivre::Cliente);
    EscreveValor(TbParametros.Valor.value());
}

/// A value that no item stands for is shown as it is.
void TfmParametros::EscreveValor(const std::string& valor)
{
    const auto& parametro = *Atual();
    edtValor.SetText(valor);
    std::vector<std::string> itens{ItemSemValor(parametro)};
    for (const auto& opcao : parametro.opcoes)
        itens.push_back(Item(opcao));
    cbValor.SetItems(std::move(itens));
    if (valor.empty())
        cbValor.SetItemIndex(0);
    else if (const auto item = cbValor.IndexOfPrefix(valor + " |"); item >= 0)
        cbValor.SetItemIndex(item);
    else
        cbValor.SetText(valor);
}

std::string TfmParametros::ValorNaTela() const
{
    if (edtValor.Visible())
        return Trim(edtValor.text());
    if (cbValor.ItemIndex() <= 0)
        return cbValor.ItemIndex() == 0 ? std::string() : cbValor.text();
    return std::string(Atual()->opcoes[static_cast<std::size_t>(cbValor.ItemIndex() - 1)].valor);
}

void TfmParametros::btnAlterarClick()
{
    if (!Acessa(TDireito::Altera))
        return;
    Carrega();
    if (Atual())
        AbreValor();
}

void TfmParametros::AbreValor()
{
    pnlControle.SetVisible(false);
    pnlConfirma.SetVisible(true);
    cbValor.SetReadOnly(false);
    edtValor.SetReadOnly(false);
    if (edtValor.Visible())
        edtValor.SetFocus();
    else
        cbValor.SetFocus();
    edtProcura.SetEnabled(false);
    dbgParametros.SetEnabled(false);
}

void TfmParametros::FechaValor()
{
    edtProcura.SetEnabled(true);
    dbgParametros.SetEnabled(true);
    dbgParametros.SetFocus();
    cbValor.SetReadOnly(true);
    edtValor.SetReadOnly(true);
    pnlConfirma.SetVisible(false);
    pnlControle.SetVisible(true);
    Carrega();
}

void TfmParametros::btnConfirmarClick()
{
    const auto& parametro = *Atual();
    const auto valor = ValorNaTela();
    if (!Confere(parametro, valor))
        return;
    if (valor != TbParametros.Valor.value())
        Grava(parametro, valor);
    FechaValor();
}

bool TfmParametros::Confere(const TParametroDecl& parametro, const std::string& valor)
{
    if (valor.empty() || TemOpcao(parametro, valor))
        return true;
    switch (parametro.livre) {
    case TValorLivre::Nenhum:
        return Recusa("O valor \"" + valor + "\" não tem significado. Escolha um da lista.", cbValor), false;
    case TValorLivre::Inteiro:
        if (!NumeroInteiro(valor))
            return Recusa("Informe um número inteiro ou " + Permitidos(parametro) + ".", edtValor), false;
        return true;
    case TValorLivre::Cliente:
        if (!Existe("ENTIDADE", "CODCLI", Aspas(valor)))
            return Recusa("Cliente não encontrado.", edtValor), false;
        return true;
    }
    return false;
}

/// The log tells what was there when it was written over, which may be another user's value.
void TfmParametros::Grava(const TParametroDecl& parametro, const std::string& valor)
{
    const auto nome = NomeDoParametro(parametro);
    const auto antes = BuscaParametro(parametro.grupo, parametro.numero);
    WriteWhole(Database(), [&] {
        if (Executa("UPDATE {PARAMETRO} SET VALOR = ?, DESCRICAO = ? WHERE GRUPO = ? AND NUMERO = ?", valor,
                parametro.titulo, parametro.grupo, parametro.numero)
            == 0)
            Executa("INSERT INTO {PARAMETRO} (GRUPO, NUMERO, DESCRICAO, VALOR) VALUES (?, ?, ?, ?)", parametro.grupo,
                parametro.numero, parametro.titulo, valor);
        GeraLog(Modulo,
            "Parâmetro " + nome + " (" + std::string(parametro.titulo) + "): de \"" + antes + "\" para \"" + valor
                + "\"",
            TOperacaoLog::Alteracao, nome);
    });
}

void TfmParametros::btnDesistirClick() { FechaValor(); }

void TfmParametros::btnLogClick()
{
    const auto* parametro = Atual();
    Funcoes().AcessaLog(*this, Modulo, parametro ? NomeDoParametro(*parametro) : std::string());
}

void TfmParametros::btnFecharClick() { Close(); }

void TfmParametros::edtProcuraChange() { Carrega(); }

void TfmParametros::edtValorChange()
{
    if (edtNome.Visible())
        edtNome.SetText(NomeDoCliente(Trim(edtValor.text())));
}

void TfmParametros::edtValorKeyDown(TKey& key)
{
    if ((key.name != "F4" && key.name != "F5") || !edtNome.Visible() || edtValor.ReadOnly())
        return;
    key.Swallow();
    PqCliente.AbrePesquisa();
}

void TfmParametros::PqClienteFechaPesquisa() { edtValor.SetText(PqCliente.RetornoPesquisa("CODCLI").AsString()); }

void TfmParametros::chkLeituraClick()
{
    Funcoes().GravaAjuste("Parametros", "CodBarLeitAut", chkLeitura.Checked() ? "S" : "N");
}

} // namespace alinhavo
