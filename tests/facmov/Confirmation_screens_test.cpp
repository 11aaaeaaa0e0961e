#include "facmov/TMovementTest.h"

#include <gmock/gmock.h>

namespace alinhavo {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// Stands in for the screens that a confirmation goes through.
class TfmParada final : public TForm, public IConsumptionScreen, public IInspectionScreen {
public:
    TfmParada(TApplication& application, std::string className)
        : TForm(application, std::move(className), "Parada")
    {
        OnShow.connect(this, &TfmParada::TelaShow);
    }

    void SetOrder(std::string_view numero) override { received = std::string(numero); }
    void InicializaSetor(std::string_view produto, std::string_view parte, TMemTable& lines) override
    {
        received += " " + std::string(produto) + " " + std::string(parte);
        lines.ForEach(
            [&] { received += " " + lines.FieldByName("Tam").AsString() + lines.FieldByName("Quant").AsString(); });
    }
    void Inicializa(std::string_view, std::string_view, std::string_view, std::string_view, std::string_view) override
    {
    }
    void LancaDefeitos(std::string_view numero, std::string_view faccao, std::string_view produto,
        const std::vector<TInspectionDefect>& found) override
    {
        received = std::string(numero) + " " + std::string(faccao) + " " + std::string(produto);
        defects = found;
    }
    void TelaShow()
    {
        if (!Modal())
            return;
        auto* movement = Application().FindFormByClass("TfmFacMov");
        if (agrees && ClassName() == "TfmMovEstRej")
            dynamic_cast<IMovementScreen&>(*movement).DefineReprovados("08", "050");
        movement->ModalResult = agrees ? TModalResult::Ok : TModalResult::Cancel;
        ModalResult = TModalResult::Ok;
    }

    static inline std::string received;
    static inline std::vector<TInspectionDefect> defects;
    static inline bool agrees = true;
};

/// Stands in for the billing screen, known by the names of its components: it tells what was asked of it, and bills the orders
/// that are ticked.
class TfmFatMetCobDev final : public TForm {
public:
    explicit TfmFatMetCobDev(TApplication& application)
        : TForm(application, "TfmFatMetCobDev", "Faturamento")
    {
        btnConsultar.OnClick.connect(this, &TfmFatMetCobDev::btnConsultarClick);
        GerarNotasFiscais1.OnClick.connect(this, &TfmFatMetCobDev::GerarNotasFiscais1Click);
        btnFechar.OnClick.connect(this, &TfmFatMetCobDev::btnFecharClick);
    }

    TPageControl PageControl2{*this, "PageControl2"};
    TTabSheet tbsConsulta{PageControl2, "tbsConsulta", {.caption = "Consulta"}};
    TTabSheet tbsNotas{PageControl2, "tbsNotas", {.caption = "Notas"}};
    TEdit EdtNumeroDoc{tbsConsulta, "EdtNumeroDoc"};
    TEdit edtCodSetor{tbsConsulta, "edtCodSetor"};
    TEdit edtCodCli{tbsConsulta, "edtCodCli"};
    TEdit edtCodParte{tbsConsulta, "edtCodParte"};
    TEdit edtMov{tbsConsulta, "edtMov"};
    TDateEdit DtInicio{tbsConsulta, "DtInicio"};
    TDateEdit DtFim{tbsConsulta, "DtFim"};
    TRadioGroup rgStatus{tbsConsulta, "rgStatus", {.items = {"Pendentes", "Todos"}, .itemIndex = 1}};
    TRadioGroup rgDocumento{tbsConsulta, "rgDocumento", {.items = {"Pedido", "OF"}, .itemIndex = 0}};
    TButton btnConsultar{tbsConsulta, "btnConsultar", {.caption = "Consultar"}};
    TButton btnFechar{tbsConsulta, "btnFechar", {.caption = "Fechar"}};
    TPopupMenu PopupMenu1{*this, "PopupMenu1"};
    TMenuItem GerarNotasFiscais1{PopupMenu1, "GerarNotasFiscais1", {.caption = "Gerar Notas Fiscais"}};
    TMemTable tbDocto{*this, "tbDocto"};
    TStringField Numero{tbDocto, "Numero", 6};
    TStringField Sel{tbDocto, "Sel", 1};

    static inline std::string query; ///< what the fields held when it was pressed
    static inline std::vector<std::string> billed;
    static inline int closed = 0;

private:
    void btnConsultarClick()
    {
        for (const TTextControl* field : std::initializer_list<const TTextControl*>{
                 &EdtNumeroDoc, &edtCodSetor, &edtCodCli, &edtCodParte, &edtMov, &DtInicio, &DtFim})
            query += field->text() + " ";
        query += std::to_string(PageControl2.ActivePageIndex()) + std::to_string(rgStatus.ItemIndex())
            + std::to_string(rgDocumento.ItemIndex());
        for (const char* order : {"000123", "000124"}) {
            tbDocto.Append();
            Numero = order;
            tbDocto.Post();
        }
        tbDocto.First();
    }
    void GerarNotasFiscais1Click()
    {
        tbDocto.ForEach([&] {
            if (Sel.value() == "S")
                billed.push_back(Numero.value());
        });
    }
    void btnFecharClick() { ++closed; }
};

/// Ten pieces of order 000123 wait in sewing at subcontractor 00010 as batch 4; eight leave good, two second quality.
class ConfirmationScreens : public TMovementTest {
protected:
    void SetUp() override
    {
        TMovementTest::SetUp();
        if (!session)
            return;
        TfmParada::received.clear();
        TfmParada::defects.clear();
        TfmParada::agrees = true;
        for (const char* name : {"TfmMovEstRej", "TfmFacDistrib", "TfmFacInspecao"})
            session->RegisterForm(
                name, [name](TApplication& application) { return std::make_unique<TfmParada>(application, name); });
        Write({"UPDATE {TIPO_APL} SET ESTOQUE = 'S'"});
        for (int place = 1; place <= 4; ++place)
            Write(
                {"INSERT INTO {FLUXO} (CODIGO, ORDEM, SETOR) VALUES ('F01', ?, ?)", place, std::to_string(place * 10)});
        Write({"INSERT INTO {PRO_FLUXO} (CODIGO, PARTE, FLUXO, PADRAO) VALUES ('CAM01', '01', 'F01', 'S')"});
        Write({"INSERT INTO {OF1} (NUMERO, CODIGO) VALUES ('000123', 'CAM01')"});
        Write({"INSERT INTO {OF_ITEN} (NUMERO, COR, TAM, QTDE) VALUES ('000123', '000009', 'M', 10)"});
        Write(
            {"INSERT INTO {FACCAO} (NUMERO, CODIGO, COR, TAM, PARTE, OP, FLUXO, CODCLI, MOV, QT_ORIG, QUANT, QUANT_2, "
             "QUANT_I, QUANT_F) VALUES ('000123', 'CAM01', '000009', 'M', '01', '20', 'F01', '00010', 4, 10, 0, 0, 0, "
             "0)"});
        clerk.Open("TfmFacMov");
    }

    void Confirm()
    {
        clerk.Click("btn00Incluir");
        clerk.Type("edtOFNum", "000123");
        clerk.Select("CbParte", 0);
        clerk.Type("EdtSetor", "20");
        clerk.Select("cbMovimento", Screen().cbMovimento.IndexOfPrefix("4"));
        clerk.Pass("cbMovimento");
        clerk.Pass("edtFaccao");
        clerk.Type("edtFacDest", "00001");
        ASSERT_TRUE(clerk.TryCell("dbg00Grade", 0, "Quant", "8"));
        ASSERT_TRUE(clerk.TryCell("dbg00Grade", 0, "Quant_2", "2"));
        clerk.Heard();
        clerk.Click("btn00Confirmar");
    }
    double Written() { return Number({"SELECT COUNT(*) FROM {FACCAO3}"}); }
};
ON_BOTH_SERVERS(ConfirmationScreens);

TEST_P(ConfirmationScreens, RejectedGoodsEnterTheWarehouseThatTheirScreenNames)
{
    Write({"UPDATE {CADFLUXO} SET MOVREPROVADO = 'S' WHERE CODIGO = '20'"});
    Confirm();
    EXPECT_EQ(Number({"SELECT QUANTIDADE FROM {PA_ITEN} WHERE DEPOSITO = '08' AND COR = '000009' AND TAM = 'M'"}), 2);
    EXPECT_EQ(Number({"SELECT COUNT(*) FROM {FACCAO3} WHERE ESTOQUE = 'S' AND QUANT_2 = 2"}), 1);
}

TEST_P(ConfirmationScreens, RejectedGoodsWithoutAWarehouseCancelTheConfirmation)
{
    TfmParada::agrees = false;
    Write({"UPDATE {CADFLUXO} SET MOVREPROVADO = 'S' WHERE CODIGO = '20'"});
    Confirm();
    EXPECT_THAT(clerk.Heard(), Contains("Movimentação Cancelada."));
    EXPECT_EQ(Written(), 0);
}

TEST_P(ConfirmationScreens, MaterialsAreConsumedByTheLinesThatLeave)
{
    Write({"UPDATE {CADFLUXO} SET BAIXACONSUMO = 'S' WHERE CODIGO = '20'"});
    Write({"INSERT INTO {PCPFTOF} (NUMERO, INSUMO, COR, SETOR, CONSUMO, CUSTO) VALUES ('000123', 'M1', '000009', '20', "
           "1, 8)"});
    Confirm();
    EXPECT_EQ(TfmParada::received, "000123 CAM01 01 M8");
    EXPECT_EQ(Written(), 1);
}

TEST_P(ConfirmationScreens, MaterialsThatAreNotConsumedCancelTheConfirmation)
{
    TfmParada::agrees = false;
    Write({"UPDATE {CADFLUXO} SET BAIXACONSUMO = 'S' WHERE CODIGO = '20'"});
    Write({"INSERT INTO {PCPFTOF} (NUMERO, INSUMO, COR, SETOR, CONSUMO, CUSTO) VALUES ('000123', 'M1', '000009', '20', "
           "1, 8)"});
    Confirm();
    EXPECT_THAT(clerk.Heard(), Contains("Movimentação Cancelada."));
    EXPECT_EQ(Written(), 0);
}

TEST_P(ConfirmationScreens, LossesWithoutDefectsAreHandedToTheInspectionAndNothingIsWritten)
{
    Write({"UPDATE {CADFLUXO} SET BAIXADEFEITO = 'S' WHERE CODIGO = '20'"});
    Confirm();
    EXPECT_EQ(TfmParada::received, "000123 00010 CAM01");
    ASSERT_EQ(TfmParada::defects.size(), 1U);
    const TInspectionDefect& defect = TfmParada::defects.front();
    EXPECT_THAT((std::vector{defect.mov, defect.parte, defect.cor, defect.tam, defect.setor}),
        ElementsAre("4", "01", "000009", "M", "20"));
    EXPECT_EQ(defect.quant, 2);
    EXPECT_EQ(Written(), 0);
}

TEST_P(ConfirmationScreens, TheBillingScreenIsLedByItsComponentsToTheNotesOfTheMovement)
{
    session->RegisterForm(
        "TfmFatMetCobDev", [](TApplication& application) { return std::make_unique<TfmFatMetCobDev>(application); });
    Write({"INSERT INTO {ACESSO_MENU} (NIVEL, DESCRICAO, NOME_FORM) VALUES ('07.01', 'Faturamento', "
           "'TfmFatMetCobDev')"});
    Write({"INSERT INTO {ACESSO} (USUARIO, LOCAL, ALTERA) VALUES ('ADMIN', '07.01', 'Sim')"});
    TfmFatMetCobDev::query.clear();
    TfmFatMetCobDev::billed.clear();
    TfmFatMetCobDev::closed = 0;
    Screen().CbGeraNotaFiscal.SetChecked(true);

    Confirm();

    EXPECT_EQ(TfmFatMetCobDev::query, "000123 30 00001 01 4 01/01/2000 01/01/2050 001");
    EXPECT_THAT(TfmFatMetCobDev::billed, ElementsAre("000123"));
    EXPECT_EQ(TfmFatMetCobDev::closed, 1);
    EXPECT_EQ(Written(), 1);
}

} // namespace
} // namespace alinhavo
