#include "TImportTest.h"

#include "platform/exchange/EExchange.h"

#include <csignal>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace alinhavo {
namespace {

constexpr const char* DatabaseOfChild = "ALINHAVO_TEST_KILLED_DATABASE";
constexpr const char* FileOfChild = "ALINHAVO_TEST_KILLED_FILE";
constexpr int Colours = 1000;
constexpr int StatementOfDeath = 600;

std::string Environment(const char* name)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    return value ? value : "";
}

/// Runs this program's test that kills itself, in a process of its own; how that ended, as waitpid tells it.
int RunChild(const std::string& database, const std::string& file)
{
    setenv(DatabaseOfChild, database.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    setenv(FileOfChild, file.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    std::string program = "/proc/self/exe";
    std::string filter = "--gtest_filter=KilledImport.DISABLED_Child";
    std::string disabled = "--gtest_also_run_disabled_tests";
    char* arguments[] = {program.data(), filter.data(), disabled.data(), nullptr};
    pid_t child = 0;
    EXPECT_EQ(posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ), 0);
    int status = 0;
    waitpid(child, &status, 0);
    unsetenv(DatabaseOfChild); // NOLINT(concurrency-mt-unsafe)
    return status;
}

void KillAt(TSqlDatabase& database, int statement, const std::function<void()>& kill)
{
    database.OnStatement = [count = 0, statement, kill](const TStatement&) mutable {
        if (++count == statement)
            kill();
    };
}

class ImportCutOff : public TImportTest {
protected:
    static std::string ManyColours()
    {
        std::string file = "COR;DESCRICAO\nVERDE;Verde claro\n";
        for (int i = 0; i < Colours; ++i)
            file += "C" + std::to_string(i) + ";Cor " + std::to_string(i) + "\n";
        return file;
    }

    void ExpectNothingStands()
    {
        EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR}"), "2");
        EXPECT_EQ(Cell("SELECT DESCRICAO FROM {CADCOR} WHERE COR = 'VERDE'"), "Verde");
        EXPECT_EQ(Import("CADCOR", ManyColours()).ToWrite(), Colours + 1) << "and it can be done again";
        EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR}"), std::to_string(Colours + 2));
    }
};
ON_BOTH_SERVERS(ImportCutOff);

TEST(KilledImport, DISABLED_Child)
{
    if (Environment(DatabaseOfChild).empty())
        GTEST_SKIP() << "run by another test";
    const auto database = OpenDatabase(TDatabaseAddress::Parse(Environment(DatabaseOfChild)));
    const auto import
        = TTableExchange(*database).Compare(*FindTable("CADCOR"), Environment(FileOfChild), TExistingRows::Update);
    KillAt(*database, StatementOfDeath, [] { raise(SIGKILL); });
    import->Write();
    database->CommitRetaining();
}

TEST_P(ImportCutOff, NothingStandsOfOneWhoseProcessIsKilledHalfWay)
{
    db.reset();
    const int status = RunChild(IsFirebird() ? Address().path : Address().uri, File(ManyColours()));
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(WTERMSIG(status), SIGKILL);
    db = Connect();
    ExpectNothingStands();
}

TEST_P(ImportCutOff, NothingStandsOfOneWhoseConnectionIsCutHalfWay)
{
    if (IsFirebird())
        GTEST_SKIP() << "the engine runs in the process";
    const auto backend = Cell("SELECT pg_backend_pid()");
    const auto killer = Connect();
    const auto import = Compare("CADCOR", ManyColours());
    KillAt(*db, StatementOfDeath, [&] { killer->OpenText("SELECT pg_terminate_backend(" + backend + ")"); });
    try {
        import->Write();
        FAIL() << "the connection was not cut";
    } catch (const EDatabaseError& error) {
        EXPECT_EQ(error.Kind(), TDatabaseErrorKind::Connection);
    }
    db->OnStatement = nullptr;
    db->RollbackRetaining();
    ExpectNothingStands();
}

TEST_P(ImportCutOff, NothingStandsOfOneThatIsRefusedHalfWay)
{
    const auto import = Compare("CADCOR", ManyColours());
    KillAt(*db, StatementOfDeath, [] { throw EDatabaseError(TDatabaseErrorKind::Other, "disk full"); });
    EXPECT_THROW(import->Write(), EDatabaseError);
    db->OnStatement = nullptr;
    db->RollbackRetaining();
    ExpectNothingStands();
}

} // namespace
} // namespace alinhavo
