#pragma once

#include "host/TOrvQuery.h"
#include "host/TOrvTable.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// The data module shared by all screens of a user: the connection, the one transaction and the shared datasets.
class TTabela : public TComponent {
public:
    explicit TTabela(TOrvDatabase& database);
    ~TTabela() override;

    TOrvDatabase& IBDatabase;

    /// Opens or closes a shared dataset by its name, in any case ("tbCadFluxo"). Opens are not counted. An unknown name
    /// is a std::logic_error.
    void AbreTabela(std::string_view name);
    void FechaTabela(std::string_view name);
    /// The shared dataset itself.
    TOrvTable& Tabela(std::string_view name);

    /// The current company; always open.
    TOrvTable& tbEmpresa();
    std::string EMP_PAT();
    /// The two percentages of labour that the cost of a product entering stock leaves out.
    double PercentualMaoDeObra1();
    double PercentualMaoDeObra2();

    void CommitRetaining() { IBDatabase.CommitRetaining(); }
    void RollbackRetaining() { IBDatabase.RollbackRetaining(); }

private:
    struct TShared;
    std::unique_ptr<TShared> shared_;
};

} // namespace alinhavo
