#include "platform/database/copyContents.h"

#include "host/EDatabaseError.h"
#include "platform/database/OpenDatabase.h"
#include "platform/database/schema.h"

#include <algorithm>
#include <memory>
#include <set>

namespace alinhavo {
namespace {

constexpr std::int64_t NumbersAtATime = 20'000; ///< of a table that is read by its own numbers
constexpr std::size_t RowsOfACommit = 10'000;

[[noreturn]] void Refuse(const std::string& why) { throw EDatabaseError(TDatabaseErrorKind::Other, why); }

/// Where the database is made until it is whole.
TDatabaseAddress Unfinished(const TDatabaseAddress& to)
{
    auto address = to;
    if (to.server == TDatabaseServer::Firebird) {
        address.path += ".incompleto";
        return address;
    }
    const auto query = to.uri.find('?');
    const auto path = to.uri.substr(0, query);
    return TDatabaseAddress::Parse(path + "_incompleto" + (query == std::string::npos ? "" : to.uri.substr(query)));
}

/// The database that is made; gone with this unless it was finished.
class TNewDatabase {
public:
    explicit TNewDatabase(const TDatabaseAddress& address)
        : address_(address)
    {
        if (DatabaseExists(address_))
            DropDatabase(address_);
        CreateDatabase(address_, {.forcedWrites = false});
    }
    ~TNewDatabase()
    {
        if (finished_)
            return;
        try {
            DropDatabase(address_);
        } catch (const EDatabaseError&) {
            return; // the failure before this one is what is told
        }
    }
    TNewDatabase(const TNewDatabase&) = delete;
    TNewDatabase& operator=(const TNewDatabase&) = delete;

    void FinishAs(const TDatabaseAddress& name)
    {
        ForceWrites(address_);
        RenameDatabase(address_, name);
        finished_ = true;
    }

private:
    TDatabaseAddress address_;
    bool finished_ = false;
};

/// Copies the tables of one company.
class TTableCopier {
public:
    TTableCopier(TSqlDatabase& source, const TDialect& sourceNames, TSqlDatabase& target)
        : source_(source)
        , names_(sourceNames)
        , target_(target)
    {
    }

    std::int64_t Copy(const TTableDecl& table)
    {
        Compose(table);
        rows_ = 0;
        const auto* number = Number(table);
        if (number)
            CopyByNumbers(*number);
        else
            Write(source_.OpenText(select_, {}));
        target_.CommitRetaining();
        if (number)
            ContinueNumbers(*number);
        return rows_;
    }

private:
    /// The column that the database numbers the rows by; null when the table has none.
    static const TColumnDecl* Number(const TTableDecl& table)
    {
        const auto found = std::ranges::find(table.columns, TColumnKind::Identity, &TColumnDecl::kind);
        return found == table.columns.end() ? nullptr : &*found;
    }

    void Compose(const TTableDecl& table)
    {
        std::string columns;
        std::string marks;
        for (const auto& column : table.columns) {
            columns += (columns.empty() ? "" : ", ") + std::string(column.name);
            marks += marks.empty() ? "?" : ", ?";
        }
        from_ = names_.LocalName(table.name);
        into_ = target_.Dialect().LocalName(table.name);
        select_ = "SELECT " + columns + " FROM " + from_;
        insert_ = "INSERT INTO " + into_ + " (" + columns + ") VALUES (" + marks + ")";
    }

    std::int64_t Largest(const TColumnDecl& number)
    {
        const auto found = source_.OpenText("SELECT MAX(" + std::string(number.name) + ") AS LAST FROM " + from_);
        return found.Column(0).Value(0).AsInteger();
    }

    void CopyByNumbers(const TColumnDecl& number)
    {
        const std::string column(number.name);
        const auto least = source_.OpenText("SELECT MIN(" + column + ") AS FIRST FROM " + from_);
        if (least.Column(0).IsNull(0))
            return;
        const auto last = Largest(number);
        for (auto first = least.Column(0).Integer(0); first <= last; first += NumbersAtATime)
            Write(source_.OpenText(
                select_ + " WHERE " + column + " >= ? AND " + column + " < ?", {first, first + NumbersAtATime}));
    }

    void Write(const TTableData& rows)
    {
        std::vector<TValue> values(rows.ColumnCount());
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            for (std::size_t column = 0; column < values.size(); ++column)
                values[column] = rows.Column(column).Value(row);
            target_.ExecText(insert_, values);
            if (++rows_ % RowsOfACommit == 0)
                target_.CommitRetaining();
        }
    }

    void ContinueNumbers(const TColumnDecl& number)
    {
        target_.ExecText("ALTER TABLE " + into_ + " ALTER COLUMN " + std::string(number.name) + " RESTART WITH "
            + std::to_string(Largest(number) + 1));
        target_.CommitRetaining();
    }

    TSqlDatabase& source_;
    const TDialect& names_;
    TSqlDatabase& target_;
    std::string from_;
    std::string into_;
    std::string select_;
    std::string insert_;
    std::int64_t rows_ = 0;
};

/// The global tables come with the first company.
void CopyCompany(TSqlDatabase& source, const TDatabaseAddress& from, const TDatabaseAddress& into,
    const std::string& company, bool first, TCopiedContents& copied, const std::function<void(std::string_view)>& told)
{
    const auto names = OpenDatabase(from, {.company = company});
    const auto target = OpenDatabase(into, {.company = company});
    CreateTables(*target);
    TTableCopier copier(source, names->Dialect(), *target);
    for (const auto& table : Tables()) {
        if (table.global && !first)
            continue;
        if (told)
            told(table.name);
        copied.rows += copier.Copy(table);
        ++copied.tables;
    }
    MigrateSchema(*target);
    RefreshStatistics(*target);
}

} // namespace

TCopiedContents CopyContents(const TDatabaseAddress& from, const TDatabaseAddress& to, bool replace,
    const std::function<void(std::string_view)>& told)
{
    if (!replace && DatabaseExists(to))
        Refuse("Já existe um banco de dados em " + to.Text() + ".");
    if (DatabaseExists(to))
        OpenDatabase(to); // refused while another process serves it
    const auto source = OpenDatabase(from);
    if (SchemaVersion(*source) != CurrentSchemaVersion)
        Refuse("O banco de dados " + from.Text() + " não é da versão deste programa.");
    const auto companies = Companies(*source);
    source->HoldSnapshot();

    const auto unfinished = Unfinished(to);
    TNewDatabase made(unfinished);
    TCopiedContents copied;
    for (const auto& company : companies)
        CopyCompany(*source, from, unfinished, company, company == companies.front(), copied, told);
    made.FinishAs(to);
    return copied;
}

} // namespace alinhavo
