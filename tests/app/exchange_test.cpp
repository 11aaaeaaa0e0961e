#include "TDemoTest.h"

#include "host/TTableDecl.h"
#include "platform/exchange/exportTable.h"
#include "platform/exchange/TImport.h"
#include "platform/report/TWorkFolder.h"

#include <fstream>

namespace alinhavo {
namespace {

class ExchangeOfDemo : public TDemoTest {
protected:
    /// Every table that is not the program's own comes back from its file as it went out.
    void ExpectSameAgain(TFileForm form)
    {
        int rows = 0;
        for (const TTableDecl& table : Tables()) {
            if (table.keeper == TKeeper::System)
                continue;
            const auto file = folder.Path() / "tabela";
            std::ofstream(file, std::ios::binary) << ExportTable(*db, table, form);
            const TImport import(*db, table, ReadTableFile(file), TExistingRows::Update);
            const int there = Count({"SELECT COUNT(*) FROM {?}", TName(table.name)});
            EXPECT_EQ(
                import.Counts(), (TImportCounts{.added = 0, .changed = 0, .same = there, .skipped = 0, .wrong = 0}))
                << table.name << ": " << Summary(import.Counts()) << " "
                << (import.Remarks().empty()
                           ? ""
                           : import.Remarks().front().column + ": " + import.Remarks().front().reason);
            rows += there;
        }
        EXPECT_GT(rows, 10'000);
    }

    TWorkFolder folder;
};
ON_BOTH_SERVERS(ExchangeOfDemo);

TEST_P(ExchangeOfDemo, EveryTableComesBackFromSeparatedTextAsItWentOut) { ExpectSameAgain(TFileForm::Csv); }

TEST_P(ExchangeOfDemo, EveryTableComesBackFromAWorkbookAsItWentOut) { ExpectSameAgain(TFileForm::Xlsx); }

TEST_P(ExchangeOfDemo, NoPasswordGoesOut)
{
    const auto users = ExportTable(*db, *FindTable("ACESSO_USUARIOS"), TFileForm::Csv);
    EXPECT_EQ(users.find("argon2"), std::string::npos);
    EXPECT_EQ(users.find("SENHA"), std::string::npos);
}

} // namespace
} // namespace alinhavo
