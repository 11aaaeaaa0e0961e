// What a scanner sends into the field that reads codes, on the movement's screen over a small factory: every text is read, left
// standing or answered with one of the alarms of reading; no row gets more than its pieces and the last box, and none loses any.
//
// The input's first byte chooses the format, each line is typed and ended with Enter, unless it ends in "+".

#include "Finding.h"
#include "forms/utf8.h"
#include "movement/TfmFacMov.h"
#include "platform/services/TEmptyDatabase.h"
#include "platform/session/roteiro/TDatabaseWorld.h"
#include "platform/session/roteiro/THands.h"
#include "platform/session/roteiro/TParser.h"
#include "platform/session/roteiro/TRunner.h"
#include "TFuzzBytes.h"

#include <algorithm>
#include <array>
#include <variant>

namespace {

using namespace alinhavo;
using namespace alinhavo::roteiro;

constexpr double LargestBox = 12; ///< pieces, as the labels' roteiro says
constexpr std::array Alarms = {"Código de Barras não encontrado na OF ou já baixado.", "Quantidade total já baixada.",
    "Número da OF não confere.", "Barra já lida. Impossível ler novamente.", "Quantidade Maior que pendente na OF."};

std::vector<TLine> Lines(const char* file)
{
    return TParser::ParseFile(std::filesystem::path(ALINHAVO_ROTEIROS) / "facmov/comum" / file);
}

void RegisterMovement(TApplication& application)
{
    application.RegisterForm(
        "TfmFacMov", [](TApplication& maker) -> std::unique_ptr<TForm> { return std::make_unique<TfmFacMov>(maker); });
}

/// A clerk whose grid stands open on what is being sewn.
class TReader {
public:
    TReader()
        : copies_(std::nullopt, {{TFactory::Empty, FillEmptyDatabase}})
        , world_(copies_, RegisterMovement, {})
    {
        for (const auto& failure : TRunner(world_).Run(Lines("etiquetas_de_128.rot")))
            Finding("the factory was not made: " + failure.mismatch.got);
        session_ = world_.LogIn("ADMIN");
    }

    void Begin()
    {
        for (const auto& line : prologue_)
            std::visit(
                [&](const auto& step) {
                    if constexpr (std::is_invocable_v<THands, decltype(step)>)
                        Hands()(step);
                },
                line.step);
    }
    void ChooseFormat(std::size_t index)
    {
        Send({.kind = TUserEvent::TKind::Select, .control = "CbFormato", .index = static_cast<int>(index)});
    }
    void Read(std::string code)
    {
        const bool entered = !code.ends_with('+');
        if (!entered)
            code.pop_back();
        const auto before = Quantities();
        Hands()(TWrite{"EdtBarra", code});
        if (entered)
            Hands()(TPress{"EdtBarra", "Enter"});
        CheckRows(before);
    }
    void End()
    {
        Hands()(TClick{"btn00Desiste"});
        Hands()(TClose{"TfmFacMov"});
    }

private:
    THands Hands()
    {
        return {session_->Thread().Application(), [this](const TUserEvent& event) { Send(event); }};
    }
    void Send(const TUserEvent& event)
    {
        const auto outcome = session_->Thread().Send(event);
        while (!outcome->done) {
            const auto* dialog = session_->Thread().Application().TopDialog();
            MustHold(dialog, "a screen opens");
            MustHold(std::ranges::find(Alarms, dialog->text) != Alarms.end(), "it says: " + dialog->text);
            session_->Thread().Send({.kind = TUserEvent::TKind::Answer, .answer = TModalResult::Ok});
        }
        MustHold(outcome->refusal.empty(), "the reader cannot go on: " + outcome->refusal);
    }
    const TTbMovimento& Rows()
    {
        return dynamic_cast<TfmFacMov&>(*session_->Thread().Application().FindFormByClass("TfmFacMov")).TbTemp;
    }
    std::vector<double> Quantities()
    {
        std::vector<double> quantities;
        for (std::size_t row = 0; row < Rows().RecordCount(); ++row)
            quantities.push_back(Rows().CellValue(row, Rows().Quant).AsFloat());
        return quantities;
    }
    void CheckRows(const std::vector<double>& before)
    {
        const auto& rows = Rows();
        MustHold(rows.RecordCount() == before.size() && !before.empty(), "reading changes the rows");
        for (std::size_t row = 0; row < before.size(); ++row) {
            const auto quantity = rows.CellValue(row, rows.Quant).AsFloat();
            const auto pieces = rows.CellValue(row, rows.Qt_Orig).AsFloat();
            MustHold(quantity >= before[row], "a row loses pieces");
            MustHold(quantity < pieces + LargestBox, "a row gets more than its pieces and the last box");
        }
    }

    TDatabaseCopies copies_;
    TDatabaseWorld world_;
    std::unique_ptr<IPlayedSession> session_;
    const std::vector<TLine> prologue_ = Lines("lendo_na_costura.rot");
};

/// What can be typed.
std::string Typed(std::string_view text)
{
    std::string typed;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) >= ' ' && static_cast<unsigned char>(c) < 0x7F)
            typed += c;
        else
            typed += "ç";
    }
    return typed;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static TReader reader;
    TFuzzBytes bytes(data, size);
    reader.Begin();
    reader.ChooseFormat(bytes.Choice(2));
    while (!bytes.AtEnd())
        reader.Read(Typed(bytes.Line()));
    reader.End();
    return 0;
}
