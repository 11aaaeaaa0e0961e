// The confirmation of a movement beside the bare driver, which executes the very same statements: prepared once, values bound,
// rows fetched. Both work on copies of one database, order by order; the pairs alternate, and the medians count. One line a
// measurement: how many times as long the screen takes, both times, the time and the statements of a line. Then how the time of
// a line grows with the lines, and what each step of the header takes. PostgreSQL is measured when ALINHAVO_TEST_POSTGRESQL names
// a server's superuser.
//
// On few cores the server's process and this one wake each other up on changing cores, which is measured along: `taskset -c 1`
// holds both to one.

#include "app/demo/TClerk.h"
#include "bench/TBareDriver.h"
#include "bench/timing.h"
#include "forms/TDataSet.h"
#include "movement/TfmFacMov.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/services/TEmptyDatabase.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <thread>
#include <unistd.h>

namespace {

using namespace alinhavo;
using namespace alinhavo::roteiro;

constexpr std::array Sizes{10, 50, 200, 1000};
constexpr int Rounds = 9;
constexpr int SizesOfColour = 10;
constexpr double Limit = 1.25;
constexpr std::chrono::milliseconds Rest{100}; ///< before each, for what the engine does behind the one before

/// Where the lines leave: a sector in the middle of the flow, or the last one, where finished goods enter stock.
enum class TPlace { Middle, Last };

struct TOrder {
    std::string number;
    TPlace place;
    int lines;
};

std::string Digits(int number, std::size_t width)
{
    auto text = std::to_string(number);
    return std::string(width - text.size(), '0') + text;
}

/// The orders of a round, for all places and sizes.
std::vector<TOrder> Orders()
{
    std::vector<TOrder> orders;
    for (int round = 0; round <= Rounds; ++round) // one more, to warm up
        for (const auto place : {TPlace::Middle, TPlace::Last})
            for (const int lines : Sizes)
                orders.push_back({Digits(static_cast<int>(orders.size()) + 1, 6), place, lines});
    return orders;
}

void FillFactory(TSqlDatabase& db)
{
    MigrateSchema(db);
    FillEmptyDatabase(db);
    const auto write = [&](const TStatement& statement) { db.ExecSQL(statement); };
    for (const auto& [number, value] : {std::pair{20, "N"}, {80, "00001"}, {240, "N"}, {10, "S"}}) {
        write({"DELETE FROM {PARAMETRO} WHERE GRUPO = 'FAC' AND NUMERO = ?", number});
        write({"INSERT INTO {PARAMETRO} (GRUPO, NUMERO, VALOR) VALUES ('FAC', ?, ?)", number, value});
    }
    int order = 0;
    write({"INSERT INTO {ROTEIRO} (CODIGO, DESCRICAO, ORDEM, BAIXALIVRE) VALUES ('F01', 'Camisaria', 0, 'N')"});
    for (const char* sector : {"10", "20", "30", "40"}) {
        write({"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES (?, ?, 1, 5, 5)", sector,
            sector});
        write({"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES ('F01', ?, ?)", ++order, sector});
        write({"INSERT INTO {TABELA} (NUMERO, CODIGO, SETOR, PARTE, PRECO) VALUES ('001', 'CAM01', ?, '01', 1.35)",
            sector});
    }
    write({"INSERT INTO {REGIAO} (REGIAO, DESCRICAO, PADRAO) VALUES ('001', 'Padrão', 'S')"});
    write(
        {"INSERT INTO {TIPO_APL} (CODIGO, DESCRICAO, ESTOQUE, BAIXA, ATUALIZA) VALUES ('01', 'Corpo', 'S', 'S', 'S')"});
    write({"INSERT INTO {ENTIDADE} (CODCLI, NOME, BLOQUEIO) VALUES ('00001', 'Alvorada', 'N')"});
    write({"INSERT INTO {TABQUL} (CODIGO, DESCRICAO) VALUES ('1', 'Primeira')"});
    write({"INSERT INTO {TABBAI} (CODIGO, DESCRICAO, TIPO, TIPO_ESTOQUE) VALUES ('050', 'Entrada', 'E', 5)"});
    write({"INSERT INTO {DEPOSITO} (CODIGO, DESCRICAO, PRIORIDADE) VALUES ('01', 'Produção', '1')"});
    write({"INSERT INTO {FAIXA} (CODIGO, DESCRICAO, TAMANHO) VALUES ('A', 'T0 a T9', 7)"});
    for (int size = 0; size < SizesOfColour; ++size)
        write({"INSERT INTO {FAIXA_ITEN} (FAIXA, TAMANHO, POSICAO) VALUES ('A', ?, ?)", "T" + std::to_string(size),
            size});
    for (int colour = 0; colour < Sizes.back() / SizesOfColour; ++colour)
        write({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, ?)", Digits(colour, 6),
            "Cor " + std::to_string(colour)});
    write({"INSERT INTO {PRODUTO} (CODIGO, DESCRICAO, UNIDADE, FAIXA, ESTOQUE, ATIVO) VALUES ('CAM01', 'Camisa', 'PC', "
           "'A', 'S', 'S')"});
    write({"INSERT INTO {PRO_FLUXO} (CODIGO, PARTE, FLUXO, PADRAO) VALUES ('CAM01', '01', 'F01', 'S')"});
    db.CommitRetaining();
}

void FillOrder(TSqlDatabase& db, const TOrder& order)
{
    db.ExecSQL({"INSERT INTO {OF1} (NUMERO, CODIGO, PEDIDO, ATIVOS, FAC_QTDE) VALUES (?, 'CAM01', '', ?, 'N')",
        order.number, order.lines * 12});
    for (int line = 0; line < order.lines; ++line)
        db.ExecSQL({"INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE, QTDE_B, QTDE_C) VALUES (?, ?, ?, 12, 0, 0)",
            order.number, Digits(line / SizesOfColour, 6), "T" + std::to_string(line % SizesOfColour)});
    for (int colour = 0; colour < order.lines / SizesOfColour; ++colour)
        db.ExecSQL(
            {"INSERT INTO {PCPFTOF} (NUMERO, INSUMO, COR, PARTE, SETOR, CONSUMO, CUSTO) VALUES (?, 'M1', ?, '01', "
             "'10', 1.2, 8)",
                order.number, Digits(colour, 6)});
    db.CommitRetaining();
}

/// The screen with somebody at it.
class TScreen {
public:
    explicit TScreen(TOrvDatabase& database)
        : clerk_(database, {"ADMIN", "ADMIN"},
            [](TApplication& application) {
                application.RegisterForm("TfmFacMov",
                    [](TApplication& maker) -> std::unique_ptr<TForm> { return std::make_unique<TfmFacMov>(maker); });
            },
            {"não está lançada na Facção"})
    {
        clerk_.Application().SetNow(TDateTime::FromDateTime(2026, 11, 20, 12, 0, 0));
        clerk_(TOpen{"TfmFacMov"});
    }

    /// Up to the grid; the time of each step is told to `timed`.
    void Enter(
        const std::string& order, const std::string& sector,
        const std::function<void(const char*, double)>& timed = [](const char*, double) {})
    {
        const auto step
            = [&](const char* control, const auto& action) { timed(control, Milliseconds([&] { clerk_(action); })); };
        step("btn00Incluir", TClick{"btn00Incluir"});
        step("edtOFNum", TFill{"edtOFNum", order});
        step("CbParte", TPass{"CbParte"});
        step("EdtSetor", TFill{"EdtSetor", sector});
        step("cbMovimento", TPass{"cbMovimento"});
        step("edtDtProducao", TPass{"edtDtProducao"});
        step("edtFaccao", TPass{"edtFaccao"});
        step("edtFacDest", TFill{"edtFacDest", "00001"});
    }
    void Confirm() { clerk_(TClick{"btn00Confirmar"}); }
    void GiveUp() { clerk_(TClick{"btn00Desiste"}); }

private:
    TClerk clerk_;
};

constexpr const char* SectorOf(TPlace place) { return place == TPlace::Middle ? "20" : "40"; }

/// All orders stand where they will be confirmed.
void Prepare(TSqlDatabase& db, const std::vector<TOrder>& orders)
{
    FillFactory(db);
    for (const auto& order : orders)
        FillOrder(db, order);
    TScreen screen(db);
    for (const auto& order : orders) {
        for (const std::string sector : {"10", "20", "30"}) {
            if (sector == SectorOf(order.place))
                break;
            screen.Enter(order.number, sector);
            screen.Confirm();
        }
    }
    RefreshStatistics(db);
}

/// What each confirmation sends to the server.
std::vector<std::vector<TStatement>> Traces(const TDatabaseAddress& address, const std::vector<TOrder>& orders)
{
    const auto db = OpenDatabase(address);
    TScreen screen(*db);
    std::vector<std::vector<TStatement>> traces;
    for (const auto& order : orders) {
        screen.Enter(order.number, SectorOf(order.place));
        auto& trace = traces.emplace_back();
        db->OnStatement = [&](const TStatement& statement) { trace.push_back(statement); };
        screen.Confirm();
        db->OnStatement = {};
    }
    return traces;
}

struct TSeries {
    std::vector<double> ofScreen;
    std::vector<double> ofBare;
    std::vector<double> ratios;
    std::size_t statements = 0;
};

using TAllSeries = std::map<std::pair<TPlace, int>, TSeries>;

TAllSeries Measure(const TDatabaseAddress& addressOfScreen, const TDatabaseAddress& addressOfBare,
    const std::vector<TOrder>& orders, const std::vector<std::vector<TStatement>>& traces)
{
    const auto db = OpenDatabase(addressOfScreen);
    TScreen screen(*db);
    const auto bare = OpenBareDriver(addressOfBare, db->Dialect());
    TAllSeries all;
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const auto& order = orders[i];
        screen.Enter(order.number, SectorOf(order.place));
        bare->Learn(traces[i]);
        double screenTime = 0;
        double bareTime = 0;
        const bool screenFirst = i / (2 * Sizes.size()) % 2 == 0;
        for (const bool ofScreen : {screenFirst, !screenFirst}) {
            std::this_thread::sleep_for(Rest);
            (ofScreen ? screenTime : bareTime) = Milliseconds([&] { ofScreen ? screen.Confirm() : bare->Replay(); });
        }
        if (i < 2 * Sizes.size())
            continue;
        auto& series = all[{order.place, order.lines}];
        series.ofScreen.push_back(screenTime);
        series.ofBare.push_back(bareTime);
        series.ratios.push_back(screenTime / bareTime);
        series.statements = traces[i].size();
    }
    return all;
}

void Print(const char* server, const TAllSeries& all)
{
    for (const auto place : {TPlace::Middle, TPlace::Last}) {
        for (const int lines : Sizes) {
            const auto& series = all.at({place, lines});
            const auto times = static_cast<double>(lines);
            std::printf(
                "%5.2f x (limit %.2f)  %s, %s, %4d lines %9.2f ms  bare %9.2f ms  %6.3f ms a line  %zu statements, "
                "%.2f a line\n",
                Median(series.ratios), Limit, server, place == TPlace::Middle ? "between sectors" : "into stock", lines,
                Median(series.ofScreen), Median(series.ofBare), Median(series.ofScreen) / times, series.statements,
                static_cast<double>(series.statements) / times);
        }
        const auto ofLine = [&](int lines) { return Median(all.at({place, lines}).ofScreen) / lines; };
        const auto growth = [&](int from, int to) {
            const auto statements = [&](int lines) { return static_cast<double>(all.at({place, lines}).statements); };
            return (statements(to) - statements(from)) / (to - from);
        };
        std::printf(
            "%5.2f x (limit 1.10)  %s, a line of 1,000 beside a line of 50; each further line sends %.2f statements "
            "(10 to 50), %.2f (200 to 1,000)\n",
            ofLine(1000) / ofLine(50), server, growth(10, 50), growth(200, 1000));
    }
    std::fflush(stdout);
}

void PrintHeader(const char* server, const TDatabaseAddress& address, const std::vector<TOrder>& orders)
{
    const auto db = OpenDatabase(address);
    TScreen screen(*db);
    std::vector<std::pair<const char*, std::vector<double>>> steps;
    for (const auto& order : orders) {
        if (order.lines != 200)
            continue;
        std::size_t step = 0;
        screen.Enter(order.number, SectorOf(order.place), [&](const char* control, double time) {
            if (step == steps.size())
                steps.push_back({control, {}});
            steps[step++].second.push_back(time);
        });
        screen.GiveUp();
    }
    for (const auto& [control, times] : steps)
        std::printf("         %s, header of 200 lines, %-14s %7.2f ms\n", server, control, Median(times));
}

void MeasureServer(const char* server, const std::function<TDatabaseAddress(const std::string&)>& addressOf)
{
    const auto orders = Orders();
    const auto base = addressOf("base");
    const auto forTrace = addressOf("trace");
    const auto forBare = addressOf("bare");
    CreateDatabase(base, {.forcedWrites = false});
    Prepare(*OpenDatabase(base), orders);
    CopyDatabase(base, forTrace);
    CopyDatabase(base, forBare);
    PrintHeader(server, base, orders);
    Print(server, Measure(base, forBare, orders, Traces(forTrace, orders)));
    for (const auto& address : {base, forTrace, forBare})
        DropDatabase(address);
}

} // namespace

int main()
{
    const auto unique = "alinhavo_bench_" + std::to_string(getpid()) + "_";
    MeasureServer("Firebird", [&](const std::string& name) {
        return TDatabaseAddress::Parse((std::filesystem::temp_directory_path() / (unique + name + ".fdb")).string());
    });
    if (const char* uri = std::getenv("ALINHAVO_TEST_POSTGRESQL")) {
        const std::string server(uri);
        MeasureServer("PostgreSQL", [&](const std::string& name) {
            return TDatabaseAddress::Parse(server.substr(0, server.rfind('/') + 1) + unique + name);
        });
    }
}
