// The query layer beside the bare drivers on the same statements: prepared once, values bound, each value of the result read.
// Prints one line a measurement: how many times as long the query layer takes, and both times. The pairs alternate, and the
// medians count. Then the look-ups that screens make most, by their number a second. PostgreSQL is measured when ALINHAVO_TEST_POSTGRESQL names a server's superuser.

#include "bench/timing.h"
#include "platform/database/firebird/TFirebirdDatabase.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"
#include "platform/services/THashedPasswords.h"
#include "platform/services/TSessionServices.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <endian.h>
#include <filesystem>
#include <functional>
#include <ibase.h>
#include <libpq-fe.h>
#include <unistd.h>

namespace {

using namespace alinhavo;

constexpr int LookUps = 20'000;
constexpr int SliceOfLookUps = 500;
constexpr int Rows = 200'000;
constexpr int Writes = 6'000;
constexpr int SliceOfWrites = 200;
constexpr int Rounds = 9;
constexpr int Colours = 1'000;

/// Does the operations from the one number to before the other.
using TWork = std::function<void(int, int)>;

double sink = 0; ///< what is read is added here, so that nothing is left out

/// Both do `count` operations in slices that alternate, so that the machine's other work falls on both.
void Compare(const char* name, double limit, int count, int slice, const TWork& layer, const TWork& bare)
{
    layer(0, count);
    bare(0, count);
    std::vector<double> ofLayer;
    std::vector<double> ofBare;
    std::vector<double> ratios;
    for (int round = 0; round < Rounds; ++round) {
        double times[2] = {0, 0};
        for (int from = 0; from < count; from += slice) {
            times[0] += Milliseconds([&] { layer(from, from + slice); });
            times[1] += Milliseconds([&] { bare(from, from + slice); });
        }
        ofLayer.push_back(times[0]);
        ofBare.push_back(times[1]);
        ratios.push_back(times[0] / times[1]);
    }
    std::printf("%5.2f x (limit %.2f)  %-44s %9.1f ms  bare %9.1f ms\n", Median(ratios), limit, name, Median(ofLayer),
        Median(ofBare));
    std::fflush(stdout);
}

std::string Colour(int number)
{
    auto text = std::to_string(number % Colours);
    return std::string(6 - text.size(), '0') + text;
}

void Fill(TSqlDatabase& db)
{
    MigrateSchema(db);
    for (int i = 0; i < Colours; ++i)
        db.ExecSQL({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, ?)", Colour(i), "Cor " + std::to_string(i)});
    for (int i = 0; i < 10'000; ++i)
        db.ExecSQL({"INSERT INTO {FACCAO} (NUMERO, PARTE, COR, TAM, MOV, QT_ORIG, QUANT, DT_S) VALUES (?, ?, ?, ?, ?, "
                    "?, ?, ?)",
            Colour(i / 20), "01", Colour(i), "M", i, i * 1.5, i * 0.5, TDateTime::FromDays(20'000 + i % 300)});
    for (int i = 1; i < Rows / 10'000; ++i)
        db.ExecSQL({"INSERT INTO {FACCAO} (NUMERO, PARTE, COR, TAM, MOV, QT_ORIG, QUANT, DT_S)"
                    " SELECT NUMERO, PARTE, COR, TAM, MOV + ?, QT_ORIG, QUANT, DT_S FROM {FACCAO} WHERE MOV < 10000",
            i * 10'000});
    db.CommitRetaining();
}

void LayerLookUps(TSqlDatabase& db, int from, int to)
{
    for (int i = from; i < to; ++i) {
        const TStatement statement("SELECT DESCRICAO FROM {CADCOR} WHERE COR = ?", Colour(i));
        sink += static_cast<double>(db.Open(statement).Column(0).Text(0).size());
    }
}

void LayerFetch(TSqlDatabase& db)
{
    const auto data = db.Open({"SELECT NUMERO, PARTE, COR, TAM, MOV, QT_ORIG, QUANT, DT_S FROM {FACCAO}"});
    sink += static_cast<double>(data.RowCount());
}

void LayerWrites(TSqlDatabase& db, int from, int to)
{
    for (int i = from; i < to; ++i)
        db.ExecSQL({"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES (?, ?, ?)", "001", i, "010"});
    if (to == Writes)
        db.RollbackRetaining();
}

/// `Existe` and `Busca_Valor` as a screen calls them, texts of columns and values included.
void MeasureFunctions(const char* server, TSqlDatabase& db)
{
    TPreferences preferences(db);
    const auto configuration = TConfiguration();
    const THashedPasswords passwords;
    TSessionServices services({
        .database = db,
        .preferences = preferences,
        .configuration = configuration,
        .user = {.code = "001", .name = "ANA"},
        .company = "01",
        .passwords = passwords,
        .openDatabase = {},
    });
    auto& functions = services.Functions();
    const auto measure = [&](const char* name, const std::function<void(int)>& call) {
        std::vector<double> times;
        for (int round = 0; round < Rounds; ++round)
            times.push_back(Milliseconds([&] {
                for (int i = 0; i < LookUps; ++i)
                    call(i);
            }));
        std::printf("%9.0f a second  %s: %s\n", LookUps / Median(times) * 1000, server, name);
        std::fflush(stdout);
    };
    measure("Existe", [&](int i) { sink += functions.Existe("CADCOR", "COR", Aspas(Colour(i))); });
    measure("Busca_Valor", [&](int i) {
        sink += static_cast<double>(
            functions.Busca_Valor("CADCOR", "COR", "DESCRICAO", Aspas(Colour(i))).AsString().size());
    });
}

/// The Firebird client used directly.
class TBareFirebird {
public:
    explicit TBareFirebird(const TDatabaseAddress& address)
        : attachment_(firebird::Attach(address, {}))
    {
        constexpr std::array<unsigned char, 5> parameters{
            isc_tpb_version3, isc_tpb_read, isc_tpb_read_committed, isc_tpb_rec_version, isc_tpb_nowait};
        transaction_.reset(attachment_->startTransaction(&status_, parameters.size(), parameters.data()));
        status_.Check();
        lookUp_.Prepare(*this, "SELECT DESCRICAO FROM CADCOR WHERE COR = ?");
        fetch_.Prepare(*this, "SELECT NUMERO, PARTE, COR, TAM, MOV, QT_ORIG, QUANT, DT_S FROM FACCAO");
    }

    void LookUps(int from, int to)
    {
        for (int i = from; i < to; ++i) {
            const auto colour = Colour(i);
            const auto length = static_cast<ISC_USHORT>(colour.size());
            std::memcpy(lookUp_.input.data(), &length, sizeof length);
            std::memcpy(lookUp_.input.data() + sizeof length, colour.data(), colour.size());
            Run(lookUp_);
        }
    }
    void Fetch() { Run(fetch_); }

private:
    struct TPrepared {
        void Prepare(TBareFirebird& bare, const char* sql)
        {
            statement.reset(bare.attachment_->prepare(
                &bare.status_, bare.transaction_.get(), 0, sql, 3, Firebird::IStatement::PREPARE_PREFETCH_METADATA));
            bare.status_.Check();
            inputMetadata.reset(statement->getInputMetadata(&bare.status_));
            outputMetadata.reset(statement->getOutputMetadata(&bare.status_));
            bare.status_.Check();
            input.resize(inputMetadata->getMessageLength(&bare.status_));
            output.resize(outputMetadata->getMessageLength(&bare.status_));
            for (unsigned i = 0; i < outputMetadata->getCount(&bare.status_); ++i)
                columns.push_back({outputMetadata->getType(&bare.status_, i) & ~1U,
                    outputMetadata->getOffset(&bare.status_, i), outputMetadata->getNullOffset(&bare.status_, i)});
        }

        struct TColumn {
            unsigned type, offset, nullOffset;
        };
        firebird::TStatementPtr statement;
        firebird::TMetadataPtr inputMetadata;
        firebird::TMetadataPtr outputMetadata;
        std::vector<unsigned char> input;
        std::vector<unsigned char> output;
        std::vector<TColumn> columns;
    };

    void Run(TPrepared& prepared)
    {
        auto* cursor = prepared.statement->openCursor(&status_, transaction_.get(), prepared.inputMetadata.get(),
            prepared.input.data(), prepared.outputMetadata.get(), 0);
        status_.Check();
        while (cursor->fetchNext(&status_, prepared.output.data()) == Firebird::IStatus::RESULT_OK)
            for (const auto& column : prepared.columns)
                Read(prepared, column);
        cursor->close(&status_);
        status_.Check();
    }

    static void Read(const TPrepared& prepared, const TPrepared::TColumn& column)
    {
        const auto* at = &prepared.output[column.offset];
        if (prepared.output[column.nullOffset] != 0)
            return;
        if (column.type == SQL_VARYING)
            sink += *reinterpret_cast<const ISC_USHORT*>(at);
        else if (column.type == SQL_DOUBLE)
            sink += *reinterpret_cast<const double*>(at);
        else if (column.type == SQL_INT64)
            sink += static_cast<double>(*reinterpret_cast<const ISC_INT64*>(at));
        else
            sink += *reinterpret_cast<const ISC_DATE*>(at);
    }

    firebird::TStatus status_;
    firebird::TAttachmentPtr attachment_;
    firebird::TTransactionPtr transaction_;
    TPrepared lookUp_;
    TPrepared fetch_;
};

/// libpq used directly.
class TBarePostgreSql {
public:
    explicit TBarePostgreSql(const TDatabaseAddress& address)
        : connection_(PQconnectdb(address.uri.c_str()))
    {
        for (const auto& [name, sql] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"lookup", "SELECT descricao FROM emp01.cadcor WHERE cor = $1"},
                 {"fetch", "SELECT numero, parte, cor, tam, mov, qt_orig, quant, dt_s FROM emp01.faccao"},
                 {"write", "INSERT INTO emp01.fluxo (codigo, ordem, setor) VALUES ($1, $2, $3)"}})
            PQclear(PQprepare(connection_, name, sql, 0, nullptr));
    }
    ~TBarePostgreSql() { PQfinish(connection_); }
    TBarePostgreSql(const TBarePostgreSql&) = delete;
    TBarePostgreSql& operator=(const TBarePostgreSql&) = delete;

    void LookUps(int from, int to)
    {
        for (int i = from; i < to; ++i) {
            const auto colour = Colour(i);
            const char* values[] = {colour.c_str()};
            Run("lookup", 1, values);
        }
    }
    void Fetch() { Run("fetch", 0, nullptr); }
    void Writes(int from, int to)
    {
        if (from == 0)
            PQclear(PQexec(connection_, "BEGIN"));
        for (int i = from; i < to; ++i) {
            const auto order = std::to_string(i);
            const char* values[] = {"001", order.c_str(), "010"};
            Run("write", 3, values);
        }
        if (to == ::Writes)
            PQclear(PQexec(connection_, "ROLLBACK"));
    }

private:
    void Run(const char* name, int count, const char* const* values)
    {
        PGresult* result = PQexecPrepared(connection_, name, count, values, nullptr, nullptr, 1);
        if (PQresultStatus(result) != PGRES_TUPLES_OK && PQresultStatus(result) != PGRES_COMMAND_OK) {
            std::fprintf(stderr, "%s", PQresultErrorMessage(result));
            std::abort();
        }
        for (int row = 0; row < PQntuples(result); ++row)
            for (int column = 0; column < PQnfields(result); ++column)
                sink += Read(result, row, column);
        PQclear(result);
    }

    static double Read(const PGresult* result, int row, int column)
    {
        if (PQgetisnull(result, row, column))
            return 0;
        std::uint64_t bits = 0;
        const int length = PQgetlength(result, row, column);
        if (length == sizeof bits) {
            std::memcpy(&bits, PQgetvalue(result, row, column), sizeof bits);
            return static_cast<double>(be64toh(bits) & 0xFFFF);
        }
        return length;
    }

    PGconn* connection_;
};

void MeasureFirebird()
{
    const auto path = std::filesystem::temp_directory_path() / ("alinhavo-bench-" + std::to_string(getpid()) + ".fdb");
    const auto address = TDatabaseAddress::Parse(path.string());
    CreateDatabase(address, {.forcedWrites = false});
    {
        auto db = OpenDatabase(address);
        Fill(*db);
        TBareFirebird bare(address);
        Compare(
            "Firebird: 20,000 look-ups of a row", 1.15, LookUps, SliceOfLookUps,
            [&](int from, int to) { LayerLookUps(*db, from, to); }, [&](int from, int to) { bare.LookUps(from, to); });
        Compare(
            "Firebird: 200,000 rows of 8 columns", 1.15, 1, 1, [&](int, int) { LayerFetch(*db); },
            [&](int, int) { bare.Fetch(); });
        MeasureFunctions("Firebird", *db);
    }
    DropDatabase(address);
}

void MeasurePostgreSql(const std::string& uri)
{
    const auto address
        = TDatabaseAddress::Parse(uri.substr(0, uri.rfind('/') + 1) + "alinhavo_bench_" + std::to_string(getpid()));
    CreateDatabase(address);
    {
        auto db = OpenDatabase(address);
        Fill(*db);
        TBarePostgreSql bare(address);
        Compare(
            "PostgreSQL: 20,000 look-ups of a row", 1.15, LookUps, SliceOfLookUps,
            [&](int from, int to) { LayerLookUps(*db, from, to); }, [&](int from, int to) { bare.LookUps(from, to); });
        Compare(
            "PostgreSQL: 200,000 rows of 8 columns", 1.15, 1, 1, [&](int, int) { LayerFetch(*db); },
            [&](int, int) { bare.Fetch(); });
        Compare(
            "PostgreSQL: 6,000 writes while work is pending", 1.25, Writes, SliceOfWrites,
            [&](int from, int to) { LayerWrites(*db, from, to); }, [&](int from, int to) { bare.Writes(from, to); });
        MeasureFunctions("PostgreSQL", *db);
    }
    DropDatabase(address);
}

} // namespace

int main()
{
    MeasureFirebird();
    if (const char* uri = std::getenv("ALINHAVO_TEST_POSTGRESQL"))
        MeasurePostgreSql(uri);
    std::printf("(%g values read)\n", sink);
}
