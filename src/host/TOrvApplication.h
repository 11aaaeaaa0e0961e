#pragma once

#include "forms/TApplication.h"
#include "host/TConectados.h"
#include "host/TContabil.h"
#include "host/TEstoque.h"
#include "host/TFuncoes.h"
#include "host/TMDados.h"
#include "host/TOrvEmail.h"
#include "host/TOrvRFID.h"
#include "host/TprReport.h"
#include "host/TSenhas.h"
#include "host/TTabela.h"

namespace alinhavo {

/// The host's services, as a user's application sees them.
struct THostServices {
    TOrvDatabase& database;
    TTabela& tabela;
    TFuncoes& funcoes;
    TContabil& contabil;
    IStock& stock;
    IReports& reports;
    TOrvEmail& email;
    TOrvRFID& rfid;
    TMDados& mdados;
    TSenhas& senhas;
    TConectados& conectados;
};

/// A user's application within the host. The host's own screens are registered with it.
class TOrvApplication : public TApplication {
public:
    TOrvApplication(IEventSource& source, THostServices services, IView* view = nullptr);

    THostServices Host;

    /// Sets the day of statements, too.
    void SetNow(TDateTime now) override;
};

} // namespace alinhavo
