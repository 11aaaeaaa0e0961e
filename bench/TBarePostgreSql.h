#pragma once

#include "bench/TBareDriver.h"

#include <libpq-fe.h>
#include <map>
#include <string>

namespace alinhavo {

class TBarePostgreSql final : public TBareDriver {
public:
    TBarePostgreSql(const TDatabaseAddress& address, const TDialect& dialect);

    void Learn(const std::vector<TStatement>& trace) override;
    void Replay() override;

private:
    struct TCloser {
        void operator()(PGconn* connection) const { PQfinish(connection); }
    };
    struct TPrepared {
        std::string name;
        bool writes = false;
    };
    struct TStep {
        const TPrepared* prepared;
        std::vector<std::string> texts;
        std::vector<const char*> values;
    };

    const TPrepared& Prepared(const TStatement& statement);
    void Run(const TStep& step);
    void Command(const char* sql);
    void Check(PGresult* result);

    const TDialect& dialect_;
    std::unique_ptr<PGconn, TCloser> connection_;
    std::map<std::string, TPrepared> prepared_;
    std::vector<TStep> steps_;
};

} // namespace alinhavo
