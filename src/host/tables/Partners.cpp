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
    {"ATIVO", Text, width::flag, "Ativo"},
    {"BLOQUEIO", Text, width::flag, "Bloqueado"},
    {"GRUPO", Text, width::clientGroup, "Grupo"},
    {"SIT_CLI", Text, width::situation, "Tipo de facção"},
    {"TABELA", Text, width::priceTable, "Tabela de preços"},
    {"CODREP", Text, width::client, "Representante"},
    {"TRANSPORTE", Text, width::client, "Transportadora"},
    {"ENDERECO", Text, 80, "Endereço"},
    {"NUM_END", Text, 10, "Número do endereço"},
    {"BAIRRO", Text, 60, "Bairro"},
    {"CEP", Text, width::postcode, "CEP"},
    {"TELEFONE", Text, 20, "Telefone"},
    {"EMAIL", Text, 100, "E-mail"},
    {"CONDICAO", Text, 30, "Condição de pagamento"},
    {"CLASSE", Text, width::financeClass, "Classe gerencial"},
    {"HISTORICO", Text, width::history, "Histórico"},
    {"SIT_DUP", Text, width::situation, "Situação da duplicata"},
    {"BANCO", Text, width::bank, "Banco"},
    {"AGENCIA", Text, 10, "Agência"},
    {"CONTA", Text, 20, "Conta"},
    {"CONSUMOS", Text, width::flag, "Controla consumos"},
    {"OBS_FINAN", Text, width::longText, "Observação financeira"},
};

constexpr TIndexDecl entidadeIndexes[] = {
    {"NOME"},
    {"TABELA"},
    {"GRUPO"},
};

constexpr TColumnDecl contatoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODCLI", Text, width::client, "Cliente"},
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
    {"COD_CID", Text, width::city, "Cidade"},
};

constexpr TColumnDecl cidadeColumns[] = {
    {"COD_CID", Text, width::city, "Código"},
    {"NOME_CID", Text, 60, "Nome"},
};

constexpr TColumnDecl pessoalColumns[] = {
    {"CODIGO", Text, width::employee, "Código"},
    {"NOME", Text, width::name, "Nome"},
    {"CODCLI", Text, width::client, "Facção"},
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
    {"PRODUTO", Text, width::product, "Produto"},
    {"CERTIFICADO", Text, width::certificate, "Certificado"},
};

constexpr TColumnDecl entidadeCertificadoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODCLI", Text, width::client, "Facção"},
    {"CERTIFICADO", Text, width::certificate, "Certificado"},
    {"DT_INICIO", Date, 0, "Válido desde"},
    {"DT_FIM", Date, 0, "Válido até"},
};

constexpr TIndexDecl entidadeCertificadoIndexes[] = {
    {"CODCLI,CERTIFICADO"},
};

constexpr TTableDecl all[] = {
    {.name = "CADCEP", .caption = "CEPs", .key = "CEP", .columns = cadcepColumns},
    {.name = "CERTIFICADO", .caption = "Certificados", .key = "CODIGO", .columns = certificadoColumns},
    {.name = "CIDADE", .caption = "Cidades", .key = "COD_CID", .columns = cidadeColumns},
    {.name = "CONTATO",
        .caption = "Contatos",
        .key = "IDENTIFICADOR",
        .columns = contatoColumns,
        .indexes = contatoIndexes},
    {.name = "ENTIDADE",
        .caption = "Clientes, fornecedores e facções",
        .key = "CODCLI",
        .columns = entidadeColumns,
        .indexes = entidadeIndexes},
    {.name = "ENTIDADE_CERTIFICADO",
        .caption = "Certificados da facção",
        .key = "IDENTIFICADOR",
        .columns = entidadeCertificadoColumns,
        .indexes = entidadeCertificadoIndexes},
    {.name = "GRUPO_CLI", .caption = "Grupos de clientes", .key = "CODIGO", .columns = grupoCliColumns},
    {.name = "PESSOAL",
        .caption = "Funcionários",
        .key = "CODIGO",
        .columns = pessoalColumns,
        .indexes = pessoalIndexes},
    {.name = "PRODUTO_CERTIFICADO",
        .caption = "Certificados exigidos pelo produto",
        .key = "PRODUTO,CERTIFICADO",
        .columns = produtoCertificadoColumns},
    {.name = "REPRESEN", .caption = "Representantes", .key = "CODREP", .columns = represenColumns},
    {.name = "SITCLI", .caption = "Tipos de facção", .key = "CODIGO", .columns = sitcliColumns},
    {.name = "TABTRAN", .caption = "Transportadoras", .key = "CODIGO", .columns = tabtranColumns},
};

} // namespace

std::span<const TTableDecl> Partners() { return all; }

} // namespace alinhavo::tables
