#pragma once

#include "platform/database/TDatabaseTest.h"
#include "platform/exchange/TTableExchange.h"
#include "platform/report/TWorkFolder.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Files beside the tables of a small factory: products CAM01 and CAL01, colours, sizes, sectors, client 00001, and order
/// 000001 with its grid.
class TImportTest : public TDatabaseTest {
protected:
    void SetUp() override;

    void Execute(const std::vector<TStatement>& statements);
    std::filesystem::path File(const std::string& content) const;
    std::unique_ptr<IImport> Compare(
        std::string_view table, const std::string& content, TExistingRows existing = TExistingRows::Update);
    /// Compared, written and committed.
    TImportCounts Import(
        std::string_view table, const std::string& content, TExistingRows existing = TExistingRows::Update);
    /// "line column: reason" of each remark on a wrong line.
    std::vector<std::string> Errors(std::string_view table, const std::string& content);
    std::string Cell(const std::string& sql) { return db->OpenText(sql).Column(0).Value(0).AsString(); }

    TWorkFolder folder;
};

} // namespace alinhavo
