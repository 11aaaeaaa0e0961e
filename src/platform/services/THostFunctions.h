#pragma once

#include "host/TFuncoes.h"
#include "platform/services/TAttachedFiles.h"
#include "platform/services/TAuditLog.h"
#include "platform/services/TCertificates.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/TInventory.h"
#include "platform/services/TNumbering.h"
#include "platform/services/TParameters.h"
#include "platform/services/TPlanning.h"
#include "platform/services/TPricing.h"
#include "platform/services/TRights.h"
#include "platform/services/TSessionUser.h"
#include "platform/services/TSingleRows.h"
#include "platform/services/TUserSettings.h"

namespace alinhavo {

/// The library of shared functions over one user's connections: each function is its subject's.
class THostFunctions final : public TFuncoes {
public:
    THostFunctions(TOrvDatabase& database, TUserSettings& settings, const TConfiguration& configuration,
        TSessionUser user, const IPasswords& passwords, TLoginGuard& guard);

    TRights& Rights() { return rights_; }

    std::string Proximo(std::string_view table, std::string_view column, int width) override;
    std::string Proximo_FacMov(std::string_view numero, std::string_view setor, std::string_view parte) override;

    std::string BuscaParametro(std::string_view group, int number) override;
    std::string LeIni(std::string_view section, std::string_view key) override;
    std::string LeAjuste(std::string_view section, std::string_view key, std::string_view otherwise) override;
    void GravaAjuste(std::string_view section, std::string_view key, std::string_view value) override;
    std::string BuscaArquivo(std::string_view code, TTipo kind) override;
    std::string PastaPadrao() override;

    std::string vUsuario() const override { return user_.name; }
    std::string vUsuarioCodigo() const override { return user_.code; }
    bool Acessa(TForm& screen, std::string_view screenClass, TDireito right, TNivel level) override;
    void GeraLog(std::string_view module, std::string_view text, TOperacaoLog operation, std::string_view key) override;
    void AcessaLog(TForm& screen, std::string_view module, std::string_view key) override;

    TDateTime CalculaPrevRetorno(
        TDateTime date, std::string_view setor, std::string_view parte, std::string_view numero) override;
    double GeraPreco(std::string_view numero, std::string_view codigo, std::string_view op, std::string_view parte,
        std::string_view codcli, std::string_view cor, std::string_view tam, double quantidade) override;
    bool ValidaCertificados(std::string_view produto, std::string_view faccao, TDateTime date, std::string& mensagem,
        std::string_view tipo) override;
    void CarregaPCPFTOF(const TFiltroPCPFTOF& filtro, TOrvQuery& query) override;
    void GeraInventario(const TColunasInventario& colunas, TDataSet& rows) override;

protected:
    bool ExisteLinha(std::string_view table, std::string_view columns, std::string_view values) override;
    TValue BuscaColuna(
        std::string_view table, std::string_view keyColumns, std::string_view column, std::string_view values) override;

private:
    TSessionUser user_;
    const TConfiguration& configuration_;
    TUserSettings& settings_;
    TSingleRows rows_;
    TNumbering numbering_;
    TParameters parameters_;
    TAttachedFiles files_;
    TRights rights_;
    TAuditLog log_;
    TPlanning planning_;
    TPricing pricing_;
    TCertificates certificates_;
    TInventory inventory_;
};

} // namespace alinhavo
