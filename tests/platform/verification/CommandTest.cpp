#include "TVerificationTest.h"

#include "app/command_verifica.h"

#include <gmock/gmock.h>

namespace alinhavo {
namespace {

using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

class Verifica : public TVerificationTest {
protected:
    int Run(const std::string& database)
    {
        CaptureStdout();
        CaptureStderr();
        const int code = RunVerifica({.database = database});
        out = GetCapturedStdout();
        err = GetCapturedStderr();
        return code;
    }
    int Run()
    {
        db->CommitRetaining();
        return Run(IsFirebird() ? Address().path : Address().uri);
    }

    std::string out, err;
};
ON_BOTH_SERVERS(Verifica);

TEST_P(Verifica, EndsWithZeroWhereTheTablesAgree)
{
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(out, std::to_string(Invariants().size()) + " regras verificadas: 0 erros, 0 observações.\n");
}

TEST_P(Verifica, EndsWithZeroWhenThereAreRemarksOnly)
{
    Execute({{"UPDATE {OF1} SET ATIVOS = 9"}});
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(
        out, HasSubstr("Observação [ativos] As peças abertas da OF não são a soma da sua grade: NUMERO=000001\n"));
    EXPECT_THAT(out, HasSubstr(": 0 erros, 1 observações."));
}

TEST_P(Verifica, EndsWithOneWhenThereIsAnError)
{
    Execute({{"UPDATE {FACCAO} SET QUANT = 4 WHERE IDENTIFICADOR = 1"}});
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(out, HasSubstr("ERRO [historico] "));
}

TEST_P(Verifica, EndsWithTwoWhenTheDatabaseCannotBeRead)
{
    const TDatabaseAddress missing = OtherAddress();
    EXPECT_EQ(Run(IsFirebird() ? missing.path : missing.uri), 2);
    EXPECT_THAT(err, HasSubstr("Não foi possível verificar o banco: "));
    EXPECT_EQ(out, "");
}

TEST_P(Verifica, EndsWithTwoWhenItIsToldNoAddress)
{
    EXPECT_EQ(Run(""), 2);
    EXPECT_THAT(err, HasSubstr("Não foi possível verificar o banco: "));
}

} // namespace
} // namespace alinhavo
