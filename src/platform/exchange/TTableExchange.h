#pragma once

#include "host/ITableExchange.h"
#include "host/TOrvDatabase.h"

#include <string>
#include <vector>

namespace alinhavo {

/// The tables of a connection's database as files.
class TTableExchange final : public ITableExchange {
public:
    explicit TTableExchange(TOrvDatabase& database)
        : database_(database)
    {
    }

    std::unique_ptr<IImport> Compare(const TTableDecl& table, const std::string& file, TExistingRows existing) override;
    void Show(const TTableDecl& table, TOrvQuery& rows) override;

private:
    TOrvDatabase& database_;
};

/// The remarks on wrong lines as separated text: Linha, Coluna, Conteúdo, Motivo.
std::string ErrorFile(const std::vector<TImportRemark>& remarks);

} // namespace alinhavo
