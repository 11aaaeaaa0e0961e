#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl faccaoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"PEDIDO", Text, width::salesOrder, "Pedido", "PEDIDO"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"OP", Text, width::sector, "Setor", "CADFLUXO"},
    {"FLUXO", Text, width::flow, "Fluxo", "ROTEIRO"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"MOV", Integer, 0, "Movimento"},
    {"QT_ORIG", Float, 0, "Quantidade original"},
    {"QUANT", Float, 0, "Quantidade produzida"},
    {"QUANT_2", Float, 0, "Quantidade de segunda"},
    {"QUANT_I", Float, 0, "Quantidade incompleta"},
    {"QUANT_F", Float, 0, "Quantidade faltante"},
    {"ID_ANT", Integer},
    {"REPROCESSO", Text, width::sector, "Setor de retorno do reprocesso", "CADFLUXO"},
    {"DT_S", Date, 0, "Data de envio"},
    {"DT_R", Date, 0, "Previsão de retorno"},
    {"DT_LAN", Date, 0, "Data de lançamento"},
    {"UNITARIO", Float, 0, "Preço unitário"},
    {"PRECO", Float, 0, "Preço"},
    {"VALOR", Float, 0, "Valor"},
    {"NOTA", Text, 7, "Nota de retorno"},
    {"NOTA_REM", Text, 7, "Nota de remessa"},
    {"OBS", Text, width::longText, "Observação"},
};

constexpr TIndexDecl faccaoIndexes[] = {
    {"NUMERO,OP,PARTE,MOV"},
    {"ID_ANT"},
    {"CODCLI,DT_S"},
    {"CODIGO,PARTE"},
    {"FLUXO,OP"},
    {"OP,DT_S"},
    {"DT_S"},
    {"DT_R"},
};

constexpr TForeignKeyDecl faccaoForeignKeys[] = {
    {"OP", "CADFLUXO", "CODIGO"},
};

constexpr TColumnDecl faccao3Columns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"PEDIDO", Text, width::salesOrder, "Pedido", "PEDIDO"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"OP", Text, width::sector, "Setor", "CADFLUXO"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"CODCLI_ANT", Text, width::client, "Facção de destino", "ENTIDADE"},
    {"MOV", Integer, 0, "Movimento"},
    {"ID_ANT", Integer},
    {"REPROCESSO", Text, width::sector, "Setor de retorno do reprocesso", "CADFLUXO"},
    {"QT_ORIG", Float, 0, "Quantidade original"},
    {"QUANT", Float, 0, "Quantidade produzida"},
    {"QUANT_2", Float, 0, "Quantidade de segunda"},
    {"QUANT_I", Float, 0, "Quantidade incompleta"},
    {"QUANT_F", Float, 0, "Quantidade faltante"},
    {"UNITARIO", Float, 0, "Preço unitário"},
    {"PRECO", Float, 0, "Preço"},
    {"VALOR", Float, 0, "Valor"},
    {.name = "PAGO", .kind = Text, .width = width::flag, .caption = "Pago", .choices = yesNo},
    {"DT_LAN", Date, 0, "Data de produção"},
    {"DT_PAGO", Date, 0, "Data do pagamento"},
    {"DT_PAGTO", Date, 0, "Data do fechamento"},
    {"NUM_AP", Text, width::payable, "A.P.", "PAGTO"},
    {"NOTA", Text, 30, "Nota de retorno"},
    {.name = "ESTOQUE", .kind = Text, .width = width::flag, .caption = "Lançado no estoque", .choices = yesNo},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
    {"QUAL", Text, width::quality, "Qualidade", "TABQUL"},
    {"OBS", Text, 200, "Observação"},
};

constexpr TIndexDecl faccao3Indexes[] = {
    {"NUMERO,OP,PARTE,MOV"},
    {"ID_ANT"},
    {"CODCLI,DT_LAN"},
    {"CODCLI,PAGO,DT_PAGTO"},
    {"OP,DT_LAN"},
    {"DT_LAN"},
    {"CODIGO"},
};

constexpr TForeignKeyDecl faccao3ForeignKeys[] = {
    {"OP", "CADFLUXO", "CODIGO"},
};

constexpr TColumnDecl faccao4Columns[] = {
    {"CODIGO", Text, 8, "Sequencial"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"OP", Text, width::sector, "Setor", "CADFLUXO"},
    {"DOCTO", Text, 20, "Documento"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"UNIDADE", Text, width::unit, "Unidade", "UNIDADE"},
    {"QUANT", Float, 0, "Quantidade"},
    {"PRECO", Float, 0, "Preço"},
    {"VALOR", Float, 0, "Valor"},
    {"DT_LAN", Date, 0, "Data de lançamento"},
    {.name = "PAGO", .kind = Text, .width = width::flag, .caption = "Pago", .choices = yesNo},
    {"DT_PAGO", Date, 0, "Data do pagamento"},
    {"DT_PAGTO", Date, 0, "Data do fechamento"},
    {.name = "PENDENTE", .kind = Text, .width = width::flag, .caption = "Pendente", .choices = yesNo},
    {.name = "TIPO", .kind = Text, .width = width::flag, .caption = "Tipo", .choices = "F=Facção,T=Tecelagem,R=Outros"},
    {"OBS", Text, width::longText, "Observação"},
};

constexpr TIndexDecl faccao4Indexes[] = {
    {.columns = "CODIGO", .descending = true},
    {"CODCLI,DT_LAN"},
    {"DT_LAN"},
};

constexpr TColumnDecl pcpPacoteColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"MOV", Integer, 0, "Movimento"},
    {"PACOTE", Text, 3, "Pacote"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"QTDE", Integer, 0, "Quantidade"},
    {"DE", Integer, 0, "Da peça"},
    {"ATE", Integer, 0, "Até a peça"},
    {"LOCAL", Text, 30, "Local"},
};

constexpr TIndexDecl pcpPacoteIndexes[] = {
    {"NUMERO,SETOR,PARTE,MOV"},
};

constexpr TColumnDecl producao1Columns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"DATA_EMI", Date, 0, "Data de produção"},
    {"FUNCIONARIO", Text, width::employee, "Funcionário", "PESSOAL"},
    {"OPERACAO", Text, width::operation, "Operação", "OPERACAO"},
    {"QTDE", Float, 0, "Quantidade"},
    {"DEFEITOS", Float, 0, "Defeitos"},
};

constexpr TIndexDecl producao1Indexes[] = {
    {"NUMERO,PARTE"},
    {"FUNCIONARIO,DATA_EMI"},
};

constexpr TColumnDecl operacaoColumns[] = {
    {"CODIGO", Text, width::operation, "Código"},
    {"DESCRICAO", Text, 100, "Descrição"},
    {"TEMPO_TOTAL", Float, 0, "Tempo total"},
};

constexpr TColumnDecl pcpseqprocColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"PRODUTO", Text, width::product, "Produto", "PRODUTO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"GRUPO", Text, width::sector, "Setor", "CADFLUXO"},
    {"OPERACAO", Text, width::operation, "Operação", "OPERACAO"},
    {"PERC", Float, 0, "Eficiência (%)"},
};

constexpr TIndexDecl pcpseqprocIndexes[] = {
    {"PRODUTO"},
};

constexpr TColumnDecl facTempoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"DATA", Date, 0, "Data"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"CODFUN", Text, width::employee, "Funcionário", "PESSOAL"},
    {"TEMPO", Integer, 0, "Tempo em minutos"},
    {"VALOR", Float, 0, "Valor"},
    {"INDICE", Float, 0, "Participação no dia"},
    {"OPERADORES", Float, 0, "Operadores"},
};

constexpr TIndexDecl facTempoIndexes[] = {
    {"CODCLI,DATA,CODFUN"},
};

constexpr TTableDecl all[] = {
    {.name = "FACCAO",
        .caption = "Posição das OFs nos setores",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::production,
        .columns = faccaoColumns,
        .indexes = faccaoIndexes,
        .foreignKeys = faccaoForeignKeys},
    {.name = "FACCAO3",
        .caption = "Movimentos de facção",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::production,
        .columns = faccao3Columns,
        .indexes = faccao3Indexes,
        .foreignKeys = faccao3ForeignKeys},
    {.name = "FACCAO4",
        .caption = "Lançamentos de facções",
        .key = "CODIGO",
        .keeper = TKeeper::Screen,
        .group = group::production,
        .screen = "TfmFacLanca",
        .description = "DESCRICAO",
        .columns = faccao4Columns,
        .indexes = faccao4Indexes},
    {.name = "FAC_TEMPO",
        .caption = "Tempo diário da facção",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Screen,
        .group = group::people,
        .screen = "TFmFacTempoFun",
        .rowKey = "DATA,CODCLI,CODFUN",
        .required = "DATA,CODCLI",
        .columns = facTempoColumns,
        .indexes = facTempoIndexes},
    {.name = "OPERACAO",
        .caption = "Operações",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::production,
        .description = "DESCRICAO",
        .columns = operacaoColumns},
    {.name = "PCPSEQPROC",
        .caption = "Sequência operacional do produto",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::production,
        .rowKey = "PRODUTO,PARTE,GRUPO,OPERACAO",
        .required = "PRODUTO,OPERACAO",
        .columns = pcpseqprocColumns,
        .indexes = pcpseqprocIndexes},
    {.name = "PCP_PACOTE",
        .caption = "Pacotes",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Screen,
        .group = group::production,
        .screen = "TfmCadPacote",
        .rowKey = "NUMERO,PARTE,SETOR,MOV,PACOTE",
        .required = "NUMERO,SETOR,PACOTE",
        .columns = pcpPacoteColumns,
        .indexes = pcpPacoteIndexes},
    {.name = "PRODUCAO1",
        .caption = "Produção por funcionário",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Screen,
        .group = group::people,
        .screen = "TFmFacProdFunc",
        .rowKey = "NUMERO,PARTE,TAM,DATA_EMI,FUNCIONARIO,OPERACAO",
        .required = "NUMERO,DATA_EMI,FUNCIONARIO",
        .columns = producao1Columns,
        .indexes = producao1Indexes},
};

} // namespace

std::span<const TTableDecl> Movement() { return all; }

} // namespace alinhavo::tables
