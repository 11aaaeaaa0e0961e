#pragma once

#include <firebird/Interface.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace alinhavo::firebird {

/// What the engine or its client refused, as it says it.
class EFirebird : public std::runtime_error {
public:
    explicit EFirebird(Firebird::IStatus& status);

    bool Has(ISC_STATUS code) const;
    /// The texts that came with the code: names of columns, tables, constraints.
    std::vector<std::string> TextsOf(ISC_STATUS code) const;

private:
    struct TItem {
        ISC_STATUS code;
        std::vector<std::string> texts;
    };
    std::vector<TItem> items_;
};

/// The status that each call of the interface is given; afterwards Check() raises what it holds.
class TStatus {
public:
    TStatus();
    ~TStatus();
    TStatus(const TStatus&) = delete;
    TStatus& operator=(const TStatus&) = delete;

    Firebird::CheckStatusWrapper* operator&() { return &wrapper_; }
    bool Failed() const { return (wrapper_.getState() & Firebird::IStatus::STATE_ERRORS) != 0; }
    void Check()
    {
        if (Failed())
            throw EFirebird(wrapper_);
    }

private:
    Firebird::CheckStatusWrapper wrapper_;
};

/// The engine's entry points. The first call chooses the folder of its lock files.
Firebird::IMaster& Master();

struct TReleaser {
    void operator()(auto* held) const { held->release(); }
};
/// Ends the object at the server; when that fails, because the line is cut, only here.
struct TCloser {
    void operator()(Firebird::IAttachment* attachment) const;
    void operator()(Firebird::ITransaction* transaction) const;
    void operator()(Firebird::IStatement* statement) const;
    void operator()(Firebird::IResultSet* cursor) const;
    void operator()(Firebird::IBlob* blob) const;
};

using TAttachmentPtr = std::unique_ptr<Firebird::IAttachment, TCloser>;
using TTransactionPtr = std::unique_ptr<Firebird::ITransaction, TCloser>;
using TStatementPtr = std::unique_ptr<Firebird::IStatement, TCloser>;
using TCursorPtr = std::unique_ptr<Firebird::IResultSet, TCloser>;
using TBlobPtr = std::unique_ptr<Firebird::IBlob, TCloser>;
using TMetadataPtr = std::unique_ptr<Firebird::IMessageMetadata, TReleaser>;

/// Raises the EDatabaseError that the failure stands for.
[[noreturn]] void RaiseDatabaseError(const EFirebird& failure);
bool IsConnectionLost(const EFirebird& failure);

} // namespace alinhavo::firebird
