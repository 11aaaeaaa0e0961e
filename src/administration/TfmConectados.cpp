#include "administration/TfmConectados.h"

namespace alinhavo {
namespace {

constexpr std::int64_t Minuto = 60;
constexpr std::int64_t Hora = 60 * Minuto;

/// "há 12 min", "há 1 h 05 min".
std::string Idade(TDateTime desde, TDateTime agora)
{
    const auto segundos = std::max<std::int64_t>(0, agora.Seconds() - desde.Seconds());
    if (segundos < Minuto)
        return "há menos de 1 min";
    const auto minutos = segundos % Hora / Minuto;
    if (segundos < Hora)
        return "há " + std::to_string(minutos) + " min";
    return "há " + std::to_string(segundos / Hora) + " h " + (minutos < 10 ? "0" : "") + std::to_string(minutos)
        + " min";
}

/// To the minute.
std::string Momento(TDateTime hora) { return hora.TextWithHour().substr(0, 16); }

std::string HoraEMinuto(TDateTime hora) { return hora.TextWithHour().substr(11, 5); }

std::string Lista(const std::vector<std::string>& telas)
{
    std::string lista;
    for (const auto& tela : telas)
        lista.append(lista.empty() ? "" : ", ").append(tela);
    return lista;
}

} // namespace

TfmConectados::TfmConectados(TApplication& application)
    : TOrvForm(application, Class, "Quem está conectado")
{
    btnAtualizar.OnClick.connect(this, &TfmConectados::btnAtualizarClick);
    btnEncerrar.OnClick.connect(this, &TfmConectados::btnEncerrarClick);
    btnFechar.OnClick.connect(this, &TfmConectados::btnFecharClick);
    dbgConectados.OnRowColor.connect(this, &TfmConectados::dbgConectadosRowColor);
    Carrega();
    dbgConectados.SetFocus();
}

void TfmConectados::btnAtualizarClick() { Carrega(); }

/// Stays on the session where it stands, as long as that one lives.
void TfmConectados::Carrega()
{
    const auto antes = TbConectados.Id.AsString();
    const auto sessoes = App().Host.conectados.Lista();
    const auto agora = App().Host.conectados.Agora();
    {
        const auto quieto = TbConectados.DisableControls();
        TbConectados.EmptyTable();
        for (const auto& sessao : sessoes) {
            TbConectados.Append();
            TbConectados.Id = sessao.id;
            TbConectados.Codigo = sessao.usuario;
            TbConectados.Nome = sessao.nome;
            TbConectados.Desde = Momento(sessao.desde);
            TbConectados.UltimoUso = Idade(sessao.ultimoUso, agora);
            if (!sessao.pendenteDesde.IsBlank()) {
                TbConectados.PendenteDesde = HoraEMinuto(sessao.pendenteDesde);
                TbConectados.Pendente
                    = "desde " + HoraEMinuto(sessao.pendenteDesde) + ", " + Idade(sessao.pendenteDesde, agora);
            }
            TbConectados.Navegador = sessao.propria ? "este" : sessao.navegadorAberto ? "aberto" : "fechado";
            TbConectados.Telas = Lista(sessao.telas);
            TbConectados.Propria = sessao.propria ? "S" : "N";
            TbConectados.Post();
        }
        if (!TbConectados.Locate("Id", {antes}))
            TbConectados.First();
    }
    lblQuantos.SetCaption(sessoes.size() == 1 ? "1 sessão" : std::to_string(sessoes.size()) + " sessões");
}

void TfmConectados::dbgConectadosRowColor(std::size_t linha, TRowColor& cor)
{
    if (!TbConectados.CellValue(linha, TbConectados.PendenteDesde).AsString().empty())
        cor = TRowColor::Warning;
    else if (TbConectados.CellValue(linha, TbConectados.Propria).AsString() == "S")
        cor = TRowColor::Muted;
}

void TfmConectados::btnEncerrarClick()
{
    if (TbConectados.IsEmpty())
        return;
    if (TbConectados.Propria.value() == "S")
        return Mensagem("Esta é a sua própria sessão. Para terminá-la, use Sair.");
    const auto desde = TbConectados.PendenteDesde.value();
    const auto nome = TbConectados.Nome.value();
    if (!Pergunta("Encerrar a sessão de " + nome + "?\n"
            + (desde.empty() ? "Não há trabalho sem gravar."
                             : "O que não foi gravado desde as " + desde + " será desfeito.")))
        return;
    if (Acessa(TDireito::Altera, TNivel::Supervisor))
        Encerra();
}

/// The log is written when the session has gone: one that could not be ended leaves no line.
void TfmConectados::Encerra()
{
    const auto nome = TbConectados.Nome.value();
    const bool terminou = App().Host.conectados.Encerra(
        TbConectados.Id.value(), "A sessão foi encerrada por " + Funcoes().vUsuario() + ".");
    if (terminou) {
        const auto pendente = TbConectados.Pendente.value();
        GeraLog("SESSOES",
            "Sessão de " + nome + " encerrada"
                + (pendente.empty() ? ", sem trabalho pendente" : "; trabalho sem gravar " + pendente + ", desfeito"),
            TOperacaoLog::Processo, TbConectados.Codigo.value());
        CommitRetaining();
    }
    Carrega();
    Mensagem(terminou ? "A sessão de " + nome + " foi encerrada." : "Essa sessão já tinha terminado.");
}

void TfmConectados::btnFecharClick() { Close(); }

} // namespace alinhavo
