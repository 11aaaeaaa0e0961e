#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl entidadeColumns[] = {
    {"CODCLI", Text, width::client, "Código"},
    {"NOME", Text, width::name, "Nome"},
    {"FANTASIA", Text, width::name, "Nome fantasia"},
    {"CNPJ", Text, 18, "CNPJ"},
    {.name = "ATIVO", .kind = Text, .width = width::flag, .caption = "Ativo", .choices = yesNo, .initial = "S"},
    {.name = "BLOQUEIO", .kind = Text, .width = width::flag, .caption = "Bloqueado", .choices = yesNo},
    {"GRUPO", Text, width::clientGroup, "Grupo", "GRUPO_CLI"},
    {"SIT_CLI", Text, width::situation, "Tipo de facção", "SITCLI"},
    {"TABELA", Text, width::priceTable, "Tabela de preços", "REGIAO"},
    {"CODREP", Text, width::client, "Representante", "REPRESEN"},
    {"TRANSPORTE", Text, width::client, "Transportadora", "TABTRAN"},
    {"ENDERECO", Text, 80, "Endereço"},
    {"NUM_END", Text, 10, "Número do endereço"},
    {"BAIRRO", Text, 60, "Bairro"},
    {"CEP", Text, width::postcode, "CEP"},
    {"TELEFONE", Text, 20, "Telefone"},
    {"EMAIL", Text, 100, "E-mail"},
    {"CONDICAO", Text, 30, "Condição de pagamento"},
    {"CLASSE", Text, width::financeClass, "Classe gerencial", "SUBGRUPO"},
    {"HISTORICO", Text, width::history, "Histórico", "HISTCP"},
    {"SIT_DUP", Text, width::situation, "Situação da duplicata", "TABSIT"},
    {"BANCO", Text, width::bank, "Banco", "CADBAN"},
    {"AGENCIA", Text, 10, "Agência"},
    {"CONTA", Text, 20, "Conta"},
    {.name = "CONSUMOS", .kind = Text, .width = width::flag, .caption = "Controla consumos", .choices = yesNo},
    {"OBS_FINAN", Text, width::longText, "Observação financeira"},
};

constexpr TIndexDecl entidadeIndexes[] = {
    {"NOME"},
    {"TABELA"},
    {"GRUPO"},
};

constexpr TColumnDecl contatoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODCLI", Text, width::client, "Cliente", "ENTIDADE"},
    {"TIPO", Text, 2, "Tipo (3 financeiro)"},
    {"EMAIL", Text, 100, "E-mail"},
};

constexpr TIndexDecl contatoIndexes[] = {
    {"CODCLI,TIPO"},
};

constexpr TColumnDecl grupoCliColumns[] = {
    {"CODIGO", Text, width::clientGroup, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl sitcliColumns[] = {
    {"CODIGO", Text, width::situation, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl represenColumns[] = {
    {"CODREP", Text, width::client, "Código"},
    {"NOME", Text, width::name, "Nome"},
};

constexpr TColumnDecl tabtranColumns[] = {
    {"CODIGO", Text, width::client, "Código"},
    {"NOME", Text, width::name, "Nome"},
};

constexpr TColumnDecl cadcepColumns[] = {
    {"CEP", Text, width::postcode, "CEP"},
    {"COD_CID", Text, width::city, "Cidade", "CIDADE"},
};

constexpr TColumnDecl cidadeColumns[] = {
    {"COD_CID", Text, width::city, "Código"},
    {"NOME_CID", Text, 60, "Nome"},
};

constexpr TColumnDecl pessoalColumns[] = {
    {"CODIGO", Text, width::employee, "Código"},
    {"NOME", Text, width::name, "Nome"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"TEMPO_DIARIO", Float, 0, "Tempo diário em minutos"},
};

constexpr TIndexDecl pessoalIndexes[] = {
    {"CODCLI"},
};

constexpr TColumnDecl certificadoColumns[] = {
    {"CODIGO", Text, width::certificate, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl produtoCertificadoColumns[] = {
    {"PRODUTO", Text, width::product, "Produto", "PRODUTO"},
    {"CERTIFICADO", Text, width::certificate, "Certificado", "CERTIFICADO"},
};

constexpr TColumnDecl entidadeCertificadoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"CERTIFICADO", Text, width::certificate, "Certificado", "CERTIFICADO"},
    {"DT_INICIO", Date, 0, "Válido desde"},
    {"DT_FIM", Date, 0, "Válido até"},
};

constexpr TIndexDecl entidadeCertificadoIndexes[] = {
    {"CODCLI,CERTIFICADO"},
};

constexpr TTableDecl all[] = {
    {.name = "CADCEP",
        .caption = "CEPs",
        .key = "CEP",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .columns = cadcepColumns},
    {.name = "CERTIFICADO",
        .caption = "Certificados",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "DESCRICAO",
        .columns = certificadoColumns},
    {.name = "CIDADE",
        .caption = "Cidades",
        .key = "COD_CID",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "NOME_CID",
        .columns = cidadeColumns},
    {.name = "CONTATO",
        .caption = "Contatos",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .rowKey = "CODCLI,TIPO,EMAIL",
        .required = "CODCLI,EMAIL",
        .columns = contatoColumns,
        .indexes = contatoIndexes},
    {.name = "ENTIDADE",
        .caption = "Clientes, fornecedores e facções",
        .key = "CODCLI",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "NOME",
        .required = "NOME",
        .columns = entidadeColumns,
        .indexes = entidadeIndexes},
    {.name = "ENTIDADE_CERTIFICADO",
        .caption = "Certificados da facção",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .rowKey = "CODCLI,CERTIFICADO,DT_INICIO",
        .required = "CODCLI,CERTIFICADO",
        .columns = entidadeCertificadoColumns,
        .indexes = entidadeCertificadoIndexes},
    {.name = "GRUPO_CLI",
        .caption = "Grupos de clientes",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "DESCRICAO",
        .columns = grupoCliColumns},
    {.name = "PESSOAL",
        .caption = "Funcionários",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::people,
        .description = "NOME",
        .required = "NOME",
        .columns = pessoalColumns,
        .indexes = pessoalIndexes},
    {.name = "PRODUTO_CERTIFICADO",
        .caption = "Certificados exigidos pelo produto",
        .key = "PRODUTO,CERTIFICADO",
        .keeper = TKeeper::Person,
        .group = group::products,
        .columns = produtoCertificadoColumns},
    {.name = "REPRESEN",
        .caption = "Representantes",
        .key = "CODREP",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "NOME",
        .columns = represenColumns},
    {.name = "SITCLI",
        .caption = "Tipos de facção",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "DESCRICAO",
        .columns = sitcliColumns},
    {.name = "TABTRAN",
        .caption = "Transportadoras",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::partners,
        .description = "NOME",
        .columns = tabtranColumns},
};

} // namespace

std::span<const TTableDecl> Partners() { return all; }

} // namespace alinhavo::tables
