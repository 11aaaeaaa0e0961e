#include "faults/TWorkshop.h"

#include "host/TTableDecl.h"
#include "master/TfmFacFluxo.h"
#include "movement/TfmFacMov.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/verification/TVerification.h"

#include <algorithm>
#include <stdexcept>

namespace alinhavo {
namespace {

void FillRegisters(TSqlDatabase& database)
{
    for (const char* sql :
        {
            "INSERT INTO PARAMETRO (GRUPO, NUMERO, VALOR) VALUES ('FAC', 20, 'N')",
            "INSERT INTO PARAMETRO (GRUPO, NUMERO, VALOR) VALUES ('FAC', 80, '00001')",
            "INSERT INTO PARAMETRO (GRUPO, NUMERO, VALOR) VALUES ('FAC', 240, 'N')",
            "INSERT INTO CADFLUXO (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES ('10', 'CORTE', 1, 1, 7)",
            "INSERT INTO CADFLUXO (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES ('20', 'COSTURA', 1, 1, 7)",
            "INSERT INTO CADFLUXO (CODIGO, DESCRICAO, IND_PAG, DIAS, DIAS_SEMANA) VALUES ('30', 'ACABAMENTO', 1, 1, 7)",
            "INSERT INTO ROTEIRO (CODIGO, DESCRICAO, ORDEM, BAIXALIVRE) VALUES ('F01', 'CAMISARIA', 0, 'N')",
            "INSERT INTO FLUXO (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES ('F01', 1, '10', 'CORTE')",
            "INSERT INTO FLUXO (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES ('F01', 2, '20', 'COSTURA')",
            "INSERT INTO FLUXO (CODIGO, ORDEM, SETOR, DESCRICAO) VALUES ('F01', 3, '30', 'ACABAMENTO')",
            "INSERT INTO TIPO_APL (CODIGO, DESCRICAO, ESTOQUE, BAIXA, ATUALIZA) VALUES ('01', 'Corpo', 'N', 'N', 'S')",
            "INSERT INTO TABTAM (TAM, ACRESCIMO) VALUES ('P', 1)",
            "INSERT INTO TABTAM (TAM, ACRESCIMO) VALUES ('M', 1)",
            "INSERT INTO CADCOR (COR, DESCRICAO) VALUES ('000009', 'Azul')",
            "INSERT INTO PRODUTO (CODIGO, DESCRICAO, ESTOQUE, ATIVO) VALUES ('CAM01', 'Camisa', 'S', 'S')",
            "INSERT INTO PRO_FLUXO (CODIGO, PARTE, FLUXO, PADRAO) VALUES ('CAM01', '01', 'F01', 'S')",
            "INSERT INTO ENTIDADE (CODCLI, NOME, BLOQUEIO) VALUES ('00001', 'Confecções Alvorada', 'N')",
            "INSERT INTO ENTIDADE (CODCLI, NOME, BLOQUEIO) VALUES ('00010', 'Facção Boa Vista', 'N')",
        })
        database.ExecText(sql);
}

void FillOrder(TSqlDatabase& database, std::string_view order)
{
    database.ExecSQL(
        {"INSERT INTO {OF1} (NUMERO, CODIGO, PEDIDO, ATIVOS, FAC_QTDE) VALUES (?, 'CAM01', '', 20, 'N')", order});
    for (const std::string_view size : {"P", "M"}) {
        database.ExecSQL(
            {"INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE, QTDE_B, QTDE_C) VALUES (?, '000009', ?, 10, 0, 0)", order,
                size});
        database.ExecSQL({R"(INSERT INTO {FACCAO} (NUMERO, CODIGO, COR, TAM, PARTE, OP, FLUXO, CODCLI, MOV, QT_ORIG,
            QUANT, QUANT_2, QUANT_I, QUANT_F) VALUES (?, 'CAM01', '000009', ?, '01', '20', 'F01', '00010', 4, 10, 0, 0,
            0, 0))",
            order, size});
    }
}

void OpenMovement(TWorkshop& workshop) { workshop.clerk.Open("TfmFacMov"); }

void PrepareConfirmation(TWorkshop& workshop)
{
    OpenMovement(workshop);
    workshop.EnterMovement(TWorkshop::Order);
}

void Confirm(TWorkshop& workshop) { workshop.clerk.Click("btn00Confirmar"); }

void PrepareReversal(TWorkshop& workshop)
{
    OpenMovement(workshop);
    workshop.ConfirmMovement(TWorkshop::Order);
    auto& clerk = workshop.clerk;
    clerk.Turn("PageControl2", 2);
    clerk.Type("edtM02OF", TWorkshop::Order);
    clerk.Select("CbEstorParte", 0);
    clerk.Click("BitBtn1");
    clerk.GoTo("DBGrid3", 0, "MOV");
}

void Reverse(TWorkshop& workshop) { workshop.clerk.Click("BitBtn6"); }

void PrepareRemoval(TWorkshop& workshop)
{
    OpenMovement(workshop);
    workshop.clerk.Turn("PageControl2", 0);
    workshop.clerk.Type("edtM01OF", TWorkshop::Order);
}

void Remove(TWorkshop& workshop) { workshop.clerk.Click("BtnExclusao"); }

void PrepareFlow(TWorkshop& workshop)
{
    auto& clerk = workshop.clerk;
    clerk.Open("TfmFacFluxo");
    clerk.Type("EdtFluxo", "F01");
    clerk.Type("EdtDescFluxo", "CAMISARIA LEVE");
}

void SaveFlow(TWorkshop& workshop) { workshop.clerk.Click("BitBtn1"); }

} // namespace

void TWorkshop::Fill(TSqlDatabase& database)
{
    FillEmptyDatabase(database);
    FillRegisters(database);
    for (const auto order : {Order, NextOrder})
        FillOrder(database, order);
    database.CommitRetaining();
}

TWorkshop::TWorkshop(const TDatabaseAddress& address)
    : database(OpenDatabase(address))
    , other_(OpenDatabase(address))
    , preferences_(*other_)
    , session_(std::make_unique<TSession>(clerk, nullptr,
          TSessionSetup{.database = database,
              .preferences = preferences_,
              .configuration = configuration_,
              .user = FindUser(*other_, "ADMIN").value(),
              .company = "01",
              .passwords = passwords_,
              .openDatabase = {}}))
{
    session_->SetNow(TDateTime::FromDateTime(2026, 11, 20, 12, 0, 0));
    session_->RegisterForm("TfmFacMov", [](TApplication& maker) { return std::make_unique<TfmFacMov>(maker); });
    session_->RegisterForm("TfmFacFluxo", [](TApplication& maker) { return std::make_unique<TfmFacFluxo>(maker); });
    clerk.Uses(*session_);
}

void TWorkshop::EnterMovement(std::string_view order)
{
    clerk.Click("btn00Incluir");
    clerk.Type("edtOFNum", order);
    clerk.Select("CbParte", 0);
    clerk.Type("EdtSetor", "20");
    clerk.Select("cbMovimento", Screen<TfmFacMov>("TfmFacMov").cbMovimento.IndexOfPrefix("4"));
    clerk.Pass("cbMovimento");
    clerk.Pass("edtFaccao");
    clerk.Type("edtFacDest", "00001");
    for (const std::size_t row : {0U, 1U})
        clerk.TryCell("dbg00Grade", row, "Quant", "8");
}

void TWorkshop::ConfirmMovement(std::string_view order)
{
    EnterMovement(order);
    clerk.Click("btn00Confirmar");
}

bool TWorkshop::Moved(std::string_view order)
{
    const auto found = other_->Open({"SELECT SUM(QUANT) FROM {FACCAO3} WHERE NUMERO = ? AND OP = '20'", order});
    return found.Column(0).Value(0).AsFloat() == 16;
}

const std::vector<TOperation>& Operations()
{
    static const std::vector<TOperation> all{
        {"confirmation", PrepareConfirmation, Confirm},
        {"reversal", PrepareReversal, Reverse},
        {"removal", PrepareRemoval, Remove},
        {"flow", PrepareFlow, SaveFlow},
    };
    return all;
}

const TOperation& FindOperation(std::string_view name)
{
    const auto found = std::ranges::find_if(Operations(), [&](const TOperation& each) { return each.name == name; });
    if (found == Operations().end())
        throw std::invalid_argument("no operation " + std::string(name));
    return *found;
}

std::string Committed(TSqlDatabase& database)
{
    std::vector<std::string> lines;
    for (const TTableDecl& table : Tables()) {
        if (table.name == "PREFERENCIA")
            continue;
        const TName name(table.name);
        const auto rows
            = database.Open(table.global ? TStatement("SELECT * FROM ?", name) : TStatement("SELECT * FROM {?}", name));
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            std::string line(table.name);
            for (std::size_t column = 0; column < rows.ColumnCount(); ++column)
                line += " " + rows.Column(column).Name() + "=" + rows.Column(column).Value(row).AsString();
            lines.push_back(std::move(line));
        }
    }
    std::ranges::sort(lines);
    std::string text;
    for (const auto& line : lines)
        text += line + "\n";
    return text;
}

std::vector<std::string> Errors(TSqlDatabase& database)
{
    std::vector<std::string> errors;
    for (const auto& violation : Verify(database)) {
        if (violation.severity == TSeverity::Error)
            errors.push_back(std::string(violation.check) + ": " + violation.keys);
    }
    return errors;
}

} // namespace alinhavo
