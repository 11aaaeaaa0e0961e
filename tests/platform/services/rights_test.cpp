#include "TServicesTest.h"

#include "host/TfmLog.h"
#include "platform/services/setPassword.h"
#include "platform/services/THashedPasswords.h"

namespace alinhavo {
namespace {

class TRightsTest : public TServicesTest {
protected:
    void SetUp() override
    {
        TServicesTest::SetUp();
        if (IsSkipped())
            return;
        Sql("INSERT INTO ACESSO_MENU (NIVEL, NOME_FORM) VALUES ('1.1', 'TfmFacMov')");
        Sql("INSERT INTO ACESSO_MENU (NIVEL, NOME_FORM) VALUES ('1.2', 'TFmFacPreco')");
    }

    bool Acessa(TDireito right, TNivel level = TNivel::Usuario, const char* screen = "TfmFacMov")
    {
        bool allowed = false;
        Do([&] { allowed = Funcoes().Acessa(*form, screen, right, level); });
        return allowed;
    }
};

ON_BOTH_SERVERS(TRightsTest);

TEST_P(TRightsTest, AUserMayWhatHisRowSays)
{
    Sql("INSERT INTO ACESSO (USUARIO, LOCAL, ALTERA, EXCLUI, CONSULTA) VALUES ('001', '1.1', 'Sim', 'Não', 'Sim')");
    EXPECT_TRUE(Acessa(TDireito::Altera));
    EXPECT_TRUE(Acessa(TDireito::Consulta));
    EXPECT_TRUE(user.Read.empty());
    EXPECT_FALSE(Acessa(TDireito::Exclui));
    EXPECT_EQ(user.Read, std::vector<std::string>{"Usuário sem permissão para excluir."});
    EXPECT_EQ(user.Titles, std::vector<std::string>{"Teste"});
}

TEST_P(TRightsTest, WithoutARowHeMayNothing)
{
    Sql("INSERT INTO ACESSO (USUARIO, LOCAL, ALTERA) VALUES ('002', '1.1', 'Sim')");
    EXPECT_FALSE(Acessa(TDireito::Altera));
    EXPECT_FALSE(Acessa(TDireito::Consulta));
    EXPECT_EQ(user.Read.front(), "Usuário sem permissão para incluir ou alterar.");
}

TEST_P(TRightsTest, TheNameOfAScreenIsFoundInAnyCase)
{
    Sql("INSERT INTO ACESSO (USUARIO, LOCAL, ALTERA) VALUES ('001', '1.2', 'Sim')");
    EXPECT_TRUE(Acessa(TDireito::Altera, TNivel::Usuario, "TfmFacPreco"));
}

TEST_P(TRightsTest, ASupervisorVouchesByNameOrCode)
{
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME, SUPERVISOR) VALUES ('009', 'MARIA', 'S')");
    user.Says(TModalResult::Ok, "maria");
    EXPECT_TRUE(Acessa(TDireito::Altera, TNivel::Supervisor));
    user.Says(TModalResult::Ok, "009");
    EXPECT_TRUE(Acessa(TDireito::Altera, TNivel::Supervisor));
}

TEST_P(TRightsTest, NobodyElseDoes)
{
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME, SUPERVISOR) VALUES ('001', 'ANA', 'N')");
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME, SUPERVISOR, BLOQUEADO) VALUES ('008', 'RUI', 'S', 'S')");
    for (const auto* name : {"ANA", "RUI", "NINGUEM", ""}) {
        user.Read.clear();
        user.Says(TModalResult::Ok, name);
        EXPECT_FALSE(Acessa(TDireito::Altera, TNivel::Supervisor)) << name;
        EXPECT_EQ(user.Read, std::vector<std::string>{"Supervisor ou senha inválidos."});
    }
}

TEST_P(TRightsTest, AStepThatIsGivenUpIsRefusedWithoutAWord)
{
    user.Says(TModalResult::Cancel);
    EXPECT_FALSE(Acessa(TDireito::Altera, TNivel::Supervisor));
    EXPECT_TRUE(user.Read.empty());
}

TEST_P(TRightsTest, APasswordIsChecked)
{
    const THashedPasswords hashed;
    db->ExecSQL(
        TStatement("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME, SUPERVISOR, SENHA) VALUES ('009', 'MARIA', 'S', ?)",
            hashed.Hash("açúcar")));
    TLoginGuard guard;
    TRights rights(*db, "001", hashed, guard);
    bool good = false;
    user.Says(TModalResult::Ok, "MARIA", "acucar");
    Do([&] { good = rights.AskSupervisor(*form); });
    EXPECT_FALSE(good);
    user.Says(TModalResult::Ok, "MARIA", "açúcar");
    Do([&] { good = rights.AskSupervisor(*form); });
    EXPECT_TRUE(good);
}

TEST_P(TRightsTest, AnAuditLineHoldsWhoWhenAndWhat)
{
    app->SetNow(TDateTime::FromDateTime(2026, 11, 20, 14, 30, 0));
    Funcoes().GeraLog("MOVIMENTO OF", "MOVIMENTO DE OF NA FACCAO NR. 000123", TOperacaoLog::Processo, "000123");
    EXPECT_TRUE(db->Pending());
    EXPECT_EQ(Cell("SELECT MODULO || '|' || CHAVE || '|' || OPERACAO || '|' || USUARIO || '|' || TEXTO FROM {GERALOG}"),
        "MOVIMENTO OF|000123|3|ANA|MOVIMENTO DE OF NA FACCAO NR. 000123");
    EXPECT_EQ(Cell("SELECT DATA_HORA FROM {GERALOG}"), "20/11/2026 14:30:00");
}

TEST_P(TRightsTest, AnAuditLineIsCutRatherThanLost)
{
    std::string text;
    for (int i = 0; i < 8100; ++i)
        text += "ç";
    Funcoes().GeraLog(std::string(70, 'M'), text, TOperacaoLog::Alteracao, std::string(70, 'K'));
    EXPECT_EQ(Cell("SELECT CHAR_LENGTH(TEXTO) FROM {GERALOG}"), "8000");
    EXPECT_EQ(Cell("SELECT CHAR_LENGTH(MODULO) + CHAR_LENGTH(CHAVE) FROM {GERALOG}"), "120");
}

TEST_P(TRightsTest, TheLogViewerShowsTheLinesOfModuleAndKeyTheNewestFirst)
{
    Funcoes().GeraLog("FLUXO", "primeira", TOperacaoLog::Inclusao, "001");
    Funcoes().GeraLog("FLUXO", "segunda", TOperacaoLog::Financeiro, "001");
    Funcoes().GeraLog("FLUXO", "de outro", TOperacaoLog::Inclusao, "002");
    Funcoes().GeraLog("FACCAO", "de outro", TOperacaoLog::Inclusao, "001");
    std::vector<std::string> shown;
    user.Does({.kind = TUserEvent::TKind::Work, .work = [&] {
                   auto& log = dynamic_cast<TfmLog&>(*app->FindFormByClass("TfmLog"));
                   log.QryLog.ForEach([&] {
                       shown.push_back(log.QryLog.FieldByName("TEXTO").AsString() + "/"
                           + log.QryLog.FieldByName("OPERACAO").AsString());
                   });
               }});
    user.Does({.kind = TUserEvent::TKind::Click, .control = "btnFechar"});
    Do([&] { Funcoes().AcessaLog(*form, "FLUXO", "001"); });
    EXPECT_EQ(shown, (std::vector<std::string>{"segunda/Financeiro", "primeira/Inclusão"}));
    EXPECT_EQ(app->FindFormByClass("TfmLog"), nullptr);
}

TEST_P(TRightsTest, AReportIsRefusedWhileThereIsNoEngine)
{
    TprReport report;
    TprTxReport text;
    Do([&] { services->Services().reports.Chama_Relatorio(report, text, "WFacPen", *form, ""); });
    EXPECT_EQ(services->LastReportRefused(), "WFacPen");
    EXPECT_EQ(user.Read.back(), "O gerador de relatórios não está instalado: \"WFacPen\" não pode ser impresso.");
}

TEST_P(TRightsTest, AUserGetsAPasswordByNameOrCode)
{
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME) VALUES ('009', 'MARIA')");
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME) VALUES ('010', 'JOSE')");
    const auto stored
        = [&](const char* code) { return Cell("SELECT SENHA FROM ACESSO_USUARIOS WHERE CODIGO = ?", code); };
    const THashedPasswords hashed;
    SetPassword(*db, "maria", "primeira");
    EXPECT_TRUE(hashed.Matches(stored("009"), "primeira"));
    SetPassword(*db, "009", "segunda");
    EXPECT_TRUE(hashed.Matches(stored("009"), "segunda"));
    EXPECT_FALSE(hashed.Matches(stored("009"), "primeira"));
    EXPECT_EQ(stored("010"), "null");
    EXPECT_FALSE(db->Pending());
}

TEST_P(TRightsTest, APasswordIsRefusedWithoutEffect)
{
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME) VALUES ('009', 'MARIA')");
    Sql("INSERT INTO ACESSO_USUARIOS (CODIGO, NOME) VALUES ('010', '009')");
    const std::string tooLong(LongestPassword + 1, 'x');
    EXPECT_EQ(Failure([&] { SetPassword(*db, "NINGUEM", "x"); }), "não existe o usuário NINGUEM.");
    EXPECT_EQ(Failure([&] { SetPassword(*db, "009", "x"); }), "mais de um usuário tem o nome ou código 009.");
    EXPECT_EQ(Failure([&] { SetPassword(*db, "MARIA", ""); }), "a senha não pode ficar em branco.");
    EXPECT_EQ(Failure([&] { SetPassword(*db, "MARIA", tooLong); }), "a senha é longa demais.");
    EXPECT_EQ(Cell("SELECT COUNT(SENHA) FROM ACESSO_USUARIOS"), "0");
}

TEST(THashedPasswords, AHashIsAnotherEachTimeAndNeverThePassword)
{
    const THashedPasswords passwords;
    const auto hash = passwords.Hash("segredo");
    EXPECT_TRUE(hash.starts_with("$argon2id$"));
    EXPECT_NE(hash, passwords.Hash("segredo"));
    EXPECT_LE(hash.size(), 200U);
    EXPECT_TRUE(passwords.Matches(hash, "segredo"));
    EXPECT_FALSE(passwords.Matches(hash, "Segredo"));
    EXPECT_FALSE(passwords.Matches("segredo", "segredo"));
    EXPECT_FALSE(passwords.Matches("", ""));
}

} // namespace
} // namespace alinhavo
