#include "app/demo/TMovementClerk.h"

#include "forms/TDataSet.h"
#include "forms/TTextControl.h"
#include "movement/TfmFacMov.h"

#include <stdexcept>
#include <utility>

namespace alinhavo {
namespace {

using namespace roteiro;

constexpr const char* screen = "TfmFacMov";
constexpr std::int64_t noon = 12 * 3600;

void RegisterMovement(TApplication& application)
{
    application.RegisterForm(
        screen, [](TApplication& maker) -> std::unique_ptr<TForm> { return std::make_unique<TfmFacMov>(maker); });
}

} // namespace

TMovementClerk::TMovementClerk(TOrvDatabase& database, TSessionUser user)
    : clerk_(database, std::move(user), RegisterMovement, {"não está lançada na Facção"})
{
}

TMovementClerk::~TMovementClerk() { clerk_.Application().SetNow({}); }

void TMovementClerk::BeginDay(TDateTime day)
{
    clerk_.Application().SetNow(TDateTime::FromSeconds(day.Date().Seconds() + noon));
    if (clerk_.Application().FindFormByClass(screen))
        clerk_(TClose{screen});
    clerk_(TOpen{screen});
}

TMovementClerk::TArrival TMovementClerk::Move(const TMovement& movement, const TLeavingOf& leavingOf)
{
    try {
        return Enter(movement, leavingOf);
    } catch (const std::exception& failure) {
        GiveUp();
        throw std::runtime_error(
            "OF " + movement.order + ", parte " + movement.part + ", setor " + movement.sector + ": " + failure.what());
    }
}

void TMovementClerk::GiveUp()
{
    clerk_(TClose{screen});
    clerk_(TOpen{screen});
}

TMovementClerk::TArrival TMovementClerk::Enter(const TMovement& movement, const TLeavingOf& leavingOf)
{
    EnterHeader(movement);
    EnterQuantities(leavingOf);
    const TArrival arrival{Text("edtSetorProx"), Text("edtMov")};
    clerk_(TClick{"btn00Confirmar"});
    return arrival;
}

void TMovementClerk::EnterHeader(const TMovement& movement)
{
    clerk_(TClick{"btn00Incluir"});
    clerk_(TFill{"edtOFNum", movement.order});
    clerk_(TChoose{"CbParte", movement.part});
    clerk_(TFill{"EdtSetor", movement.sector});
    if (movement.batch.empty())
        clerk_(TPass{"cbMovimento"});
    else
        clerk_(TChoose{"cbMovimento", movement.batch});
    clerk_(TPass{"edtFaccao"});
    if (movement.destination.empty())
        clerk_(TPass{"edtFacDest"});
    else
        clerk_(TFill{"edtFacDest", movement.destination});
}

// Finished goods are not read from their labels here: without the reader the grid proposes what is pending.
void TMovementClerk::EnterQuantities(const TLeavingOf& leavingOf)
{
    const auto& form = dynamic_cast<TfmFacMov&>(*clerk_.Application().FindFormByClass(screen));
    if (form.cbBaixaBarras.Checked())
        clerk_(TCheck{"cbBaixaBarras", false});
    const TTbMovimento& lines = form.TbTemp;
    for (std::size_t row = 0; row < lines.RecordCount(); ++row) {
        const auto pending = static_cast<int>(lines.CellValue(row, lines.Quant).AsInteger());
        const TLeaving leaving = leavingOf(pending);
        Type(row, "Quant", leaving.good, pending);
        Type(row, "Quant_2", leaving.second, 0);
        Type(row, "Quant_I", leaving.incomplete, 0);
        Type(row, "Quant_F", leaving.missing, 0);
    }
}

void TMovementClerk::Type(std::size_t row, const char* column, int quantity, int before)
{
    if (quantity != before)
        clerk_(TFillCell{"dbg00Grade", static_cast<int>(row) + 1, column, std::to_string(quantity)});
}

std::string TMovementClerk::Text(const char* control)
{
    const TForm& form = *clerk_.Application().FindFormByClass(screen);
    return dynamic_cast<const TTextControl&>(*form.FindComponent(control)).text();
}

} // namespace alinhavo
