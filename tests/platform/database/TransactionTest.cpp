#include "TDatabaseTest.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace alinhavo {
namespace {

using enum TDatabaseErrorKind;
using namespace std::chrono_literals;

class Transaction : public TDatabaseTest {
protected:
    static void AddSector(TSqlDatabase& database, const std::string& code)
    {
        database.ExecSQL({"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES (?, ?)", code, "Setor " + code});
    }
    static std::string Count(TSqlDatabase& database) { return Value(database, {"SELECT COUNT(*) FROM {CADFLUXO}"}); }
};
ON_BOTH_SERVERS(Transaction);

TEST_P(Transaction, WhatIsWrittenIsPendingUntilItIsCommitted)
{
    auto other = Connect();
    EXPECT_FALSE(db->Pending());
    const auto before = std::chrono::steady_clock::now();
    AddSector(*db, "010");
    EXPECT_TRUE(db->Pending());
    EXPECT_GE(db->PendingSince(), before);
    const auto since = db->PendingSince();
    AddSector(*db, "020");
    EXPECT_EQ(db->PendingSince(), since);
    EXPECT_EQ(Count(*db), "2");
    EXPECT_EQ(Count(*other), "0");

    db->CommitRetaining();
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(Count(*other), "2");
    EXPECT_EQ(Count(*db), "2");
}

TEST_P(Transaction, RollingBackTakesAllBack)
{
    AddSector(*db, "010");
    db->CommitRetaining();
    AddSector(*db, "020");
    db->RollbackRetaining();
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(Count(*db), "1");
}

TEST_P(Transaction, ClosingTheConnectionTakesPendingWorkBack)
{
    auto other = Connect();
    AddSector(*other, "010");
    other.reset();
    EXPECT_EQ(Count(*db), "0");
}

TEST_P(Transaction, AWriteThatTouchesNothingLeavesNothingPending)
{
    EXPECT_EQ(db->ExecSQL({"DELETE FROM {CADFLUXO} WHERE CODIGO = ?", "999"}), 0);
    EXPECT_FALSE(db->Pending());
    AddSector(*db, "010");
    EXPECT_EQ(db->ExecSQL({"DELETE FROM {CADFLUXO} WHERE CODIGO = ?", "999"}), 0);
    EXPECT_TRUE(db->Pending());
}

TEST_P(Transaction, AnOpenReadSeesWhatOthersCommit)
{
    auto other = Connect();
    EXPECT_EQ(Count(*other), "0");
    AddSector(*db, "010");
    db->CommitRetaining();
    EXPECT_EQ(Count(*other), "1");
    AddSector(*other, "020");
    AddSector(*db, "030");
    db->CommitRetaining();
    EXPECT_EQ(Count(*other), "3");
}

TEST_P(Transaction, AStatementThatFailsLeavesTheEarlierOnesPending)
{
    AddSector(*db, "010");
    EXPECT_EQ(Refusal(*db, {"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", "010"})->Kind(), Duplicate);
    EXPECT_EQ(Refusal(*db, {"SELEKT"})->Kind(), Syntax);
    EXPECT_EQ(Refusal(*db, {"SELECT NADA FROM {CADFLUXO}"})->Kind(), Syntax);
    AddSector(*db, "020");
    EXPECT_EQ(Refusal(*db, {"SELECT CODIGO FROM NADA"})->Kind(), Syntax);
    EXPECT_EQ(Count(*db), "2");
    AddSector(*db, "030");
    EXPECT_EQ(Refusal(*db, {"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", "030"})->Kind(), Duplicate);
    EXPECT_TRUE(db->Pending());
    db->CommitRetaining();
    EXPECT_EQ(Count(*Connect()), "3");
}

TEST_P(Transaction, AFailureBehindAnyNumberOfStatementsLeavesThemPending)
{
    constexpr int Written = 40;
    for (int sector = 1; sector <= Written; ++sector) {
        AddSector(*db, std::to_string(sector));
        EXPECT_TRUE(Refusal(*db, {"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", "1"})) << sector;
        EXPECT_EQ(Count(*db), std::to_string(sector));
    }
    for (int more = 1; more <= Written; ++more)
        AddSector(*db, "A" + std::to_string(more));
    EXPECT_TRUE(Refusal(*db, {"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", "1"}));
    db->CommitRetaining();
    EXPECT_EQ(Count(*Connect()), std::to_string(2 * Written));
}

TEST_P(Transaction, AFirstStatementThatFailsLeavesNothingPending)
{
    AddSector(*db, "010");
    db->CommitRetaining();
    EXPECT_TRUE(Refusal(*db, {"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", "010"}));
    EXPECT_FALSE(db->Pending());
    EXPECT_TRUE(Refusal(*db, {"SELECT NADA FROM {CADFLUXO}"}));
    EXPECT_EQ(Count(*db), "1");
}

TEST_P(Transaction, AStatementThatFailsHalfWayIsUndoneWhole)
{
    AddSector(*db, "010");
    AddSector(*db, "020");
    EXPECT_EQ(Refusal(*db, {"UPDATE {CADFLUXO} SET DESCRICAO = 'igual'"})->Kind(), Duplicate);
    EXPECT_EQ(Values(*db, {"SELECT DESCRICAO FROM {CADFLUXO} ORDER BY CODIGO"}),
        (std::vector<std::string>{"Setor 010", "Setor 020"}));
}

TEST_P(Transaction, ALockGivesUpAfterTheWaitAndLosesNothing)
{
    AddSector(*db, "010");
    db->CommitRetaining();
    auto other = Connect({.lockWait = 1s});
    AddSector(*other, "020");
    db->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = 1 WHERE CODIGO = '010'"});

    const auto before = std::chrono::steady_clock::now();
    const auto refusal = Refusal(*other, {"UPDATE {CADFLUXO} SET ORDEM = 2 WHERE CODIGO = '010'"});
    const auto waited = std::chrono::steady_clock::now() - before;
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Kind(), Lock);
    EXPECT_EQ(refusal->what(), std::string("Registro em uso por outro usuário. Tente novamente em instantes."));
    EXPECT_GE(waited, 900ms);
    EXPECT_LT(waited, 4s);

    EXPECT_TRUE(other->Pending());
    db->RollbackRetaining();
    other->CommitRetaining();
    EXPECT_EQ(Count(*db), "2");
}

TEST_P(Transaction, ALockWithoutWaitGivesUpAtOnce)
{
    AddSector(*db, "010");
    db->CommitRetaining();
    auto other = Connect({.lockWait = 0s});
    db->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = 1"});
    EXPECT_EQ(Refusal(*other, {"UPDATE {CADFLUXO} SET ORDEM = 2"})->Kind(), Lock);
    EXPECT_FALSE(other->Pending());
}

TEST_P(Transaction, OneWhoWaitsGoesOnWithWhatTheOtherCommitted)
{
    db->ExecSQL({"INSERT INTO {CADFLUXO} (CODIGO, ORDEM) VALUES ('010', 10)"});
    db->CommitRetaining();
    auto other = Connect({.lockWait = 5s});
    db->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = ORDEM + 1"});
    std::thread waiting([&] {
        other->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = ORDEM + 100"});
        other->CommitRetaining();
    });
    std::this_thread::sleep_for(300ms);
    db->CommitRetaining();
    waiting.join();
    EXPECT_EQ(Value(*db, {"SELECT ORDEM FROM {CADFLUXO}"}), "111");
}

TEST_P(Transaction, ReadersWaitForNobody)
{
    AddSector(*db, "010");
    db->CommitRetaining();
    auto other = Connect();
    db->ExecSQL({"UPDATE {CADFLUXO} SET DESCRICAO = 'Outro'"});
    AddSector(*other, "020");
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(Value(*other, {"SELECT DESCRICAO FROM {CADFLUXO} WHERE CODIGO = '010'"}), "Setor 010");
    EXPECT_LT(std::chrono::steady_clock::now() - before, 1s);
}

TEST_P(Transaction, TwoThatWaitForOneAnotherEndWithAMessage)
{
    AddSector(*db, "010");
    AddSector(*db, "020");
    db->CommitRetaining();
    auto other = Connect({.lockWait = 2s});
    auto first = Connect({.lockWait = 2s});
    first->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = 1 WHERE CODIGO = '010'"});
    other->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = 1 WHERE CODIGO = '020'"});
    std::optional<EDatabaseError> refusal;
    std::thread waiting([&] { refusal = Refusal(*first, {"UPDATE {CADFLUXO} SET ORDEM = 2 WHERE CODIGO = '020'"}); });
    const auto otherRefusal = Refusal(*other, {"UPDATE {CADFLUXO} SET ORDEM = 2 WHERE CODIGO = '010'"});
    other->RollbackRetaining();
    waiting.join();
    ASSERT_TRUE(refusal || otherRefusal);
    EXPECT_EQ((refusal ? refusal : otherRefusal)->Kind(), Lock);
    EXPECT_EQ((otherRefusal ? otherRefusal : refusal)->Kind(), Lock);
}

TEST_P(Transaction, ARunningStatementIsCancelledFromOutside)
{
    for (int i = 0; i < 60; ++i)
        AddSector(*db, std::to_string(100 + i));
    std::atomic<bool> done = false;
    std::thread canceller([&] {
        while (!done) {
            std::this_thread::sleep_for(50ms);
            db->Cancel();
        }
    });
    const auto refusal = Refusal(*db,
        {"SELECT COUNT(*) FROM {CADFLUXO} A, {CADFLUXO} B, {CADFLUXO} C, {CADFLUXO} D, {CADFLUXO} E, {CADFLUXO} F"
         " WHERE A.CODIGO < B.CODIGO OR C.CODIGO > F.DESCRICAO"});
    done = true;
    canceller.join();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Kind(), Cancelled);
    EXPECT_TRUE(db->Pending());
    EXPECT_EQ(Count(*db), "60");
}

TEST_P(Transaction, AWaitForALockIsCancelledFromOutside)
{
    AddSector(*db, "010");
    db->CommitRetaining();
    auto other = Connect({.lockWait = 20s});
    db->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = 1"});
    std::thread canceller([&] {
        std::this_thread::sleep_for(300ms);
        other->Cancel();
    });
    const auto before = std::chrono::steady_clock::now();
    const auto refusal = Refusal(*other, {"UPDATE {CADFLUXO} SET ORDEM = 2"});
    canceller.join();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Kind(), Cancelled);
    EXPECT_LT(std::chrono::steady_clock::now() - before, 10s);
}

TEST_P(Transaction, ACancelWithNothingRunningDoesNothing)
{
    db->Cancel();
    EXPECT_EQ(Count(*db), "0");
}

TEST_P(Transaction, ACancelThatComesTooLateDoesNotHitTheNextStatement)
{
    AddSector(*db, "010");
    for (int i = 0; i < 400; ++i) {
        std::thread canceller([&] {
            const auto end = std::chrono::steady_clock::now() + i * 500ns;
            while (std::chrono::steady_clock::now() < end)
                ;
            db->Cancel();
        });
        Refusal(*db, {"UPDATE {CADFLUXO} SET ORDEM = ?", i});
        canceller.join();
        ASSERT_EQ(Count(*db), "1") << "round " << i;
    }
}

TEST_P(Transaction, ManyWhoChangeOneRowAllGetTheirTurn)
{
    db->ExecSQL({"INSERT INTO {CADFLUXO} (CODIGO, ORDEM) VALUES ('010', 0)"});
    db->CommitRetaining();
    std::vector<std::thread> users;
    for (int user = 0; user < 4; ++user)
        users.emplace_back([this] {
            auto own = Connect();
            for (int i = 0; i < 50; ++i) {
                own->ExecSQL({"UPDATE {CADFLUXO} SET ORDEM = ORDEM + 1"});
                own->CommitRetaining();
            }
        });
    for (auto& user : users)
        user.join();
    EXPECT_EQ(Value(*db, {"SELECT ORDEM FROM {CADFLUXO}"}), "200");
}

TEST_P(Transaction, ErrorsNameKindTableAndColumnsAndNeverTheStatement)
{
    AddSector(*db, "010");
    db->ExecSQL({"INSERT INTO {FACCAO} (NUMERO, OP) VALUES ('000123', '010')"});
    struct TCase {
        TStatement statement;
        TDatabaseErrorKind kind;
        std::string text;
        std::string table;
        std::string columns;
    };
    const TCase cases[] = {
        {{"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('011', 'Setor 010')"}, Duplicate,
            "duplicate value in CADFLUXO (DESCRICAO)", "CADFLUXO", "DESCRICAO"},
        {{"INSERT INTO {CADFLUXO} (CODIGO) VALUES ('010')"}, Duplicate, "duplicate value in CADFLUXO (CODIGO)",
            "CADFLUXO", "CODIGO"},
        {{"DELETE FROM {CADFLUXO}"}, Referenced, "rows of FACCAO refer to CADFLUXO (CODIGO)", "FACCAO", "OP"},
        {{"UPDATE {CADFLUXO} SET CODIGO = '011'"}, Referenced, "rows of FACCAO refer to CADFLUXO (CODIGO)", "FACCAO",
            "OP"},
        {{"INSERT INTO {FACCAO3} (OP) VALUES ('999')"}, Referenced,
            "FACCAO3 (OP) refers to a row of CADFLUXO (CODIGO) that does not exist", "FACCAO3", "OP"},
        {{"INSERT INTO {CADFLUXO} (DESCRICAO) VALUES ('x')"}, NotNull, "CADFLUXO (CODIGO) must have a value",
            "CADFLUXO", "CODIGO"},
        {{"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", "0123"}, Conversion, "a text is too long for its column", "",
            ""},
        {{"UPDATE {CADFLUXO} SET ORDEM = 1 / 0"}, Other, "division by zero", "", ""},
        {{"SELECT NADA FROM {CADFLUXO}"}, Syntax, "unknown column in the statement", "", ""},
        {{"SELECT NADA FROM {NADA}"}, Syntax, "unknown table in the statement", "", ""},
        {{"SELECT FROM WHERE"}, Syntax, "the statement is not understood", "", ""},
    };
    for (const auto& each : cases) {
        const auto refusal = Refusal(*db, each.statement);
        ASSERT_TRUE(refusal) << each.text;
        EXPECT_EQ(refusal->Kind(), each.kind) << each.text;
        EXPECT_EQ(refusal->what(), each.text);
        EXPECT_EQ(refusal->Table(), each.table) << each.text;
        EXPECT_EQ(refusal->Columns(), each.columns) << each.text;
    }
}

TEST_P(Transaction, ALostConnectionIsReportedAndSurvived)
{
    if (IsFirebird())
        GTEST_SKIP() << "an embedded engine cannot be lost";
    AddSector(*db, "010");
    db->CommitRetaining();
    AddSector(*db, "020");
    auto other = Connect();
    other->OpenText("SELECT pg_terminate_backend(pid) FROM pg_stat_activity"
                    " WHERE pid <> pg_backend_pid() AND datname = current_database()");
    const auto refusal = Refusal(*db, {"UPDATE {CADFLUXO} SET ORDEM = 1"});
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Kind(), Connection);
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(Count(*db), "1");
}

TEST_P(Transaction, ManyWritesAndReadsInOneTransactionStand)
{
    for (int i = 0; i < 300; ++i) {
        AddSector(*db, std::to_string(i));
        if (i % 7 == 0) {
            ASSERT_EQ(Count(*db), std::to_string(i + 1));
        }
        if (i % 11 == 0) {
            ASSERT_TRUE(Refusal(*db, {"INSERT INTO {CADFLUXO} (CODIGO) VALUES (?)", std::to_string(i)}));
        }
    }
    db->CommitRetaining();
    EXPECT_EQ(Count(*Connect()), "300");
}

} // namespace
} // namespace alinhavo
