#pragma once

#include <span>
#include <string>
#include <string_view>

namespace alinhavo {

/// What may stand in a parameter besides the values that are listed for it.
enum class TValorLivre { Nenhum, Inteiro, Cliente };

/// A value with a meaning of its own.
struct TOpcaoParametro {
    std::string_view valor;
    std::string_view significado;
};

/// A parameter of the module, for the people who set it.
struct TParametroDecl {
    std::string_view grupo;
    int numero;
    std::string_view titulo;
    std::string_view significado; ///< in whole sentences
    std::string_view telas; ///< that read it
    std::span<const TOpcaoParametro> opcoes;
    TValorLivre livre = TValorLivre::Nenhum;
    std::string_view semValor = "Desligado"; ///< what holds while it has no value
};

/// All of them, by group and number.
std::span<const TParametroDecl> Parametros();

/// Null when there is none.
const TParametroDecl* BuscaDeclaracao(std::string_view grupo, int numero);

/// "FAC20".
std::string NomeDoParametro(const TParametroDecl& parametro);

/// What the value means; the value itself where it has no meaning of its own.
std::string SignificadoDoValor(const TParametroDecl& parametro, std::string_view valor);

} // namespace alinhavo
