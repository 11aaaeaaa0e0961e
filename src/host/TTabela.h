#pragma once

#include "host/TOrvTable.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace alinhavo {

/// The data module shared by all screens of a user: the connection, the one transaction and the shared datasets.
class TTabela : public TComponent {
public:
    /// `company` is the key of the current company in EMPRESA.
    TTabela(TOrvDatabase& database, std::string company);
    ~TTabela() override;

    TOrvDatabase& IBDatabase;

    /// Opens or closes a shared dataset by its name, in any case ("tbCadFluxo"). Opens are not counted. Closed, it forgets
    /// its restriction, filter and order: whoever opens it next finds it whole. One whose row is in edit stays as it is,
    /// so that a screen that closes does not take away what is typed in another. An unknown name is a std::logic_error.
    void AbreTabela(std::string_view name);
    void FechaTabela(std::string_view name);
    /// The shared dataset itself, open or not; the same object for the user's whole session.
    TOrvTable& Tabela(std::string_view name);

    /// The current company; always open.
    TOrvTable& tbEmpresa() { return *company_; }
    const std::string& EMP_PAT() const { return emp_pat_; }
    /// The two percentages of labour that the cost of a product entering stock leaves out; 0 when not set.
    double PercentualMaoDeObra1();
    double PercentualMaoDeObra2();

    void CommitRetaining() { IBDatabase.CommitRetaining(); }
    void RollbackRetaining() { IBDatabase.RollbackRetaining(); }

private:
    std::string emp_pat_;
    std::unique_ptr<TOrvTable> company_;
    std::map<std::string_view, std::unique_ptr<TOrvTable>> shared_; ///< made when first asked for
};

} // namespace alinhavo
