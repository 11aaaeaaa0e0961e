#include "TPlayedScreens.h"

#include <stdexcept>

namespace alinhavo {

TfmDetalhe::TfmDetalhe(TApplication& application)
    : TForm(application, "TfmDetalhe", "Detalhe")
{
    btnOk.OnClick.connect(this, &TfmDetalhe::btnOkClick);
}

void TfmDetalhe::btnOkClick()
{
    if (!edtNota.empty() || Pergunta("Fechar sem nota?"))
        ModalResult = TModalResult::Ok;
}

TTbGrade::TTbGrade(TComponent& owner, std::string name)
    : TMemTable(owner, std::move(name))
{
}

TfmTela::TfmTela(TApplication& application)
    : TForm(application, "TfmTela", "Tela")
{
    for (const auto* row : {"000001;P;10", "000009;M;20"}) {
        const std::string text = row;
        TbGrade.Append();
        TbGrade.Cor = text.substr(0, 6);
        TbGrade.Tam = text.substr(7, 1);
        TbGrade.Saldo.Set(TValue(text.substr(9)));
        TbGrade.Post();
    }
    TbGrade.First();
    dbg00Grade.SetPopupMenu(&pmGrade);

    edtSetor.OnExit.connect(this, &TfmTela::edtSetorExit);
    edtBarra.OnChange.connect(this, &TfmTela::edtBarraChange);
    edtCodigo.OnKeyDown.connect(this, &TfmTela::edtCodigoKeyDown);
    dbg00Grade.OnPopup.connect(this, &TfmTela::pmGradePopup);
    dbg00Grade.OnTitleClick.connect(this, &TfmTela::dbg00GradeTitleClick);
    dbg00Grade.OnDoubleClick.connect(this, &TfmTela::dbg00GradeDoubleClick);
    miZerar.OnClick.connect(this, &TfmTela::miZerarClick);
    btnPergunta.OnClick.connect(this, &TfmTela::btnPerguntaClick);
    btnDuas.OnClick.connect(this, &TfmTela::btnDuasClick);
    btnEntrada.OnClick.connect(this, &TfmTela::btnEntradaClick);
    btnDetalhe.OnClick.connect(this, &TfmTela::btnDetalheClick);
    btnPesquisa.OnClick.connect(this, &TfmTela::btnPesquisaClick);
    btnSupervisor.OnClick.connect(this, &TfmTela::btnSupervisorClick);
    btnArquivo.OnClick.connect(this, &TfmTela::btnArquivoClick);
    btnErro.OnClick.connect(this, &TfmTela::btnErroClick);
    btnAlarme.OnClick.connect(this, &TfmTela::btnAlarmeClick);
}

void TfmTela::edtSetorExit()
{
    if (edtSetor.text() == "99")
        Recusa("Setor não encontrado.", edtSetor);
}

/// A code is read as soon as it is complete.
void TfmTela::edtBarraChange()
{
    if (edtBarra.text().size() < 4)
        return;
    edtSetor.SetText(edtBarra.text());
    edtBarra.Clear();
}

void TfmTela::edtCodigoKeyDown(TKey& key)
{
    if (key.name == "x")
        key.Swallow();
    if (key.name == "F5")
        edtCodigo.SetText("F5");
}

void TfmTela::pmGradePopup(std::string_view column) { miQuant.SetVisible(column == "Quant"); }
void TfmTela::dbg00GradeTitleClick(std::string_view column) { TbGrade.SortBy("-" + std::string(column)); }
void TfmTela::dbg00GradeDoubleClick() { edtCodigo.SetText(TbGrade.Cor.value()); }

void TfmTela::miZerarClick()
{
    TbGrade.ForEach([this] {
        TbGrade.Edit();
        TbGrade.Quant = 0;
    });
}

void TfmTela::btnPerguntaClick() { edtCodigo.SetText(Pergunta("Deseja\ncontinuar?") ? "sim" : "não"); }

void TfmTela::btnDuasClick()
{
    Mensagem("Primeira.");
    Mensagem("Segunda.", "Aviso");
}

void TfmTela::btnEntradaClick()
{
    std::string note;
    edtCodigo.SetText(InputBox("Lançar Nota", "Nota:", note) ? note : "nada");
}

void TfmTela::btnDetalheClick()
{
    auto& detail = dynamic_cast<TfmDetalhe&>(Application().LoadForm("TfmDetalhe"));
    const bool done = detail.ShowModal() == TModalResult::Ok;
    edtCodigo.SetText(done ? detail.edtNota.text() : "nada");
    Mensagem("Detalhe fechado.");
}

void TfmTela::btnPesquisaClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::Lookup;
    dialog.rows = &TbGrade;
    dialog.multiple = true;
    dialog.OnSearch.connect([this](std::string_view text) { TbGrade.FilterBy("Cor", TValue(text)); });
    edtCodigo.SetText(
        Application().ShowDialog(dialog) == TModalResult::Ok ? std::to_string(dialog.picked.size()) : "nada");
    TbGrade.ClearFilter();
}

void TfmTela::btnSupervisorClick()
{
    TDialog dialog;
    dialog.kind = TDialog::TKind::Supervisor;
    edtCodigo.SetText(Application().ShowDialog(dialog) == TModalResult::Ok ? dialog.value : "nada");
}

void TfmTela::btnArquivoClick()
{
    const auto file = EscolheArquivo("Foto");
    edtCodigo.SetText(file.substr(file.rfind('/') + 1));
}

void TfmTela::btnErroClick() { throw std::runtime_error("disco cheio"); }
void TfmTela::btnAlarmeClick() { Alarme("Leitura inválida."); }

} // namespace alinhavo
