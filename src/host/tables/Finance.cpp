#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl pagtoColumns[] = {
    {"NUM_AP", Text, width::payable, "A.P."},
    {"CODCRE", Text, width::client, "Fornecedor", "ENTIDADE"},
    {"DOCTO", Text, 20, "Documento"},
    {"DUPLI", Text, 20, "Duplicata"},
    {"SERIE", Text, width::series, "Série"},
    {"DT_EMI", Date, 0, "Data de emissão"},
    {"DT_VEN", Date, 0, "Data de vencimento"},
    {"DATA_ORIG", Date, 0, "Vencimento original"},
    {"DT_ATUAL", Date, 0, "Data de atualização"},
    {"DT_DIGITA", Date, 0, "Data de digitação"},
    {"NUM_OS", Text, width::financeClass, "Classe gerencial", "SUBGRUPO"},
    {"HISTORICO", Text, width::history, "Histórico", "HISTCP"},
    {"BANCO", Text, width::bank, "Banco", "CADBAN"},
    {"SITUACAO", Text, width::situation, "Situação", "TABSIT"},
    {"STATUS", Text, width::flag, "Status"},
    {.name = "BLOQUEIO", .kind = Text, .width = width::flag, .caption = "Bloqueada", .choices = yesNo},
    {"VALOR", Float, 0, "Valor"},
    {"VALOR_ORIG", Float, 0, "Valor original"},
    {"VAL_NOTA", Float, 0, "Valor da nota"},
    {"VAL_DEV", Float, 0, "Valor devolvido"},
    {"VAL_PAG", Float, 0, "Valor pago"},
    {"JUROS", Float, 0, "Juros"},
    {"DESCONTO", Float, 0, "Desconto"},
    {"ICM", Float, 0, "ICMS (%)"},
    {"VAL_ICM", Float, 0, "Valor do ICMS"},
    {"IPI", Float, 0, "IPI (%)"},
    {"VAL_IPI", Float, 0, "Valor do IPI"},
    {"OBS", Text, 250, "Observação"},
};

constexpr TIndexDecl pagtoIndexes[] = {
    {.columns = "NUM_AP", .descending = true},
    {"CODCRE,DUPLI"},
    {"DT_VEN"},
};

constexpr TColumnDecl rateioClasseColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, 15, "Número do título"},
    {"TIPO", Text, 2, "Módulo"},
    {"NUM_OS", Text, width::financeClass, "Classe gerencial", "SUBGRUPO"},
    {"CLASSE", Text, width::financeClass, "Subclasse", "SUBGRUPO"},
    {"VALOR", Float, 0, "Valor"},
    {"INDICE", Float, 0, "Participação"},
    {"SEQUENCIA", Integer, 0, "Sequência"},
    {"DATA", Date, 0, "Data"},
};

constexpr TIndexDecl rateioClasseIndexes[] = {
    {"TIPO,NUMERO"},
    {"NUM_OS,DATA"},
};

constexpr TColumnDecl periodoFechadoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {.name = "GRUPO", .kind = Text, .width = 2, .caption = "Grupo", .choices = "IV=Inventário"},
    {"DT_INICIO", Date, 0, "De"},
    {"DT_FIM", Date, 0, "Até"},
};

constexpr TIndexDecl periodoFechadoIndexes[] = {
    {"GRUPO,DT_FIM"},
};

constexpr TColumnDecl cadbanColumns[] = {
    {"BANCO", Text, width::bank, "Código"},
    {"NOME_BANCO", Text, width::description, "Nome"},
};

constexpr TColumnDecl histcpColumns[] = {
    {"HISTORICO", Text, width::history, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl subgrupoColumns[] = {
    {"CODIGO", Text, width::financeClass, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TP_CONTA", Text, width::flag, "Tipo de conta (T totalizadora)"},
};

constexpr TColumnDecl tabsitColumns[] = {
    {"CODIGO", Text, width::situation, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TTableDecl all[] = {
    {.name = "CADBAN",
        .caption = "Bancos",
        .key = "BANCO",
        .keeper = TKeeper::Person,
        .group = group::finance,
        .description = "NOME_BANCO",
        .columns = cadbanColumns},
    {.name = "HISTCP",
        .caption = "Históricos de contas a pagar",
        .key = "HISTORICO",
        .keeper = TKeeper::Person,
        .group = group::finance,
        .description = "DESCRICAO",
        .columns = histcpColumns},
    {.name = "PAGTO",
        .caption = "Contas a pagar",
        .key = "NUM_AP",
        .keeper = TKeeper::Work,
        .group = group::finance,
        .columns = pagtoColumns,
        .indexes = pagtoIndexes},
    {.name = "PERIODO_FECHADO",
        .caption = "Períodos fechados",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::periods,
        .rowKey = "GRUPO,DT_INICIO",
        .required = "GRUPO,DT_INICIO,DT_FIM",
        .columns = periodoFechadoColumns,
        .indexes = periodoFechadoIndexes},
    {.name = "RATEIO_CLASSE",
        .caption = "Rateio por classe gerencial",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::finance,
        .columns = rateioClasseColumns,
        .indexes = rateioClasseIndexes},
    {.name = "SUBGRUPO",
        .caption = "Classes gerenciais",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::finance,
        .description = "DESCRICAO",
        .columns = subgrupoColumns},
    {.name = "TABSIT",
        .caption = "Situações de títulos",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::finance,
        .description = "DESCRICAO",
        .columns = tabsitColumns},
};

} // namespace

std::span<const TTableDecl> Finance() { return all; }

} // namespace alinhavo::tables
