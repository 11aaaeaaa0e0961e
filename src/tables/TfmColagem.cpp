#include "tables/TfmColagem.h"

namespace alinhavo {

TfmColagem::TfmColagem(TApplication& application)
    : TOrvForm(application, Class, "Linhas coladas")
{
    btnGravar.OnClick.connect(this, &TfmColagem::btnGravarClick);
    btnDesistir.OnClick.connect(this, &TfmColagem::btnDesistirClick);
}

void TfmColagem::Resume(std::size_t certas)
{
    TbErros.First();
    lblResumo.SetCaption(std::to_string(TbErros.RecordCount()) + " com erro, " + std::to_string(certas)
        + (certas == 1 ? " certa." : " certas.") + " Nada foi gravado ainda.");
    btnGravar.SetEnabled(certas > 0);
    btnDesistir.SetFocus();
}

void TfmColagem::btnGravarClick() { ModalResult = TModalResult::Ok; }

void TfmColagem::btnDesistirClick() { ModalResult = TModalResult::Cancel; }

} // namespace alinhavo
