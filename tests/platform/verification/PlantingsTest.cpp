#include "TVerificationTest.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace alinhavo {
namespace {

constexpr auto Error = TSeverity::Error;
constexpr auto Remark = TSeverity::Remark;

/// What breaks one invariant, and all that is found then.
struct TPlanting {
    std::string invariant;
    std::vector<TStatement> statements;
    std::vector<TFinding> findings;
};

std::string Position(std::string_view sector, int id)
{
    return "NUMERO=000001 OP=" + std::string(sector) + " PARTE=01 COR=AZUL TAM=M IDENTIFICADOR=" + std::to_string(id);
}

std::vector<TPlanting> PlantingsInHistory()
{
    return {
        {"historico", {{"UPDATE {FACCAO} SET QUANT_F = 1 WHERE IDENTIFICADOR = 2"}},
            {{Error, "historico", Position("20", 2)}}},
        {"origem_do_historico", {{"UPDATE {FACCAO3} SET TAM = 'G' WHERE IDENTIFICADOR = 2"}},
            {{Error, "origem_do_historico", "NUMERO=000001 OP=20 PARTE=01 COR=AZUL TAM=G IDENTIFICADOR=2"}}},
        {"historico_de_posicao_excluida",
            {{"DELETE FROM {FACCAO} WHERE IDENTIFICADOR = 1"},
                {"UPDATE {FACCAO} SET ID_ANT = 0 WHERE IDENTIFICADOR = 2"}},
            {{Remark, "historico_de_posicao_excluida", Position("10", 1)}}},
        {"movimento_vazio", {Insert(TMovement{})}, {{Error, "movimento_vazio", Position("30", 4)}}},
        {"movimento_vazio_de_parte", {Insert(TMovement{.reprocess = {}})},
            {{Remark, "movimento_vazio_de_parte", Position("30", 4)}}},
        {"quantidade_negativa",
            {{"UPDATE {FACCAO} SET QUANT_F = -1 WHERE IDENTIFICADOR = 2"},
                {"UPDATE {FACCAO3} SET QUANT_F = -1 WHERE IDENTIFICADOR = 2"}},
            {{Error, "quantidade_negativa", Position("20", 2)}, {Error, "movimento_negativo", Position("20", 2)}}},
        {"original_negativa", {Insert(TPosition{.sector = "10", .entered = -1, .good = 0})},
            {{Remark, "original_negativa", Position("10", 4)}, {Remark, "excesso", Position("10", 4)}}},
        {"movimento_negativo", {Insert(TMovement{.lost = -1}), Insert(TMovement{.lost = 1})},
            {{Error, "movimento_negativo", Position("30", 4)}}},
        {"excesso", {{"UPDATE {FACCAO} SET QT_ORIG = 4 WHERE IDENTIFICADOR = 2"}},
            {{Remark, "excesso", Position("20", 2)}}},
        {"fracao",
            {{"UPDATE {FACCAO} SET QUANT = 5.5 WHERE IDENTIFICADOR = 2"},
                {"UPDATE {FACCAO3} SET QUANT = 5.5, VALOR = 5.5 WHERE IDENTIFICADOR = 2"}},
            {{Remark, "fracao", Position("20", 2)}}},
    };
}

std::vector<TPlanting> PlantingsInTree()
{
    return {
        {"posicao_anterior", {Insert(TPosition{.part = "02", .sector = "10", .parent = 3, .reprocess = "30"})},
            {{Error, "posicao_anterior", "NUMERO=000001 OP=10 PARTE=02 COR=AZUL TAM=M IDENTIFICADOR=4"}}},
        {"cor_da_posicao_anterior",
            {Insert(TPosition{.colour = "CRU", .sector = "10", .parent = 3, .reprocess = "30"})},
            {{Remark, "cor_da_posicao_anterior", "NUMERO=000001 OP=10 PARTE=01 COR=CRU TAM=M IDENTIFICADOR=4"}}},
        {"posicao_anterior_excluida",
            {Insert(TPosition{.sector = "20"}), Insert(TPosition{.sector = "10", .parent = 4, .reprocess = "20"}),
                {"DELETE FROM {FACCAO} WHERE IDENTIFICADOR = 4"}},
            {{Remark, "posicao_anterior_excluida", Position("10", 5)}}},
        {"ordem_das_posicoes", {Insert(TPosition{.sector = "10", .parent = 4, .reprocess = "30"})},
            {{Error, "ordem_das_posicoes", Position("10", 4)}}},
        {"aberto_contra_movido", {{"UPDATE {FACCAO} SET QT_ORIG = 6 WHERE IDENTIFICADOR = 3"}},
            {{Error, "aberto_contra_movido", Position("20", 2)}}},
        {"movimento_da_posicao", {{"UPDATE {FACCAO} SET MOV = 9 WHERE IDENTIFICADOR = 3"}},
            {{Remark, "movimento_da_posicao", Position("30", 3)}}},
        {"um_fluxo",
            {{"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES ('002', 1, '30')"},
                {"UPDATE {FACCAO} SET FLUXO = '002' WHERE IDENTIFICADOR = 3"}},
            {{Error, "um_fluxo", "NUMERO=000001 PARTE=01"}}},
        {"setor_fora_do_fluxo", {Insert(TPosition{.sector = "40"})},
            {{Remark, "setor_fora_do_fluxo", "NUMERO=000001 OP=40 PARTE=01 FLUXO=001"}}},
        {"grade_parcial", {Insert(TPosition{.size = "", .sector = "10"})},
            {{Remark, "grade_parcial", "NUMERO=000001 OP=10 PARTE=01"}}},
        {"pacote_sem_posicao",
            {{"INSERT INTO {PCP_PACOTE} (NUMERO, PARTE, SETOR, MOV, PACOTE, COR, TAM, QTDE) VALUES ('000001', '01', "
              "'30', 2, '001', 'AZUL', 'M', 1)"},
                {"INSERT INTO {PCP_PACOTE} (NUMERO, PARTE, SETOR, MOV, PACOTE, COR, TAM, QTDE) VALUES ('000001', '01', "
                 "'30', 9, '001', 'AZUL', 'M', 1)"}},
            {{Remark, "pacote_sem_posicao", "NUMERO=000001 SETOR=30 PARTE=01 MOV=9 COR=AZUL TAM=M"}}},
    };
}

std::vector<TPlanting> PlantingsInOrders()
{
    return {
        {"ordem", {Insert(TPosition{.order = "000009", .sector = "10"})}, {{Error, "ordem", "NUMERO=000009"}}},
        {"ativos", {{"UPDATE {OF1} SET ATIVOS = 9"}}, {{Remark, "ativos", "NUMERO=000001"}}},
        {"canceladas", {{"UPDATE {OF_ITEN} SET QTDE_C = 1"}}, {{Error, "canceladas", "NUMERO=000001 COR=AZUL TAM=M"}}},
        {"canceladas_estornadas", {{"UPDATE {OF_ITEN} SET QTDE_C = 1.5"}},
            {{Remark, "canceladas_estornadas", "NUMERO=000001 COR=AZUL TAM=M"}}},
        {"item_negativo", {{"UPDATE {OF_ITEN} SET QTDE = -4"}, {"UPDATE {OF1} SET ATIVOS = -4"}},
            {{Remark, "item_negativo", "NUMERO=000001 COR=AZUL TAM=M"}}},
        {"item_pronto_negativo", {{"UPDATE {OF_ITEN} SET QTDE_B = -1"}},
            {{Remark, "item_pronto_negativo", "NUMERO=000001 COR=AZUL TAM=M"}}},
        {"prontas", {{"UPDATE {OF_ITEN} SET QTDE_B = 5"}}, {{Remark, "prontas", "NUMERO=000001 COR=AZUL TAM=M"}}},
        {"valor", {{"UPDATE {FACCAO3} SET VALOR = 99 WHERE IDENTIFICADOR = 2"}},
            {{Remark, "valor", Position("20", 2)}}},
    };
}

std::vector<TPlanting> PlantingsInStock()
{
    return {
        {"estoque_de_produtos", {{"UPDATE {PA_ITEN} SET QUANTIDADE = 5"}},
            {{Error, "estoque_de_produtos", "CODIGO=CAM01 COR=AZUL TAM=M QUALIDADE=1 DEPOSITO=01 LOTE=000000"}}},
        {"estoque_de_materiais", {{"UPDATE {MAT_MOV} SET QUANTIDADE = 3 WHERE SAIDA = 'S'"}},
            {{Error, "estoque_de_materiais", "CODIGO=MALHA COR=AZUL QUALIDADE=1 DEPOSITO=02 LOTE=L1"}}},
        {"entrada_no_estoque", {{"UPDATE {PA_MOV} SET COR = 'CRU'"}, {"UPDATE {PA_ITEN} SET COR = 'CRU'"}},
            {{Error, "entrada_no_estoque", "NUMERO=000001 CODIGO=CAM01 COR=AZUL TAM=M"}}},
    };
}

std::vector<TPlanting> Plantings()
{
    std::vector<TPlanting> plantings;
    for (const auto& group : {PlantingsInHistory(), PlantingsInTree(), PlantingsInOrders(), PlantingsInStock()})
        plantings.insert(plantings.end(), group.begin(), group.end());
    return plantings;
}

class Planted : public TVerificationTest {
protected:
    /// Positions and movements are numbered by the database, which a rollback does not take back.
    void StartAnew()
    {
        TearDown();
        SetUp();
    }
};
ON_BOTH_SERVERS(Planted);

TEST_P(Planted, NothingIsFoundInTablesThatAgree) { EXPECT_THAT(Findings(), testing::IsEmpty()); }

TEST_P(Planted, EachViolationIsFoundWithItsSeverityAndKeys)
{
    for (const TPlanting& planting : Plantings()) {
        SCOPED_TRACE(planting.invariant);
        StartAnew();
        Execute(planting.statements);
        EXPECT_THAT(Findings(), testing::ElementsAreArray(planting.findings));
    }
}

TEST(Plantings, EveryInvariantHasOneInItsOrder)
{
    std::vector<std::string> planted;
    for (const TPlanting& planting : Plantings()) {
        planted.push_back(planting.invariant);
        EXPECT_TRUE(std::ranges::any_of(planting.findings, [&](const TFinding& finding) {
            return finding.check == planting.invariant;
        })) << planting.invariant;
    }
    std::vector<std::string> invariants;
    for (const TInvariant& invariant : Invariants())
        invariants.emplace_back(invariant.name);
    EXPECT_THAT(planted, testing::ElementsAreArray(invariants));
}

} // namespace
} // namespace alinhavo
