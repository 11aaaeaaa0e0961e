#include "client/TfmControles.h"

#include <chrono>
#include <thread>

namespace alinhavo {

namespace {

constexpr auto Demora = std::chrono::milliseconds(3500);

} // namespace

TfmControles::TfmControles(TApplication& app)
    : TForm(app, "TfmControles", "Controles")
{
    edtFaccoes.SetPopupMenu(&menuFaccoes);
    itTodas.OnClick.connect(this, &TfmControles::itTodasClick);
    itNenhuma.SetEnabled(false);
    dbgPecas.OnRowColor.connect(this, &TfmControles::dbgPecasRowColor);
    lstFotos.OnChange.connect(this, &TfmControles::lstFotosChange);
    btnArquivo.OnClick.connect(this, &TfmControles::btnArquivoClick);
    btnVer.OnClick.connect(this, &TfmControles::btnVerClick);
    btnSupervisor.OnClick.connect(this, &TfmControles::btnSupervisorClick);
    btnVarios.OnClick.connect(this, &TfmControles::btnVariosClick);
    btnDemora.OnClick.connect(this, &TfmControles::btnDemoraClick);
    tbCores_.AddField("COR", TFieldKind::Text, 6, {.title = "Cor"});
    tbCores_.AddField("DESCRICAO", TFieldKind::Text, 30, {.title = "Descrição"});
    for (const auto* color : {"Azul", "Branco", "Cinza", "Preto", "Verde"}) {
        tbCores_.Append();
        tbCores_.FieldByName("COR").Set(TValue(std::string(color).substr(0, 2)));
        tbCores_.FieldByName("DESCRICAO").Set(TValue(std::string(color)));
        tbCores_.Post();
        TbPecas.Append();
        TbPecas.Cor = color;
        TbPecas.Qtde = 10;
        TbPecas.Preco = 2.5;
        TbPecas.Post();
    }
    TbPecas.First();
}

void TfmControles::dbgPecasRowColor(std::size_t row, TRowColor& color)
{
    if (TbPecas.CellValue(row, TbPecas.Qtde).AsFloat() > 50)
        color = TRowColor::Warning;
}

void TfmControles::itTodasClick() { edtFaccoes.SetText("'00001','00002'"); }

void TfmControles::lstFotosChange() { imgFoto.SetFile(lstFotos.File()); }

void TfmControles::btnArquivoClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::File;
    dialog.title = "Foto";
    dialog.filter = "*.png;*.jpg";
    dialog.buttons = TButtons::OkCancel;
    if (Application().ShowDialog(dialog) != TModalResult::Ok)
        return;
    auto files = lstFotos.Files();
    files.push_back(dialog.value);
    lstFotos.SetFiles(files);
    lstFotos.SetItemIndex(static_cast<int>(files.size()) - 1);
}

void TfmControles::btnVerClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::Picture;
    dialog.title = "Fotos";
    dialog.files = lstFotos.Files();
    Application().ShowDialog(dialog);
}

void TfmControles::btnSupervisorClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::Supervisor;
    dialog.title = "Supervisor";
    dialog.text = "Informe o supervisor.";
    dialog.buttons = TButtons::OkCancel;
    const bool answered = Application().ShowDialog(dialog) == TModalResult::Ok;
    lblFeito.SetCaption(answered ? "Supervisor " + dialog.value + "/" + dialog.password + "." : "Recusado.");
}

void TfmControles::btnVariosClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::Lookup;
    dialog.title = "Cores";
    dialog.rows = &tbCores_;
    dialog.multiple = true;
    dialog.buttons = TButtons::OkCancel;
    if (Application().ShowDialog(dialog) != TModalResult::Ok)
        return;
    std::string picked = "Cores";
    for (const auto row : dialog.picked) {
        tbCores_.GoToRow(static_cast<std::size_t>(row));
        picked += " " + tbCores_.FieldByName("COR").AsString();
    }
    lblFeito.SetCaption(picked + ".");
}

void TfmControles::btnDemoraClick()
{
    std::this_thread::sleep_for(Demora);
    lblFeito.SetCaption("Demorou.");
}

} // namespace alinhavo
