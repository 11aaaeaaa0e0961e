#pragma once

#include "forms/TTableData.h"
#include "host/ITableExchange.h"
#include "host/TOrvDatabase.h"
#include "platform/exchange/TColumnReader.h"
#include "platform/exchange/TFileTable.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace alinhavo {

/// A file beside its table: read, checked and compared when it is made, written when that is asked.
class TImport final : public IImport {
public:
    TImport(TOrvDatabase& database, const TTableDecl& table, TFileTable file, TExistingRows existing);

    const std::string& Form() const override { return form_; }
    const TImportCounts& Counts() const override { return counts_; }
    const std::vector<TImportRemark>& Remarks() const override { return remarks_; }
    void Write() override;

private:
    /// A column of the file, or of the key where the file lacks it.
    struct TUsedColumn {
        TColumnReader reader;
        std::size_t place = Missing; ///< among the cells of a line
        std::string title;
        bool isKey = false; ///< one of those that tell rows apart

        static constexpr std::size_t Missing = static_cast<std::size_t>(-1);
        const TColumnDecl& Decl() const { return reader.Column(); }
        bool InFile() const { return place != Missing; }
    };

    struct TLine {
        int number = 0;
        TLineState state = TLineState::New;
        std::vector<TValue> values; ///< one for each used column
        std::vector<bool> differs; ///< of a changed line, for each used column
        std::string changes; ///< of a changed line: what, for a person
        std::int64_t identity = 0; ///< of its row, where the table's key is a number that the file does not know
    };

    using TLines = std::vector<TLine*>;
    /// The lines in which a column holds a value, by that value.
    using TLinesByValue = std::unordered_map<std::string, TLines>;

    // The titles
    bool ReadTitles(const TFileTable& file);
    void TakeTitle(int line, const TValue& cell, std::size_t place);
    void TakeKey(int line);

    // The lines by themselves
    void ReadLines(std::vector<TFileLine>& lines);
    void ReadLine(const TFileLine& source, TLine& line);
    void FindRepeatedKeys();
    std::string KeyOf(const TLine& line, char separator) const;

    // The lines beside their rows
    void CompareWithTable();
    std::size_t SearchColumn() const;
    TStatement Select() const;
    void CompareLines(const TLines& lines, const TTableData& rows);
    void CompareRow(TLine& line, const TTableData& rows, std::size_t row);
    std::string KeyOf(const TTableData& rows, std::size_t row) const;

    // What is to be written
    void CheckWrittenLines();
    void CheckRequired(TLine& line);
    void CheckKept(TLine& line);
    void CheckReference(std::size_t column);
    void CheckUnique(std::size_t column);
    void CheckOrdersInProduction();
    bool Writes(const TLine& line, std::size_t column) const;
    TLinesByValue LinesByWritten(std::size_t column);
    std::size_t FindUsed(std::string_view column) const; ///< columns_.size() when it is not used
    bool HasUnique(const TColumnDecl& column) const;

    // What is said
    void Refuse(TLine& line, const TUsedColumn* column, const TValue& content, std::string reason);
    void RefuseTitle(int line, std::string title, std::string reason);
    void TellLines();
    std::string ContentOf(const TLine& line) const;

    // Writing
    void InsertLines();
    void UpdateLines();
    void SettleOrders();
    bool IsUpdated(std::size_t column) const;

    TOrvDatabase& database_;
    const TTableDecl& table_;
    TExistingRows existing_;
    std::string form_;
    std::vector<TUsedColumn> columns_;
    bool hasIdentity_ = false;
    bool mayRepeat_ = false; ///< rows have no key for a person: those that look the same are so many rows
    std::vector<TLine> lines_;
    std::vector<TImportRemark> remarks_;
    TImportCounts counts_;
};

} // namespace alinhavo
