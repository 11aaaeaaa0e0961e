// Scripted clerks at the movement's screen of the demonstration factory, each at a session of the real registry with a thread
// and a connection of its own, and on a thread of his own; between them and the sessions there is no network. They enter orders,
// type and read quantities, confirm, take back and look up until the time is over. Told are the server's times of their events
// (from the receipt of a message until what changed is ready to be sent), what they got done, and what the screen said to them. At
// the end the movements recorded for each order, part and sector must be those that the clerks say they made, and the tables
// must agree. The process's exit code says whether they do.
//
// With --memoria: what a session takes with three screens open, and what its connection takes.

#include "app/demo/TDemoFactory.h"
#include "bench/carga/TLoadClerk.h"
#include "forms/TApplication.h"
#include "master/TfmCadFluxo.h"
#include "movement/TfmFacMov.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/session/TDatabaseHost.h"
#include "platform/session/TSession.h"
#include "platform/verification/TVerification.h"
#include "platform/web/TSessionRegistry.h"
#include "reports/TfmRelFacPen.h"

#include <algorithm>
#include <atomic>
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <random>
#include <set>
#include <thread>
#include <unistd.h>

namespace {

using namespace alinhavo;

struct TOptions {
    std::string database; ///< of a PostgreSQL server; empty: a Firebird file
    std::vector<std::size_t> users{1};
    double seconds = 20;
    double warmUp = 0;
    int pause = 1000;
    int scale = 1;
    double shared = 0.05;
    int cachePages = 4096;
    bool memory = false;
    bool detail = false;
};

const TDateTime Today = TDateTime::FromDate(2026, 11, 16);

/// A database that ends with this object.
class TOwnDatabase {
public:
    /// The demonstration factory.
    TOwnDatabase(const TOptions& options, const char* name)
        : address_(AddressOf(options, name))
    {
        CreateDatabase(address_, {.forcedWrites = false});
        Fill(options.scale);
    }
    /// As the other, and safe on its disk with every commit.
    TOwnDatabase(const TOptions& options, const char* name, const TOwnDatabase& other)
        : address_(AddressOf(options, name))
    {
        CopyDatabase(other.address_, address_);
        ForceWrites(address_);
    }
    ~TOwnDatabase() { DropDatabase(address_); }
    TOwnDatabase(const TOwnDatabase&) = delete;
    TOwnDatabase& operator=(const TOwnDatabase&) = delete;

    const TDatabaseAddress& Address() const { return address_; }

private:
    void Fill(int scale) const
    {
        const auto database = OpenDatabase(address_);
        MigrateSchema(*database);
        TDemoFactory factory(*database, 1, Today);
        factory.Fill();
        factory.MakeHistory();
        factory.Multiply(scale);
        // The clerks' work is moving; what their orders consume is settled elsewhere.
        database->ExecSQL(TStatement("UPDATE {CADFLUXO} SET BAIXACONSUMO = 'N' WHERE BAIXACONSUMO = 'S'"));
        database->CommitRetaining();
        RefreshStatistics(*database);
    }
    static TDatabaseAddress AddressOf(const TOptions& options, const char* name)
    {
        const auto own = "alinhavo_carga_" + std::to_string(getpid()) + "_" + name;
        if (options.database.empty())
            return TDatabaseAddress::Parse((std::filesystem::temp_directory_path() / (own + ".fdb")).string());
        const auto path = options.database.rfind('/');
        return TDatabaseAddress::Parse(options.database.substr(0, path + 1) + own);
    }

    TDatabaseAddress address_;
};

template <typename TScreen>
void Register(TApplication& application, const char* name)
{
    application.RegisterForm(
        name, [](TApplication& maker) -> std::unique_ptr<TForm> { return std::make_unique<TScreen>(maker); });
}

void RegisterScreens(TApplication& application)
{
    Register<TfmFacMov>(application, "TfmFacMov");
    Register<TfmCadFluxo>(application, "TfmCadFluxo");
    Register<TfmRelFacPen>(application, "TfmRelFacPen");
}

std::unique_ptr<TSqlDatabase> Connect(const TOwnDatabase& factory, const TOptions& options)
{
    return OpenDatabase(factory.Address(), {.cachePages = options.cachePages});
}

TDatabaseHostOptions HostOptions(const TOwnDatabase& factory, const TOptions& options)
{
    TDatabaseHostOptions host;
    host.address = factory.Address();
    host.database.cachePages = options.cachePages;
    host.registerScreens = RegisterScreens;
    host.layouts = ALINHAVO_LAYOUTS;
    host.today = Today;
    return host;
}

/// What stands somewhere and may leave, in an order that has nothing to do with where.
std::vector<TLot> PendingLots(TSqlDatabase& database)
{
    const auto rows = database.Open(TStatement(R"(
        SELECT F.NUMERO, F.PARTE, F.OP, F.MOV
          FROM {FACCAO} F JOIN {OF1} O ON O.NUMERO = F.NUMERO
         WHERE F.REPROCESSO IS NULL OR F.REPROCESSO = ''
         GROUP BY F.NUMERO, F.PARTE, F.OP, F.MOV
        HAVING SUM(F.QT_ORIG - F.QUANT - F.QUANT_2 - F.QUANT_I - F.QUANT_F) > 50
         ORDER BY F.NUMERO, F.PARTE, F.OP, F.MOV)"));
    std::vector<TLot> lots;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        const auto text = [&](std::size_t column) { return rows.Column(column).Value(row).AsString(); };
        lots.push_back({{text(0), text(1), text(2)}, text(3)});
    }
    std::ranges::shuffle(lots, std::mt19937(1));
    return lots;
}

std::map<std::string, std::string> Codes(TSqlDatabase& database)
{
    const auto rows
        = database.Open(TStatement("SELECT DISTINCT CODIGO, COR, TAM, BARRA FROM {PA_ITEN} WHERE BARRA <> ''"));
    std::map<std::string, std::string> codes;
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        std::string key;
        for (const std::size_t column : {0, 1, 2})
            key.append(rows.Column(column).Text(row)).append(" ");
        codes[key] = rows.Column(3).Text(row);
    }
    return codes;
}

/// What the tables hold against each other, as texts.
std::set<std::string> Errors(TSqlDatabase& database)
{
    std::set<std::string> errors;
    for (const auto& violation : Verify(database))
        if (violation.severity == TSeverity::Error)
            errors.insert(std::string(violation.check) + ": " + violation.keys);
    return errors;
}

std::chrono::milliseconds Seconds(double seconds)
{
    return std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000));
}

/// Everybody at work. False when what is recorded is not what they did.
bool Load(const TOptions& options, std::size_t users, const TOwnDatabase& prepared)
{
    const TOwnDatabase factory(options, "carga", prepared);
    const auto database = Connect(factory, options);
    TLoadPlan plan;
    plan.lots = PendingLots(*database);
    plan.codes = Codes(*database);
    plan.pause = std::chrono::milliseconds(options.pause);
    plan.shared = options.shared;
    for (const auto& lot : plan.lots)
        plan.takingBack[lot.place.order];
    const auto before = RecordedMovements(*database);
    const auto errorsBefore = Errors(*database);
    const auto user = FindUser(*database, "MARIA").value();

    TDatabaseHost host(HostOptions(factory, options));
    TSessionRegistry registry(host, {.sessions = 2 * users}); // some of them may be at their end
    TEventTimes times;
    TLedger ledger;
    TLoadCounts counts;
    std::atomic<bool> failed = false;
    const auto logIn = [&] {
        const auto found = registry.Take(registry.LogIn(user), TSessionRegistry::New);
        return std::make_unique<TLoadClient>(found.session, times);
    };
    {
        std::vector<std::unique_ptr<TLoadClerk>> clerks;
        for (std::size_t number = 0; number < users; ++number)
            clerks.push_back(std::make_unique<TLoadClerk>(logIn, plan, number, users, ledger, counts));
        plan.warmUp = Seconds(options.warmUp);
        const auto begin = std::chrono::steady_clock::now() + plan.warmUp;
        times.CountFrom(begin);
        plan.end = begin + Seconds(options.seconds);
        std::vector<std::jthread> threads;
        for (const auto& clerk : clerks)
            threads.emplace_back([&failed, &clerk = *clerk] {
                try {
                    clerk.Work();
                } catch (const std::exception& error) {
                    std::fprintf(stderr, "a clerk could not go on: %s\n", error.what());
                    failed = true;
                }
            });
        threads.clear();
    }
    registry.EndAll("");

    std::printf("| %zu | %d | %.0f | %.2f | %.2f | %.2f | %.2f | %.2f | %.0f |\n", users, options.pause,
        static_cast<double>(times.Count()) / options.seconds, times.OfAll(0.5), times.OfAll(0.99),
        times.Of(TEventKind::Step, 0.99), times.Of(TEventKind::Confirmation, 0.5),
        times.Of(TEventKind::Confirmation, 0.99), ledger.Moved());
    for (const auto& line : options.detail ? times.ByEvent() : std::vector<TEventTimes::TLine>())
        std::printf("    %6zu  %8.2f %8.2f ms  %s\n", line.count, line.median, line.slow, line.what.c_str());
    for (const auto& [what, count] : counts.All())
        std::printf("    %6d  %s\n", count, what.c_str());
    const auto differences = ledger.Differences(before, RecordedMovements(*database));
    for (const auto& difference : differences)
        std::printf("    %s\n", difference.c_str());
    std::vector<std::string> errors;
    std::ranges::set_difference(Errors(*database), errorsBefore, std::back_inserter(errors));
    for (const auto& error : errors)
        std::printf("    %s\n", error.c_str());
    std::printf(
        "    %zu lugares em que o gravado não é o dito, %zu erros nas tabelas\n", differences.size(), errors.size());
    std::fflush(stdout);
    return differences.empty() && errors.empty() && !failed && ledger.Moved() > 0;
}

// Memory -------------------------------------------------------------------------------------------------------------------

struct TMemory {
    double resident; ///< kB of the process
    double heap; ///< kB that its own code and libraries took from the heap
};

TMemory MemoryNow()
{
    malloc_trim(0);
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    const auto heap = mallinfo2();
    return {static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024,
        static_cast<double>(heap.uordblks + heap.hblkhd) / 1024};
}

void TellMemory(const char* what, const TMemory& before, const TMemory& after, std::size_t count)
{
    const auto each = [&](double kilobytes) { return kilobytes / static_cast<double>(count); };
    std::printf(
        "| %s | %.0f kB | %.0f kB |\n", what, each(after.resident - before.resident), each(after.heap - before.heap));
}

void OpenScreens(TLoadClient& client)
{
    for (const char* screen : {"TfmFacMov", "TfmCadFluxo", "TfmRelFacPen"}) {
        nlohmann::json open;
        open["event"] = "open";
        open["class"] = screen;
        client.Do(open);
    }
}

void Memory(const TOptions& options, std::size_t users, const TOwnDatabase& prepared)
{
    const TOwnDatabase factory(options, "memoria", prepared);
    TDatabaseHost host(HostOptions(factory, options));
    TSessionRegistry registry(host, {.sessions = users + 1});
    const auto user = FindUser(*Connect(factory, options), "MARIA").value();
    TEventTimes times;
    std::vector<std::unique_ptr<TLoadClient>> clients;
    const auto begin = [&] {
        clients.push_back(
            std::make_unique<TLoadClient>(registry.Take(registry.LogIn(user), TSessionRegistry::New).session, times));
    };
    begin(); // what is made once for all
    OpenScreens(*clients.front());

    std::vector<std::unique_ptr<TSqlDatabase>> connections;
    auto before = MemoryNow();
    for (std::size_t number = 0; number < users; ++number) {
        connections.push_back(Connect(factory, options));
        connections.back()->Open(TStatement("SELECT COUNT(*) FROM {EMPRESA}"));
    }
    TellMemory("a connection alone", before, MemoryNow(), users);
    connections.clear();

    before = MemoryNow();
    for (std::size_t number = 0; number < users; ++number)
        begin();
    const auto open = MemoryNow();
    TellMemory("a session without a screen, its connection included", before, open, users);
    for (std::size_t number = 1; number <= users; ++number)
        OpenScreens(*clients[number]);
    clients.clear(); // what a client knows is its own
    TellMemory("its three screens", open, MemoryNow(), users);
    TellMemory("all of a session with three screens", before, MemoryNow(), users);
    registry.EndAll("");
}

} // namespace

int main(int argc, char** argv)
{
    TOptions options;
    double minutes = 0;
    CLI::App app{"Carga: pessoas no Movimento de Facção."};
    app.add_option(
        "--banco", options.database, "Um banco do servidor PostgreSQL a usar; sem ele, um arquivo Firebird.");
    app.add_option("--usuarios", options.users, "Quantas pessoas trabalham; vários números: um depois do outro.");
    app.add_option("--segundos", options.seconds, "Duração de cada um.");
    app.add_option("--aquecimento", options.warmUp, "Segundos antes, em que as pessoas chegam e nada conta.");
    app.add_option("--minutos", minutes, "A duração, em minutos.");
    app.add_option("--pausa", options.pause, "Milissegundos que uma pessoa leva, em média, até o próximo passo.");
    app.add_option("--escala", options.scale, "Volume da fábrica, como em alinhavo demo.");
    app.add_option("--disputa", options.shared, "Parte do trabalho que é em ordens de qualquer um, de 0 a 1.");
    app.add_option("--paginas", options.cachePages, "Páginas do banco em memória.");
    app.add_flag("--detalhe", options.detail, "Mostra os tempos de cada evento.");
    app.add_flag("--memoria", options.memory, "Mede a memória de tantas sessões.");
    CLI11_PARSE(app, argc, argv);
    if (minutes > 0)
        options.seconds = minutes * 60;

    bool good = true;
    const TOwnDatabase prepared(options, "fabrica");
    if (options.memory)
        std::printf("| for each of %zu | resident | heap |\n|---|---|---|\n", options.users.front());
    else
        std::printf("| users | pause ms | events/s | p50 ms | p99 ms | p99 of steps | p50 of confirmations | p99 of "
                    "confirmations | pieces |\n|---|---|---|---|---|---|---|---|---|\n");
    for (const auto users : options.users) {
        if (options.memory)
            Memory(options, users, prepared);
        else
            good = Load(options, users, prepared) && good;
    }
    return good ? 0 : 1;
}
