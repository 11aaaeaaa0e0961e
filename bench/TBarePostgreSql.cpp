#include "bench/TBarePostgreSql.h"

#include <stdexcept>

namespace alinhavo {
namespace {

std::string TextOf(const TValue& value) { return value.IsDate() ? value.AsDateTime().SqlText() : value.AsString(); }

} // namespace

TBarePostgreSql::TBarePostgreSql(const TDatabaseAddress& address, const TDialect& dialect)
    : dialect_(dialect)
    , connection_(PQconnectdb(address.uri.c_str()))
{
    Command("SET datestyle = 'ISO, MDY'; SET jit = off; SET search_path = alinhavo, pg_catalog, emp01, public");
}

void TBarePostgreSql::Learn(const std::vector<TStatement>& trace)
{
    steps_.clear();
    steps_.reserve(trace.size());
    for (const auto& statement : trace) {
        auto& step = steps_.emplace_back(&Prepared(statement));
        for (const auto& value : statement.Values())
            step.texts.push_back(value.IsNull() ? std::string() : TextOf(value));
        for (std::size_t i = 0; i < step.texts.size(); ++i)
            step.values.push_back(statement.Values()[i].IsNull() ? nullptr : step.texts[i].c_str());
    }
}

const TBarePostgreSql::TPrepared& TBarePostgreSql::Prepared(const TStatement& statement)
{
    const auto known = prepared_.find(statement.Text());
    if (known != prepared_.end())
        return known->second;
    const auto translated = dialect_.Translate(statement.Text());
    TPrepared prepared{"s" + std::to_string(prepared_.size()), translated.kind == TSqlKind::Write};
    Check(PQprepare(connection_.get(), prepared.name.c_str(), translated.text.c_str(), 0, nullptr));
    return prepared_.emplace(statement.Text(), std::move(prepared)).first->second;
}

void TBarePostgreSql::Replay()
{
    bool writing = false;
    for (const auto& step : steps_) {
        if (step.prepared->writes && !writing) {
            Command("BEGIN");
            writing = true;
        }
        Run(step);
    }
    if (writing)
        Command("COMMIT");
}

void TBarePostgreSql::Run(const TStep& step)
{
    constexpr int Binary = 1;
    Check(PQexecPrepared(connection_.get(), step.prepared->name.c_str(), static_cast<int>(step.values.size()),
        step.values.data(), nullptr, nullptr, Binary));
}

void TBarePostgreSql::Command(const char* sql) { Check(PQexec(connection_.get(), sql)); }

void TBarePostgreSql::Check(PGresult* result)
{
    const auto status = PQresultStatus(result);
    PQclear(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
        throw std::runtime_error(PQerrorMessage(connection_.get()));
}

} // namespace alinhavo
