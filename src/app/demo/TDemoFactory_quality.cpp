#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "platform/services/TTableWriter.h"

#include <array>

namespace alinhavo {
namespace {

struct TDefect {
    std::string_view name;
    std::string_view complement;
    std::string_view group; ///< number of the group: 1 embroidery, 2 cut, 3 sewing, 4 packing, 5 print, 6 workshop, …
    std::string_view sector;
    bool second; ///< makes second quality
    bool reprocess;
    std::string_view discount; ///< 1 of labour, 2 of cost, 3 of price, 4 fixed, 5 none
    double value;
};

constexpr auto defects = std::to_array<TDefect>({
    {"Peça cortada fora do fio", "Torção visível após a lavagem", "2", "01", true, false, "2", 50},
    {"Peça com piques errados", "", "2", "01", false, true, "5", 0},
    {"Peça faltando no lote", "Conferir com a ficha do lote", "2", "02", false, false, "5", 0},
    {"Bordado fora de posição", "Tolerância de 5 mm", "1", "03", true, false, "1", 100},
    {"Bordado com ponto falho", "", "1", "03", false, true, "1", 50},
    {"Entretela aparente", "", "1", "03", false, true, "4", 0.35},
    {"Furo de agulha no bordado", "", "1", "03", true, false, "2", 60},
    {"Estampa fora de registro", "Mais de 1 mm entre cores", "5", "04", true, false, "2", 40},
    {"Estampa craquelada", "", "5", "04", true, false, "2", 40},
    {"Mancha de tinta", "", "5", "04", true, false, "2", 60},
    {"Tom da estampa diferente", "Comparar com a prova aprovada", "5", "04", false, true, "1", 30},
    {"Cura insuficiente", "Solta na lavagem de teste", "5", "04", false, true, "1", 100},
    {"Costura aberta", "", "3", "05", false, true, "1", 30},
    {"Costura franzida", "", "3", "05", false, true, "1", 20},
    {"Ponto solto ou pulado", "", "3", "05", false, true, "1", 20},
    {"Gola torta", "", "3", "05", false, true, "1", 40},
    {"Bainha desigual", "Diferença acima de 0,5 cm", "3", "05", false, true, "1", 20},
    {"Furo de costura", "", "3", "05", true, false, "2", 100},
    {"Colarinho assimétrico", "", "3", "06", false, true, "1", 50},
    {"Punho trocado", "", "3", "06", false, true, "1", 30},
    {"Bolso desalinhado", "", "3", "06", false, true, "1", 30},
    {"Pesponto irregular", "", "3", "07", false, true, "1", 20},
    {"Cós torcido", "", "3", "07", false, true, "1", 40},
    {"Zíper mal pregado", "", "3", "07", false, true, "1", 50},
    {"Elástico repuxado", "", "3", "08", false, true, "1", 30},
    {"Caseado desfiado", "", "3", "09", true, false, "4", 1.20},
    {"Botão trocado ou solto", "", "3", "09", false, true, "4", 0.40},
    {"Mancha de lavagem", "", "11", "10", true, false, "2", 50},
    {"Tom fora do padrão", "Comparar com a perna aprovada", "11", "10", true, false, "2", 30},
    {"Encolhimento excessivo", "Acima de 5%", "11", "10", true, false, "3", 40},
    {"Rasgo na lavagem", "", "11", "10", true, false, "2", 100},
    {"Tingimento manchado", "", "9", "11", true, false, "2", 70},
    {"Barramento da malha", "Defeito do tecido", "7", "01", true, false, "5", 0},
    {"Fio puxado", "", "6", "12", true, false, "2", 40},
    {"Sujeira ou óleo", "Limpar antes de rejeitar", "6", "12", false, true, "5", 0},
    {"Etiqueta trocada", "", "4", "14", false, true, "4", 0.25},
    {"Dobra fora do padrão", "", "4", "14", false, true, "5", 0},
    {"Cartela ou tag faltando", "", "4", "14", false, true, "4", 0.25},
});

struct TInspection {
    std::string_view code;
    std::string_view name;
};

constexpr auto inspections = std::to_array<TInspection>({
    {"1", "INSPEÇÃO EM PROCESSO NA FACÇÃO"},
    {"2", "INSPEÇÃO FINAL NA FACÇÃO"},
    {"3", "INSPEÇÃO DE RECEBIMENTO"},
    {"4", "PEÇA PILOTO"},
});

struct TSample {
    int from;
    int to;
    int sample;
    int defects;
};

constexpr auto finalSamples = std::to_array<TSample>({
    {1, 50, 8, 0},
    {51, 90, 13, 1},
    {91, 150, 20, 1},
    {151, 280, 32, 2},
    {281, 500, 50, 3},
    {501, 1200, 80, 5},
    {1201, 3200, 125, 7},
});

constexpr auto generalSamples = std::to_array<TSample>({
    {1, 150, 5, 0},
    {151, 500, 13, 1},
    {501, 3200, 20, 2},
});

struct TCheck {
    std::string_view inspection;
    std::string_view field;
    std::string_view text;
};

constexpr auto checks = std::to_array<TCheck>({
    {"1", "Ficha técnica", "Ficha e peça piloto na bancada"},
    {"1", "Máquinas", "Regulagem de ponto e agulha conferida"},
    {"1", "Aviamentos", "Linha e etiqueta conforme a ficha"},
    {"2", "Medidas", "Medidas dentro da tolerância"},
    {"2", "Costura", "Costuras sem franzido nem ponto solto"},
    {"2", "Acabamento", "Peças sem fios e sem sujeira"},
    {"2", "Etiquetas", "Composição e tamanho corretos"},
    {"3", "Quantidade", "Volumes conferidos com a nota"},
    {"3", "Embalagem", "Lotes amarrados por cor e tamanho"},
    {"4", "Modelagem", "Caimento aprovado pela modelista"},
    {"4", "Medidas", "Medidas da piloto registradas"},
});

} // namespace

void TDemoFactory::FillDefects()
{
    TTableWriter rows(
        database_, "DEFEITO", "CODIGO,DESCRICAO,COMPLEMENTO,GRUPO,SETOR,QUALIDADE,SEGUNDA,REPROC,DESCONTO,VAL_DESC");
    int number = 0;
    for (const TDefect& defect : defects)
        rows.Row(
            {Code(++number, 5), defect.name, defect.complement, defect.group, defect.sector, defect.second ? "2" : "1",
                defect.second ? "S" : "N", defect.reprocess ? "S" : "N", defect.discount, defect.value});
}

void TDemoFactory::FillInspectionTypes()
{
    TTableWriter types(database_, "DEF_TIPO", "CODIGO,DESCRICAO");
    for (const TInspection& inspection : inspections)
        types.Row({inspection.code, inspection.name});

    TTableWriter samples(database_, "INSP_AMOSTRA", "CODIGO,TIPO_INSP,QTDE_MIN,QTDE_MAX,QTDE_AMOSTRA,QTDE_DEF");
    int number = 0;
    for (const std::string_view type : {std::string_view("2"), std::string_view("3")}) {
        for (const TSample& sample : finalSamples)
            samples.Row({std::to_string(++number), type, sample.from, sample.to, sample.sample, sample.defects});
    }
    for (const TSample& sample : generalSamples)
        samples.Row({std::to_string(++number), "1", sample.from, sample.to, sample.sample, sample.defects});

    TTableWriter rows(database_, "OFPADRAO", "CODIGO,CAMPO,DESCRICAO,ORDEM");
    int order = 0;
    for (const TCheck& check : checks)
        rows.Row({"I" + std::string(check.inspection), check.field, check.text, ++order});
}

} // namespace alinhavo
