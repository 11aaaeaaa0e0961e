#include "platform/report/TReports.h"

#include "forms/TForm.h"
#include "host/TOrvApplication.h"
#include "platform/report/htmlText.h"
#include "platform/report/TRenderer.h"
#include "platform/report/TTemplateFolder.h"

namespace alinhavo {

/// Layouts of text begin with a "T".
void TReports::Chama_Relatorio(
    TprReport& report, TprTxReport& textReport, std::string_view layout, TForm& screen, std::string_view email)
{
    if (layout.starts_with('T'))
        Run(textReport, TKind::Text, layout, screen, email);
    else
        Run(report, TKind::Graphic, layout, screen, email);
}

void TReports::Chama_RelatorioWin(TprReport& report, std::string_view layout, TForm& screen)
{
    Run(report, TKind::Graphic, layout, screen, {});
}

void TReports::Chama_RelatorioTxt(TprTxReport& report, std::string_view layout, TForm& screen)
{
    Run(report, TKind::Text, layout, screen, {});
}

void TReports::Run(
    const TprReportBase& report, TKind kind, std::string_view layout, TForm& screen, std::string_view email)
{
    cancelled_ = false;
    TFinishedReport finished;
    try {
        finished = Make(report, kind, layout, screen);
    } catch (const ETemplate& error) {
        return screen.Mensagem(error.what(), {}, TIcon::Stop);
    } catch (const EReportCancelled& cancelled) {
        return screen.Mensagem(cancelled.what());
    }
    finished.email = email;
    setup_.show(finished, screen);
}

TFinishedReport TReports::Make(const TprReportBase& report, TKind kind, std::string_view layout, TForm& screen)
{
    const TTemplateFolder folder(setup_.layouts);
    const auto parsed = TTemplate::Parse(TemplateFile(layout), folder.Read(layout), folder);
    const auto surroundings = Surroundings(screen, layout);
    TRenderer renderer(parsed, report, surroundings);
    auto rendered = kind == TKind::Text ? renderer.Text() : renderer.Html();

    TFinishedReport finished;
    finished.layout = layout;
    finished.title = report.Title.empty() ? screen.PlainCaption() : report.Title;
    finished.isText = kind == TKind::Text;
    finished.document = finished.isText ? std::move(rendered.text) : SealedHtml(std::move(rendered.text));
    finished.unknownNames = std::move(rendered.unknownNames);
    finished.data = &report;
    return finished;
}

TRenderSetup TReports::Surroundings(TForm& screen, std::string_view layout) const
{
    TRenderSetup setup;
    setup.pictures = setup_.sharedRoot;
    setup.limits = setup_.limits;
    setup.cancelled = &cancelled_;
    setup.names = {{"modelo", TValue(layout)}, {"tela", TValue(screen.PlainCaption())},
        {"agora", TValue(screen.Application().Now())}, {"hoje", TValue(screen.Application().Today())}};
    if (auto* application = dynamic_cast<TOrvApplication*>(&screen.Application())) {
        setup.names.emplace("usuario", application->Host.funcoes.vUsuario());
        setup.dataSets.emplace("EMPRESA", &application->Host.tabela.tbEmpresa());
    }
    return setup;
}

} // namespace alinhavo
