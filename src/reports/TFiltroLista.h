#pragma once

#include "forms/TButton.h"
#include "forms/TEdit.h"
#include "host/TOrvForm.h"
#include "host/TPesquisa.h"

#include <string>
#include <string_view>

namespace alinhavo {

struct TFiltroListaOptions {
    std::string caption = {};
    std::string_view tabela = {}; ///< searched by F4
    std::string_view campo = {}; ///< the column whose codes are picked
    std::string pesquisa = {}; ///< name of its lookup; empty: "Pq" and the field's own name
    std::string limpa = {}; ///< name of the button that empties it; empty: "Limpa" and the field's own name
};

/// A filter of a report: a list of quoted codes. F4 or F5 opens its lookup, each pick is appended behind a comma, and the
/// button beside it empties it.
class TFiltroLista : public TEdit {
public:
    TFiltroLista(TContainer& parent, std::string name, TFiltroListaOptions options);

    /// For "column IN (?)": EDatabaseError (Syntax) when what a person typed is no such list.
    TLiteralList Lista() const { return TLiteralList(text()); }
    /// "Setor: '20','30'"; "" when nothing is chosen.
    std::string Descricao() const;

    TPesquisa Pesquisa;
    TButton Limpa;

private:
    void KeyDown(TKey& key);
    void FechaPesquisa();
    void LimpaClick();

    std::string campo_;
};

} // namespace alinhavo
