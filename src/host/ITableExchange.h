#pragma once

#include "host/TTableDecl.h"

#include <memory>
#include <string>
#include <vector>

namespace alinhavo {

class TOrvQuery;

/// What an import does with a row that is in the table already, and looks otherwise in the file.
enum class TExistingRows { Update, Skip };

/// What a line of a file is for its table.
enum class TLineState {
    New,
    Changed, ///< its row is there and becomes another
    Same,
    Skipped, ///< its row is there, looks otherwise, and stays as it is
    Wrong, ///< it is not written, whatever is asked
};

/// What is to be said of one line. A wrong line has one remark for each thing that is wrong with it.
struct TImportRemark {
    int line = 0; ///< as a spreadsheet program numbers it
    TLineState state = TLineState::New;
    std::string key; ///< of the row, its columns apart by blanks
    std::string column; ///< as the file names it; "" for the line as a whole
    std::string content; ///< of the cell
    std::string reason; ///< Portuguese; of a changed line what it changes
};

/// Lines, not remarks.
struct TImportCounts {
    int added = 0;
    int changed = 0;
    int same = 0;
    int skipped = 0;
    int wrong = 0;

    int Read() const { return added + changed + same + skipped + wrong; }
    int ToWrite() const { return added + changed; }
    friend bool operator==(const TImportCounts&, const TImportCounts&) = default;
};

/// A file that was compared with its table. The table is as it was until Write.
class IImport {
public:
    virtual ~IImport() = default;

    /// Portuguese: as what the file was read.
    virtual const std::string& Form() const = 0;
    virtual const TImportCounts& Counts() const = 0;
    /// Of every line, in their order. Of a file whose titles are wrong those of its titles alone.
    virtual const std::vector<TImportRemark>& Remarks() const = 0;
    /// Writes the new and the changed lines and commits nothing. A failure is an exception, after which the caller rolls back.
    virtual void Write() = 0;
};

/// The tables that people keep, as files (CSV and XLSX) that come in and go out.
class ITableExchange {
public:
    virtual ~ITableExchange() = default;

    /// Compares a file with the table. Raises std::runtime_error with a Portuguese text when it cannot be read, or the table takes
    /// no import.
    virtual std::unique_ptr<IImport> Compare(const TTableDecl& table, const std::string& file, TExistingRows existing)
        = 0;
    /// Opens the query on all rows of the table, in the order of its key, with the columns and titles under which they go out.
    virtual void Show(const TTableDecl& table, TOrvQuery& rows) = 0;
};

/// True where rows come from persons: the others are kept by the module as work goes on, or by the program for itself.
bool TakesImport(const TTableDecl& table);

/// "12 linhas: 10 novas, 1 alterada, 1 igual, nenhuma errada"; what there is none of is left out, save wrong ones.
std::string Summary(const TImportCounts& counts);

/// Under which module an import leaves its line in the audit log, and what the line says.
inline constexpr const char* ImportLog = "IMPORTACAO";
std::string ImportLogText(const std::string& fileName, const TImportCounts& counts);

} // namespace alinhavo
