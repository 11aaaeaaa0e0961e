// The two production reports beside the bare driver on the same query: how long until the screen has its lines, what a line costs in
// memory, and whether both grow linearly. Then the sheet of "Pendente por Setor" as HTML and, where it has about 500 pages, as
// PDF. PostgreSQL is measured when ALINHAVO_TEST_POSTGRESQL names a server's superuser. Each argument is a number of lines, or a
// database that is measured as it is, such as a demonstration factory.

#include "bench/timing.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/report/TPdfPrinter.h"
#include "platform/report/TReports.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/TSession.h"
#include "reports/TfmRelFacDia.h"
#include "reports/TfmRelFacPen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <limits>
#include <stdexcept>
#include <unistd.h>

namespace {

using namespace alinhavo;

constexpr int Rounds = 3;
constexpr std::size_t LinesOfPdf = 16'000; ///< about 500 pages

/// The quickest of a few rounds.
double Quickest(const std::function<void()>& work)
{
    double time = Milliseconds(work);
    for (int round = 1; round < Rounds; ++round)
        time = std::min(time, Milliseconds(work));
    return time;
}

/// Nobody sits before the screens: a box that comes up ends the measurement.
struct TNobody final : IEventSource {
    TUserEvent Next() override { throw std::runtime_error("a screen asks something"); }
};

void Execute(TSqlDatabase& database, const std::string& sql) { database.ExecText(sql); }

/// A factory with as many pending lines, each with one return.
void Fill(TSqlDatabase& database, int lines)
{
    FillEmptyDatabase(database);
    Execute(database, "INSERT INTO CADFLUXO (CODIGO, DESCRICAO, ORDEM, DIAS_SEMANA) VALUES ('20', 'COSTURA', 1, 5)");
    Execute(database, "INSERT INTO TIPO_APL (CODIGO, DESCRICAO, ESTOQUE) VALUES ('01', 'Corpo', 'S')");
    Execute(database, "INSERT INTO CADCOR (COR, DESCRICAO) VALUES ('000001', 'Branco')");
    Execute(database, "INSERT INTO TABTAM (TAM, ACRESCIMO) VALUES ('M', 1)");
    Execute(
        database, "INSERT INTO PRODUTO (CODIGO, DESCRICAO, UNIDADE, PESO) VALUES ('CAM01', 'Camisa polo', 'PC', 0.2)");
    for (int client = 1; client <= 50; ++client) {
        database.ExecSQL(TStatement("INSERT INTO {ENTIDADE} (CODCLI, NOME) VALUES (?, ?)",
            std::to_string(10000 + client), "Facção " + std::to_string(client)));
    }
    const auto day = TDateTime::FromDate(2026, 11, 20);
    for (int line = 0; line < lines; ++line) {
        const auto order = std::to_string(100000 + line / 20);
        const auto client = std::to_string(10001 + line / 20 % 50);
        if (line % 20 == 0)
            database.ExecSQL(
                TStatement("INSERT INTO {OF1} (NUMERO, CODIGO, PERIODO) VALUES (?, 'CAM01', '202611')", order));
        database.ExecSQL(TStatement(R"(INSERT INTO {FACCAO} (NUMERO, CODIGO, COR, TAM, PARTE, OP, CODCLI, MOV, QT_ORIG,
            QUANT, QUANT_2, QUANT_I, QUANT_F, DT_S, DT_R) VALUES (?, 'CAM01', '000001', 'M', '01', '20', ?, ?, 100,
            30, 0, 0, 0, ?, ?))",
            order, client, line, day.AddDays(-line % 30), day.AddDays(line % 20)));
    }
    Execute(
        database, R"(INSERT INTO FACCAO3 (NUMERO, CODIGO, COR, TAM, PARTE, OP, CODCLI, ID_ANT, QUANT, QUANT_2, DT_LAN)
        SELECT NUMERO, CODIGO, COR, TAM, PARTE, OP, CODCLI, IDENTIFICADOR, QUANT, 0, DT_S FROM FACCAO)");
    database.CommitRetaining();
    RefreshStatistics(database);
}

/// A session over the database, and the longest statement that it sends.
class TBench {
public:
    TBench(std::string name, TSqlDatabase& database)
        : name_(std::move(name))
        , database_(database)
        , preferences_(database)
        , reports_({.layouts = {ALINHAVO_LAYOUTS},
              .sharedRoot = {},
              .show = [this](const TFinishedReport& report, TForm&) { document_ = report.document; }})
        , session_(nobody_, nullptr,
              {.database = database,
                  .preferences = preferences_,
                  .configuration = configuration_,
                  .user = {"ADMIN", "ADMIN"},
                  .company = "01",
                  .passwords = passwords_,
                  .openDatabase = {},
                  .reports = &reports_})
    {
        session_.SetNow(TDateTime::FromDateTime(2026, 11, 20, 12, 0, 0));
        database_.OnStatement = [this](const TStatement& statement) {
            if (statement.Text().size() > longest_.Text().size())
                longest_ = statement;
        };
    }

    void Run()
    {
        Pending();
        Day();
    }

private:
    void Pending()
    {
        TfmRelFacPen screen(session_);
        screen.CbReproc.SetChecked(false);
        Compare("Pendente por Setor", [&] { screen.btnExecutaSQLClick(); });
        std::printf("      %zu lines, %zu bytes a line\n", screen.TbRel.RecordCount(),
            screen.TbRel.Bytes() / std::max<std::size_t>(screen.TbRel.RecordCount(), 1));
        const auto html = Quickest([&] { screen.btnImprimirClick(); });
        std::printf("      sheet as HTML %.0f ms, %.1f MB\n", html, static_cast<double>(document_.size()) / 1e6);
        if (screen.TbRel.RecordCount() == LinesOfPdf)
            Print();
    }

    void Print()
    {
        std::string pdf;
        const auto time = Milliseconds([&] { pdf = TPdfPrinter("chromium").Print(document_); });
        std::printf("      sheet as PDF %.1f s, %d pages\n", time / 1000, Pages(pdf));
    }

    static int Pages(const std::string& pdf)
    {
        int pages = 0;
        for (auto at = pdf.find("/Count "); at != std::string::npos; at = pdf.find("/Count ", at + 1))
            pages = std::max(pages, std::atoi(pdf.c_str() + at + 7));
        return pages;
    }

    void Day()
    {
        TfmRelFacDia screen(session_);
        screen.DataDe.SetDate(TDateTime::FromDate(2026, 10, 21));
        screen.DataAte.SetDate(TDateTime::FromDate(2026, 11, 20));
        Compare("Relatório de Produção Dia", [&] { screen.btnExecutaSQLClick(); });
        std::printf("      %zu lines\n", screen.TbTemp.RecordCount());
    }

    void Compare(const char* name, const std::function<void()>& click)
    {
        longest_ = TStatement();
        click();
        const auto query = longest_;
        double bare = std::numeric_limits<double>::max();
        double screen = bare;
        for (int round = 0; round < Rounds; ++round) {
            bare = std::min(bare, Milliseconds([&] { database_.Open(query); }));
            screen = std::min(screen, Milliseconds(click));
        }
        std::printf("%5.2f x (limit 1.30 and 100 ms)  %s, %s: %.0f ms, bare query %.0f ms\n", screen / bare, name,
            name_.c_str(), screen, bare);
        std::fflush(stdout);
    }

    std::string name_;
    TSqlDatabase& database_;
    TPreferences preferences_;
    TNobody nobody_;
    TConfiguration configuration_;
    TTrustedPasswords passwords_;
    std::string document_;
    TReports reports_;
    TSession session_;
    TStatement longest_;
};

void Measure(const std::string& server, const TDatabaseAddress& address, int lines)
{
    CreateDatabase(address, {.forcedWrites = false});
    {
        const auto database = OpenDatabase(address);
        MigrateSchema(*database);
        Fill(*database, lines);
    }
    TBench(server + ", " + std::to_string(lines) + " pending", *OpenDatabase(address)).Run();
    DropDatabase(address);
}

void MeasureBothServers(int lines)
{
    const auto name = "bench_relatorios_" + std::to_string(getpid());
    const auto folder = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directory(folder);
    Measure("Firebird", TDatabaseAddress::Parse((folder / "bench.fdb").string()), lines);
    std::filesystem::remove_all(folder);
    if (const char* server = std::getenv("ALINHAVO_TEST_POSTGRESQL")) {
        const std::string uri(server);
        Measure("PostgreSQL", TDatabaseAddress::Parse(uri.substr(0, uri.rfind('/') + 1) + name), lines);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const auto& argument : arguments) {
        if (const int lines = std::atoi(argument.c_str()); lines > 0)
            MeasureBothServers(lines);
        else
            TBench(argument, *OpenDatabase(TDatabaseAddress::Parse(argument))).Run();
    }
    if (arguments.empty()) {
        for (const int lines : {5'000, static_cast<int>(LinesOfPdf), 50'000, 100'000})
            MeasureBothServers(lines);
    }
}
