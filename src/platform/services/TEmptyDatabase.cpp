#include "platform/services/TEmptyDatabase.h"

#include "host/tables/Groups.h"
#include "host/TTableDecl.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace alinhavo {
namespace {

struct TMenuEntry {
    std::string level;
    std::string_view caption;
    std::string screen = {}; ///< the class; a heading has none
};

/// The headings of the tables follow those of the screens.
constexpr int firstTableLevel = 20;

const auto screens = std::to_array<TMenuEntry>({
    {"01", "Movimentação"},
    {"01.01", "Movimentação de Setores", "TfmFacMov"},
    {"01.02", "Altera de Terceiros", "TfmAlteraFaccao"},
    {"01.03", "Reprocesso", "TfmFacReprocesso"},
    {"01.04", "Movimento de Estoque Rejeitado", "TfmMovEstRej"},
    {"01.05", "Cadastro Produção p/ Funcionário", "TFmFacProdFunc"},
    {"01.06", "Cadastro de Tempo Diário", "TFmFacTempoFun"},
    {"01.07", "Ordem de Fabricação", "TfmNovaOF"},
    {"02", "Envio para facções"},
    {"02.01", "Lançamentos de Facções", "TfmFacLanca"},
    {"02.02", "Reserva de consumos", "TfmFacDistrib"},
    {"02.03", "Reserva de material", "TfmMovResMaterial"},
    {"02.04", "Cadastro Pacotes", "TfmCadPacote"},
    {"02.05", "Relatório de Envio para Terceirização", "TfmRelFaccao01"},
    {"02.06", "Ficha de Corte", "TfmRelFacCorte"},
    {"03", "Qualidade"},
    {"03.01", "Registro de Não Conformidades", "TfmFacMovDef"},
    {"03.02", "Inspeção de Facção", "TfmFacInspecao"},
    {"03.03", "Envio de Reprocesso p/ Facção", "TfmRelEnvReproc"},
    {"03.04", "Relatório de Defeitos da Facção", "TFmRelDefeito"},
    {"03.05", "Relatório Cadastro de Defeito", "TfmRelCadDefeito"},
    {"04", "Preços e pagamentos"},
    {"04.01", "Cadastro de Preços", "TFmFacPreco"},
    {"04.02", "Cadastro de preço da Facção por cor e tamanho", "TfmFacPrecoCorTam"},
    {"04.03", "Recalculo de Preços", "TfmFacRecPre"},
    {"04.04", "Relatório de Pagamentos da Facção", "TfmRelFacPag"},
    {"04.05", "Relatório de Preço da Facção", "TFmFacPre"},
    {"05", "Relatórios de produção"},
    {"05.01", "Pendente por Setor", "TfmRelFacPen"},
    {"05.02", "Relatório de Produção Dia", "TfmRelFacDia"},
    {"05.03", "Quantidades Por Setor", "TfmRelFacEspelho"},
    {"05.04", "Quantidades Por Setor (por dia)", "TfmRelFacDiaSetor"},
    {"05.05", "Relatório acompanhamento facção por nota fiscal", "TfmFacRelNF"},
    {"06", "Cadastros"},
    {"06.01", "Cadastro de Setores", "TfmCadFluxo"},
    {"06.02", "Cadastro de Fluxos", "TfmFacFluxo"},
    {"06.03", "Cadastro de Defeitos", "TfmCadDef"},
    {"06.04", "Cadastro de Tipos de Inspeção", "TfmCadTipoDef"},
    {"06.05", "Cadastro de Estampa por Cliente", "TfmEstampaCli"},
    {"06.06", "Relatório de Estampa", "TfmRelEstampa"},
    {"06.07", "Importar e exportar tabelas", "TfmImportaExporta"},
    {"09", "Administração"},
    {"09.01", "Usuários e permissões", "TfmUsuarios"},
    {"09.02", "Parâmetros", "TfmParametros"},
    {"09.03", "Registro de alterações", "TfmLog"},
    {"09.04", "Quem está conectado", "TfmConectados"},
    {"09.05", "Trocar senha", "TfmTrocaSenha"},
});

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

/// The tables of a group, as a person reads them: by their captions.
std::vector<const TTableDecl*> TablesOf(std::string_view tableGroup)
{
    std::vector<const TTableDecl*> tables;
    for (const TTableDecl& table : Tables()) {
        if (table.group == tableGroup)
            tables.push_back(&table);
    }
    std::ranges::sort(tables, {}, &TTableDecl::caption);
    return tables;
}

void AddTables(std::vector<TMenuEntry>& entries)
{
    int level = firstTableLevel;
    for (const std::string_view tableGroup : group::all) {
        const std::string heading = TwoDigits(level++);
        entries.push_back({heading, tableGroup});
        int number = 0;
        for (const TTableDecl* table : TablesOf(tableGroup))
            entries.push_back({heading + "." + TwoDigits(++number), table->caption, TableScreen(*table)});
    }
}

std::vector<TMenuEntry> Menu()
{
    std::vector<TMenuEntry> entries(screens.begin(), screens.end());
    AddTables(entries);
    return entries;
}

} // namespace

void WriteScreenMenu(TOrvDatabase& database)
{
    TTableWriter entries(database, "ACESSO_MENU", "NIVEL,DESCRICAO,NOME_FORM");
    for (const TMenuEntry& entry : Menu())
        entries.Row({entry.level, entry.caption, entry.screen.empty() ? TValue() : TValue(entry.screen)});
}

void GrantEveryRight(TOrvDatabase& database, std::string_view user)
{
    TTableWriter rights(database, "ACESSO", "USUARIO,LOCAL,ALTERA,EXCLUI,CONSULTA");
    for (const TMenuEntry& entry : Menu())
        rights.Row({user, entry.level, "Sim", "Sim", "Sim"});
}

void FillEmptyDatabase(TOrvDatabase& database)
{
    TTableWriter(database, "EMPRESA", "EMP_PAT,EMP_NOME,EMP_PERC_MO1,EMP_PERC_MO2").Row({"01", "Empresa 01", 0, 0});
    WriteScreenMenu(database);
    TTableWriter(database, "ACESSO_USUARIOS", "CODIGO,NOME,TIPO,SUPERVISOR,BLOQUEADO")
        .Row({"ADMIN", "ADMIN", "1", "S", "N"});
    GrantEveryRight(database, "ADMIN");
    database.CommitRetaining();
}

} // namespace alinhavo
