#include "facmov/TMovementTest.h"

#include <optional>

namespace alinhavo {
namespace {

/// Stands in for the screens that a position is handed to.
class TfmRecebe final : public TForm, public IPacketScreen, public IConsumptionScreen, public IPositionSheet {
public:
    TfmRecebe(TApplication& application, std::string className)
        : TForm(application, std::move(className), "Recebe")
    {
        OnShow.connect(this, &TfmRecebe::TelaShow);
    }

    void Inicializa(std::string_view numero, std::string_view setor, std::string_view parte) override
    {
        received = std::string(numero) + " " + std::string(setor) + " " + std::string(parte);
    }
    void SetOrder(std::string_view) override { }
    void InicializaSetor(std::string_view, std::string_view, TMemTable&) override { }
    void Inicializa(std::string_view produto, std::string_view numero, std::string_view setor, std::string_view parte,
        std::string_view mov) override
    {
        received = std::string(produto) + " " + std::string(numero) + " " + std::string(setor) + " "
            + std::string(parte) + " " + std::string(mov);
    }
    void MostraPosicao(const TOrderPosition& posicao) override
    {
        received
            = posicao.numero + " " + posicao.setor + " " + posicao.parte + " " + posicao.codcli + " " + posicao.mov;
    }
    void TelaShow()
    {
        wasModal = Modal();
        if (Modal())
            ModalResult = TModalResult::Ok;
    }

    static inline std::string received;
    static inline std::optional<bool> wasModal;
};

/// Order 000123 left cutting: ten pieces wait in sewing at subcontractor 00010, as batch 4.
class Handover : public TMovementTest {
protected:
    void SetUp() override
    {
        TMovementTest::SetUp();
        if (!session)
            return;
        TfmRecebe::received.clear();
        TfmRecebe::wasModal.reset();
        for (const char* name : {"TfmCadPacote", "TfmFacDistrib", "TfmRelFaccao01", "TfmRelFacCorte"})
            session->RegisterForm(
                name, [name](TApplication& application) { return std::make_unique<TfmRecebe>(application, name); });
        Write({"INSERT INTO {OF1} (NUMERO, CODIGO) VALUES ('000123', 'CAM01')"});
        for (const auto& [sector, holder, batch] :
            {std::tuple("10", "00001", TValue()), std::tuple("20", "00010", TValue(4))})
            Write(
                {"INSERT INTO {FACCAO} (NUMERO, CODIGO, COR, TAM, PARTE, OP, FLUXO, CODCLI, MOV, QT_ORIG, QUANT, "
                 "QUANT_2, QUANT_I, QUANT_F) VALUES ('000123', 'CAM01', '000009', 'M', '01', ?, 'F01', ?, ?, 10, 0, 0, "
                 "0, 0)",
                    sector, holder, batch});
        clerk.Open("TfmFacMov");
        clerk.Turn("PageControl2", 0);
    }
    void Consult() { clerk.Type("edtM01OF", "000123"); }
};
ON_BOTH_SERVERS(Handover);

TEST_P(Handover, APositionIsHandedToThePacketsWithoutWaitingForThem)
{
    Consult();
    clerk.Click("BitBtn5");
    EXPECT_EQ(TfmRecebe::received, "000123 20 01");
    EXPECT_EQ(TfmRecebe::wasModal, false);
}

TEST_P(Handover, APositionIsHandedToTheConsumptionWhichIsWaitedFor)
{
    Consult();
    clerk.Click("BitBtn7");
    EXPECT_EQ(TfmRecebe::received, "CAM01 000123 20 01 4");
    EXPECT_EQ(TfmRecebe::wasModal, true);
}

TEST_P(Handover, TheRowInFrontIsTheOneHandedOver)
{
    Consult();
    clerk.GoTo("DbGridGrade", 0, "OP");
    clerk.Click("BitBtn7");
    EXPECT_EQ(TfmRecebe::received, "CAM01 000123 10 01 ");
}

TEST_P(Handover, ADispatchSheetThatIsOpenTakesThePositionToo)
{
    Consult();
    clerk.Click("BitBtn8");
    EXPECT_EQ(TfmRecebe::received, "000123 20 01 00010 4");
    Screen().Show();
    clerk.GoTo("DbGridGrade", 0, "OP");
    clerk.Click("BitBtn8");
    EXPECT_EQ(TfmRecebe::received, "000123 10 01 00001 ");
}

TEST_P(Handover, ACutSheetThatIsOpenStaysAsItIs)
{
    Consult();
    clerk.Click("btnFichaCorte");
    EXPECT_EQ(TfmRecebe::received, "000123 20 01 00010 4");
    TfmRecebe::received.clear();
    Screen().Show();
    clerk.Click("btnFichaCorte");
    EXPECT_EQ(TfmRecebe::received, "");
}

TEST_P(Handover, SheetsOpenWithoutAPosition)
{
    clerk.Click("BitBtn8");
    Screen().Show();
    clerk.Click("btnFichaCorte");
    EXPECT_EQ(TfmRecebe::received, "");
    EXPECT_EQ(session->Forms().size(), 3U);
}

} // namespace
} // namespace alinhavo
