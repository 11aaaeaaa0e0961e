#pragma once

#include "forms/TButton.h"
#include "forms/TCheckBox.h"
#include "forms/TComboBox.h"
#include "forms/TDateEdit.h"
#include "forms/TEdit.h"
#include "forms/TGrid.h"
#include "forms/TGroupBox.h"
#include "forms/TMemTable.h"
#include "forms/TPageControl.h"
#include "forms/TRadioButton.h"
#include "forms/TRadioGroup.h"
#include "forms/TRow.h"
#include "forms/TTabSheet.h"
#include "host/TOrvForm.h"
#include "host/TprReport.h"
#include "host/TTransDataSet.h"
#include "reports/TFiltroLista.h"

#include <cstdint>
#include <string>
#include <vector>

namespace alinhavo {

/// What the orders of each production period hold.
struct TTbPeriodo final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Periodo{*this, "Periodo", 6, {.title = "Período"}};
    TFloatField Qtde{*this, "Qtde", {.title = "Quantidade"}};
    TFloatField Qtde_Pendente{*this, "Qtde_Pendente", {.title = "Pendente"}};
    TFloatField Qtde_Orig{*this, "Qtde_Orig", {.title = "Quant. Orig."}};
    TStringField Desc_Periodo{*this, "Desc_Periodo", 60, {.title = "Descrição"}};
};

/// The picture of each product.
struct TtbImagem final : TMemTable {
    using TMemTable::TMemTable;

    TStringField Produto{*this, "Produto", 15};
    TStringField Imagem{*this, "Imagem", 500}; ///< its file; null when there is none that can be read
};

/// "Pendente por Setor": what each sector or subcontractor still holds of each order.
class TfmRelFacPen final : public TOrvForm {
public:
    explicit TfmRelFacPen(TApplication& application);

    TMemTable TbRel{
        *this, "TbRel"}; ///< one line for each row of FACCAO and each pending defect; its fields are the query's
    TTbPeriodo TbPeriodo{*this, "TbPeriodo"};
    TtbImagem tbImagem{*this, "tbImagem"};

    TPageControl PageControl1{*this, "PageControl1"};
    TTabSheet tbsFiltros{PageControl1, "tbsFiltros", {.caption = "&Filtros"}};
    TTabSheet tbsResultado{PageControl1, "tbsResultado", {.caption = "&Resultado"}};

    TGroupBox gbDatas{tbsFiltros, "gbDatas", {.caption = "Datas"}};
    TRow linhaDatas{gbDatas, "linhaDatas"};
    TDateEdit EdtDataIni{linhaDatas, "EdtDataIni", {.caption = "Prev. Retorno"}};
    TDateEdit EdtDataFin{linhaDatas, "EdtDataFin", {.caption = "até"}};
    TDateEdit DtEnvIni{linhaDatas, "DtEnvIni", {.caption = "Envio"}};
    TDateEdit DtEnvFim{linhaDatas, "DtEnvFim", {.caption = "até"}};
    TRow linhaPedido{gbDatas, "linhaPedido"};
    TRadioButton rbFaturamento{linhaPedido, "rbFaturamento", {.caption = "Pedido Faturamento", .checked = true}};
    TRadioButton rbEntrega{linhaPedido, "rbEntrega", {.caption = "Pedido Entrega"}};
    TDateEdit dtPedIni{linhaPedido, "dtPedIni", {.caption = "De"}};
    TDateEdit dtPedFim{linhaPedido, "dtPedFim", {.caption = "até"}};
    TDateEdit DtFimOfini{linhaPedido, "DtFimOfini", {.caption = "Fim OP"}};
    TDateEdit DtFimOffim{linhaPedido, "DtFimOffim", {.caption = "até"}};

    TGroupBox gbFaccao{tbsFiltros, "gbFaccao", {.caption = "Facção e setor"}};
    TRow linhaFaccao{gbFaccao, "linhaFaccao"};
    TFiltroLista edtR0Empresa{
        linhaFaccao, "edtR0Empresa", {.caption = "Facção", .tabela = "ENTIDADE", .campo = "CODCLI"}};
    TComboBox cbConsiderarFaccao{linhaFaccao, "cbConsiderarFaccao", {.items = {"Considerar", "Desconsiderar"}}};
    TFiltroLista EdtGrupoFac{
        linhaFaccao, "EdtGrupoFac", {.caption = "Grupo Fac.", .tabela = "GRUPO_CLI", .campo = "CODIGO"}};
    TFiltroLista edtR0Setor{linhaFaccao, "edtR0Setor", {.caption = "Setor", .tabela = "CADFLUXO", .campo = "CODIGO"}};
    TFiltroLista EdtParte{linhaFaccao, "EdtParte", {.caption = "Parte", .tabela = "TIPO_APL", .campo = "CODIGO"}};

    TGroupBox gbPedido{tbsFiltros, "gbPedido", {.caption = "Cliente e pedido"}};
    TRow linhaCliente{gbPedido, "linhaCliente"};
    TFiltroLista EdtCliente{
        linhaCliente, "EdtCliente", {.caption = "Cliente", .tabela = "ENTIDADE", .campo = "CODCLI"}};
    TFiltroLista EdtGrupoCli{
        linhaCliente, "EdtGrupoCli", {.caption = "Grupo Cli.", .tabela = "GRUPO_CLI", .campo = "CODIGO"}};
    TEdit edtR0Pedido{linhaCliente, "edtR0Pedido", {.caption = "Pedido", .maxLength = 12}};
    TEdit EdtPedCli{linhaCliente, "EdtPedCli", {.caption = "Ped. Cli.", .maxLength = 30}};
    TEdit EdtPedProg{linhaCliente, "EdtPedProg", {.caption = "Ped. Prog.", .maxLength = 12}};

    TGroupBox gbOP{tbsFiltros, "gbOP", {.caption = "OP"}};
    TRow linhaOP{gbOP, "linhaOP"};
    TEdit EdtOfIni{linhaOP, "EdtOfIni", {.caption = "De", .maxLength = 6}};
    TEdit EdtOfFim{linhaOP, "EdtOfFim", {.caption = "Até", .maxLength = 6}};
    TFiltroLista edtListaOFs{linhaOP, "edtListaOFs", {.caption = "Lista", .tabela = "OF1", .campo = "NUMERO"}};
    TEdit EdtTipoOP{linhaOP, "EdtTipoOP", {.caption = "Tipo OP", .maxLength = 3}};
    TComboBox CbTipoMov{linhaOP, "CbTipoMov", {.caption = "Tipo Mov.", .items = {"Todos", "Normal", "Reprocesso"}}};
    TRow linhaPeriodo{gbOP, "linhaPeriodo"};
    TRadioButton RbPerOF{linhaPeriodo, "RbPerOF", {.caption = "Período OP", .checked = true}};
    TRadioButton RbPerPedido{linhaPeriodo, "RbPerPedido", {.caption = "Período Pedido"}};
    TEdit EdtPerIni{linhaPeriodo, "EdtPerIni", {.caption = "De", .maxLength = 6}};
    TEdit EdtPerFim{linhaPeriodo, "EdtPerFim", {.caption = "Até", .maxLength = 6}};
    TFiltroLista edtPerMult{linhaPeriodo, "edtPerMult", {.caption = "Lista", .tabela = "TABPRZ", .campo = "PRAZO"}};

    TGroupBox gbProduto{tbsFiltros, "gbProduto", {.caption = "Produto"}};
    TRow linhaProduto{gbProduto, "linhaProduto"};
    TFiltroLista edtProduto{linhaProduto, "edtProduto", {.caption = "Produto", .tabela = "PRODUTO", .campo = "CODIGO"}};
    TEdit EdtCodCor{linhaProduto, "EdtCodCor", {.caption = "Cor", .maxLength = 6}};
    TEdit edtTam{linhaProduto, "edtTam", {.caption = "Tam.", .maxLength = 4}};
    TFiltroLista edtGrupoProd{
        linhaProduto, "edtGrupoProd", {.caption = "Grupo Prod.", .tabela = "GRUPO_PA", .campo = "CODIGO"}};
    TFiltroLista EdtCodCol{linhaProduto, "EdtCodCol", {.caption = "Coleção", .tabela = "COLECAO", .campo = "CODIGO"}};
    TRow linhaClasses{gbProduto, "linhaClasses"};
    TFiltroLista EdtCodLin{linhaClasses, "EdtCodLin", {.caption = "Linha", .tabela = "TABLIN", .campo = "CODIGO"}};
    TFiltroLista edtCodMarca{linhaClasses, "edtCodMarca", {.caption = "Marca", .tabela = "MARCA", .campo = "CODIGO"}};
    TFiltroLista edtCodEtiqueta{
        linhaClasses, "edtCodEtiqueta", {.caption = "Etiqueta", .tabela = "ETQ_PROD", .campo = "CODIGO"}};
    TFiltroLista edtFamilia{linhaClasses, "edtFamilia", {.caption = "Família", .tabela = "FAMILIA", .campo = "CODIGO"}};
    TRow linhaPreco{gbProduto, "linhaPreco"};
    TEdit EdtTabPre{linhaPreco, "EdtTabPre", {.caption = "Tab. Preço", .maxLength = 3}};
    TEdit edtNumDias{linhaPreco, "edtNumDias", {.caption = "Prazo", .maxLength = 2, .text = "00"}};

    TGroupBox gbOpcoes{tbsFiltros, "gbOpcoes", {.caption = "Opções"}};
    TRow linhaOpcoes{gbOpcoes, "linhaOpcoes"};
    TCheckBox cb_Agrupar0{linhaOpcoes, "cb_Agrupar0", {.caption = "Agrupar Por OP"}};
    TCheckBox cb_Inventario{linhaOpcoes, "cb_Inventario", {.caption = "Gerar inventário"}};
    TCheckBox cbTodos{linhaOpcoes, "cbTodos", {.caption = "Buscar Baixados"}};
    TCheckBox CbSoma{linhaOpcoes, "CbSoma", {.caption = "Somar Conjunto"}};
    TCheckBox CbPeriodo{linhaOpcoes, "CbPeriodo", {.caption = "Resumo Período"}};
    TCheckBox cbSomarPecas{linhaOpcoes, "cbSomarPecas", {.caption = "Somar Peças"}};
    TCheckBox cbImagemProd{linhaOpcoes, "cbImagemProd", {.caption = "Trazer Imagens"}};
    TCheckBox CbPosicaoFaccao{linhaOpcoes, "CbPosicaoFaccao", {.caption = "Posição Facção"}};
    TDateEdit EdtDtBase{linhaOpcoes, "EdtDtBase", {.caption = "Dt. Base"}};
    TCheckBox cbDiasUteis{linhaOpcoes, "cbDiasUteis", {.caption = "Dias úteis"}};
    TRow linhaDefeitos{gbOpcoes, "linhaDefeitos"};
    TCheckBox CbReproc{linhaDefeitos, "CbReproc", {.caption = "Buscar Defeitos", .checked = true}};
    TComboBox cbTRep{linhaDefeitos, "cbTRep",
        {.caption = "Tipo Reproc.",
            .items = {"Todos", "1 - Inspeção de Recebimento", "2 - Revisão", "3 - Auditoria Final",
                "4 - Setores Intermediários", "5 - 2º Qualidade Real"}}};
    TRadioGroup RgOrdem{tbsFiltros, "RgOrdem", {.caption = "Ordem", .items = Ordens(), .itemIndex = 0}};

    TGrid dbgRel{tbsResultado, "dbgRel", TbRel, {.columns = Colunas(), .lines = 18, .readOnly = true}};
    TGrid dbgPeriodo{
        tbsResultado, "dbgPeriodo", TbPeriodo, {.caption = "Resumo por período", .lines = 5, .readOnly = true}};

    TRow linhaBotoes{*this, "linhaBotoes"};
    TButton btnExecutaSQL{linhaBotoes, "btnExecutaSQL", {.caption = "&Consultar", .role = TButtonRole::Default}};
    TButton btnImprimir{linhaBotoes, "btnImprimir", {.caption = "&Imprimir"}};
    TButton BitBtn5{linhaBotoes, "BitBtn5", {.caption = "F&echar", .role = TButtonRole::Cancel}};

    TprReport prReport;
    TprTxReport prTxReport;

    void EdtDataIniExit();
    void EdtDtBaseExit();
    void edtR0PedidoExit();
    void EdtOfFimEnter();
    void edtNumDiasExit();
    void CbReprocClick();
    void btnExecutaSQLClick();
    void btnImprimirClick();
    void BitBtn5Click();
    void TelaClose();

private:
    static std::vector<std::string> Ordens();
    static std::vector<TGridColumn> Colunas();

    // The query
    TStatement Pendencias();
    void AddColunasDaFaccao(TStatement& sql);
    void AddColunasDoCadastro(TStatement& sql);
    void AddColunasDeTempo(TStatement& sql);
    void AddColunasDePreco(TStatement& sql);
    void AddTabelas(TStatement& sql);
    void AddTabelasDePreco(TStatement& sql);
    void AddFiltros(TStatement& sql);
    void AddFiltrosDoPedido(TStatement& sql);
    void AddFiltrosDaOP(TStatement& sql);
    void AddFiltrosDoProduto(TStatement& sql);
    void AddFiltroDoSaldo(TStatement& sql);
    void AddSaldo(TStatement& sql);
    void AddBaixado(TStatement& sql);
    TValue Multiplicador() const;
    std::string OPCOES() const;
    bool TemTabelaDeVenda();

    // Its rows
    void TransfereDados(TOrvQuery& query);
    void CriaPeriodo();
    void SomaPeriodos();
    void CalculaDiasUteis();
    std::int64_t DiasParado(TDateTime envio, std::int64_t diasSemana) const;
    std::int64_t DiasRetorno(std::int64_t corridos, TDateTime retorno, std::int64_t diasSemana) const;
    void PrecosDoInventario();
    void GeraInventario();
    void DefeitosPendentes();
    TStatement Defeitos();
    void AddFiltrosDosDefeitos(TStatement& sql);
    void CarregaImagens();
    void PreparaRelatorio();
    std::string Filtros() const;

    const std::string sParamFAC270; ///< "S": prices are kept by colour and size
};

} // namespace alinhavo
