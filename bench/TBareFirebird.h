#pragma once

#include "bench/TBareDriver.h"
#include "platform/database/firebird/firebirdApi.h"

#include <map>
#include <string>

namespace alinhavo {

class TBareFirebird final : public TBareDriver {
public:
    TBareFirebird(const TDatabaseAddress& address, const TDialect& dialect);

    void Learn(const std::vector<TStatement>& trace) override;
    void Replay() override;

private:
    struct TParameter {
        unsigned type, length, offset, nullOffset;
    };
    struct TPrepared {
        firebird::TStatementPtr statement;
        firebird::TMetadataPtr input;
        firebird::TMetadataPtr output;
        std::vector<TParameter> parameters;
        std::vector<unsigned char> row;
        bool writes = false;
        bool hasCursor = false;
    };
    struct TStep {
        TPrepared* prepared;
        std::vector<unsigned char> message;
    };

    TPrepared& Prepared(const std::string& sql);
    static std::vector<unsigned char> Message(const TPrepared& prepared, const std::vector<TValue>& values);
    static void Write(const TParameter& parameter, const TValue& value, unsigned char* message);
    firebird::TTransactionPtr Begin(bool writes);
    void Run(TStep& step, Firebird::ITransaction& transaction);

    const TDialect& dialect_;
    firebird::TStatus status_;
    firebird::TAttachmentPtr attachment_;
    firebird::TTransactionPtr reading_;
    std::map<std::string, TPrepared> prepared_;
    std::vector<TStep> steps_;
};

} // namespace alinhavo
