#pragma once

#include "forms/TDateTime.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A session that has not ended, as a supervisor sees it.
struct TConectado {
    std::string id;
    std::string usuario; ///< code
    std::string nome;
    TDateTime desde;
    TDateTime ultimoUso;
    TDateTime pendenteDesde = {}; ///< blank: everything that was written is committed
    std::vector<std::string> telas = {}; ///< captions of the open screens
    bool navegadorAberto = false;
    bool propria = false; ///< the one that asks
};

/// Who is at work in the same server.
class TConectados {
public:
    virtual ~TConectados() = default;
    virtual std::vector<TConectado> Lista() const = 0;
    /// Now, by the clock that the hours in the list are of.
    virtual TDateTime Agora() const = 0;
    /// Ends the session and undoes what it has not committed; its user is told `motivo`. False when there is none, and for the
    /// one that asks.
    virtual bool Encerra(std::string_view id, std::string_view motivo) = 0;
};

} // namespace alinhavo
