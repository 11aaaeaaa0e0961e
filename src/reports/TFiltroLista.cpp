#include "reports/TFiltroLista.h"

#include <utility>

namespace alinhavo {

TFiltroLista::TFiltroLista(TContainer& parent, std::string name, TFiltroListaOptions options)
    : TEdit(parent, name, {.caption = options.caption, .lookup = true})
    , Pesquisa(dynamic_cast<TOrvForm&>(parent.Form()), options.pesquisa.empty() ? "Pq" + name : options.pesquisa,
          {.BuscaTabela = options.tabela, .BuscaCampo = options.campo, .MultiSelecao = true})
    , Limpa(parent, options.limpa.empty() ? "Limpa" + name : options.limpa,
          {.caption = "Limpar", .hint = "Limpa o filtro " + options.caption, .takesFocus = false, .tabStop = false})
    , campo_(options.campo)
{
    OnKeyDown.connect(this, &TFiltroLista::KeyDown);
    Pesquisa.OnFechaPesquisa.connect(this, &TFiltroLista::FechaPesquisa);
    Limpa.OnClick.connect(this, &TFiltroLista::LimpaClick);
}

std::string TFiltroLista::Descricao() const { return empty() ? std::string() : PlainCaption() + ": " + text(); }

void TFiltroLista::KeyDown(TKey& key)
{
    if (key.name != "F4" && key.name != "F5")
        return;
    key.Swallow();
    Pesquisa.AbrePesquisa();
}

void TFiltroLista::FechaPesquisa()
{
    const auto code = Aspas(Pesquisa.RetornoPesquisa(campo_).AsString());
    SetText(empty() ? code : text() + "," + code);
}

void TFiltroLista::LimpaClick() { Clear(); }

} // namespace alinhavo
