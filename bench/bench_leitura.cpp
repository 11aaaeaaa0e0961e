// Reading labels on the movement screen, as the server of a browser sees it: each message of a client until its answer is written.
// The client scans a code of thirteen digits and Enter, one message a key. Prints a line a measurement: the server's time for a
// code, for its slowest key, and for an RFID batch, over a grid of 100, 500 and 2,000 lines. PostgreSQL is measured when
// ALINHAVO_TEST_POSTGRESQL names a server's superuser.

#include "platform/database/schema.h"
#include "platform/services/TNobodyConnected.h"
#include "platform/web/TWebSession.h"
#include "sewing/TReaderService.h"
#include "sewing/TSewingApplication.h"
#include "tests/platform/session/TOpenHost.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <nlohmann/json.hpp>
#include <numeric>
#include <unistd.h>

namespace {

using namespace alinhavo;
using TJson = nlohmann::json;

constexpr int Codes = 1'000;
constexpr int Rounds = 9; ///< of so many codes; the quietest counts, so that the machine's other work does not
constexpr int Tags = 5'000;
constexpr int Batches = 9;

double Milliseconds(std::chrono::steady_clock::time_point begin)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double Percentile(std::vector<double> values, double share)
{
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

/// A browser that does one thing after the other and waits for each answer.
class TBrowser final : public IClientLink {
public:
    void Send(std::string message) override
    {
        const std::lock_guard lock(mutex_);
        messages_.push_back(std::move(message));
        came_.notify_one();
    }
    void Close() override { }

    /// Milliseconds until the answer was there.
    double Does(TWebSession& session, TJson message)
    {
        message["n"] = ++number_;
        message["turn"] = turn_;
        const auto text = message.dump();
        const auto begin = std::chrono::steady_clock::now();
        session.Receive(*this, text);
        for (;;) {
            const auto answers = Await();
            const auto time = Milliseconds(begin);
            bool done = false;
            for (const auto& answer : answers)
                done = Hear(answer) || done;
            if (done)
                return time;
        }
    }
    /// Hears what the session tells a client that begins.
    void Begin()
    {
        for (const auto& answer : Await())
            Hear(answer);
    }
    std::int64_t Dialog() const { return dialog_; }

private:
    std::vector<std::string> Await()
    {
        std::unique_lock lock(mutex_);
        came_.wait(lock, [this] { return !messages_.empty(); });
        return std::exchange(messages_, {});
    }
    /// True when everything is done.
    bool Hear(const std::string& text)
    {
        const auto message = TJson::parse(text);
        if (message.contains("error"))
            throw std::runtime_error(text);
        turn_ = message.value("turn", turn_);
        done_ = message.value("done", done_);
        if (message.contains("dialogs") && !message["dialogs"].empty())
            dialog_ = message["dialogs"].back().value("dialog", dialog_);
        return done_ >= number_;
    }

    std::mutex mutex_;
    std::condition_variable came_;
    std::vector<std::string> messages_;
    std::int64_t number_ = 0;
    std::int64_t done_ = 0;
    std::int64_t turn_ = 0;
    std::int64_t dialog_ = 0;
};

/// A session over a fresh database with so many lines.
class TGround {
public:
    TGround(TDatabaseServer server, int lines)
        : address_(FreshAddress(server))
        , service_("segredo")
        , browser_(std::make_shared<TBrowser>())
    {
        CreateDatabase(address_, {.forcedWrites = false});
        const auto database = OpenDatabase(address_);
        MigrateSchema(*database);
        TSewingApplication::Fill(*database, lines);
        TReaderService::TBatch batch;
        for (int tag = 0; tag < Tags; ++tag)
            batch.emplace_back(TSewingApplication::Ean(tag % lines + 1), 1);
        service_.Keeps("77", batch);
        session_ = std::make_unique<TWebSession>("bench", TSessionUser{"ADMIN", "ADMIN"}, host_, others_);
        session_->Attach(browser_);
        browser_->Begin();
        browser_->Does(*session_,
            {{"event", "rows"}, {"form", "fmFacMov"}, {"control", "dbg00Grade"}, {"first", 0}, {"count", 20}});
    }
    ~TGround()
    {
        session_->End({});
        session_->Wait();
        session_.reset();
        DropDatabase(address_);
    }
    TGround(const TGround&) = delete;
    TGround& operator=(const TGround&) = delete;

    /// Server time of each key of a code and its Enter.
    std::vector<double> Scan(const std::string& code)
    {
        std::vector<double> times;
        std::string typed;
        for (const char digit : code) {
            typed += digit;
            times.push_back(Does("EdtBarra", {{"event", "text"}, {"text", typed}, {"key", std::string(1, digit)}}));
        }
        times.push_back(Does("EdtBarra", {{"event", "key"}, {"key", "Enter"}}));
        return times;
    }
    /// Server time of a batch, from its number to the last answer.
    double Batch()
    {
        Does("dbg00Grade", {{"event", "focus"}});
        Does("dbg00Grade", {{"event", "key"}, {"key", "F5"}});
        return browser_->Does(
            *session_, {{"event", "answer"}, {"dialog", browser_->Dialog()}, {"button", "ok"}, {"text", "77"}});
    }
    /// Pieces read. The session waits for its client whenever it has answered.
    double Total() const { return screen_->EdtQtde.Value(); }

private:
    static TDatabaseAddress FreshAddress(TDatabaseServer server)
    {
        static int last = 0;
        const auto name = "alinhavo_leitura_" + std::to_string(getpid()) + "_" + std::to_string(++last);
        if (server == TDatabaseServer::Firebird)
            return TDatabaseAddress::Parse((std::filesystem::temp_directory_path() / (name + ".fdb")).string());
        const std::string uri = std::getenv("ALINHAVO_TEST_POSTGRESQL"); // NOLINT(concurrency-mt-unsafe)
        return TDatabaseAddress::Parse(uri.substr(0, uri.rfind('/') + 1) + name);
    }
    double Does(const char* control, TJson message)
    {
        message["form"] = "fmFacMov";
        message["control"] = control;
        return browser_->Does(*session_, std::move(message));
    }

    std::unique_ptr<IWorkplace> Open(IEventSource& source, IView& view)
    {
        auto sewing = std::make_unique<TSewingApplication>(source, &view, address_);
        sewing->Host.funcoes.GravaAjuste("RFID", "endereco", service_.Url());
        sewing->Host.funcoes.GravaAjuste("RFID", "chave", "segredo");
        screen_ = &sewing->OpenGrid();
        return std::make_unique<TPlainWorkplace>(std::move(sewing));
    }

    TDatabaseAddress address_;
    TReaderService service_;
    TOpenHost host_{[this](IEventSource& source, IView& view) { return Open(source, view); }};
    TNobodyConnected others_;
    std::shared_ptr<TBrowser> browser_;
    std::unique_ptr<TWebSession> session_;
    TfmFacMov* screen_ = nullptr;
};

void Check(double expected, double got)
{
    if (expected != got) {
        std::fprintf(stderr, "%.0f pieces were to be read, %.0f were\n", expected, got);
        std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe)
    }
}

void Measure(const char* server, TGround& ground, int lines)
{
    std::vector<double> medians;
    std::vector<double> slowest;
    std::vector<double> keys;
    for (int round = 0; round < Rounds; ++round) {
        std::vector<double> codes;
        for (int code = 0; code < Codes; ++code) {
            const auto times = ground.Scan(TSewingApplication::Ean(code * 37 % lines + 1));
            codes.push_back(std::accumulate(times.begin(), times.end(), 0.0));
            keys.push_back(*std::ranges::max_element(times));
        }
        medians.push_back(Percentile(codes, 0.5));
        slowest.push_back(Percentile(codes, 0.99));
    }
    Check(Codes * Rounds, ground.Total());
    std::vector<double> batches;
    for (int batch = 0; batch < Batches; ++batch) {
        batches.push_back(ground.Batch());
        Check(Tags, ground.Total());
    }
    std::printf(
        "%-10s %5d lines   code p50 %5.2f ms p99 %5.2f ms (median round %5.2f ms)   its slowest key p50 %5.2f ms   "
        "%d tags p50 %7.1f ms max %7.1f ms\n",
        server, lines, Percentile(medians, 0), Percentile(slowest, 0), Percentile(slowest, 0.5), Percentile(keys, 0.5),
        Tags, Percentile(batches, 0.5), Percentile(batches, 1));
    std::fflush(stdout);
}

} // namespace

int main()
{
    std::vector<std::pair<const char*, TDatabaseServer>> servers{{"Firebird", TDatabaseServer::Firebird}};
    if (std::getenv("ALINHAVO_TEST_POSTGRESQL")) // NOLINT(concurrency-mt-unsafe)
        servers.emplace_back("PostgreSQL", TDatabaseServer::PostgreSql);
    for (const auto& [name, server] : servers)
        for (const int lines : {100, 500, 2'000}) {
            TGround ground(server, lines);
            Measure(name, ground, lines);
        }
}
