#include "example/TfmExemplo.h"

#include "TScriptedUser.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

using TTexts = std::vector<std::string>;

class Exemplo : public testing::Test {
protected:
    Exemplo()
    {
        user.Uses(app);
        app.SetNow(TDateTime::FromDate(2026, 11, 20));
        app.RegisterForm("TfmExemplo", [](TApplication& a) { return std::make_unique<TfmExemplo>(a); });
        EXPECT_EQ(user.Open("TfmExemplo"), "");
    }
    ~Exemplo() override { EXPECT_EQ(user.Unused(), 0U); }

    TfmExemplo& Form() { return static_cast<TfmExemplo&>(*app.FindFormByClass("TfmExemplo")); }
    void FillHeader()
    {
        EXPECT_EQ(user.Type("edtPedido", "123"), "");
        EXPECT_EQ(user.Select("cbCor", 0), "");
        EXPECT_EQ(user.Press("cbCor", "Enter"), "");
    }

    TScriptedUser user;
    TApplication app{user, &user};
};

TEST_F(Exemplo, IsFilledAndConfirmed)
{
    FillHeader();
    EXPECT_EQ(Form().TbBotoes.RecordCount(), 3U);
    EXPECT_EQ(user.TypeCell("dbgBotoes", 1, "Qtde", "40"), "");
    EXPECT_EQ(user.TypeCell("dbgBotoes", 2, "Qtde", "10"), "");
    EXPECT_EQ(Form().edtTotal.text(), "50");
    EXPECT_EQ(Form().dbgBotoes.RowColor(1), TRowColor::Good);
    user.WillAnswer(TModalResult::Yes);
    user.Press("dbgBotoes", "Alt+c");
    EXPECT_EQ(user.Heard(), (TTexts{"Tingimento de Botões: Confirma o tingimento?"}));
    EXPECT_EQ(Form().lblSituacao.Caption(), "Pedidos confirmados: 1.");
    EXPECT_EQ(Form().ActiveControl(), &Form().edtPedido);
    EXPECT_TRUE(Form().TbBotoes.IsEmpty());
}

TEST_F(Exemplo, ShowsTheFirstRefusalOnly)
{
    user.WillAnswer(TModalResult::Ok);
    user.Click("btnConfirmar");
    EXPECT_EQ(user.Heard(), (TTexts{"Tingimento de Botões: Informe o pedido."}));
    EXPECT_EQ(Form().ActiveControl(), &Form().edtPedido);
}

TEST_F(Exemplo, StaysOnAnOrderThatIsNotFound)
{
    user.WillAnswer(TModalResult::Ok);
    user.Type("edtPedido", "900");
    EXPECT_EQ(Form().ActiveControl(), &Form().edtPedido);
    user.Heard();
    user.Press("edtPedido", "Esc");
    EXPECT_EQ(user.Heard(), TTexts{}) << "giving up does not check the order";
    EXPECT_TRUE(Form().edtPedido.empty());
}

TEST_F(Exemplo, WarnsOfALossAboveTheQuantityUntilItIsRead)
{
    FillHeader();
    user.WillAnswer(TModalResult::Cancel);
    user.WillAnswer(TModalResult::Ok);
    EXPECT_EQ(user.TypeCell("dbgBotoes", 0, "Perda", "3"), "");
    EXPECT_EQ(Form().TbBotoes.Sum("Perda"), 0);
}

TEST_F(Exemplo, AsksForAQuantityByF4)
{
    FillHeader();
    user.Cell("dbgBotoes", 0, "Qtde");
    user.WillAnswer(TModalResult::Ok, "12");
    user.Press("dbgBotoes", "F4");
    user.Press("dbgBotoes", "Enter");
    EXPECT_EQ(Form().edtTotal.text(), "12");
    user.Press("dbgBotoes", "Ctrl+Del");
    EXPECT_EQ(Form().edtTotal.text(), "0");
}

TEST_F(Exemplo, DoesNotLeaveAnEarlierDateUnasked)
{
    user.WillAnswer(TModalResult::No);
    user.Type("edtEntrega", "01012020");
    EXPECT_EQ(Form().ActiveControl(), &Form().edtEntrega);
    user.WillAnswer(TModalResult::Yes);
    user.Press("edtEntrega", "Enter");
    EXPECT_NE(Form().ActiveControl(), &Form().edtEntrega);
}

} // namespace
} // namespace alinhavo
