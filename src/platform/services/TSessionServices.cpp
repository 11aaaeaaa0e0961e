#include "platform/services/TSessionServices.h"

namespace alinhavo {

TSessionServices::TSessionServices(TSessionSetup setup)
    : setup_(std::move(setup))
    , settings_(setup_.preferences, setup_.user.code)
    , tabela_(setup_.database, setup_.company)
    , functions_(setup_.database, settings_, setup_.configuration, setup_.user, setup_.passwords, Guard())
    , passwords_(setup_.database, setup_.passwords, Guard(), setup_.user.code)
    , accounting_(setup_.database)
    , stock_(setup_.database, setup_.user.name)
    , outbox_(setup_.database, setup_.user.code)
    , reader_(settings_, setup_.configuration)
    , weighing_(setup_.configuration.Value("Pesagem", "banco"), setup_.openDatabase)
{
}

THostServices TSessionServices::Services()
{
    return {
        .database = setup_.database,
        .tabela = tabela_,
        .funcoes = functions_,
        .contabil = accounting_,
        .stock = stock_,
        .reports = setup_.reports ? *setup_.reports : noReports_,
        .email = outbox_,
        .rfid = setup_.rfid ? *setup_.rfid : reader_,
        .mdados = weighing_,
        .senhas = passwords_,
        .conectados = setup_.connected ? *setup_.connected : nobody_,
    };
}

} // namespace alinhavo
