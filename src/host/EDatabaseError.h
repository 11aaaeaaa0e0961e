#pragma once

#include <stdexcept>
#include <string>

namespace alinhavo {

enum class TDatabaseErrorKind {
    Duplicate, ///< a key or unique index already holds the value
    Referenced, ///< rows of another table hold the row, or the row names one that does not exist
    Lock, ///< another user's pending work holds the row, and the configured wait is over
    NotNull, ///< a key column would be null
    Conversion, ///< a text is too long, or is no number or date
    Syntax, ///< the statement is none, or a value list or bare number in it is none
    Connection, ///< the line to the server is cut; the pending work is lost
    Cancelled, ///< the user gave up waiting
    Other,
};

/// What the database refused. The text is English, of our own making, names kind, table and columns where known
/// ("duplicate value in CADFLUXO (DESCRICAO)") and never quotes the statement. Lock, Connection and Cancelled, which a
/// user meets without having done anything wrong, carry a Portuguese text.
class EDatabaseError : public std::runtime_error {
public:
    EDatabaseError(TDatabaseErrorKind kind, const std::string& text, std::string table = {}, std::string columns = {})
        : std::runtime_error(text)
        , kind_(kind)
        , table_(std::move(table))
        , columns_(std::move(columns))
    {
    }

    TDatabaseErrorKind Kind() const { return kind_; }
    const std::string& Table() const { return table_; }
    const std::string& Columns() const { return columns_; }

private:
    TDatabaseErrorKind kind_;
    std::string table_;
    std::string columns_;
};

} // namespace alinhavo
