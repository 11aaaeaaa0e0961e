#pragma once

#include "host/TMDados.h"

#include <functional>
#include <memory>
#include <string>

namespace alinhavo {

/// Opens a database by its address.
using TDatabaseOpener = std::function<std::unique_ptr<TOrvDatabase>(const std::string& address)>;

/// The weighing system's database, opened when it is first used and kept until the session ends.
class TWeighing final : public TMDados {
public:
    /// An empty address: there is none.
    TWeighing(std::string address, TDatabaseOpener opener)
        : address_(std::move(address))
        , opener_(std::move(opener))
    {
    }

    bool Configured() const override { return !address_.empty(); }
    TOrvDatabase& Database() override;
    /// What an earlier transaction left behind is given up.
    void StartTransaction() override { Database().RollbackRetaining(); }
    void Commit() override { Database().CommitRetaining(); }
    void Rollback() override { Database().RollbackRetaining(); }

private:
    std::string address_;
    TDatabaseOpener opener_;
    std::unique_ptr<TOrvDatabase> database_;
};

} // namespace alinhavo
