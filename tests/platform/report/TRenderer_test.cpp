#include "TReportTest.h"

#include "platform/report/htmlText.h"

namespace alinhavo {
namespace {

using TTemplates = TReportTest;

TEST_F(TTemplates, shows_values_as_a_person_reads_them)
{
    Report.Variables["inteiro"] = TValue(12);
    Report.Variables["fracao"] = TValue(1234.5);
    Report.Variables["data"] = TValue(TDateTime::FromDate(2026, 11, 20));
    EXPECT_EQ(Html("{{ inteiro }}|{{ fracao }}|{{ num(fracao, 2) }}|{{ data }}|{{ data + 3 }}|{{ 2 > 1 }}"),
        "12|1234,5|1.234,50|20/11/2026|23/11/2026|Sim\n");
}

TEST_F(TTemplates, a_null_counts_as_nothing)
{
    Report.Variables["nulo"] = TValue();
    EXPECT_EQ(Html("[{{ nulo }}|{{ nulo + 5 }}|{{ 'a' .. nulo }}|{{ num(nulo) }}|{{ nulo < 1 }}|{{ 8 / nulo }}]"),
        "[|5|a||Sim|]\n");
}

TEST_F(TTemplates, a_band_runs_over_the_visible_rows)
{
    TbRel.Add("00001", "000123", 10);
    TbRel.Add("00002", "000124", 5);
    TbRel.Add("00001", "000125", 2);
    TbRel.FilterBy("FACCAO", "00001");
    EXPECT_EQ(Html("% faixa TbRel\nde:\n% linha\n{{ NUMERO }} {{ quant }}\n% rodape\n{{ soma('QUANT') }}\n% fim\n"),
        "de:\n000123 10\n000125 2\n12\n");
}

TEST_F(TTemplates, a_band_without_rows_shows_only_what_stands_there_for_that)
{
    EXPECT_EQ(Html("% faixa TbRel\nde:\n% linha\nx\n% rodape\ny\n% vazia\nnada\n% fim\nfim\n"), "nada\nfim\n");
}

TEST_F(TTemplates, groups_have_headers_footers_and_totals)
{
    TbRel.Add("00001", "000123", 10);
    TbRel.Add("00001", "000123", 5);
    TbRel.Add("00001", "000124", 1);
    TbRel.Add("00002", "000124", 2);
    EXPECT_EQ(Html(R"(% faixa TbRel
% grupo faccao = FACCAO
<{{ FACCAO }} {{ soma("QUANT") }}
% grupo op = FACCAO;NUMERO
({{ NUMERO }}
% linha
{{ QUANT }} de {{ soma("QUANT", "TbRel") }}
% rodape op
{{ soma("QUANT") }} {{ conta("QUANT > 4") }})
% rodape faccao
{{ soma("QUANT") }} {{ maior("QUANT") }} {{ distintos("NUMERO") }}>
% rodape
={{ soma("QUANT * 2") }} {{ media("QUANT") }}
% fim
)"),
        "<00001 16\n(000123\n10 de 18\n5 de 18\n15 2)\n(000124\n1 de 18\n1 0)\n16 10 2>\n"
        "<00002 2\n(000124\n2 de 18\n2 0)\n2 2 1>\n=36 4,5\n");
}

TEST_F(TTemplates, a_group_without_fields_is_the_one_that_the_screen_names)
{
    Report.Groups = {{"TbRel", "FACCAO", {}}, {"TbRel", "FACCAO;NUMERO", {}}};
    TbRel.Add("00001", "000123", 1);
    TbRel.Add("00002", "000123", 1);
    EXPECT_EQ(Html("% faixa TbRel\n% grupo a\nA\n% grupo b\nB\n% linha\n% fim\n"), "A\nB\nA\nB\n");
    EXPECT_NE(
        Error("% faixa TbRel\n% grupo a\n% grupo b\n% grupo c\n% linha\n% fim\n").find("grupo c"), std::string::npos);
}

TEST_F(TTemplates, choices_loops_and_definitions)
{
    EXPECT_EQ(Html("% define x = 3\n% para i = 1, x\n% se i == 1\num\n% senaose i == 2\ndois\n% senao\n{{ i * x }}\n"
                   "% fim\n% fim\n"),
        "um\ndois\n9\n");
}

TEST_F(TTemplates, the_fields_of_a_one_row_table_are_reached_by_its_name)
{
    TbRel.Add("00001", "000123", 7);
    EXPECT_EQ(Html("{{ TbRel.NUMERO }} {{ TbRel.quant + 1 }}"), "000123 8\n");
}

TEST_F(TTemplates, a_field_can_be_named_by_an_expression)
{
    TbRel.Add("00001", "000123", 7);
    EXPECT_EQ(Html("% faixa TbRel\n% linha\n{{ campo('QUA' .. 'NT') }}\n% fim\n{{ campo('NUMERO', 'TbRel') }}\n"),
        "7\n000123\n");
}

TEST_F(TTemplates, rows_of_another_table_are_looked_up_by_a_key)
{
    TbRel.Add("00001", "000123", 7);
    TbRel.Add("00002", "000124", 9);
    EXPECT_EQ(
        Html("{{ busca('TbRel', 'NUMERO', '000124', 'QUANT') }}{{ busca('TbRel', 'NUMERO', 'x', 'QUANT') }}"), "9\n");
}

TEST_F(TTemplates, a_band_may_have_a_condition)
{
    TbRel.Add("00001", "000123", 7);
    TbRel.Add("00002", "000124", 9);
    EXPECT_EQ(Html("% faixa TbRel onde QUANT > 8\n% linha\n{{ NUMERO }}\n% fim\n"), "000124\n");
}

TEST_F(TTemplates, what_the_data_lack_is_asked_of_the_screen_as_text)
{
    Report.OnUnknownFunction = [](std::string_view name, const std::vector<TValue>& arguments) {
        if (name == "Extenso")
            return TValue("<" + arguments.at(0).AsString() + ">");
        return name == "Filtros" ? TValue("Setor: 20") : TValue();
    };
    EXPECT_EQ(Html("{{ Filtros }} {{ Extenso(12) }} [{{ Desconhecido }}]"), "Setor: 20 &lt;12&gt; []\n");
    EXPECT_EQ(Unknown, std::set<std::string>{"Desconhecido"});
}

TEST_F(TTemplates, nothing_of_the_data_becomes_html)
{
    Report.Variables["mau"] = TValue("<script>alert('x')</script>\"&");
    EXPECT_EQ(Html("<b title=\"{{ mau }}\">{{ mau }}</b>"),
        "<b title=\"&lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt;&quot;&amp;\">"
        "&lt;script&gt;alert(&#39;x&#39;)&lt;/script&gt;&quot;&amp;</b>\n");
}

TEST_F(TTemplates, nothing_of_the_data_leaves_a_text_in_a_style)
{
    Report.Variables["mau"] = TValue("\"} </style>Ção");
    EXPECT_EQ(Html("<style>a::after { content: \"{{ mau }}\" }</style>{{ mau }}"),
        "<style>a::after { content: \"\\000022\\00007d \\00003c\\00002fstyle\\00003eÇão\" }</style>"
        "&quot;} &lt;/style&gt;Ção\n");
}

TEST_F(TTemplates, include_other_templates)
{
    WriteFile("Cabeca.prt", "<h1>{{ x }}</h1>\n");
    Report.Variables["x"] = TValue("oi");
    EXPECT_EQ(Html("% inclui Cabeca\nfim\n"), "<h1>oi</h1>\nfim\n");
}

TEST_F(TTemplates, bar_codes_are_drawings_and_a_bad_one_stays_text)
{
    const auto good = Html("{{ codbarra('7891234567895', 'EAN13') }}");
    EXPECT_TRUE(good.starts_with("<svg class=\"codigo-de-barras\"")) << good;
    EXPECT_GT(std::string(good).find("<rect"), std::size_t(0));
    EXPECT_NE(good.find("<rect"), std::string::npos);
    EXPECT_EQ(Html("{{ codbarra('789<x', 'EAN13') }}"), "<span class=\"codigo-invalido\">789&lt;x</span>\n");
    EXPECT_NE(Html("{{ codbarra('000123') }}").find("<rect"), std::string::npos);
    EXPECT_NE(Html("{{ codbarra('17891234567892', 'DUN14') }}").find("<rect"), std::string::npos);
    EXPECT_NE(Html("{{ codbarra('https://x', 'QR') }}").find("<rect"), std::string::npos);
}

TEST_F(TTemplates, pictures_are_taken_into_the_page)
{
    WriteFile("foto.png", "\x89PNG\r\n\x1a\nxyz");
    Report.Variables["foto"] = TValue((Folder.Path() / "foto.png").string());
    EXPECT_EQ(Html("{{ imagem(foto, 20, 'Camisa') }}"),
        "<img style=\"max-height:20mm\" src=\"data:image/png;base64,iVBORw0KGgp4eXo=\" alt=\"Camisa\">\n");
}

TEST_F(TTemplates, a_text_report_has_pages)
{
    for (int row = 1; row <= 5; ++row)
        TbRel.Add("00001", "00012" + std::to_string(row), row);
    EXPECT_EQ(Plain(R"(% pagina 6
% topo
topo {{ pagina() }}/{{ paginas() }}
% fim
% base
base
% fim
% faixa TbRel
% linha
{{ esq(NUMERO, 8) }}{{ dir(num(QUANT, 1), 6) }}
% fim
)"),
        "topo 1/2\n000121     1,0\n000122     2,0\n000123     3,0\n000124     4,0\nbase\n"
        "\ftopo 2/2\n000125     5,0\n\n\n\nbase\n");
}

TEST_F(TTemplates, a_text_of_the_data_cannot_command_the_printer)
{
    Report.Variables["mau"] = TValue("a\x1b"
                                     "E\nb\fc");
    EXPECT_EQ(Plain("{{ mau }}\n"), "a E b c\n");
}

TEST_F(TTemplates, text_is_padded_and_cut_in_characters)
{
    EXPECT_EQ(Plain("[{{ esq('Ação', 6) }}|{{ dir('Ação', 6) }}|{{ centro('é', 4) }}|{{ esq('Facção', 3) }}]\n"),
        "[Ação  |  Ação| é  |Fac]\n");
}

TEST(HtmlText, is_what_a_person_reads)
{
    EXPECT_EQ(HtmlText("<title>t</title><style>a{}</style><!-- x --><b>A&amp;B</b><td>1 &lt; 2"), "    A&B  1 < 2");
}

TEST(SealedHtml, forbids_whatever_is_not_in_the_page)
{
    constexpr std::string_view Sealed = "<!doctype html><meta http-equiv=\"Content-Security-Policy\"";
    EXPECT_TRUE(SealedHtml("<!DOCTYPE html><html><script>x()</script><head>").starts_with("<!DOCTYPE html><meta http"));
    EXPECT_TRUE(SealedHtml("<html><head><title>x</title>").starts_with(Sealed));
    EXPECT_TRUE(SealedHtml("<p>x").starts_with(Sealed));
}

} // namespace
} // namespace alinhavo
