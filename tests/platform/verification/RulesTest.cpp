#include "TVerificationTest.h"

#include <gmock/gmock.h>

namespace alinhavo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto Error = TSeverity::Error;
constexpr auto Remark = TSeverity::Remark;

/// What the rules of movement allow, and what they never leave behind.
class Rules : public TVerificationTest { };
ON_BOTH_SERVERS(Rules);

TEST_P(Rules, TwoUsersWhoConfirmTheSameLineAtTheSameMomentGiveRemarksOnly)
{
    Execute({
        {"UPDATE {FACCAO} SET QUANT = QUANT + 5 WHERE IDENTIFICADOR = 2"},
        Insert(TMovement{.source = 2, .sector = "20", .good = 5}),
        Insert(TPosition{.batch = 2, .parent = 2, .entered = 5}),
        {"UPDATE {OF1} SET ATIVOS = 9"},
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("excesso", "ativos"));
}

TEST_P(Rules, AReprocessTakesFromThePositionWithoutAMovement)
{
    Execute({
        {"UPDATE {FACCAO} SET QT_ORIG = QT_ORIG - 1 WHERE IDENTIFICADOR = 3"},
        Insert(TPosition{.sector = "10", .batch = 3, .parent = 3, .entered = 1, .reprocess = "30"}),
    });
    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_P(Rules, AReprocessThatReturnsOpensItsSectorOfOriginAsAnOrdinaryPosition)
{
    Execute({
        {"UPDATE {FACCAO} SET QT_ORIG = QT_ORIG - 1 WHERE IDENTIFICADOR = 3"},
        Insert(TPosition{.sector = "20", .batch = 3, .parent = 3, .entered = 1, .good = 1, .reprocess = "30"}),
        Insert(TMovement{.source = 4, .batch = 4, .sector = "20", .good = 1, .reprocess = "30"}),
        Insert(TPosition{.batch = 4, .parent = 4, .entered = 1}),
    });
    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_P(Rules, AnAdjustedReprocessWhoseSourceWasEmptiedAndDeletedGivesRemarksOnly)
{
    Execute({
        Insert(TPosition{.sector = "10", .batch = 3, .parent = {}, .entered = 0}),
        Insert(TPosition{.sector = "10", .batch = 7, .parent = 4, .entered = 5}),
        {"DELETE FROM {FACCAO} WHERE QT_ORIG <= 0"},
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("posicao_anterior_excluida", "movimento_da_posicao"));
}

TEST_P(Rules, AnAdjustedDispatchSplitsAPositionUnderANumberOfItsOwn)
{
    Execute({
        {"UPDATE {FACCAO} SET QT_ORIG = 4 WHERE IDENTIFICADOR = 3"},
        Insert(TPosition{.colour = "CRU", .batch = 3, .parent = 2, .entered = 1}),
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("cor_da_posicao_anterior", "movimento_da_posicao"));
}

TEST_P(Rules, ALineClosedWithoutOpeningTheNextSectorIsNothingToTell)
{
    Execute({
        {"UPDATE {FACCAO} SET QUANT = QUANT + 3 WHERE IDENTIFICADOR = 2"},
        Insert(TMovement{.source = 2, .batch = 3, .sector = "20", .good = 3}),
    });
    EXPECT_THAT(Findings(), IsEmpty());
}

TEST_P(Rules, APartThatLeftWithAnotherPostsNothingAndMayBeWrittenWithZero)
{
    Execute({
        {"DELETE FROM {PA_MOV}"},
        {"DELETE FROM {PA_ITEN}"},
        {"UPDATE {FACCAO3} SET ESTOQUE = 'N'"},
        Insert(TPosition{.part = "02", .entered = 4, .lost = 4}),
        Insert(TMovement{.source = 4, .part = "02", .lost = 4, .reprocess = {}, .stock = "S"}),
        Insert(TPosition{.part = "02", .entered = 4}),
        Insert(TMovement{.source = 5, .part = "02", .reprocess = {}, .stock = "S"}),
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("movimento_vazio_de_parte"));
}

TEST_P(Rules, LossesOfAPartTakenBackWithoutHavingCountedAreARemark)
{
    Execute({Insert(TPosition{.part = "02"}), {"UPDATE {OF_ITEN} SET QTDE_C = QTDE_C - 1"}});
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("canceladas_estornadas"));
}

TEST_P(Rules, AnOrderWithoutColoursDoesNotTouchItsGrid)
{
    Execute({
        Insert(TPosition{.colour = "", .sector = "10", .entered = 3, .lost = 3}),
        Insert(TMovement{.source = 4, .sector = "10", .lost = 3}),
        {"UPDATE {FACCAO3} SET COR = '' WHERE IDENTIFICADOR = 4"},
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("grade_parcial"));
}

TEST_P(Rules, AReversalOutOfTheLastSectorLeavesTheOpenPiecesOfTheOrderBehind)
{
    Execute({
        {"UPDATE {FACCAO} SET QUANT = 0 WHERE IDENTIFICADOR = 3"},
        {"DELETE FROM {FACCAO3} WHERE IDENTIFICADOR = 3"},
        {"UPDATE {OF_ITEN} SET QTDE = 8, QTDE_B = 0"},
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("ativos"));
}

TEST_P(Rules, AFractionOfALossIsNotCancelled)
{
    Execute({
        {"UPDATE {FACCAO} SET QUANT_2 = 2.75, QT_ORIG = 11 WHERE IDENTIFICADOR = 1"},
        {"UPDATE {FACCAO3} SET QUANT_2 = 2.75 WHERE IDENTIFICADOR = 1"},
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("fracao"));
}

TEST_P(Rules, APositionMayBeTakenBackByOneUserWhileAnotherMovesIt)
{
    Execute({{"DELETE FROM {FACCAO} WHERE IDENTIFICADOR = 2"}});
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), Contains("historico_de_posicao_excluida"));
}

TEST_P(Rules, APositionThatOnlyLossesHaveLeftMayBeTakenByAReversal)
{
    Execute({
        {"UPDATE {FACCAO3} SET QUANT = 0, QUANT_2 = 4, VALOR = 0, ESTOQUE = 'N' WHERE IDENTIFICADOR = 3"},
        {"UPDATE {OF_ITEN} SET QTDE_B = 0, QTDE_C = 6"},
        {"DELETE FROM {FACCAO} WHERE IDENTIFICADOR = 3"},
    });
    EXPECT_THAT(Checks(Error), IsEmpty());
    EXPECT_THAT(Checks(Remark), ElementsAre("historico_de_posicao_excluida"));
}

TEST_P(Rules, AMovementWithoutAnySourceIsAnError)
{
    Execute({{"UPDATE {FACCAO3} SET ID_ANT = NULL WHERE IDENTIFICADOR = 1"}});
    EXPECT_THAT(Checks(Error), ElementsAre("historico", "origem_do_historico"));
}

TEST_P(Rules, AMovementOfAnotherSectorThanItsPositionIsAnError)
{
    Execute({{"UPDATE {FACCAO3} SET OP = '40' WHERE IDENTIFICADOR = 2"}});
    EXPECT_THAT(Checks(Error), ElementsAre("origem_do_historico"));
}

} // namespace
} // namespace alinhavo
