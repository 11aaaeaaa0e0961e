#pragma once

#include "forms/TDateTime.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

class TMemTable;

/// What the movement screen asks of the screen that consumes an order's materials. It reports success by setting the
/// movement screen's ModalResult to Ok.
class IConsumptionScreen {
public:
    virtual ~IConsumptionScreen() = default;
    virtual void SetOrder(std::string_view numero) = 0;
    /// `lines` is the grid of the movement: what leaves the sector, by colour and size.
    virtual void InicializaSetor(std::string_view produto, std::string_view parte, TMemTable& lines) = 0;
    /// The materials of one position; `mov` is empty for one without a batch.
    virtual void Inicializa(std::string_view produto, std::string_view numero, std::string_view setor,
        std::string_view parte, std::string_view mov)
        = 0;
};

/// Where pieces of an order stand.
struct TOrderPosition {
    std::string numero = {};
    std::string setor = {};
    std::string parte = {};
    std::string codcli = {};
    std::string mov = {}; ///< empty: no batch
};

/// What the consultation asks of the screen of packets (TfmCadPacote).
class IPacketScreen {
public:
    virtual ~IPacketScreen() = default;
    virtual void Inicializa(std::string_view numero, std::string_view setor, std::string_view parte) = 0;
};

/// What the consultation asks of the sheets of a position: that of its dispatch (TfmRelFaccao01) and that of its cut
/// (TfmRelFacCorte). The sheet fills its fields as if the user had, and leaves each of them.
class IPositionSheet {
public:
    virtual ~IPositionSheet() = default;
    virtual void MostraPosicao(const TOrderPosition& posicao) = 0;
};

/// Pieces that leave a sector as second quality or incomplete, to be explained by an inspection.
struct TInspectionDefect {
    std::string mov;
    std::string parte;
    TDateTime data;
    std::string cor;
    std::string tam;
    double quant = 0;
    std::string setor;
};

/// What the movement screen asks of the inspection screen: a new entry on its second tab, a line for each defect.
class IInspectionScreen {
public:
    virtual ~IInspectionScreen() = default;
    virtual void LancaDefeitos(std::string_view numero, std::string_view faccao, std::string_view produto,
        const std::vector<TInspectionDefect>& defects)
        = 0;
};

/// What other screens ask of the movement screen.
class IMovementScreen {
public:
    virtual ~IMovementScreen() = default;
    /// Warehouse and movement type that rejected goods enter with.
    virtual void DefineReprovados(std::string_view deposito, std::string_view tipoMovimento) = 0;
};

} // namespace alinhavo
