#include "TAnsweringUser.h"
#include "TDatabaseTest.h"

#include "forms/IShownReport.h"
#include "forms/TMemTable.h"
#include "host/TOrvForm.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/services/TNobodyConnected.h"
#include "platform/session/TDatabaseHost.h"

#include <fstream>
#include <unistd.h>

namespace alinhavo {
namespace {

/// A screen that prints its rows, graphically or as text, while something that it wrote waits for its commit.
class TfmImprime final : public TOrvForm {
public:
    explicit TfmImprime(TApplication& application)
        : TOrvForm(application, "TfmImprime", "Pendentes")
    {
        tb.AddField("COR", TFieldKind::Text, 20, {.title = "Cor"});
        tb.Append();
        tb.FieldByName("COR").Set("Açaí & <Uva>");
        tb.Post();
        for (TprReportBase* report : std::initializer_list<TprReportBase*>{&prReport, &prTxReport})
            report->DataSets["tb"] = &tb;
        Executa("INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES ('77', 'Pendente')");
    }
    void Imprime(std::string_view layout)
    {
        App().Host.reports.Chama_Relatorio(prReport, prTxReport, layout, *this, "faccao@exemplo.com.br");
    }

    TMemTable tb;
    TprReport prReport;
    TprTxReport prTxReport;
};

class TShownReports : public TDatabaseTest {
protected:
    void SetUp() override
    {
        TDatabaseTest::SetUp();
        if (IsSkipped())
            return;
        FillEmptyDatabase(*db);
        layouts_ = std::filesystem::temp_directory_path() / ("alinhavo-folhas-" + std::to_string(getpid()));
        std::filesystem::create_directories(layouts_);
        std::ofstream(layouts_ / "WCores.prt")
            << "<!doctype html><html><body>\n% faixa tb\n% linha\n<p>{{ COR }}</p>\n% fim\n</body></html>\n";
        std::ofstream(layouts_ / "TCores.prt") << "% faixa tb\n% linha\n{{ COR }}\n% fim\n";
        host_.emplace(
            TDatabaseHostOptions{.address = Address(), .registerScreens = [](TApplication&) {}, .layouts = layouts_});
        workplace_ = host_->Open({"ADMIN", "Administrador"}, user, user, nobodyElse_);
    }
    void TearDown() override
    {
        workplace_.reset();
        host_.reset();
        std::filesystem::remove_all(layouts_);
        TDatabaseTest::TearDown();
    }

    /// Prints, and does this while the report is shown.
    void WhileShown(std::string_view layout, const std::function<void(IShownReport&)>& action)
    {
        auto& application = workplace_->Application();
        user.Does({.kind = TUserEvent::TKind::Work, .work = [&] {
                       ASSERT_NE(application.TopDialog(), nullptr);
                       action(*application.TopDialog()->report);
                   }});
        user.Says(TModalResult::Ok);
        user.Do(application, [&] {
            TfmImprime screen(application);
            screen.Imprime(layout);
        });
    }
    std::string Cell(TFragment fragment) { return Value(*Connect(), TStatement(fragment)); }

    TAnsweringUser user;

private:
    std::filesystem::path layouts_;
    TNobodyConnected nobodyElse_;
    std::optional<TDatabaseHost> host_;
    std::unique_ptr<IWorkplace> workplace_;
};

ON_BOTH_SERVERS(TShownReports);

TEST_P(TShownReports, GoIntoTheOutgoingMailAtOnceAndCommitNothingElse)
{
    WhileShown("WCores", [&](IShownReport& report) {
        EXPECT_EQ(report.Recipient(), "faccao@exemplo.com.br");
        EXPECT_EQ(report.PlainText(), nullptr);
        report.SendTo(" ana@exemplo.com.br ");
        EXPECT_EQ(Cell("SELECT PARA || '|' || ASSUNTO || '|' || SITUACAO || '|' || USUARIO FROM {EMAIL_SAIDA}"),
            "ana@exemplo.com.br|Pendentes|P|ADMIN");
        const auto body = Cell("SELECT TEXTO FROM {EMAIL_TEXTO}");
        EXPECT_NE(body.find("<p>Açaí &amp; &lt;Uva&gt;</p>"), std::string::npos) << body;
        EXPECT_NE(body.find("Content-Security-Policy"), std::string::npos);
        EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR} WHERE COR = '77'"), "0") << "the screen's work waits";
    });
}

TEST_P(TShownReports, AreSentToNothingThatIsNoAddress)
{
    WhileShown("WCores", [&](IShownReport& report) {
        EXPECT_THROW(report.SendTo("ana"), std::invalid_argument);
        EXPECT_EQ(Cell("SELECT COUNT(*) FROM {EMAIL_SAIDA}"), "0");
    });
}

TEST_P(TShownReports, OfTextAreKeptAsTheyAreAndShownOnSheets)
{
    WhileShown("TCores", [&](IShownReport& report) {
        ASSERT_NE(report.PlainText(), nullptr);
        EXPECT_EQ(*report.PlainText(), "Açaí & <Uva>\n");
        EXPECT_NE(report.Document()->find("<pre>Açaí &amp; &lt;Uva&gt;\n</pre>"), std::string::npos);
        EXPECT_TRUE(report.Workbook().starts_with("PK"));
    });
}

} // namespace
} // namespace alinhavo
