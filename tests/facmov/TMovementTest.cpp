#include "TMovementTest.h"

#include "platform/services/TEmptyDatabase.h"

#include <array>

namespace alinhavo {

void TMovementTest::SetUp()
{
    TDatabaseTest::SetUp();
    if (!db)
        return;
    FillEmptyDatabase(*db);
    constexpr std::array<std::array<std::string_view, 2>, 4> sectors{
        {{"10", "Corte"}, {"20", "Costura"}, {"30", "Acabamento"}, {"40", "Expedição"}}};
    for (const auto& [code, name] : sectors)
        Write({"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES (?, ?, 1, 1, 7)", code,
            name});
    for (const std::string_view part : {"01", "02"})
        Write(
            {"INSERT INTO {TIPO_APL} (CODIGO, DESCRICAO, ESTOQUE, BAIXA, ATUALIZA) VALUES (?, 'Parte', 'N', 'N', 'N')",
                part});
    for (const std::string_view flow : {"F01", "F02"})
        Write({"INSERT INTO {ROTEIRO} (CODIGO, DESCRICAO, BAIXALIVRE) VALUES (?, 'Fluxo', 'N')", flow});
    for (const std::string_view size : {"P", "M", "G"})
        Write({"INSERT INTO {TABTAM} (TAM, ACRESCIMO) VALUES (?, 1)", size});
    for (const std::string_view colour : {"000001", "000009"})
        Write({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, ?)", colour, colour});
    for (const std::string_view client : {"00001", "00010"})
        Write({"INSERT INTO {ENTIDADE} (CODCLI, NOME, BLOQUEIO) VALUES (?, ?, 'N')", client, client});
    for (const std::string_view warehouse : {"01", "08"})
        Write({"INSERT INTO {DEPOSITO} (CODIGO, DESCRICAO, PRIORIDADE) VALUES (?, 'Depósito', ?)", warehouse,
            warehouse.substr(1)});
    Write({"INSERT INTO {TABQUL} (CODIGO, DESCRICAO) VALUES ('1', 'Primeira')"});
    Write({"INSERT INTO {TABBAI} (CODIGO, DESCRICAO, TIPO, TIPO_ESTOQUE) VALUES ('050', 'Entrada', 'E', 5)"});
    Write({"INSERT INTO {TABBAI} (CODIGO, DESCRICAO, TIPO, TIPO_ESTOQUE) VALUES ('140', 'Saída', 'S', 14)"});
    Write({"INSERT INTO {PRODUTO} (CODIGO, DESCRICAO, ESTOQUE, ATIVO) VALUES ('CAM01', 'Camisa', 'S', 'S')"});
    SetParameter("FAC", 20, "N");
    SetParameter("FAC", 80, "00001");
    SetParameter("FAC", 240, "N");

    screens_ = Connect({.company = "01"});
    preferences_ = std::make_unique<TPreferences>(*db);
    session = std::make_unique<TSession>(clerk, nullptr,
        TSessionSetup{.database = *screens_,
            .preferences = *preferences_,
            .configuration = configuration_,
            .user = *FindUser(*db, "ADMIN"),
            .company = "01",
            .passwords = passwords_,
            .openDatabase = {}});
    session->RegisterForm(
        "TfmFacMov", [](TApplication& application) { return std::make_unique<TfmFacMov>(application); });
    clerk.Uses(*session);
}

void TMovementTest::TearDown()
{
    session.reset();
    screens_.reset();
    TDatabaseTest::TearDown();
}

void TMovementTest::Write(const TStatement& statement)
{
    db->ExecSQL(statement);
    db->CommitRetaining();
}

void TMovementTest::SetParameter(std::string_view group, int number, std::string_view value)
{
    db->ExecSQL({"DELETE FROM {PARAMETRO} WHERE GRUPO = ? AND NUMERO = ?", group, number});
    Write({"INSERT INTO {PARAMETRO} (GRUPO, NUMERO, VALOR) VALUES (?, ?, ?)", group, number, value});
}

double TMovementTest::Number(const TStatement& statement)
{
    const TTableData rows = db->Open(statement);
    return rows.RowCount() == 0 ? 0 : rows.Column(0).Value(0).AsFloat();
}

TfmFacMov& TMovementTest::Screen() { return dynamic_cast<TfmFacMov&>(*session->FindFormByClass("TfmFacMov")); }

} // namespace alinhavo
