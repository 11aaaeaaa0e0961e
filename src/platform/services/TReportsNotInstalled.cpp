#include "platform/services/TReportsNotInstalled.h"

#include "forms/TForm.h"

namespace alinhavo {

void TReportsNotInstalled::Chama_Relatorio(
    TprReport&, TprTxReport&, std::string_view layout, TForm& screen, std::string_view)
{
    Refuse(layout, screen);
}

void TReportsNotInstalled::Chama_RelatorioWin(TprReport&, std::string_view layout, TForm& screen)
{
    Refuse(layout, screen);
}

void TReportsNotInstalled::Chama_RelatorioTxt(TprTxReport&, std::string_view layout, TForm& screen)
{
    Refuse(layout, screen);
}

void TReportsNotInstalled::Refuse(std::string_view layout, TForm& screen)
{
    lastLayout_ = layout;
    screen.Mensagem("O gerador de relatórios não está instalado: \"" + lastLayout_ + "\" não pode ser impresso.");
}

} // namespace alinhavo
