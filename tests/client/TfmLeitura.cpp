#include "client/TfmLeitura.h"

#include "forms/text.h"

namespace alinhavo {

namespace {

constexpr std::size_t DigitosDaBarra = 13;
constexpr std::string_view Desconhecido = "0000000000000";
constexpr int MuitasLinhas = 100'000;

} // namespace

TfmLeitura::TfmLeitura(TApplication& app)
    : TForm(app, "TfmLeitura", "Leitura de Código de Barras")
{
    EdtBarra.OnChange.connect(this, &TfmLeitura::EdtBarraChange);
    EdtBarra.OnExit.connect(this, &TfmLeitura::EdtBarraExit);
    btnPesquisar.OnClick.connect(this, &TfmLeitura::btnPesquisarClick);
    btnMuitas.OnClick.connect(this, &TfmLeitura::btnMuitasClick);
    tbAchados_.AddField("CODIGO", TFieldKind::Text, 13, {.title = "Código"});
    tbAchados_.AddField("DESCRICAO", TFieldKind::Text, 40, {.title = "Descrição"});
}

void TfmLeitura::EdtBarraChange()
{
    if (cbAutomatica.Checked() && Length(EdtBarra.text()) == DigitosDaBarra)
        Le();
}

void TfmLeitura::EdtBarraExit()
{
    if (EdtBarra.empty() || cbAutomatica.Checked())
        return;
    Le();
    EdtBarra.SetFocus();
}

void TfmLeitura::Le()
{
    if (EdtBarra.text() == Desconhecido) {
        EdtBarra.SetTextQuietly("");
        return Alarma();
    }
    TbLidos.Append();
    TbLidos.Ordem = static_cast<std::int64_t>(TbLidos.RecordCount());
    TbLidos.Barra = EdtBarra.text();
    TbLidos.Quant = 1;
    TbLidos.Post();
    edtLidos.SetValue(static_cast<double>(TbLidos.RecordCount()));
    lblLido.SetCaption("Lido " + EdtBarra.text() + ".");
    EdtBarra.SetTextQuietly("");
}

void TfmLeitura::Alarma()
{
    TDialog alarm;
    alarm.title = Caption();
    alarm.text = "Código de barras desconhecido.";
    alarm.icon = TIcon::Stop;
    alarm.beep = true;
    Application().ShowDialog(alarm);
}

void TfmLeitura::btnPesquisarClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::Lookup;
    dialog.title = "Produtos";
    dialog.rows = &tbAchados_;
    dialog.OnSearch.connect(this, &TfmLeitura::Procura);
    Procura("");
    if (Application().ShowDialog(dialog) != TModalResult::Ok)
        return;
    tbAchados_.GoToRow(static_cast<std::size_t>(dialog.picked.front()));
    EdtBarra.SetText(tbAchados_.FieldByName("CODIGO").AsString());
}

void TfmLeitura::Procura(std::string_view text)
{
    tbAchados_.EmptyTable();
    for (int number = 1; number <= 500; ++number) {
        const auto description = "Camisa " + std::to_string(number);
        if (LowerCase(description).find(LowerCase(text)) == std::string::npos)
            continue;
        tbAchados_.Append();
        tbAchados_.FieldByName("CODIGO").Set(TValue(LeftPad(std::to_string(number), '0', 6)));
        tbAchados_.FieldByName("DESCRICAO").Set(TValue(description));
        tbAchados_.Post();
    }
    tbAchados_.First();
}

void TfmLeitura::btnMuitasClick()
{
    const auto quiet = TbLidos.DisableControls();
    TbLidos.EmptyTable();
    for (int number = 1; number <= MuitasLinhas; ++number) {
        TbLidos.Append();
        TbLidos.Ordem = number;
        TbLidos.Quant = number % 7;
        TbLidos.Post();
    }
    TbLidos.First();
}

} // namespace alinhavo
