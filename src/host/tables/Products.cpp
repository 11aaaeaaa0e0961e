#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl produtoColumns[] = {
    {"CODIGO", Text, width::product, "Código"},
    {"CODIGO2", Text, 25, "Código alternativo"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"DESCRICAO2", Text, width::productName, "Descrição 2"},
    {"UNIDADE", Text, width::unit, "Unidade", "UNIDADE"},
    {.name = "ATIVO", .kind = Text, .width = width::flag, .caption = "Ativo", .choices = yesNo, .initial = "S"},
    {"STATUS", Text, 40, "Status"},
    {.name = "ESTOQUE", .kind = Text, .width = width::flag, .caption = "Controla estoque", .choices = yesNo},
    {"COLECAO", Text, width::collection, "Coleção", "COLECAO"},
    {"GRUPO", Text, width::productGroup, "Grupo", "GRUPO_PA"},
    {"FAMILIA", Text, width::family, "Família", "FAMILIA"},
    {"LINHA", Text, width::productLine, "Linha", "TABLIN"},
    {"MARCA", Text, width::brand, "Marca", "MARCA"},
    {"ETIQUETA", Text, width::label, "Etiqueta", "ETQ_PROD"},
    {"FAIXA", Text, width::sizeRange, "Faixa de tamanhos", "FAIXA"},
    {"CODFIS", Text, width::fiscalClass, "NCM", "TABFIS"},
    {"LOCAL", Text, width::place, "Local", "LOCAL"},
    {"FICHA", Text, 20, "Ficha"},
    {"COMP1", Text, 250, "Composição 1"},
    {"COMP2", Text, 250, "Composição 2"},
    {"LARGURA", Float, 0, "Largura"},
    {"PESO", Float, 0, "Peso"},
    {"PESO_TALHADO", Float, 0, "Peso talhado"},
    {"CUSTO", Float, 0, "Custo"},
    {"PRECO", Float, 0, "Preço de venda"},
    {"OBS1", Text, 1000, "Observação 1"},
    {"OBS2", Text, 1000, "Observação 2"},
    {"OBS3", Text, 1000, "Observação 3"},
    {"OBS", Text, width::longText, "Observação"},
};

constexpr TIndexDecl produtoIndexes[] = {
    {"CODIGO2"},
    {"DESCRICAO"},
    {"COLECAO"},
};

constexpr TColumnDecl cadcorColumns[] = {
    {"COR", Text, width::colour, "Código"},
    {"DESCRICAO", Text, width::colourName, "Descrição"},
};

constexpr TColumnDecl tabtamColumns[] = {
    {"TAM", Text, width::size, "Tamanho"},
    {"ACRESCIMO", Float, 0, "Ordem do tamanho"},
};

constexpr TColumnDecl faixaColumns[] = {
    {"CODIGO", Text, width::sizeRange, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TAMANHO", Integer, 0, "Espaço entre tamanhos na impressão"},
};

constexpr TColumnDecl faixaItenColumns[] = {
    {"FAIXA", Text, width::sizeRange, "Faixa de tamanhos", "FAIXA"},
    {"TAMANHO", Text, width::size, "Tamanho", "TABTAM"},
    {"POSICAO", Integer, 0, "Posição"},
};

constexpr TColumnDecl colecaoColumns[] = {
    {"CODIGO", Text, width::collection, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl grupoPaColumns[] = {
    {"CODIGO", Text, width::productGroup, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl familiaColumns[] = {
    {"CODIGO", Text, width::family, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"GRUPO", Text, width::family, "Grupo"},
};

constexpr TColumnDecl tablinColumns[] = {
    {"CODIGO", Text, width::productLine, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"CONCENTRADO", Float, 0, "Quantidade de venda concentrada"},
};

constexpr TColumnDecl marcaColumns[] = {
    {"CODIGO", Text, width::brand, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl etqProdColumns[] = {
    {"CODIGO", Text, width::label, "Código"},
    {"DESCRICAO", Text, 100, "Descrição"},
};

constexpr TColumnDecl unidadeColumns[] = {
    {"UNIDADE", Text, width::unit, "Unidade"},
    {"QTDE", Float, 0, "Quantidade"},
};

constexpr TColumnDecl estampaColumns[] = {
    {"CODIGO", Text, width::product, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TIPO", Text, 2, "Tipo"},
    {"TAMANHO", Text, 20, "Tamanho"},
    {"OBS", Text, width::longText, "Observação"},
};

constexpr TColumnDecl estampaCliColumns[] = {
    {"CODESTAMPA", Text, width::product, "Estampa", "ESTAMPA"},
    {"CODCLI", Text, width::client, "Fornecedor", "ENTIDADE"},
    {"CUSTO", Float, 0, "Custo"},
};

constexpr TIndexDecl estampaCliIndexes[] = {
    {"CODCLI"},
};

constexpr TColumnDecl estProdColumns[] = {
    {"ESTAMPA", Text, width::product, "Estampa", "ESTAMPA"},
    {"PRODUTO", Text, width::product, "Produto", "PRODUTO"},
};

constexpr TIndexDecl estProdIndexes[] = {
    {"PRODUTO"},
};

constexpr TColumnDecl estQuadroColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"ESTAMPA", Text, width::product, "Estampa", "ESTAMPA"},
    {"PRODUTO", Text, width::product, "Produto", "PRODUTO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"QUADRO", Text, 10, "Quadro"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"FUNDO", Text, width::colour, "Cor de fundo", "CADCOR"},
    {"CAMADA1", Text, width::colour, "Cor da camada 1", "CADCOR"},
    {"CAMADA2", Text, width::colour, "Cor da camada 2", "CADCOR"},
    {"CAMADA3", Text, width::colour, "Cor da camada 3", "CADCOR"},
    {"CAMADA4", Text, width::colour, "Cor da camada 4", "CADCOR"},
    {"CAMADA5", Text, width::colour, "Cor da camada 5", "CADCOR"},
    {"CAMADA6", Text, width::colour, "Cor da camada 6", "CADCOR"},
    {"CAMADA7", Text, width::colour, "Cor da camada 7", "CADCOR"},
    {"CAMADA8", Text, width::colour, "Cor da camada 8", "CADCOR"},
    {"OBS", Text, 1000, "Observação"},
};

constexpr TIndexDecl estQuadroIndexes[] = {
    {"PRODUTO,ESTAMPA"},
};

constexpr TColumnDecl combinacaoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"MALHA", Text, width::product, "Malha", "MATERIAL"},
    {"COR01", Text, 50, "Cor 1"},
    {"COR02", Text, 50, "Cor 2"},
    {"COR03", Text, 50, "Cor 3"},
    {"COR04", Text, 50, "Cor 4"},
    {"COR05", Text, 50, "Cor 5"},
    {"COR06", Text, 50, "Cor 6"},
    {"COR07", Text, 50, "Cor 7"},
    {"COR08", Text, 50, "Cor 8"},
    {"COR09", Text, 50, "Cor 9"},
    {"COR10", Text, 50, "Cor 10"},
    {"COR11", Text, 50, "Cor 11"},
    {"COR12", Text, 50, "Cor 12"},
    {"COR13", Text, 50, "Cor 13"},
    {"COR14", Text, 50, "Cor 14"},
    {"COR15", Text, 50, "Cor 15"},
    {"COR16", Text, 50, "Cor 16"},
    {"COR17", Text, 50, "Cor 17"},
    {"COR18", Text, 50, "Cor 18"},
    {"COR19", Text, 50, "Cor 19"},
    {"COR20", Text, 50, "Cor 20"},
    {"COR21", Text, 50, "Cor 21"},
};

constexpr TIndexDecl combinacaoIndexes[] = {
    {"CODIGO,ORDEM"},
};

constexpr TColumnDecl combParteColumns[] = {
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"COR_PARTE", Text, width::colour, "Cor da parte", "CADCOR"},
};

constexpr TTableDecl all[] = {
    {.name = "CADCOR",
        .caption = "Cores",
        .key = "COR",
        .keeper = TKeeper::Person,
        .group = group::colours,
        .description = "DESCRICAO",
        .required = "DESCRICAO",
        .columns = cadcorColumns},
    {.name = "COLECAO",
        .caption = "Coleções",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = colecaoColumns},
    {.name = "COMBINACAO",
        .caption = "Combinações de cores",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::colours,
        .rowKey = "CODIGO,ORDEM",
        .required = "CODIGO,ORDEM",
        .columns = combinacaoColumns,
        .indexes = combinacaoIndexes},
    {.name = "COMB_PARTE",
        .caption = "Cores das partes",
        .key = "CODIGO,COR,PARTE",
        .keeper = TKeeper::Person,
        .group = group::colours,
        .columns = combParteColumns},
    {.name = "ESTAMPA",
        .caption = "Estampas",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = estampaColumns},
    {.name = "ESTAMPA_CLI",
        .caption = "Estampas por cliente",
        .key = "CODESTAMPA,CODCLI",
        .keeper = TKeeper::Screen,
        .group = group::products,
        .screen = "TfmEstampaCli",
        .columns = estampaCliColumns,
        .indexes = estampaCliIndexes},
    {.name = "EST_PROD",
        .caption = "Estampas do produto",
        .key = "ESTAMPA,PRODUTO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .columns = estProdColumns,
        .indexes = estProdIndexes},
    {.name = "EST_QUADRO",
        .caption = "Quadros da estampa",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::products,
        .rowKey = "ESTAMPA,PRODUTO,PARTE,QUADRO,ORDEM",
        .required = "ESTAMPA,PRODUTO",
        .columns = estQuadroColumns,
        .indexes = estQuadroIndexes},
    {.name = "ETQ_PROD",
        .caption = "Etiquetas",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = etqProdColumns},
    {.name = "FAIXA",
        .caption = "Faixas de tamanhos",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::colours,
        .description = "DESCRICAO",
        .required = "DESCRICAO",
        .columns = faixaColumns},
    {.name = "FAIXA_ITEN",
        .caption = "Tamanhos da faixa",
        .key = "FAIXA,TAMANHO",
        .keeper = TKeeper::Person,
        .group = group::colours,
        .required = "POSICAO",
        .columns = faixaItenColumns},
    {.name = "FAMILIA",
        .caption = "Famílias",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = familiaColumns},
    {.name = "GRUPO_PA",
        .caption = "Grupos de produtos",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = grupoPaColumns},
    {.name = "MARCA",
        .caption = "Marcas",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = marcaColumns},
    {.name = "PRODUTO",
        .caption = "Produtos",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .required = "DESCRICAO",
        .columns = produtoColumns,
        .indexes = produtoIndexes},
    {.name = "TABLIN",
        .caption = "Linhas de produtos",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .description = "DESCRICAO",
        .columns = tablinColumns},
    {.name = "TABTAM",
        .caption = "Tamanhos",
        .key = "TAM",
        .keeper = TKeeper::Person,
        .group = group::colours,
        .columns = tabtamColumns},
    {.name = "UNIDADE",
        .caption = "Unidades",
        .key = "UNIDADE",
        .keeper = TKeeper::Person,
        .group = group::products,
        .columns = unidadeColumns},
};

} // namespace

std::span<const TTableDecl> Products() { return all; }

} // namespace alinhavo::tables
