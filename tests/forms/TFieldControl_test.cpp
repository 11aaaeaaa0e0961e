#include "forms/TDBCheckBox.h"
#include "forms/TDBComboBox.h"
#include "forms/TDBDateEdit.h"
#include "forms/TDBEdit.h"
#include "forms/TDBMemo.h"
#include "forms/TDBNumberEdit.h"
#include "forms/TDBRadioGroup.h"
#include "forms/TMemTable.h"
#include "TfmProbe.h"

namespace alinhavo {
namespace {

struct TTbSetor : TMemTable {
    TStringField Codigo{*this, "Codigo", 3};
    TFloatField Preco{*this, "Preco", {.decimals = 2}};
    TDateField Data{*this, "Data"};
    TStringField Livre{*this, "Livre", 1};
    TIntegerField Paga{*this, "Paga"};
    TStringField Cor{*this, "Cor", 10};
};

class TfmCadastro final : public TForm {
public:
    explicit TfmCadastro(TApplication& app)
        : TForm(app, "TfmCadastro", "Cadastro")
    {
    }
    TTbSetor tb;
    TDBEdit DBCodigo{*this, "DBCodigo", tb.Codigo, {.maxLength = 3}};
    TDBNumberEdit DBPreco{*this, "DBPreco", tb, "Preco"};
    TDBDateEdit DBData{*this, "DBData", tb.Data};
    TDBCheckBox DBLivre{*this, "DBLivre", tb.Livre};
    TDBRadioGroup DBPaga{*this, "DBPaga", tb.Paga, {.items = {"Primeira", "Todas"}, .values = {"1", "3"}}};
    TDBComboBox DBCor{*this, "DBCor", tb.Cor, {.items = {"Azul", "Verde"}}};
    TDBMemo DBObs{*this, "DBObs", tb, "Obs"};
    TButton BtnGrava{*this, "BtnGrava", {.takesFocus = false}};
    TEdit edtLivre{*this, "edtLivre"};
};

class BoundControls : public testing::Test {
protected:
    BoundControls()
    {
        user.Uses(app);
        form.Show();
        for (const auto* codigo : {"010", "020"}) {
            form.tb.Append();
            form.tb.Codigo = codigo;
            form.tb.Preco = 1.5;
            form.tb.Data = TDateTime::FromDate(2026, 11, 20);
            form.tb.Livre = "S";
            form.tb.Paga = 3;
            form.tb.Cor = "Verde";
            form.tb.Post();
        }
    }
    ~BoundControls() override { EXPECT_EQ(user.Unused(), 0U); }

    TScriptedUser user;
    TApplication app{user, &user};
    TfmCadastro form{app};
};

TEST_F(BoundControls, ShowTheCurrentRowAsItMoves)
{
    form.tb.First();
    EXPECT_EQ(form.DBCodigo.text(), "010");
    EXPECT_EQ(form.DBPreco.text(), "1,50");
    EXPECT_EQ(form.DBData.text(), "20/11/2026");
    EXPECT_TRUE(form.DBLivre.Checked());
    EXPECT_EQ(form.DBPaga.ItemIndex(), 1);
    EXPECT_EQ(form.DBCor.ItemIndex(), 1);
    form.tb.Next();
    EXPECT_EQ(form.DBCodigo.text(), "020");
}

TEST_F(BoundControls, AreBlankForNullsAndWithoutRows)
{
    form.tb.Append();
    EXPECT_EQ(form.DBCodigo.text(), "");
    EXPECT_EQ(form.DBPreco.text(), "");
    EXPECT_EQ(form.DBData.text(), "  /  /    ");
    EXPECT_FALSE(form.DBLivre.Checked());
    EXPECT_EQ(form.DBPaga.ItemIndex(), -1);
    form.tb.Cancel();
    form.tb.EmptyTable();
    EXPECT_EQ(form.DBData.text(), "  /  /    ");
}

TEST_F(BoundControls, ShowAFieldThatCodeChanges)
{
    int changes = 0;
    form.DBCodigo.OnChange.connect([&] { ++changes; });
    form.tb.Edit();
    form.tb.Codigo = "099";
    EXPECT_EQ(form.DBCodigo.text(), "099");
    EXPECT_EQ(changes, 1);
}

TEST_F(BoundControls, AreReadOnlyUntilTheRowIsInEdit)
{
    EXPECT_TRUE(form.DBCodigo.ReadOnly());
    EXPECT_NE(user.Type("DBCodigo", "1"), "");
    form.tb.Edit();
    EXPECT_FALSE(form.DBCodigo.ReadOnly());
    form.tb.Codigo.options.readOnly = true;
    EXPECT_TRUE(form.DBCodigo.ReadOnly());
}

TEST_F(BoundControls, WriteTheirFieldBeforeOnExit)
{
    form.tb.Edit();
    std::string seen;
    form.DBCodigo.OnExit.connect([&] { seen = form.tb.Codigo.value(); });
    EXPECT_EQ(user.Type("DBCodigo", "030"), "");
    EXPECT_EQ(seen, "030");
}

TEST_F(BoundControls, WriteNothingWhileAPersonTypes)
{
    form.tb.Edit();
    user.Focus("DBCodigo");
    user.Do({.kind = TUserEvent::TKind::Text, .control = "DBCodigo", .text = "0"});
    EXPECT_EQ(form.tb.Codigo.value(), "020");
    form.tb.Preco = 9;
    EXPECT_EQ(form.DBCodigo.text(), "0") << "what is typed stays when other fields change";
}

TEST_F(BoundControls, ShowWhyATextIsNoNumberAndKeepTheFocus)
{
    form.tb.Edit();
    user.Focus("DBPreco");
    user.WillAnswer(TModalResult::Ok);
    user.Type("DBPreco", "abc");
    EXPECT_EQ(user.Heard(), (std::vector<std::string>{"Alinhavo: \"abc\" não é um número válido."}));
    EXPECT_EQ(form.ActiveControl(), &form.DBPreco);
    EXPECT_EQ(form.tb.Preco.value(), 1.5);
    EXPECT_EQ(user.Type("DBPreco", "2,5"), "");
    EXPECT_EQ(form.tb.Preco.value(), 2.5);
    EXPECT_EQ(form.DBPreco.text(), "2,50");
}

TEST_F(BoundControls, WriteDatesTicksOptionsAndItems)
{
    form.tb.Edit();
    user.Type("DBData", "1/2/26");
    EXPECT_EQ(form.tb.Data.value(), TDateTime::FromDate(2026, 2, 1));
    user.Type("DBData", "");
    EXPECT_TRUE(form.tb.Data.IsNull());
    user.Check("DBLivre", false);
    EXPECT_EQ(form.tb.Livre.value(), "N");
    user.Select("DBPaga", 0);
    EXPECT_EQ(form.tb.Paga.value(), 1);
    user.Select("DBCor", 0);
    user.Press("DBCor", "Enter");
    EXPECT_EQ(form.tb.Cor.value(), "Azul");
}

TEST_F(BoundControls, TakeTheirFieldAtOnceWhenCodeSetsThem)
{
    form.tb.Edit();
    form.DBCodigo.SetText("055");
    form.DBLivre.SetChecked(false);
    form.DBPaga.SetItemIndex(0);
    EXPECT_EQ(form.tb.Codigo.value(), "055");
    EXPECT_EQ(form.tb.Livre.value(), "N");
    EXPECT_EQ(form.tb.Paga.value(), 1);
}

TEST_F(BoundControls, WriteBeforeAButtonThatLeavesTheFocusActs)
{
    form.tb.Edit();
    form.BtnGrava.OnClick.connect([&] { form.tb.Post(); });
    user.Focus("DBCodigo");
    user.Do({.kind = TUserEvent::TKind::Text, .control = "DBCodigo", .text = "077"});
    user.Click("BtnGrava");
    EXPECT_EQ(form.tb.Codigo.value(), "077");
    EXPECT_EQ(form.tb.State(), TDataSetState::Browse);
}

TEST_F(BoundControls, ShowAFieldThatIsMadeLater)
{
    EXPECT_EQ(form.DBObs.Field(), nullptr);
    form.tb.EmptyTable();
    form.tb.AddField("Obs", TFieldKind::Text, 100);
    form.tb.Append();
    form.tb.FieldByName("Obs").Set("um\ndois");
    EXPECT_EQ(form.DBObs.text(), "um\ndois");
    EXPECT_FALSE(form.DBObs.ReadOnly());
}

TEST_F(BoundControls, ShowAnErrorOfTheirChangeHandlerWithoutDisturbingTheDataset)
{
    form.DBCodigo.OnChange.connect([] { throw std::runtime_error("falhou"); });
    user.WillAnswer(TModalResult::Ok);
    form.tb.First();
    EXPECT_EQ(form.tb.RecNo(), 1U);
    EXPECT_EQ(user.Heard(), (std::vector<std::string>{"Alinhavo: falhou"}));
}

} // namespace
} // namespace alinhavo
