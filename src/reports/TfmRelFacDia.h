#pragma once

#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TDateEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TMemTable.h"
#include "forms/TRadioGroup.h"
#include "forms/TRow.h"
#include "host/TOrvForm.h"
#include "host/TprReport.h"
#include "reports/TFiltroLista.h"

#include <map>
#include <string>

namespace alinhavo {

/// "Relatório de Produção Dia": the production that came back, one line for each subcontractor and sector, one column for
/// each day of a month or for each production period.
class TfmRelFacDia final : public TOrvForm {
public:
    explicit TfmRelFacDia(TApplication& application);

    TMemTable TbTemp{*this, "TbTemp"}; ///< the lines; its columns are those of the mode, made anew at each run
    TMemTable TbDia{*this, "TbDia"}; ///< one row: the headings of the columns
    TOrvQuery OrvQuery{*this, "OrvQuery", Database()}; ///< one row for each subcontractor, sector, date and period

    TRow linhaModo{*this, "linhaModo"};
    TRadioGroup GbBuscar{
        linhaModo, "GbBuscar", {.caption = "Buscar Por ", .items = {"Dia", "Período"}, .itemIndex = 0}};
    TRadioGroup RgOrdem{
        linhaModo, "RgOrdem", {.caption = "Ordenar Por", .items = {"Setor", "Facção", "Período"}, .itemIndex = 0}};

    TGroupBox gbDatas{*this, "gbDatas", {.caption = "Datas"}};
    TRow linhaDatas{gbDatas, "linhaDatas"};
    TDateEdit DataDe{linhaDatas, "DataDe", {.caption = "Retorno"}};
    TDateEdit DataAte{linhaDatas, "DataAte", {.caption = "até"}};
    TDateEdit edtEnvioIni{linhaDatas, "edtEnvioIni", {.caption = "Envio"}};
    TDateEdit edtEnvioFim{linhaDatas, "edtEnvioFim", {.caption = "até"}};
    TDateEdit EdtPrevRetIni{linhaDatas, "EdtPrevRetIni", {.caption = "Prev. Retorno"}};
    TDateEdit EdtPrevRetFim{linhaDatas, "EdtPrevRetFim", {.caption = "até"}};

    TGroupBox gbFiltros{*this, "gbFiltros", {.caption = "Filtros"}};
    TRow linhaFaccao{gbFiltros, "linhaFaccao"};
    TFiltroLista EdtCodSet{linhaFaccao, "EdtCodSet",
        {.caption = "Setor", .tabela = "CADFLUXO", .campo = "CODIGO", .pesquisa = "PqSetor", .limpa = "SpeedButton5"}};
    TFiltroLista EdtFaccao{linhaFaccao, "EdtFaccao",
        {.caption = "Facção",
            .tabela = "ENTIDADE",
            .campo = "CODCLI",
            .pesquisa = "PqFaccao",
            .limpa = "SpeedButton6"}};
    TFiltroLista edtGrupoFaccao{linhaFaccao, "edtGrupoFaccao",
        {.caption = "Grupo Facção",
            .tabela = "GRUPO_CLI",
            .campo = "CODIGO",
            .pesquisa = "PqGrupoFaccao",
            .limpa = "SpeedButton4"}};
    TRow linhaProduto{gbFiltros, "linhaProduto"};
    TFiltroLista edtCodCol{linhaProduto, "edtCodCol",
        {.caption = "Coleção",
            .tabela = "COLECAO",
            .campo = "CODIGO",
            .pesquisa = "PqColecao",
            .limpa = "SpeedButton2"}};
    TFiltroLista edtGrupoProd{linhaProduto, "edtGrupoProd",
        {.caption = "Grupo Produto",
            .tabela = "GRUPO_PA",
            .campo = "CODIGO",
            .pesquisa = "PqGrupoProd",
            .limpa = "SpeedButton1"}};
    TFiltroLista edtEtiqueta{linhaProduto, "edtEtiqueta",
        {.caption = "Etiqueta",
            .tabela = "ETQ_PROD",
            .campo = "CODIGO",
            .pesquisa = "pqEtiqueta",
            .limpa = "sbClearEtiqueta"}};
    TFiltroLista EdtPerIni{linhaProduto, "EdtPerIni",
        {.caption = "Período Inicial",
            .tabela = "TABPRZ",
            .campo = "PRAZO",
            .pesquisa = "PqPrazo",
            .limpa = "SpeedButton3"}};

    TRow linhaOpcoes{*this, "linhaOpcoes"};
    TCheckBox CbSoma{linhaOpcoes, "CbSoma", {.caption = "Somar Conjunto"}};
    TCheckBox CbPartePrincip{linhaOpcoes, "CbPartePrincip", {.caption = "Partes Principais"}};
    TCheckBox cbPecasSeg{linhaOpcoes, "cbPecasSeg", {.caption = "Peças de Segunda"}};
    TCheckBox cbDescReprocesso{linhaOpcoes, "cbDescReprocesso", {.caption = "Desconsiderar Reprocesso"}};

    TGrid dbgTemp{*this, "dbgTemp", TbTemp, {.lines = 14, .readOnly = true}};

    TRow linhaBotoes{*this, "linhaBotoes"};
    TButton btnExecutaSQL{linhaBotoes, "btnExecutaSQL", {.caption = "&Consultar", .role = TButtonRole::Default}};
    TButton btnImprimir{linhaBotoes, "btnImprimir", {.caption = "&Imprimir"}};
    TButton btnFechar{linhaBotoes, "btnFechar", {.caption = "F&echar", .role = TButtonRole::Cancel}};

    TprReport prReport;
    TprTxReport prTxReport;

    void DataDeExit();
    void btnExecutaSQLClick();
    void btnImprimirClick();
    void btnFecharClick();
    void TelaClose();

private:
    enum class TModo { Dia = 0, Periodo = 1 };
    static constexpr int OrdemPeriodo = 2;

    TModo Modo() const { return GbBuscar.ItemIndex() == 1 ? TModo::Periodo : TModo::Dia; }
    void CriaTabela();
    void CriaTabelaPeriodo();
    void CriaCampos(int colunas);
    void BuscaDados();
    void AddFiltros(TStatement& sql);
    void CarregaFacao();
    void CarregaFacaoPeriodo();
    /// Goes to the line of the row's subcontractor, sector and, where asked, period; a new one is appended.
    void AchaLinha(bool porPeriodo);
    void NovaLinha(const std::string& chave);
    void Soma(std::string_view campo, double valor);
    double Valor(std::string_view campo) const;
    std::string PeriodoData(TDateTime data);
    /// The number of the first column whose heading is this; 0 when there is none.
    int Coluna(std::string_view titulo) const;
    void Indexa();
    std::string Filtros() const;

    int colunas_ = 0;
    std::map<std::string, TBookmark> linhas_; ///< of TbTemp, by key
    TDateTime vDtInicio; ///< of the first period shown
    TDateTime vDtFinal; ///< end of the last one
};

} // namespace alinhavo
