#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "platform/services/TTableWriter.h"

#include <array>

namespace alinhavo {
namespace {

struct TParameter {
    std::string_view group;
    int number;
    std::string_view description;
    std::string_view value;
};

constexpr auto parameters = std::to_array<TParameter>({
    {"FAC", 10, "Custo do produto na entrada de estoque da produção (S)", "S"},
    {"FAC", 20, "Detalhe das linhas de produção: N cor e tamanho, T tamanho, C cor, S nenhum", "N"},
    {"FAC", 30, "Exige nota fiscal de retorno para sair da facção (S)", "N"},
    {"FAC", 60, "Consumos baixados antes do movimento: S em cada setor, U no último", "N"},
    {"FAC", 70, "Tolerância, em peças, para defeitos e excesso em setor sem movimentação parcial", "3"},
    {"FAC", 80, "Código da própria fábrica no cadastro de facções", "00001"},
    {"FAC", 90, "Data de produção bloqueada (S)", "N"},
    {"FAC", 100, "Sem uso", ""},
    {"FAC", 120, "Marca o consumo auxiliar na ficha de envio (S)", "S"},
    {"FAC", 140, "Data de envio bloqueada (S)", "N"},
    {"FAC", 240, "Código de barras no último setor: N livre, B etiqueta Barra 128, S código EAN", "S"},
    {"FAC", 250, "Número do movimento obrigatório (S)", "N"},
    {"FAC", 260, "Todas as partes saem juntas do último setor (S)", "S"},
    {"FAC", 270, "Preço da facção por cor e tamanho (S)", "N"},
    {"EXP", 70, "Etiqueta Barra 128 com o número da OF e única por peça (S)", "N"},
    {"PCP", 140, "Lote de estoque da produção: 2 usa o número da OF", ""},
    {"FIN", 60, "Contas a pagar novas entram bloqueadas (S)", "N"},
});

constexpr std::array<std::string_view, 12> monthNames = {"Janeiro", "Fevereiro", "Março", "Abril", "Maio", "Junho",
    "Julho", "Agosto", "Setembro", "Outubro", "Novembro", "Dezembro"};

TDateTime FirstOfMonth(TDateTime day) { return TDateTime::FromDate(day.Year(), day.Month(), 1); }

} // namespace

void TDemoFactory::FillCompany()
{
    const TDateTime closing = FirstOfMonth(today_).AddMonths(-1).AddDays(-1);
    TTableWriter(database_, "EMPRESA", "EMP_PAT,EMP_NOME,EMP_CNPJ,EMP_DTINV,EMP_PERC_MO1,EMP_PERC_MO2")
        .Row({"01", "Confecções Vale do Alinhavo Ltda.", Cnpj(81204517), closing, 3.65, 2.5});
    TTableWriter(database_, "PERIODO_FECHADO", "GRUPO,DT_INICIO,DT_FIM")
        .Row({"IV", FirstOfMonth(closing).AddMonths(-11), closing});
}

void TDemoFactory::FillParameters()
{
    TTableWriter rows(database_, "PARAMETRO", "GRUPO,NUMERO,DESCRICAO,VALOR");
    for (const TParameter& parameter : parameters)
        rows.Row({parameter.group, parameter.number, parameter.description, parameter.value});
}

/// A period is a month of delivery.
std::string TDemoFactory::Period(TDateTime day) { return Code(day.Year(), 4) + Code(day.Month(), 2); }

void TDemoFactory::FillPeriods()
{
    TTableWriter rows(database_, "TABPRZ", "PRAZO,DESCRICAO,ATIVO,DT_INICIO,DT_FIM");
    for (int offset = -4; offset <= 6; ++offset) {
        const TDateTime month = FirstOfMonth(today_).AddMonths(offset);
        const std::string_view name = monthNames[static_cast<std::size_t>(month.Month() - 1)];
        rows.Row({Period(month), std::string(name) + " de " + std::to_string(month.Year()), offset < -1 ? "N" : "S",
            month, month.AddMonths(1).AddDays(-1)});
    }
}

} // namespace alinhavo
