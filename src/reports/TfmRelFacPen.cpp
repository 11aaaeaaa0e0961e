#include "reports/TfmRelFacPen.h"

#include "forms/text.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <map>

namespace alinhavo {
namespace {

constexpr std::array<const char*, 22> Indices{
    "CLIENTE_NOME;FAC_NUMERO;FAC_PARTE;FAC_CODIGO;FAC_REPRO;ORD_SETOR;FAC_OP;FAC_COR;ORD_TAM",
    "FAC_CODCLI;FAC_NUMERO;FAC_PARTE;FAC_CODIGO;FAC_REPRO;FAC_COR;ORD_TAM",
    "ORD_SETOR;FAC_OP;CLIENTE_NOME;FAC_CODCLI;FAC_NUMERO;FAC_PARTE;FAC_CODIGO;FAC_REPRO;FAC_COR;ORD_TAM",
    "FAC_CODIGO;ORD_SETOR;FAC_OP;FAC_CODCLI;FAC_NUMERO;FAC_PARTE;FAC_CODIGO;FAC_REPRO;FAC_COR;ORD_TAM",
    "FAC_CODCLI;PEDIDO_DT_FATURA;FAC_NUMERO;FAC_PARTE;FAC_CODIGO;FAC_REPRO;FAC_COR;ORD_TAM",
    "FAC_CODIGO;FAC_COR;ORD_TAM;ORD_SETOR;FAC_OP;FAC_PARTE",
    "FAC_NUMERO;FAC_MOV;FAC_CODIGO;FAC_COR;ORD_TAM;ORD_SETOR;FAC_OP;FAC_PARTE",
    "ORD_SETOR;FAC_OP;FAC_DT_S;FAC_NUMERO;FAC_PARTE",
    "FAC_CODCLI;ORD_SETOR;FAC_OP;FAC_DT_S;FAC_NUMERO",
    "FAC_CODCLI;FAC_NUMERO;FAC_MOV",
    "ENTREGA;FAC_CODCLI;FAC_NUMERO;FAC_MOV",
    "FAC_DT_R;CLIENTE_NOME",
    "ORD_SETOR;FAC_OP;FAC_PARTE;FAC_CODCLI;FAC_NUMERO;FAC_CODIGO;FAC_REPRO;FAC_COR;ORD_TAM",
    "CODLIN;FAC_CODIGO;FAC_NUMERO;FAC_CODCLI",
    "OF1_PERIODO;FAC_NUMERO;FAC_CODIGO;ORD_SETOR;FAC_OP;FAC_CODCLI;FAC_PARTE",
    "ORD_SETOR;FAC_OP;FAC_NUMERO;FAC_CODCLI;FAC_PARTE;FAC_CODIGO;FAC_COR;ORD_TAM",
    "FAC_CODCLI;OF1_PERIODO;FAC_NUMERO;FAC_PARTE;ORD_SETOR;FAC_OP",
    "FAC_OP;FAC_CODCLI;FAC_NUMERO;FAC_PARTE",
    "DT_FINAL;FAC_CODCLI;FAC_NUMERO;FAC_MOV",
    "FAC_OP;PEDIDO_PERIODO",
    "FAC_CODCLI;DT_PREV_MOV;FAC_NUMERO;FAC_PARTE;FAC_MOV",
    "GRUPO_SETOR;ORD_SETOR;FAC_OP;CLIENTE_NOME;FAC_CODCLI",
};

constexpr std::array<std::string_view, 14> PrazosDeVenda{
    "00", "07", "14", "21", "28", "35", "42", "49", "56", "63", "70", "77", "84", "91"};

const TDateTime PrimeiraData = TDateTime::FromDate(1980, 1, 1);
const TDateTime UltimaData = TDateTime::FromDate(2050, 12, 31);
const TDateTime SemDataBase = TDateTime::FromDate(2050, 1, 1);

/// Monday is 2 and Saturday 7; a week of seven days works on Sundays too.
bool Trabalha(TDateTime dia, std::int64_t diasSemana)
{
    const bool domingo = dia.DayOfWeek() == 7;
    return domingo ? diasSemana == 7 : dia.DayOfWeek() + 1 <= diasSemana + 1;
}

bool PodeSerLido(const std::string& arquivo) { return !arquivo.empty() && std::ifstream(arquivo).good(); }

} // namespace

TfmRelFacPen::TfmRelFacPen(TApplication& application)
    : TOrvForm(application, "TfmRelFacPen", "Pendente por Setor")
    , sParamFAC270(BuscaParametro("FAC", 270))
{
    OnClose.connect(this, &TfmRelFacPen::TelaClose);
    EdtDataIni.OnExit.connect(this, &TfmRelFacPen::EdtDataIniExit);
    EdtDtBase.OnExit.connect(this, &TfmRelFacPen::EdtDtBaseExit);
    edtR0Pedido.OnExit.connect(this, &TfmRelFacPen::edtR0PedidoExit);
    EdtOfFim.OnEnter.connect(this, &TfmRelFacPen::EdtOfFimEnter);
    edtNumDias.OnExit.connect(this, &TfmRelFacPen::edtNumDiasExit);
    CbReproc.OnClick.connect(this, &TfmRelFacPen::CbReprocClick);
    btnExecutaSQL.OnClick.connect(this, &TfmRelFacPen::btnExecutaSQLClick);
    btnImprimir.OnClick.connect(this, &TfmRelFacPen::btnImprimirClick);
    BitBtn5.OnClick.connect(this, &TfmRelFacPen::BitBtn5Click);

    for (const auto* name : {"tbGrupo", "TbENTIDADE", "tbCadFluxo"})
        Tabela().AbreTabela(name);
    EdtDataIni.SetDate(PrimeiraData);
    EdtDataFin.SetDate(UltimaData);
    DtEnvIni.SetDate(PrimeiraData);
    DtEnvFim.SetDate(UltimaData);
    EdtDtBase.SetDate(SemDataBase);
    for (auto* combo : {&cbConsiderarFaccao, &CbTipoMov, &cbTRep})
        combo->SetItemIndex(0);
    PreparaRelatorio();
}

void TfmRelFacPen::TelaClose()
{
    for (const auto* name : {"tbGrupo", "TbENTIDADE", "tbCadFluxo"})
        Tabela().FechaTabela(name);
}

std::vector<std::string> TfmRelFacPen::Ordens()
{
    return {"Nome Facção", "Código Facção", "Setor", "Produto", "Facção/Pedido Dt.Fatura", "Produto/Cor",
        "OP/Movimento", "Setor/Data Saída", "Facção/Setor/Data Saída", "Facção/OP/Movimento", "Entrega/Fac./OP/Mov.",
        "Data Retorno/Facção", "Setor/Parte", "Linha", "Período OP", "Setor/OP", "Facção/Período/OP/Parte/Setor",
        "Código Setor/Facção/OP/Parte", "Dt. Final OP/Facção/OP/Mov.", "Código Setor/Período Ped.",
        "Facção/Dt. Prev. Mov.", "Grupo Setor/Setor"};
}

std::vector<TGridColumn> TfmRelFacPen::Colunas()
{
    return {
        {.field = "FAC_CODCLI", .title = "Facção"},
        {.field = "CLIENTE_NOME", .title = "Nome", .width = 24},
        {.field = "FAC_OP", .title = "Setor"},
        {.field = "CADFLUXO_DESCRICAO", .title = "Descrição", .width = 18},
        {.field = "FAC_NUMERO", .title = "OP"},
        {.field = "FAC_MOV", .title = "Mov."},
        {.field = "FAC_CODIGO", .title = "Produto", .width = 12},
        {.field = "PRODUTO_DESCRICAO", .title = "Descrição", .width = 28},
        {.field = "FAC_PARTE", .title = "Parte"},
        {.field = "FAC_COR", .title = "Cor"},
        {.field = "DESC_COR", .title = "Descrição", .width = 16},
        {.field = "FAC_TAM", .title = "Tam."},
        {.field = "FAC_QT_ORIG", .title = "Enviado"},
        {.field = "FAC_QUANT", .title = "Produzido"},
        {.field = "FAC_QUANT_2", .title = "Segunda"},
        {.field = "FAC_QUANT_I", .title = "Incompl."},
        {.field = "FAC_QUANT_F", .title = "Falta"},
        {.field = "QUANT_PEND", .title = "Pendente"},
        {.field = "FAC_DT_S", .title = "Envio"},
        {.field = "FAC_DT_R", .title = "Prev. Retorno"},
        {.field = "DIAS_RETORNO", .title = "Dias Ret."},
        {.field = "DIAS_PARADO", .title = "Dias Parado"},
        {.field = "FAC_REPRO", .title = "Def."},
        {.field = "OF1_PEDIDO", .title = "Pedido"},
        {.field = "CLIENTE_PED_NOME", .title = "Cliente", .width = 20},
        {.field = "PEDIDO_DT_FATURA", .title = "Faturamento"},
        {.field = "DIAS_FATURA", .title = "Dias Fat."},
        {.field = "ENTREGA", .title = "Entrega"},
        {.field = "OF1_PERIODO", .title = "Período OP"},
        {.field = "TABELA_PRECO", .title = "Preço Facção"},
        {.field = "TAB_CLI_PRECO", .title = "Preço Tab. Fac."},
        {.field = "TAB_PADRAO_PRECO", .title = "Preço Padrão"},
        {.field = "TABELA_OF_PRECO", .title = "Preço OP"},
        {.field = "DT_PREV_MOV", .title = "Prev. Mov."},
        {.field = "TEMPO", .title = "Tempo", .decimals = 4},
        {.field = "TEMPO_TOTAL", .title = "Tempo Total", .decimals = 4},
        {.field = "LOCAL", .title = "Local"},
        {.field = "PRECO_INV", .title = "Preço Inv."},
        {.field = "LISTA_PEDIDOS", .title = "Pedidos da programação", .width = 20},
    };
}

void TfmRelFacPen::EdtDataIniExit() { EdtDtBase.SetDate(SemDataBase); }

void TfmRelFacPen::EdtDtBaseExit() { DtEnvFim.SetDate(EdtDtBase.Date()); }

void TfmRelFacPen::edtR0PedidoExit()
{
    if (!edtR0Pedido.empty() && !Existe("PEDIDO", "NUMERO", Aspas(edtR0Pedido.text())))
        Mensagem("Pedido não Existe.");
}

void TfmRelFacPen::EdtOfFimEnter() { EdtOfFim.SetText(EdtOfIni.text()); }

void TfmRelFacPen::edtNumDiasExit()
{
    edtNumDias.SetText(LeftPad(edtNumDias.text(), '0', 2));
    if (std::ranges::find(PrazosDeVenda, edtNumDias.text()) == PrazosDeVenda.end())
        Recusa("A Quantidade de dias é Inválida, deve ser um valor divisível por 7.", edtNumDias);
}

void TfmRelFacPen::CbReprocClick() { cbTRep.SetEnabled(CbReproc.Checked()); }

void TfmRelFacPen::btnExecutaSQLClick()
{
    const auto ocupado = Ocupado();
    const auto parado = TbRel.DisableControls();
    const auto periodoParado = TbPeriodo.DisableControls();
    {
        TOrvQuery query(Database(), Pendencias());
        TransfereDados(query);
    }
    GeraInventario();
    if (CbReproc.Checked())
        DefeitosPendentes();
    CarregaImagens();
    TbRel.SortBy(Indices.at(static_cast<std::size_t>(std::max(RgOrdem.ItemIndex(), 0))));
    TbRel.First();
    PageControl1.SetActivePage(tbsResultado);
}

void TfmRelFacPen::TransfereDados(TOrvQuery& query)
{
    TTransDataSet trans;
    trans.SetTabelaOrigem(query);
    trans.SetTabelaDestino(TbRel);
    trans.CriaCampos();
    TbRel.FieldByName("TEMPO").options.decimals = 4;
    TbRel.FieldByName("TEMPO_TOTAL").options.decimals = 4;
    TbRel.Load(query);
    CriaPeriodo();
    SomaPeriodos();
    if (cb_Inventario.Checked())
        PrecosDoInventario();
    if (cbDiasUteis.Checked())
        CalculaDiasUteis();
    TbRel.SortBy("FAC_NUMERO");
}

void TfmRelFacPen::CriaPeriodo() { TbPeriodo.EmptyTable(); }

/// The quantity sent is counted in the sum of Qtde on purpose.
void TfmRelFacPen::SomaPeriodos()
{
    struct TSoma {
        std::string descricao;
        double enviada = 0;
        double saiu = 0;
    };
    std::map<std::string, TSoma> somas;
    const auto& periodo = TbRel.FieldByName("OF1_PERIODO");
    const auto& descricao = TbRel.FieldByName("OF1_DESC_PERIODO");
    const auto& enviada = TbRel.FieldByName("FAC_QT_ORIG");
    const std::array<const TField*, 4> saidas{&TbRel.FieldByName("FAC_QUANT"), &TbRel.FieldByName("FAC_QUANT_2"),
        &TbRel.FieldByName("FAC_QUANT_I"), &TbRel.FieldByName("FAC_QUANT_F")};
    for (std::size_t row = 0; row < TbRel.RecordCount(); ++row) {
        auto& soma = somas[TbRel.CellValue(row, periodo).AsString()];
        if (soma.descricao.empty())
            soma.descricao = TbRel.CellValue(row, descricao).AsString();
        soma.enviada += TbRel.CellValue(row, enviada).AsFloat();
        for (const auto* saida : saidas)
            soma.saiu += TbRel.CellValue(row, *saida).AsFloat();
    }
    for (const auto& [codigo, soma] : somas) {
        TbPeriodo.Append();
        TbPeriodo.Periodo = codigo;
        TbPeriodo.Desc_Periodo = soma.descricao;
        TbPeriodo.Qtde = soma.enviada + soma.saiu;
        TbPeriodo.Qtde_Pendente = soma.enviada - soma.saiu;
        TbPeriodo.Qtde_Orig = soma.enviada;
        TbPeriodo.Post();
    }
    TbPeriodo.SortBy("Periodo");
    TbPeriodo.First();
}

void TfmRelFacPen::CalculaDiasUteis()
{
    auto& parado = TbRel.FieldByName("DIAS_PARADO");
    auto& retorno = TbRel.FieldByName("DIAS_RETORNO");
    const auto& envio = TbRel.FieldByName("FAC_DT_S");
    const auto& previsto = TbRel.FieldByName("FAC_DT_R");
    const auto& dias = TbRel.FieldByName("DIAS_SEMANA");
    TbRel.ForEach([&] {
        TbRel.Edit();
        parado.Set(DiasParado(envio.AsDateTime(), dias.AsInteger()));
        retorno.Set(DiasRetorno(retorno.AsInteger(), previsto.AsDateTime(), dias.AsInteger()));
    });
}

/// From the dispatch to today, both included.
std::int64_t TfmRelFacPen::DiasParado(TDateTime envio, std::int64_t diasSemana) const
{
    std::int64_t dias = 0;
    for (auto dia = envio; dia <= App().Today(); dia = dia.AddDays(1))
        dias += Trabalha(dia, diasSemana) ? 1 : 0;
    return dias;
}

/// A delay shrinks by the idle days in it. For a return that is still to come, the dates tested lie after it and not before
/// it: that is wanted.
std::int64_t TfmRelFacPen::DiasRetorno(std::int64_t corridos, TDateTime retorno, std::int64_t diasSemana) const
{
    const TDateTime agora = App().Now();
    if (corridos < 0) {
        for (auto dia = retorno; agora > dia; dia = dia.AddDays(1))
            corridos += Trabalha(dia, diasSemana) ? 0 : 1;
        return corridos;
    }
    const std::int64_t dias
        = TDateTime::FromSeconds(std::max<std::int64_t>(retorno.Seconds() - agora.Seconds(), 0)).Days();
    std::int64_t uteis = 0;
    for (std::int64_t dia = 1; dia <= dias; ++dia)
        uteis += Trabalha(retorno.AddDays(dia), diasSemana) ? 1 : 0;
    return uteis;
}

void TfmRelFacPen::PrecosDoInventario()
{
    auto& preco = TbRel.FieldByName("PRECO_INV");
    const auto texto = [&](std::string_view campo) { return TbRel.FieldByName(campo).AsString(); };
    TbRel.ForEach([&] {
        double unitario
            = Funcoes().GeraPreco(texto("FAC_NUMERO"), texto("FAC_CODIGO"), texto("FAC_OP"), texto("FAC_PARTE"),
                texto("FAC_CODCLI"), texto("FAC_COR"), texto("FAC_TAM"), TbRel.FieldByName("QUANT_PEND").AsFloat());
        if (unitario == 0)
            unitario = TbRel.FieldByName("TABELA_PRECO").AsFloat();
        TbRel.Edit();
        preco.Set(unitario);
    });
}

void TfmRelFacPen::GeraInventario()
{
    if (!cb_Inventario.Checked())
        return;
    Funcoes().GeraInventario({.produto = "FAC_CODIGO",
                                 .cor = "FAC_COR",
                                 .tam = "FAC_TAM",
                                 .numero = "FAC_NUMERO",
                                 .lote = "",
                                 .descricao = "PRODUTO_DESCRICAO",
                                 .unidade = "PRODUTO_UNIDADE",
                                 .codcli = "FAC_CODCLI",
                                 .quantidade = "QUANT_PEND",
                                 .preco = "PRECO_INV",
                                 .posse = "POSSE",
                                 .parte = "FAC_PARTE"},
        TbRel);
}

void TfmRelFacPen::DefeitosPendentes()
{
    TOrvQuery defeitos(Database(), Defeitos());
    TbRel.AppendFrom(defeitos);
}

void TfmRelFacPen::CarregaImagens()
{
    tbImagem.EmptyTable();
    if (!cbImagemProd.Checked())
        return;
    std::map<std::string, std::string> imagens;
    const auto& codigo = TbRel.FieldByName("FAC_CODIGO");
    for (std::size_t row = 0; row < TbRel.RecordCount(); ++row)
        imagens.try_emplace(TbRel.CellValue(row, codigo).AsString());
    for (auto& [produto, imagem] : imagens) {
        imagem = Funcoes().BuscaArquivo(produto, TTipo::Produto);
        tbImagem.Append();
        tbImagem.Produto = produto;
        if (PodeSerLido(imagem))
            tbImagem.Imagem = imagem;
        tbImagem.Post();
    }
}

void TfmRelFacPen::PreparaRelatorio()
{
    for (auto* report : {static_cast<TprReportBase*>(&prReport), static_cast<TprReportBase*>(&prTxReport)}) {
        report->Title = Caption();
        report->DataSets = {{"TbRel", &TbRel}, {"TbPeriodo", &TbPeriodo}, {"tbImagem", &tbImagem}};
        report->Groups = {{"TbRel", "FAC_CODCLI", {"FAC_QT_ORIG", "QUANT_PEND"}},
            {"TbRel", "FAC_CODCLI;FAC_NUMERO", {"FAC_QT_ORIG", "QUANT_PEND"}}};
    }
}

void TfmRelFacPen::btnImprimirClick()
{
    for (auto* report : {static_cast<TprReportBase*>(&prReport), static_cast<TprReportBase*>(&prTxReport)}) {
        report->Variables["Filtros"] = TValue(Filtros());
        report->Variables["Ordem"] = TValue(RgOrdem.ItemText());
        report->Variables["Opcoes"] = TValue(OPCOES());
        report->Variables["SomarPecas"] = TValue(cbSomarPecas.Checked() ? "S" : "N");
    }
    App().Host.reports.Chama_Relatorio(prReport, prTxReport, "WFacPen", *this, {});
}

void TfmRelFacPen::BitBtn5Click() { Close(); }

} // namespace alinhavo
