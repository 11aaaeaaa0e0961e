#pragma once

#include "forms/TTableData.h"
#include "platform/database/firebird/firebirdApi.h"
#include "platform/database/TDialect.h"

#include <span>
#include <vector>

namespace alinhavo::firebird {

/// What a parameter or column is on the wire, reduced to what the driver tells apart.
enum class TWireType { Text, Whole, Double, Date, Timestamp, Blob, Boolean };

/// A statement prepared at the engine, with buffers for its values and for a row of its result.
class TFirebirdStatement {
public:
    TFirebirdStatement(
        Firebird::IAttachment& attachment, Firebird::ITransaction& transaction, TServerSql sql, TStatus& status);

    TSqlKind Kind() const { return sql_.kind; }

    /// False when a value does not fit what the engine expects there (a longer text, a fraction where it wants a whole
    /// number): the statement must be run with its values in the text, which compares them by their own type.
    bool Bind(const std::vector<TValue>& values);
    /// Fetches all rows into `result` when it is given; answers the rows touched.
    std::int64_t Run(Firebird::ITransaction& transaction, TTableData* result);

private:
    struct TItem {
        TWireType type;
        unsigned wire; ///< the engine's number of the type
        unsigned offset;
        unsigned nullOffset;
        unsigned length; ///< bytes
        int scale;
        bool isUtf8;
        std::string name; ///< of a column of the result
    };

    void DescribeInput();
    void DescribeOutput();
    static TItem Describe(Firebird::IMessageMetadata& metadata, unsigned index, TStatus& status);

    bool BindValue(const TItem& item, const TValue& value);
    bool BindText(const TItem& item, const TValue& value);
    bool BindWhole(const TItem& item, const TValue& value);
    bool BindDouble(const TItem& item, const TValue& value);
    bool BindDate(const TItem& item, const TValue& value);

    void AddColumns(TTableData& result) const;
    void Fetch(Firebird::ITransaction& transaction, TTableData& result);
    void AppendRow(Firebird::ITransaction& transaction, std::span<TColumnData* const> columns);
    void AppendCell(Firebird::ITransaction& transaction, const TItem& item, TColumnData& column);
    void AppendText(std::string_view text, TColumnData& column) const;
    std::string_view CellText(const TItem& item) const;
    std::string BlobText(Firebird::ITransaction& transaction, const TItem& item);

    TServerSql sql_;
    Firebird::IAttachment& attachment_;
    TStatus& status_;
    TStatementPtr statement_;
    TMetadataPtr inputMetadata_;
    TMetadataPtr outputMetadata_;
    std::vector<TItem> inputs_;
    std::vector<TItem> outputs_;
    std::vector<unsigned char> input_;
    std::vector<unsigned char> output_;
    bool hasCursor_ = false;
};

} // namespace alinhavo::firebird
