#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl empresaColumns[] = {
    {"EMP_PAT", Text, 2, "Código"},
    {"EMP_NOME", Text, width::name, "Nome"},
    {"EMP_CNPJ", Text, 18, "CNPJ"},
    {"EMP_DTINV", Date, 0, "Data de fechamento do inventário"},
    {"EMP_PERC_MO1", Float, 0, "1º percentual deduzido da mão de obra"},
    {"EMP_PERC_MO2", Float, 0, "2º percentual deduzido da mão de obra"},
};

constexpr TColumnDecl acessoUsuariosColumns[] = {
    {"CODIGO", Text, width::user, "Código"},
    {"NOME", Text, width::userName, "Nome"},
    {"SENHA", Text, 200},
    {"TIPO", Text, 1, "Tipo (0 comum)"},
    {"SUPERVISOR", Text, width::flag, "Supervisor"},
    {"BLOQUEADO", Text, width::flag, "Bloqueado"},
    {"CODFUN", Text, width::employee, "Funcionário"},
};

constexpr TIndexDecl acessoUsuariosIndexes[] = {
    {.columns = "NOME", .unique = true},
};

constexpr TColumnDecl acessoColumns[] = {
    {"USUARIO", Text, width::user, "Usuário", "ACESSO_USUARIOS"},
    {"LOCAL", Text, width::menuLevel, "Nível do menu", "ACESSO_MENU"},
    {"ALTERA", Text, 3, "Inclui e altera (Sim ou Não)"},
    {"EXCLUI", Text, 3, "Exclui (Sim ou Não)"},
    {"CONSULTA", Text, 3, "Consulta (Sim ou Não)"},
};

constexpr TColumnDecl acessoMenuColumns[] = {
    {"NIVEL", Text, width::menuLevel, "Nível"},
    {"DESCRICAO", Text, 80, "Descrição"},
    {"NOME_FORM", Text, 60, "Tela"},
};

constexpr TIndexDecl acessoMenuIndexes[] = {
    {"NOME_FORM"},
};

constexpr TColumnDecl acessoSetorColumns[] = {
    {.name = "TIPO", .kind = Text, .width = width::flag, .caption = "Tipo", .choices = "F=Funcionário"},
    {"CODIGO", Text, width::employee, "Funcionário", "PESSOAL"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
};

constexpr TColumnDecl parametroColumns[] = {
    {"GRUPO", Text, 6, "Grupo"},
    {"NUMERO", Integer, 0, "Número"},
    {"DESCRICAO", Text, 250, "Descrição"},
    {"VALOR", Text, 250, "Valor"},
};

constexpr TColumnDecl preferenciaColumns[] = {
    {"USUARIO", Text, width::user, "Usuário"},
    {"CHAVE", Text, 120, "Chave"},
    {"VALOR", Text, width::longText, "Valor"},
};

constexpr TColumnDecl geralogColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"MODULO", Text, 60, "Módulo"},
    {"CHAVE", Text, 60, "Chave"},
    {"OPERACAO", Integer, 0, "Operação"},
    {"USUARIO", Text, width::userName, "Usuário"},
    {"DATA_HORA", DateTime, 0, "Data e hora"},
    {"TEXTO", Text, width::longText, "Texto"},
};

constexpr TIndexDecl geralogIndexes[] = {
    {"MODULO,CHAVE"},
    {"CHAVE"},
    {"DATA_HORA"},
    {.columns = "IDENTIFICADOR", .descending = true},
};

constexpr TColumnDecl arquivoColumns[] = {
    {"CODIGO", Text, 30, "Código"},
    {"TIPO", Integer, 0, "Tipo (2 estampa, 6 medidas, 7 foto do produto, 10 segunda foto)"},
    {"CAMINHO", Text, 250, "Caminho"},
};

constexpr TColumnDecl emailSaidaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"USUARIO", Text, width::user, "Usuário"},
    {"PARA", Text, 1000, "Para"},
    {"COPIA", Text, 1000, "Cópia"},
    {"ASSUNTO", Text, 250, "Assunto"},
    {"SITUACAO", Text, width::flag, "Situação (P pendente, E enviado, F falhou)"},
    {"TENTATIVAS", Integer, 0, "Tentativas"},
    {"ERRO", Text, 1000, "Erro"},
    {"DATA_HORA", DateTime, 0, "Gravado em"},
    {"DT_ENVIO", DateTime, 0, "Enviado em"},
};

constexpr TIndexDecl emailSaidaIndexes[] = {
    {"SITUACAO"},
};

constexpr TColumnDecl emailTextoColumns[] = {
    {"EMAIL", Integer},
    {"SEQUENCIA", Integer},
    {"TEXTO", Text, width::longText, "Texto"},
};

constexpr TTableDecl all[] = {
    {.name = "ACESSO",
        .caption = "Direitos de acesso",
        .key = "USUARIO,LOCAL",
        .keeper = TKeeper::System,
        .columns = acessoColumns,
        .global = true},
    {.name = "ACESSO_MENU",
        .caption = "Menu",
        .key = "NIVEL",
        .keeper = TKeeper::System,
        .columns = acessoMenuColumns,
        .indexes = acessoMenuIndexes,
        .global = true},
    {.name = "ACESSO_SETOR",
        .caption = "Setores permitidos ao funcionário",
        .key = "TIPO,CODIGO,SETOR",
        .keeper = TKeeper::Person,
        .group = group::people,
        .columns = acessoSetorColumns},
    {.name = "ACESSO_USUARIOS",
        .caption = "Usuários",
        .key = "CODIGO",
        .keeper = TKeeper::System,
        .columns = acessoUsuariosColumns,
        .indexes = acessoUsuariosIndexes,
        .global = true},
    {.name = "ARQUIVO",
        .caption = "Arquivos anexados",
        .key = "CODIGO,TIPO",
        .keeper = TKeeper::System,
        .columns = arquivoColumns},
    {.name = "EMAIL_SAIDA",
        .caption = "E-mails a enviar",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::System,
        .columns = emailSaidaColumns,
        .indexes = emailSaidaIndexes},
    {.name = "EMAIL_TEXTO",
        .caption = "Texto dos e-mails a enviar",
        .key = "EMAIL,SEQUENCIA",
        .keeper = TKeeper::System,
        .columns = emailTextoColumns},
    {.name = "EMPRESA",
        .caption = "Empresas",
        .key = "EMP_PAT",
        .keeper = TKeeper::System,
        .columns = empresaColumns,
        .global = true},
    {.name = "GERALOG",
        .caption = "Log de alterações",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::System,
        .columns = geralogColumns,
        .indexes = geralogIndexes},
    {.name = "PARAMETRO",
        .caption = "Parâmetros",
        .key = "GRUPO,NUMERO",
        .keeper = TKeeper::System,
        .columns = parametroColumns},
    {.name = "PREFERENCIA",
        .caption = "Preferências do usuário",
        .key = "USUARIO,CHAVE",
        .keeper = TKeeper::System,
        .columns = preferenciaColumns,
        .global = true},
};

} // namespace

std::span<const TTableDecl> System() { return all; }

} // namespace alinhavo::tables
