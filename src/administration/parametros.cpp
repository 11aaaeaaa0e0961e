#include "administration/parametros.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

constexpr TOpcaoParametro ligado[] = {
    {"S", "Sim"},
    {"N", "Não"},
};

constexpr TOpcaoParametro profundidade[] = {
    {"N", "Por cor e tamanho"},
    {"T", "Só por tamanho"},
    {"C", "Só por cor"},
    {"S", "Sem cor nem tamanho"},
};

constexpr TOpcaoParametro consumos[] = {
    {"S", "Em cada setor"},
    {"U", "Só no último setor"},
    {"N", "Não exige"},
};

constexpr TOpcaoParametro tolerancia[] = {
    {"S", "Observações marcadas na ficha de envio, tolerância zero"},
};

constexpr TOpcaoParametro leitura[] = {
    {"N", "Leitura livre, datas livres"},
    {"S", "Leitura obrigatória, datas de hoje"},
    {"B", "Leitura obrigatória de \"Barra 128\", datas de hoje"},
};

constexpr TOpcaoParametro etiqueta[] = {
    {"S", "Etiqueta única por peça, com o número da ordem"},
    {"N", "Etiqueta sem o número da ordem"},
};

constexpr TOpcaoParametro lote[] = {
    {"2", "O lote é o número da ordem"},
};

constexpr auto todos = std::to_array<TParametroDecl>({
    {.grupo = "EXP",
        .numero = 70,
        .titulo = "Etiqueta \"Barra 128\" única por peça",
        .significado
        = "Diz se os 6 últimos caracteres da etiqueta \"Barra 128\" são o número da ordem. Ligado, a leitura confere "
          "se a peça é da ordem que está na tela e não aceita a mesma etiqueta duas vezes.",
        .telas = "Movimentação de Setores",
        .opcoes = etiqueta,
        .semValor = "Etiqueta sem o número da ordem"},
    {.grupo = "FAC",
        .numero = 10,
        .titulo = "Custo na entrada de estoque",
        .significado
        = "Ligado, a peça pronta entra no estoque com o seu custo, calculado pelo preço do produto. Desligado, "
          "entra só a quantidade.",
        .telas = "Movimentação de Setores",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 20,
        .titulo = "Detalhe das linhas de produção",
        .significado
        = "Até onde a produção de uma ordem é separada: por cor e tamanho, só por um deles, ou por nenhum. Por cor e "
          "tamanho, a grade mostra também a coluna Necessidade. Sem valor a movimentação não abre ordens.",
        .telas = "Movimentação de Setores; Reprocesso",
        .opcoes = profundidade,
        .semValor = "Não definido: a movimentação não abre ordens"},
    {.grupo = "FAC",
        .numero = 30,
        .titulo = "Nota de retorno da facção",
        .significado
        = "Ligado, o que volta de uma facção só se movimenta com a nota fiscal de retorno lançada nas entradas. A "
          "própria fábrica (FAC80) fica fora da exigência.",
        .telas = "Movimentação de Setores",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 60,
        .titulo = "Baixa de consumos antes do movimento",
        .significado = "Exige que o material da ordem tenha sido baixado antes de as peças saírem do setor.",
        .telas = "Movimentação de Setores",
        .opcoes = consumos},
    {.grupo = "FAC",
        .numero = 70,
        .titulo = "Tolerância de peças e extra da ficha de envio",
        .significado = "Na movimentação é quantidade de peças: quanto o total de defeitos, ou o que sai a mais, pode "
                       "passar nos setores sem "
                       "movimentação parcial antes de pedir a senha de um supervisor. Na ficha de envio o mesmo número "
                       "é percentual: "
                       "quantas peças a mais são impressas por tamanho. O valor S marca as observações da ficha e vale "
                       "zero nas contas.",
        .telas = "Movimentação de Setores; Relatório de Envio para Terceirização",
        .opcoes = tolerancia,
        .livre = TValorLivre::Inteiro,
        .semValor = "Zero"},
    {.grupo = "FAC",
        .numero = 80,
        .titulo = "Código da própria fábrica",
        .significado
        = "O cadastro que representa a própria fábrica: com quem a ordem está quando não está em facção nenhuma. Não "
          "precisa de nota de retorno, e o e-mail de pagamento sai em seu nome.",
        .telas = "Movimentação de Setores; Relatório de Pagamentos da Facção",
        .opcoes = {},
        .livre = TValorLivre::Cliente,
        .semValor = "Não definido"},
    {.grupo = "FAC",
        .numero = 90,
        .titulo = "Data de produção travada",
        .significado = "Ligado, a data de produção fica em hoje, e outra data pede a senha de um supervisor.",
        .telas = "Movimentação de Setores",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 100,
        .titulo = "Sem efeito",
        .significado
        = "É lido pela movimentação, mas não muda nada. Fica aqui porque instalações antigas o têm gravado.",
        .telas = "Movimentação de Setores",
        .opcoes = ligado,
        .semValor = "Sem efeito"},
    {.grupo = "FAC",
        .numero = 120,
        .titulo = "Auxiliares marcados na ficha de envio",
        .significado = "Ligado, a ficha de envio já abre com os materiais auxiliares marcados para imprimir.",
        .telas = "Relatório de Envio para Terceirização",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 140,
        .titulo = "Data de entrada travada",
        .significado = "Ligado, a data de entrada do movimento não pode ser mudada.",
        .telas = "Movimentação de Setores",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 240,
        .titulo = "Leitura de código de barras no último setor",
        .significado = "Diz se a peça de estoque precisa ser lida para sair do último setor. Quando a leitura é "
                       "obrigatória, as datas ficam "
                       "travadas em hoje. Sem valor a leitura é obrigatória.",
        .telas = "Movimentação de Setores",
        .opcoes = leitura,
        .semValor = "Leitura obrigatória, datas de hoje"},
    {.grupo = "FAC",
        .numero = 250,
        .titulo = "Número do movimento obrigatório",
        .significado
        = "Ligado, fora do primeiro setor é preciso dizer o número do movimento, na movimentação, na ficha de envio e "
          "na inspeção. Um setor pode exigi-lo sozinho, no seu cadastro.",
        .telas = "Movimentação de Setores; Relatório de Envio para Terceirização; Inspeção de Facção",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 260,
        .titulo = "Partes saem juntas do último setor",
        .significado = "Ligado, no último setor as partes de um produto de estoque só saem todas juntas.",
        .telas = "Movimentação de Setores",
        .opcoes = ligado},
    {.grupo = "FAC",
        .numero = 270,
        .titulo = "Preço por cor e tamanho",
        .significado = "Ligado, os preços das facções são procurados também por cor e tamanho.",
        .telas = "Relatório de Envio para Terceirização; Pendente por Setor; Recalculo de Preços",
        .opcoes = ligado},
    {.grupo = "FIN",
        .numero = 60,
        .titulo = "Contas a pagar nascem bloqueadas",
        .significado
        = "Ligado, o pagamento gerado para uma facção entra bloqueado no contas a pagar, até que o financeiro o "
          "libere.",
        .telas = "Relatório de Pagamentos da Facção",
        .opcoes = ligado},
    {.grupo = "PCP",
        .numero = 140,
        .titulo = "Lote do estoque de produção",
        .significado = "Diz com que lote a peça pronta entra no estoque: o número da ordem, ou o lote geral 000000.",
        .telas = "Movimentação de Setores",
        .opcoes = lote,
        .semValor = "Lote geral 000000"},
});

} // namespace

std::span<const TParametroDecl> Parametros() { return todos; }

const TParametroDecl* BuscaDeclaracao(std::string_view grupo, int numero)
{
    const auto found
        = std::ranges::find_if(todos, [&](const auto& each) { return each.grupo == grupo && each.numero == numero; });
    return found == todos.end() ? nullptr : &*found;
}

std::string NomeDoParametro(const TParametroDecl& parametro)
{
    return std::string(parametro.grupo) + std::to_string(parametro.numero);
}

std::string SignificadoDoValor(const TParametroDecl& parametro, std::string_view valor)
{
    if (valor.empty())
        return std::string(parametro.semValor);
    const auto opcao = std::ranges::find(parametro.opcoes, valor, &TOpcaoParametro::valor);
    return std::string(opcao == parametro.opcoes.end() ? valor : opcao->significado);
}

} // namespace alinhavo
