#pragma once

#include "host/TOrvApplication.h"
#include "platform/services/TAccounting.h"
#include "platform/services/THostFunctions.h"
#include "platform/services/TLoginGuard.h"
#include "platform/services/TNobodyConnected.h"
#include "platform/services/TOutbox.h"
#include "platform/services/TReportsNotInstalled.h"
#include "platform/services/TRfidReader.h"
#include "platform/services/TStock.h"
#include "platform/services/TUserPasswords.h"
#include "platform/services/TWeighing.h"

namespace alinhavo {

/// What a session's services stand on. All that is referred to outlives the session.
struct TSessionSetup {
    TOrvDatabase& database; ///< the screens' connection, with their one transaction
    TPreferences& preferences;
    const TConfiguration& configuration;
    TSessionUser user;
    std::string company; ///< EMPRESA.EMP_PAT
    const IPasswords& passwords;
    TDatabaseOpener openDatabase; ///< of the weighing system (section "Pesagem", key "banco")
    TOrvRFID* rfid = nullptr; ///< in place of the reader service
    IReports* reports = nullptr; ///< null: there is no report engine
    TConectados* connected = nullptr; ///< null: the session stands alone
    TLoginGuard* guard = nullptr; ///< against guessed passwords; null: one of the session alone
};

/// All that stands behind the host's interfaces in one user's session.
class TSessionServices {
public:
    explicit TSessionServices(TSessionSetup setup);

    THostServices Services();

    TTabela& Tabela() { return tabela_; }
    THostFunctions& Functions() { return functions_; }
    /// The last report asked for where there is no report engine; "" when none was.
    const std::string& LastReportRefused() const { return noReports_.LastLayout(); }

private:
    TLoginGuard& Guard() { return setup_.guard ? *setup_.guard : ownGuard_; }

    TSessionSetup setup_;
    TLoginGuard ownGuard_;
    TNobodyConnected nobody_;
    TUserSettings settings_;
    TTabela tabela_;
    THostFunctions functions_;
    TUserPasswords passwords_;
    TAccounting accounting_;
    TStock stock_;
    TOutbox outbox_;
    TRfidReader reader_;
    TWeighing weighing_;
    TReportsNotInstalled noReports_;
};

} // namespace alinhavo
