#include "TVerificationTest.h"

#include <ostream>

namespace alinhavo {

std::ostream& operator<<(std::ostream& out, const TFinding& finding)
{
    return out << (finding.severity == TSeverity::Error ? "error " : "remark ") << finding.check << ": "
               << finding.keys;
}

TStatement Insert(const TPosition& position)
{
    return {R"(
        INSERT INTO {FACCAO} (NUMERO, CODIGO, COR, TAM, PARTE, OP, FLUXO, CODCLI, MOV, ID_ANT, QT_ORIG, QUANT, QUANT_2,
                              QUANT_I, QUANT_F, REPROCESSO)
        VALUES (?, 'CAM01', ?, ?, ?, ?, '001', '00001', ?, ?, ?, ?, ?, 0, 0, ?))",
        position.order, position.colour, position.size, position.part, position.sector, position.batch, position.parent,
        position.entered, position.good, position.lost, position.reprocess};
}

TStatement Insert(const TMovement& movement)
{
    return {R"(
        INSERT INTO {FACCAO3} (NUMERO, CODIGO, COR, TAM, PARTE, OP, CODCLI, MOV, ID_ANT, QUANT, QUANT_2, QUANT_I, QUANT_F,
                               UNITARIO, VALOR, REPROCESSO, ESTOQUE, PAGO)
        VALUES ('000001', 'CAM01', 'AZUL', 'M', ?, ?, '00001', ?, ?, ?, ?, 0, 0, 1, ?, ?, ?, 'N'))",
        movement.part, movement.sector, movement.batch, movement.source, movement.good, movement.lost, movement.good,
        movement.reprocess, movement.stock};
}

void TVerificationTest::SetUp()
{
    TDatabaseTest::SetUp();
    if (!db)
        return;
    for (const std::string_view sector : {"10", "20", "30", "40"})
        Execute({{"INSERT INTO {CADFLUXO} (CODIGO, IND_PAG) VALUES (?, 1)", sector}});
    for (const std::string_view sector : {"10", "20", "30"})
        Execute({{"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES ('001', ?, ?)", std::stoi(std::string(sector)),
            sector}});
    Execute({
        {"INSERT INTO {TIPO_APL} (CODIGO, ESTOQUE, BAIXA, ATUALIZA) VALUES ('01', 'S', 'S', 'S')"},
        {"INSERT INTO {TIPO_APL} (CODIGO, ESTOQUE, BAIXA, ATUALIZA) VALUES ('02', 'S', 'N', 'S')"},
        {"INSERT INTO {OF1} (NUMERO, CODIGO, ATIVOS, FAC_QTDE) VALUES ('000001', 'CAM01', 4, 'S')"},
        {"INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE, QTDE_B, QTDE_C) VALUES ('000001', 'AZUL', 'M', 4, 4, 2)"},
        Insert(TPosition{.sector = "10", .entered = 10, .good = 8, .lost = 2}),
        Insert(TMovement{.source = 1, .sector = "10", .good = 8, .lost = 2}),
        Insert(TPosition{.sector = "20", .batch = 2, .parent = 1, .entered = 8, .good = 5}),
        Insert(TMovement{.source = 2, .sector = "20", .good = 5}),
        Insert(TPosition{.sector = "30", .batch = 2, .parent = 2, .entered = 5, .good = 4}),
        Insert(TMovement{.source = 3, .sector = "30", .good = 4, .stock = "S"}),
        {R"(INSERT INTO {PA_ITEN} (CODIGO, COR, TAM, TIPO, DEPOSITO, LOTE, QUANTIDADE)
            VALUES ('CAM01', 'AZUL', 'M', '1', '01', '000000', 4))"},
        {R"(INSERT INTO {PA_MOV} (CODIGO, COR, TAM, QUALIDADE, DEPOSITO, LOTE, DOCUMENTO, ORIGEM, SAIDA, QUANTIDADE)
            VALUES ('CAM01', 'AZUL', 'M', '1', '01', '000000', '000001', 'FC', 'N', 4))"},
        {R"(INSERT INTO {MAT_ITEN} (CODIGO, COR, QUALIDADE, DEPOSITO, LOTE, QTDE)
            VALUES ('MALHA', 'AZUL', '1', '02', 'L1', 6))"},
        {R"(INSERT INTO {MAT_MOV} (CODIGO, COR, QUALIDADE, DEPOSITO, LOTE, SAIDA, QUANTIDADE)
            VALUES ('MALHA', 'AZUL', '1', '02', 'L1', 'N', 10))"},
        {R"(INSERT INTO {MAT_MOV} (CODIGO, COR, QUALIDADE, DEPOSITO, LOTE, SAIDA, QUANTIDADE)
            VALUES ('MALHA', 'AZUL', '1', '02', 'L1', 'S', 4))"},
    });
}

void TVerificationTest::Execute(const std::vector<TStatement>& statements)
{
    for (const TStatement& statement : statements)
        db->ExecSQL(statement);
}

std::vector<TFinding> TVerificationTest::Findings()
{
    std::vector<TFinding> findings;
    for (const TViolation& violation : Verify(*db))
        findings.push_back({violation.severity, std::string(violation.check), violation.keys});
    return findings;
}

std::vector<std::string> TVerificationTest::Checks(TSeverity severity)
{
    std::vector<std::string> checks;
    for (const TViolation& violation : Verify(*db)) {
        if (violation.severity == severity)
            checks.emplace_back(violation.check);
    }
    return checks;
}

} // namespace alinhavo
