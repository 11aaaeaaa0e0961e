#include "app/demo/TDemoFactory.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/services/THashedPasswords.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

struct TAccount {
    std::string_view name;
    std::string_view role;
    std::string_view kind; ///< ACESSO_USUARIOS.TIPO: "0" is asked for a supervisor's password on quantities
    bool supervisor;
    std::string_view employee;
    std::string_view changes; ///< menu levels, separated by commas; a heading stands for all below it
    std::string_view consults;
    std::string_view warehouse = {};
};

constexpr std::string_view everything = "01,02,03,04,05,06,09,20,21,22,23,24,25,26,27,28,29,30,31,32,33";
constexpr std::string_view productionAndTables = "01,02,03,04,05,06,20,21,22,23,24,25,26,27,28,29,30,31,32,33";
constexpr std::string_view productionTablesAndLog
    = "01,02,03,04,05,06,09.03,09.04,20,21,22,23,24,25,26,27,28,29,30,31,32,33";
constexpr std::string_view ownPassword = "09.05"; ///< everybody's

constexpr auto accounts = std::to_array<TAccount>({
    {"ADMIN", "administrador, com todos os direitos", "1", true, {}, everything, everything},
    {"ANA", "apontadora da produção", "0", false, "00000001", "01,02", "01,02,03,05,06", "01"},
    {"BRUNO", "apontador do corte, só nos setores 01 e 02", "0", false, "00000005", "01", "01,02,05", {}},
    {"MARIA", "supervisora da produção", "1", true, "00000002", "01,02,03,05,06,20,21,22,23,24,25",
        productionTablesAndLog, "01"},
    {"JOAO", "inspetor de qualidade", "0", false, "00000003", "03", "01,03,05", {}},
    {"CELIA", "pagadora das facções", "0", false, "00000004", "04,02.01", "02,04,05", {}},
    {"DIRCEU", "costura na facção Irmãs Zancanaro e só vê o que está lá", "0", false, "00000900", "01.01",
        "01.01,05.01", {}},
    {"PAULO", "consulta da diretoria", "0", false, "00000006", {}, productionAndTables, {}},
});

constexpr std::string_view workshopOfDirceu = "00106";

bool Covers(std::string_view levels, std::string_view level)
{
    while (!levels.empty()) {
        const std::size_t comma = std::min(levels.find(','), levels.size());
        const std::string_view one = levels.substr(0, comma);
        if (level == one || (level.starts_with(one) && level[one.size()] == '.'))
            return true;
        levels.remove_prefix(std::min(comma + 1, levels.size()));
    }
    return false;
}

std::string_view Right(bool held) { return held ? "Sim" : "Não"; }

} // namespace

const std::vector<TDemoUser>& TDemoFactory::Users()
{
    static const std::vector<TDemoUser> users = [] {
        std::vector<TDemoUser> list;
        for (const TAccount& account : accounts)
            list.push_back({account.name, account.role});
        return list;
    }();
    return users;
}

void TDemoFactory::FillUsers()
{
    TTableWriter(database_, "PESSOAL", "CODIGO,NOME,CODCLI,TEMPO_DIARIO")
        .Row({"00000900", "Dirceu Zancanaro", workshopOfDirceu, 528});

    // All have the same password, so that one slow hash serves them all.
    const std::string password = THashedPasswords().Hash(Password);
    TTableWriter rows(database_, "ACESSO_USUARIOS", "CODIGO,NOME,SENHA,TIPO,SUPERVISOR,BLOQUEADO,CODFUN");
    TTableWriter warehouses(database_, "VENDA_CAIXA", "USUARIO,DEPOSITO");
    for (const TAccount& account : accounts) {
        rows.Row({account.name, account.name, password, account.kind, account.supervisor ? "S" : "N", "N",
            account.employee.empty() ? TValue() : TValue(account.employee)});
        if (!account.warehouse.empty())
            warehouses.Row({account.name, account.warehouse});
    }

    TTableWriter sectors(database_, "ACESSO_SETOR", "TIPO,CODIGO,SETOR");
    sectors.Row({"F", "00000005", "01"});
    sectors.Row({"F", "00000005", "02"});
}

/// The menu and what each user may do at each of its entries.
void TDemoFactory::FillRights()
{
    WriteScreenMenu(database_);
    const TTableData menu = database_.Open({"SELECT NIVEL FROM {ACESSO_MENU} ORDER BY NIVEL"});
    TTableWriter rows(database_, "ACESSO", "USUARIO,LOCAL,ALTERA,EXCLUI,CONSULTA");
    for (const TAccount& account : accounts) {
        for (std::size_t row = 0; row < menu.RowCount(); ++row) {
            const std::string_view level = menu.Column(0).Text(row);
            const bool changes = Covers(account.changes, level);
            const bool deletes = changes && (account.supervisor || account.name == "ANA");
            rows.Row({account.name, level, Right(changes), Right(deletes),
                Right(changes || level == ownPassword || Covers(account.consults, level))});
        }
    }
}

} // namespace alinhavo
