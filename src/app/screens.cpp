#include "app/screens.h"

#include "administration/TfmConectados.h"
#include "administration/TfmDefineSenha.h"
#include "administration/TfmParametros.h"
#include "administration/TfmTrocaSenha.h"
#include "administration/TfmUsuarios.h"
#include "forms/TApplication.h"
#include "host/TfmImportaExporta.h"
#include "master/TfmCadFluxo.h"
#include "master/TfmFacFluxo.h"
#include "movement/TfmFacMov.h"
#include "orders/TfmNovaOF.h"
#include "platform/exchange/TTableExchange.h"
#include "reports/TfmRelFacDia.h"
#include "reports/TfmRelFacPen.h"
#include "tables/TfmTabela.h"

#include <memory>

namespace alinhavo {

namespace {

template <typename TScreen>
void Register(TApplication& application, const char* className)
{
    application.RegisterForm(
        className, [](TApplication& maker) -> std::unique_ptr<TForm> { return std::make_unique<TScreen>(maker); });
}

/// The screen's files are the platform's matter.
void RegisterImportAndExport(TApplication& application)
{
    application.RegisterForm(TfmImportaExporta::Class, [](TApplication& maker) -> std::unique_ptr<TForm> {
        auto& database = static_cast<TOrvApplication&>(maker).Host.database;
        return std::make_unique<TfmImportaExporta>(maker, std::make_unique<TTableExchange>(database));
    });
}

} // namespace

void RegisterScreens(TApplication& application)
{
    Register<TfmCadFluxo>(application, TfmCadFluxo::Class);
    Register<TfmFacFluxo>(application, TfmFacFluxo::Class);
    Register<TfmFacMov>(application, "TfmFacMov");
    Register<TfmNovaOF>(application, TfmNovaOF::Class);
    Register<TfmRelFacDia>(application, "TfmRelFacDia");
    Register<TfmRelFacPen>(application, "TfmRelFacPen");
    RegisterTableScreens(application);
    RegisterImportAndExport(application);
    Register<TfmUsuarios>(application, TfmUsuarios::Class);
    Register<TfmDefineSenha>(application, TfmDefineSenha::Class);
    Register<TfmTrocaSenha>(application, TfmTrocaSenha::Class);
    Register<TfmParametros>(application, TfmParametros::Class);
    Register<TfmConectados>(application, TfmConectados::Class);
}

} // namespace alinhavo
