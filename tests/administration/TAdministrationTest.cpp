#include "TAdministrationTest.h"

#include "platform/services/TEmptyDatabase.h"

namespace alinhavo {

void TAdministrationTest::SetUp()
{
    TDatabaseTest::SetUp();
    if (IsSkipped())
        return;
    FillEmptyDatabase(*db);
    const auto add = [&](const char* name, const char* supervisor, const char* password) {
        db->ExecSQL(TStatement(R"(
            INSERT INTO ACESSO_USUARIOS (CODIGO, NOME, TIPO, SUPERVISOR, BLOQUEADO, SENHA)
            VALUES (?, ?, '0', ?, 'N', ?))",
            name, name, supervisor, passwords_.Hash(password)));
    };
    add("ANA", "N", PasswordOfAna);
    add("MARIA", "S", PasswordOfMaria);
    db->CommitRetaining();

    preferencesDatabase_ = Connect();
    preferences_ = std::make_unique<TPreferences>(*preferencesDatabase_);
    services_ = std::make_unique<TSessionServices>(TSessionSetup{
        .database = *db,
        .preferences = *preferences_,
        .configuration = configuration_,
        .user = {.code = "ANA", .name = "ANA"},
        .company = "01",
        .passwords = passwords_,
        .openDatabase = [this](const std::string&) { return Connect(); },
        .connected = &connected,
    });
    app = std::make_unique<TOrvApplication>(user, services_->Services(), &user);
}

void TAdministrationTest::TearDown()
{
    app.reset();
    services_.reset();
    preferences_.reset();
    preferencesDatabase_.reset();
    TDatabaseTest::TearDown();
}

bool TAdministrationTest::IsPassword(const char* name, std::string_view password)
{
    return passwords_.Matches(Cell("SELECT SENHA FROM ACESSO_USUARIOS WHERE CODIGO = ?", name), password);
}

std::string TAdministrationTest::Log()
{
    std::string log;
    const auto lines = db->Open({"SELECT MODULO, CHAVE, USUARIO, TEXTO FROM {GERALOG} ORDER BY IDENTIFICADOR"});
    for (std::size_t row = 0; row < lines.RowCount(); ++row) {
        for (std::size_t column = 0; column < 4; ++column)
            log.append(lines.Column(column).Text(row)).append(column < 3 ? "|" : "\n");
    }
    return log;
}

} // namespace alinhavo
