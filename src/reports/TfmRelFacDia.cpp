#include "reports/TfmRelFacDia.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <array>

namespace alinhavo {
namespace {

constexpr int ColunasDeDias = 31;
constexpr int ColunasDePeriodos = 25;
constexpr std::int64_t MaiorIntervalo = 31;
constexpr std::array Indices{"Setor;Data;Codigo", "Codigo;Data;Setor", "Periodo;Setor;Data;Codigo"};

std::string Numerado(const char* nome, int coluna) { return nome + std::to_string(coluna); }

std::string CampoQtde(int coluna) { return Numerado(coluna < 10 ? "Qtde" : "qtde", coluna); }

} // namespace

TfmRelFacDia::TfmRelFacDia(TApplication& application)
    : TOrvForm(application, "TfmRelFacDia", "Relatório de Produção Dia")
{
    OnClose.connect(this, &TfmRelFacDia::TelaClose);
    DataDe.OnExit.connect(this, &TfmRelFacDia::DataDeExit);
    btnExecutaSQL.OnClick.connect(this, &TfmRelFacDia::btnExecutaSQLClick);
    btnImprimir.OnClick.connect(this, &TfmRelFacDia::btnImprimirClick);
    btnFechar.OnClick.connect(this, &TfmRelFacDia::btnFecharClick);

    for (const auto* name : {"tbFluxo", "tbTabPrazos"})
        Tabela().AbreTabela(name);
    for (auto* inicio : {&DataDe, &edtEnvioIni, &EdtPrevRetIni})
        inicio->SetDate(TDateTime::FromDate(1980, 1, 1));
    for (auto* fim : {&DataAte, &edtEnvioFim, &EdtPrevRetFim})
        fim->SetDate(TDateTime::FromDate(2050, 12, 31));
    CriaCampos(ColunasDeDias);
    for (auto* report : {static_cast<TprReportBase*>(&prReport), static_cast<TprReportBase*>(&prTxReport)}) {
        report->Title = Caption();
        report->DataSets = {{"TbTemp", &TbTemp}, {"TbDia", &TbDia}};
        report->Groups = {{"TbTemp", "Setor", {"Acumulo", "Total"}}};
    }
}

void TfmRelFacDia::TelaClose()
{
    for (const auto* name : {"tbFluxo", "tbTabPrazos"})
        Tabela().FechaTabela(name);
}

void TfmRelFacDia::DataDeExit() { DataAte.SetDate(DataDe.Date().AddDays(30)); }

void TfmRelFacDia::btnExecutaSQLClick()
{
    const auto ocupado = Ocupado();
    const bool semDatas = DataDe.empty() || DataAte.empty();
    if (semDatas || DataAte.Date().Days() - DataDe.Date().Days() > MaiorIntervalo)
        return Recusa("Intervalo de datas não pode ser superior a 01 mês.", DataAte);
    if (Modo() == TModo::Periodo && Trim(EdtPerIni.text()).empty())
        return Recusa("Informe o período inicial.");

    const auto parado = TbTemp.DisableControls();
    if (Modo() == TModo::Dia) {
        CriaTabela();
        BuscaDados();
        CarregaFacao();
    } else {
        CriaTabelaPeriodo();
        BuscaDados();
        CarregaFacaoPeriodo();
    }
    Indexa();
}

void TfmRelFacDia::Indexa()
{
    TbTemp.SortBy(Indices.at(static_cast<std::size_t>(RgOrdem.ItemIndex())));
    TbTemp.First();
}

/// Columns in the order of the calendar from the first date. They hold the day's number, not the date.
void TfmRelFacDia::CriaTabela()
{
    CriaCampos(ColunasDeDias);
    TbDia.Append();
    for (int coluna = 1; coluna <= ColunasDeDias; ++coluna)
        TbDia.FieldByName(Numerado("Per", coluna)).Set(DataDe.Date().AddDays(coluna - 1).Day());
    TbDia.Post();
}

/// Behind the last period its code repeats in the columns that are left.
void TfmRelFacDia::CriaTabelaPeriodo()
{
    CriaCampos(ColunasDePeriodos);
    auto& prazos = Tabela().Tabela("tbTabPrazos");
    prazos.SortBy("PRAZO");
    prazos.Locate("PRAZO", {EdtPerIni.Lista().Values().front().AsString()});
    vDtInicio = prazos.FieldByName("DT_INICIO").AsDateTime();
    TbDia.Append();
    for (int coluna = 1; coluna <= ColunasDePeriodos; ++coluna) {
        TbDia.FieldByName(Numerado("Per", coluna)).Set(prazos.FieldByName("PRAZO").Value());
        vDtFinal = prazos.FieldByName("DT_FIM").AsDateTime();
        prazos.Next();
    }
    TbDia.Post();
}

void TfmRelFacDia::CriaCampos(int colunas)
{
    colunas_ = colunas;
    linhas_.clear();
    TbTemp.RemoveAddedFields();
    TbDia.RemoveAddedFields();
    TbTemp.AddField("Data", TFieldKind::Text, 10);
    TbTemp.AddField("Setor", TFieldKind::Text, 3);
    TbTemp.AddField("DescSetor", TFieldKind::Text, 30, {.title = "Descrição"});
    TbTemp.AddField("Codigo", TFieldKind::Text, 5, {.title = "Facção"});
    TbTemp.AddField("Faccao", TFieldKind::Text, 80, {.title = "Nome"});
    TbTemp.AddField("Periodo", TFieldKind::Text, 6, {.title = "Período"});
    TbTemp.AddField("Desc_Periodo", TFieldKind::Text, 60, {.title = "Descrição"});
    TbTemp.AddField("Acumulo", TFieldKind::Float, 0, {.title = "Acúmulo"});
    TbDia.AddField("Acumulo", TFieldKind::Text, 10);
    for (int coluna = 1; coluna <= colunas; ++coluna) {
        TbTemp.AddField(CampoQtde(coluna), TFieldKind::Float);
        TbDia.AddField(Numerado("Per", coluna), TFieldKind::Text, 6);
    }
    const bool porDia = colunas == ColunasDeDias;
    TbTemp.AddField(porDia ? "Total" : "ToTal", TFieldKind::Float);
    TbTemp.AddField("Envio", TFieldKind::DateTime);
    TbTemp.AddField("Retorno", TFieldKind::DateTime);
    if (!porDia)
        return;
    TbTemp.AddField("Peso", TFieldKind::Float);
    TbTemp.AddField("Peso_Talhado", TFieldKind::Float, 0, {.title = "Peso Talhado"});
}

void TfmRelFacDia::BuscaDados()
{
    TStatement sql;
    if (cbPecasSeg.Checked()) {
        sql.Add(R"(
            SELECT SUM(FACCAO3.QUANT+FACCAO3.QUANT_2) AS QTDE,
                   SUM((FACCAO3.QUANT+FACCAO3.QUANT_2) * PRODUTO.PESO) AS PESO,
                   SUM((FACCAO3.QUANT+FACCAO3.QUANT_2) * PRODUTO.PESO_TALHADO) AS PESO_TALHADO)");
    } else {
        sql.Add(R"(
            SELECT SUM(FACCAO3.QUANT) AS QTDE, SUM(FACCAO3.QUANT * PRODUTO.PESO) AS PESO,
                   SUM(FACCAO3.QUANT * PRODUTO.PESO_TALHADO) AS PESO_TALHADO)");
    }
    sql.Add(R"(, FACCAO3.CODCLI AS CODCLI, CLIENTE.NOME AS NOME, UPPER(PRODUTO.UNIDADE) AS UNIDADE,
                 FACCAO3.OP AS OP, CADFLUXO.DESCRICAO AS DESC_SETOR, FACCAO3.DT_LAN AS DT_LAN,
                 OF1.PERIODO AS PERIODO, TABPRZ.DESCRICAO AS DESC_PERIODO, FACCAO.DT_S AS DT_S, FACCAO.DT_R AS DT_R
            FROM {FACCAO3} FACCAO3
            JOIN {FACCAO} FACCAO ON FACCAO3.NUMERO = FACCAO.NUMERO AND FACCAO3.CODIGO = FACCAO.CODIGO
                 AND FACCAO3.COR = FACCAO.COR AND FACCAO3.TAM = FACCAO.TAM AND FACCAO3.OP = FACCAO.OP
                 AND FACCAO3.CODCLI = FACCAO.CODCLI AND FACCAO3.ID_ANT = FACCAO.IDENTIFICADOR
            LEFT JOIN {ENTIDADE} CLIENTE ON CLIENTE.CODCLI = FACCAO3.CODCLI
            LEFT JOIN {PRODUTO} PRODUTO ON PRODUTO.CODIGO = FACCAO3.CODIGO
            LEFT JOIN {CADFLUXO} CADFLUXO ON CADFLUXO.CODIGO = FACCAO3.OP
            LEFT JOIN {TIPO_APL} TIPO_APL ON TIPO_APL.CODIGO = FACCAO3.PARTE
            LEFT JOIN {OF1} OF1 ON OF1.NUMERO = FACCAO3.NUMERO
            LEFT JOIN {TABPRZ} TABPRZ ON OF1.PERIODO = TABPRZ.PRAZO)");
    AddFiltros(sql);
    sql.Add(R"(
           GROUP BY FACCAO3.CODCLI, CLIENTE.NOME, UPPER(PRODUTO.UNIDADE), FACCAO3.DT_LAN, FACCAO3.OP,
                 CADFLUXO.DESCRICAO, OF1.PERIODO, TABPRZ.DESCRICAO, FACCAO.DT_S, FACCAO.DT_R)");
    if (cbPecasSeg.Checked())
        sql.Add(" HAVING SUM(FACCAO3.QUANT+FACCAO3.QUANT_2) > 0");
    else
        sql.Add(" HAVING SUM(FACCAO3.QUANT) > 0");
    sql.Add(" ORDER BY FACCAO3.CODCLI, FACCAO3.OP, FACCAO3.DT_LAN, FACCAO.DT_S, FACCAO.DT_R, OF1.PERIODO");
    OrvQuery.SQL = sql;
    OrvQuery.Open();
}

void TfmRelFacDia::AddFiltros(TStatement& sql)
{
    sql.Add(" WHERE FACCAO3.DT_LAN BETWEEN ? AND ?", DataDe.Date(), DataAte.Date());
    if (!EdtCodSet.empty())
        sql.Add(" AND FACCAO3.OP IN (?)", EdtCodSet.Lista());
    if (!EdtFaccao.empty())
        sql.Add(" AND FACCAO3.CODCLI IN (?)", EdtFaccao.Lista());
    if (CbPartePrincip.Checked())
        sql.Add(" AND TIPO_APL.PRINCIPAL = 'S'");
    if (!edtCodCol.empty())
        sql.Add(" AND PRODUTO.COLECAO IN (?)", edtCodCol.Lista());
    if (!edtGrupoProd.empty())
        sql.Add(" AND PRODUTO.GRUPO IN (?)", edtGrupoProd.Lista());
    if (!EdtPerIni.empty())
        sql.Add(" AND OF1.PERIODO IN (?)", EdtPerIni.Lista());
    if (!edtGrupoFaccao.empty())
        sql.Add(" AND CLIENTE.GRUPO IN ( ?)", edtGrupoFaccao.Lista());
    if (!edtEtiqueta.empty())
        sql.Add(" AND PRODUTO.ETIQUETA IN (?)", edtEtiqueta.Lista());
    if (cbDescReprocesso.Checked())
        sql.Add(" AND (FACCAO3.REPROCESSO = '' OR FACCAO3.REPROCESSO IS NULL)");
    sql.Add(" AND FACCAO.DT_S BETWEEN ? AND ? AND FACCAO.DT_R BETWEEN ? AND ?", edtEnvioIni.Date(), edtEnvioFim.Date(),
        EdtPrevRetIni.Date(), EdtPrevRetFim.Date());
}

/// A day's number that stands twice among the columns counts in the first of them: that is wanted.
void TfmRelFacDia::CarregaFacao()
{
    OrvQuery.ForEach([&] {
        const int dia = OrvQuery.FieldByName("DT_LAN").AsDateTime().Day();
        AchaLinha(RgOrdem.ItemIndex() == OrdemPeriodo);
        TbTemp.FieldByName("Data").Set(DataDe.text());
        for (const auto* campo : {"Peso", "Peso_Talhado"})
            Soma(campo, Valor(campo));
        Soma("Total", Valor("QTDE"));
        if (const int coluna = Coluna(std::to_string(dia)); coluna > 0)
            Soma(CampoQtde(coluna), Valor("QTDE"));
        TbTemp.Post();
    });
}

void TfmRelFacDia::CarregaFacaoPeriodo()
{
    OrvQuery.ForEach([&] {
        const auto prazo = PeriodoData(OrvQuery.FieldByName("DT_LAN").AsDateTime());
        AchaLinha(false);
        Soma("ToTal", Valor("QTDE"));
        const int coluna = Coluna(prazo);
        Soma(coluna > 0 ? CampoQtde(coluna) : "Acumulo", Valor("QTDE"));
        TbTemp.Post();
    });
}

void TfmRelFacDia::AchaLinha(bool porPeriodo)
{
    auto chave = OrvQuery.FieldByName("CODCLI").AsString() + ";" + OrvQuery.FieldByName("OP").AsString();
    if (porPeriodo)
        chave += ";" + OrvQuery.FieldByName("PERIODO").AsString();
    const auto found = linhas_.find(chave);
    if (found == linhas_.end())
        return NovaLinha(chave);
    TbTemp.GoToBookmark(found->second);
    TbTemp.Edit();
}

void TfmRelFacDia::NovaLinha(const std::string& chave)
{
    TbTemp.Append();
    const auto copia = [&](std::string_view para, std::string_view de) {
        TbTemp.FieldByName(para).Set(OrvQuery.FieldByName(de).Value());
    };
    copia("Codigo", "CODCLI");
    copia("Faccao", "NOME");
    copia("Setor", "OP");
    copia("DescSetor", "DESC_SETOR");
    copia("Envio", "DT_S");
    copia("Retorno", "DT_R");
    if (RgOrdem.ItemIndex() == OrdemPeriodo) {
        copia("Periodo", "PERIODO");
        copia("Desc_Periodo", "DESC_PERIODO");
    }
    TbTemp.Post();
    linhas_.emplace(chave, TbTemp.Bookmark());
    TbTemp.Edit();
}

void TfmRelFacDia::Soma(std::string_view campo, double valor)
{
    auto& field = TbTemp.FieldByName(campo);
    field.Set(field.AsFloat() + valor);
}

/// Of the query's row, with four decimals; a set counts as two pieces where sets are summed.
double TfmRelFacDia::Valor(std::string_view campo) const
{
    const double valor = RoundTo(OrvQuery.FieldByName(campo).AsFloat(), 4);
    return CbSoma.Checked() && OrvQuery.FieldByName("UNIDADE").AsString() == "CJ" ? valor * 2 : valor;
}

std::string TfmRelFacDia::PeriodoData(TDateTime data)
{
    auto prazo
        = ConsultaValor("SELECT PRAZO FROM {TABPRZ} WHERE DT_INICIO <= ? AND DT_FIM >= ? ORDER BY PRAZO", data, data)
              .AsString();
    if (prazo.empty())
        Mensagem("Período não encontrado para a data " + data.Text() + ".");
    return prazo;
}

int TfmRelFacDia::Coluna(std::string_view titulo) const
{
    for (int coluna = 1; coluna <= colunas_; ++coluna) {
        if (TbDia.FieldByName(Numerado("Per", coluna)).AsString() == titulo)
            return coluna;
    }
    return 0;
}

void TfmRelFacDia::btnImprimirClick()
{
    for (auto* report : {static_cast<TprReportBase*>(&prReport), static_cast<TprReportBase*>(&prTxReport)}) {
        report->Variables["Filtros"] = TValue(Filtros());
        report->Variables["Ordem"] = TValue(RgOrdem.ItemText());
        report->Variables["Modo"] = TValue(GbBuscar.ItemText());
        report->Variables["Colunas"] = TValue(colunas_);
    }
    App().Host.reports.Chama_Relatorio(prReport, prTxReport, "WFacPeriodo", *this, {});
}

std::string TfmRelFacDia::Filtros() const
{
    std::string filtros = "Retorno: " + DataDe.text() + " a " + DataAte.text();
    for (const auto* lista :
        {&EdtCodSet, &EdtFaccao, &edtGrupoFaccao, &edtCodCol, &edtGrupoProd, &edtEtiqueta, &EdtPerIni}) {
        if (!lista->empty())
            filtros += "; " + lista->Descricao();
    }
    for (const auto* opcao : {&CbSoma, &CbPartePrincip, &cbPecasSeg, &cbDescReprocesso}) {
        if (opcao->Checked())
            filtros += "; " + opcao->PlainCaption();
    }
    return filtros;
}

void TfmRelFacDia::btnFecharClick() { Close(); }

} // namespace alinhavo
