#include "administration/TfmTrocaSenha.h"

#include "administration/senhaNova.h"
#include "administration/TfmDefineSenha.h"
#include "TAdministrationTest.h"

namespace alinhavo {
namespace {

class TPasswordScreens : public TAdministrationTest {
protected:
    void Change(const std::string& present, const std::string& fresh, const std::string& again)
    {
        user.Read.clear();
        TfmTrocaSenha screen(*app);
        Do([&] {
            screen.edtAtual.SetText(present);
            screen.edtNova.SetText(fresh);
            screen.edtRepetida.SetText(again);
            screen.btnTrocarClick();
        });
        presentAfterwards = screen.edtAtual.text();
    }
    void Change(const std::string& present, const std::string& fresh) { Change(present, fresh, fresh); }

    std::string presentAfterwards;
};

ON_BOTH_SERVERS(TPasswordScreens);

using TTexts = std::vector<std::string>;

TEST_P(TPasswordScreens, APasswordIsChangedByWhoKnowsThePresentOne)
{
    Change(PasswordOfAna, "agulha e dedal");
    EXPECT_EQ(user.Read, TTexts{"A senha foi trocada."});
    EXPECT_TRUE(IsPassword("ANA", "agulha e dedal"));
    EXPECT_FALSE(IsPassword("ANA", PasswordOfAna));
    EXPECT_TRUE(IsPassword("MARIA", PasswordOfMaria));
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(presentAfterwards, "");
}

TEST_P(TPasswordScreens, AWrongPresentPasswordChangesNothing)
{
    Change("linha de bordado", "agulha e dedal");
    EXPECT_EQ(user.Read, TTexts{"A senha atual não confere."});
    EXPECT_TRUE(IsPassword("ANA", PasswordOfAna));
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(presentAfterwards, "");
}

TEST_P(TPasswordScreens, AfterTwoWrongOnesNotEvenTheRightOneIsLookedAtForAWhile)
{
    Change("errada 1", "agulha e dedal");
    Change("errada 2", "agulha e dedal");
    Change(PasswordOfAna, "agulha e dedal");
    EXPECT_EQ(user.Read, TTexts{"Muitas tentativas com senha errada. Espere 1 segundo e tente de novo."});
    EXPECT_TRUE(IsPassword("ANA", PasswordOfAna));
}

TEST_P(TPasswordScreens, TheRulesAreLookedAtBeforeThePresentPassword)
{
    for (const auto* fresh : {"", "curta", "outra coisa"})
        Change("errada", fresh, "diferente");
    Change(PasswordOfAna, "agulha e dedal");
    EXPECT_EQ(user.Read, TTexts{"A senha foi trocada."});
}

TEST_P(TPasswordScreens, NoPasswordStandsInTheLogNorInAStatement)
{
    std::string statements;
    db->OnStatement = [&](const TStatement& statement) { statements += statement.Rendered() + "\n"; };
    Change("linha errada", "agulha e dedal");
    Change(PasswordOfAna, "agulha e dedal");
    TfmDefineSenha screen(*app);
    Do([&] {
        screen.DefineUsuario("MARIA", "MARIA");
        screen.edtNova.SetText("alfinete e fita");
        screen.edtRepetida.SetText("alfinete e fita");
        screen.btnConfirmarClick();
    });
    EXPECT_TRUE(IsPassword("MARIA", "alfinete e fita"));
    EXPECT_EQ(Log(),
        "USUARIOS|ANA|ANA|Senha trocada pelo próprio usuário\n"
        "USUARIOS|MARIA|ANA|Senha do usuário MARIA definida\n");
    EXPECT_NE(statements.find("$argon2id$"), std::string::npos);
    for (const auto* password : {"linha errada", "agulha e dedal", "alfinete e fita", PasswordOfAna})
        EXPECT_EQ(statements.find(password), std::string::npos) << password;
}

std::string Refusal(std::string_view fresh, std::string_view again)
{
    return RecusaDaSenha({.senha = fresh, .repetida = again, .codigo = "00000123", .nome = "Ana Souza"});
}

TEST(NewPassword, IsMeasuredInCharacters)
{
    EXPECT_EQ(Refusal("ção ção", "ção ção"), "A senha precisa ter pelo menos 8 caracteres.");
    EXPECT_EQ(Refusal("ção ção!", "ção ção!"), "");
    const std::string longest(MaiorSenha, 'x');
    EXPECT_EQ(Refusal(longest, longest), "");
    EXPECT_EQ(Refusal(longest + "x", longest + "x"), "A senha pode ter no máximo 50 caracteres.");
}

TEST(NewPassword, IsNotWhatEverybodyKnows)
{
    for (const auto* known : {"00000123", "ANA SOUZA", " ana souza "})
        EXPECT_EQ(Refusal(known, known), "A senha não pode ser o nome nem o código do usuário.") << known;
}

TEST(NewPassword, IsTypedTwiceAlike)
{
    EXPECT_EQ(Refusal("agulha e dedal", "agulha e Dedal"), "A nova senha e a sua repetição são diferentes.");
    EXPECT_EQ(Refusal("", ""), "Informe a nova senha.");
}

} // namespace
} // namespace alinhavo
