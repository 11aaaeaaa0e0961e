#include "TImportTest.h"

#include "platform/exchange/EExchange.h"

#include <gmock/gmock.h>

namespace alinhavo {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

class TableImport : public TImportTest { };
ON_BOTH_SERVERS(TableImport);

TEST_P(TableImport, ADryRunCountsAndWritesNothing)
{
    const auto import = Compare("CADCOR", "COR;DESCRICAO\nAZUL;Azul\nVERDE;Verde claro\nROSA;Rosa\n;Sem código\n");
    EXPECT_EQ(import->Counts(), (TImportCounts{.added = 1, .changed = 1, .same = 1, .skipped = 0, .wrong = 1}));
    EXPECT_FALSE(db->Pending());
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR}"), "2");
}

TEST_P(TableImport, WritesWhatIsNewAndWhatChanged)
{
    Import("CADCOR", "COR;DESCRICAO\nAZUL;Azul\nVERDE;Verde claro\nROSA;Rosa\n;Sem código\n");
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR}"), "3");
    EXPECT_EQ(Cell("SELECT DESCRICAO FROM {CADCOR} WHERE COR = 'VERDE'"), "Verde claro");
}

TEST_P(TableImport, RowsThatAreThereStayAsTheyAreWhenThatIsChosen)
{
    const auto counts
        = Import("CADCOR", "COR;DESCRICAO\nVERDE;Verde claro\nROSA;Rosa\nAZUL;Azul\n", TExistingRows::Skip);
    EXPECT_EQ(counts, (TImportCounts{.added = 1, .changed = 0, .same = 1, .skipped = 1, .wrong = 0}));
    EXPECT_EQ(Cell("SELECT DESCRICAO FROM {CADCOR} WHERE COR = 'VERDE'"), "Verde");
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {CADCOR}"), "3");
}

TEST_P(TableImport, ColumnsThatTheFileLacksStayAsTheyAre)
{
    Import("PRODUTO", "CODIGO;DESCRICAO\nCAM01;Camiseta\n");
    EXPECT_EQ(Cell("SELECT PRECO FROM {PRODUTO} WHERE CODIGO = 'CAM01'"), "10.5");
    EXPECT_EQ(Cell("SELECT DESCRICAO FROM {PRODUTO} WHERE CODIGO = 'CAM01'"), "Camiseta");
}

TEST_P(TableImport, TitlesAreNamesOrCaptionsWithoutRegardToCaseAndAccents)
{
    const auto counts = Import("PRODUTO", "codigo;DESCRIÇÃO;preco de venda;Ativo\nX1;Xale;1.234,50;Não\n");
    EXPECT_EQ(counts.added, 1);
    EXPECT_EQ(
        Cell("SELECT DESCRICAO || PRECO || ATIVO FROM {PRODUTO} WHERE CODIGO = 'X1'").substr(0, 10), "Xale1234.5");
    EXPECT_EQ(Cell("SELECT ATIVO FROM {PRODUTO} WHERE CODIGO = 'X1'"), "N");
}

TEST_P(TableImport, WhatIsWrongWithTheTitlesIsToldAndNothingElseIsLookedAt)
{
    EXPECT_THAT(Errors("PRODUTO", "CODIGO;COISA;DESCRICAO;Descrição;SENHA\nX;y;z;w;v\n"),
        ElementsAre("1 COISA: A tabela PRODUTO não tem esta coluna.",
            "1 Descrição: A coluna DESCRICAO está duas vezes no arquivo.",
            "1 SENHA: A tabela PRODUTO não tem esta coluna."));
    EXPECT_THAT(Errors("OF_ITEN", "NUMERO;COR;QTDE\n1;2;3\n"),
        ElementsAre("1 Tamanho: Falta esta coluna, que diz de que linha da tabela se trata."));
    EXPECT_EQ(Import("PRODUTO", "CODIGO;COISA\nNOVO;x\n"),
        (TImportCounts{.added = 0, .changed = 0, .same = 0, .skipped = 0, .wrong = 1}));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {PRODUTO}"), "2");
}

TEST_P(TableImport, AnEmptyFileIsRefused)
{
    EXPECT_THAT([&] { Compare("PRODUTO", "\n\n"); }, ThrowsMessage<EExchange>("O arquivo está vazio."));
}

TEST_P(TableImport, ATableThatTheSystemKeepsTakesNoImport)
{
    for (const char* table : {"FACCAO", "FACCAO3", "GERALOG", "ACESSO_USUARIOS", "PAGTO"})
        EXPECT_THAT(
            [&] { Compare(table, "IDENTIFICADOR\n1\n"); }, ThrowsMessage<EExchange>(HasSubstr("não aceita importação")))
            << table;
}

TEST_P(TableImport, TheKeyIsNeededAndStandsOnce)
{
    EXPECT_THAT(Errors("CADCOR", "COR;DESCRICAO\nROSA;a\n;b\nROSA;c\n"),
        ElementsAre("3 COR: Falta preencher: é parte da chave.", "4 : A chave já está na linha 2."));
}

TEST_P(TableImport, ALineOfMoreCellsThanTitlesIsWrong)
{
    EXPECT_THAT(Errors("CADCOR", "COR;DESCRICAO\nROSA;Rosa;;\nLILAS;Lilás;x\n"),
        ElementsAre("3 : A linha tem mais células do que o arquivo tem títulos."));
}

TEST_P(TableImport, ACodeOfAnotherTableMustExist)
{
    EXPECT_THAT(Errors("OF1", "NUMERO;CODIGO;CODCLI\n000009;CAM01;00001\n000010;NADA;00001\n000011;CAM01;99999\n"),
        ElementsAre("3 CODIGO: Não existe em Produtos (PRODUTO).",
            "4 CODCLI: Não existe em Clientes, fornecedores e facções (ENTIDADE)."));
}

TEST_P(TableImport, ACodeThatTheSameFileBringsIsRight)
{
    EXPECT_THAT(Errors("CADFLUXO", "CODIGO;DESCRICAO;GRUPO\n30;Lavanderia;31\n31;Lavagem;31\n32;Outro;99\n"),
        ElementsAre("4 GRUPO: Não existe em Setores (CADFLUXO)."));
}

TEST_P(TableImport, ATextThatMustBeUniqueIsComparedWithFileAndTable)
{
    EXPECT_THAT(Errors("CADFLUXO", "CODIGO;DESCRICAO\n30;Costura\n31;Lavagem\n32;Lavagem\n10;Corte\n"),
        ElementsAre(
            "2 DESCRICAO: Outra linha da tabela já tem este texto.", "4 DESCRICAO: O texto já está na linha 3."));
}

TEST_P(TableImport, WhatANewLineMustHaveIsAskedFor)
{
    EXPECT_THAT(Errors("TABELA", "NUMERO;CODIGO;PARTE;SETOR;PRECO\n001;CAM01;01;;1,5\n"), testing::Not(IsEmpty()));
}

TEST_P(TableImport, PricesAreToldApartByWhatTheyAreFor)
{
    const std::string titles = "NUMERO;CODIGO;SETOR;PARTE;PRECO\n";
    EXPECT_EQ(Import("TABELA", titles + "001;CAM01;10;01;1,5\n001;CAM01;20;01;2,5\n").added, 2);
    const auto again = Import("TABELA", titles + "001;CAM01;10;01;1,5\n001;CAM01;20;01;3\n");
    EXPECT_EQ(again, (TImportCounts{.added = 0, .changed = 1, .same = 1, .skipped = 0, .wrong = 0}));
    EXPECT_EQ(Cell("SELECT COUNT(*) FROM {TABELA}"), "2");
    EXPECT_EQ(Cell("SELECT PRECO FROM {TABELA} WHERE SETOR = '20'"), "3");
}

TEST_P(TableImport, ARowThatTheTableHasTwiceIsNotChosenBlindly)
{
    for (int i = 0; i < 2; ++i)
        Execute(
            {{"INSERT INTO {TABELA} (NUMERO, CODIGO, SETOR, PARTE, PRECO) VALUES ('001', 'CAM01', '10', '01', 1)"}});
    EXPECT_THAT(Errors("TABELA", "NUMERO;CODIGO;SETOR;PARTE;PRECO\n001;CAM01;10;01;2\n"),
        ElementsAre("2 : A tabela tem 2 linhas com esta chave."));
}

TEST_P(TableImport, WhatTheSystemKeepsIsNotWritten)
{
    EXPECT_THAT(Errors("OF1", "NUMERO;CODIGO;ATIVOS\n000009;CAM01;0\n000010;CAM01;5\n"),
        ElementsAre("3 ATIVOS: Esta coluna é escrita pelo próprio sistema, conforme o trabalho."));
}

TEST_P(TableImport, TheGridOfAnOrderThatHasNotBegunSetsItsOpenPieces)
{
    Import("OF_ITEN", "NUMERO;COR;TAM;QTDE\n000002;AZUL;M;10\n000002;AZUL;G;5,5\n");
    EXPECT_EQ(Cell("SELECT ATIVOS FROM {OF1} WHERE NUMERO = '000002'"), "15.5");
    EXPECT_EQ(Cell("SELECT QTDE_OF + QTDE_B + QTDE_C FROM {OF_ITEN} WHERE NUMERO = '000002' AND TAM = 'G'"), "5.5");
}

TEST_P(TableImport, AnOrderInProductionKeepsItsGridAndItsProduct)
{
    EXPECT_THAT(Errors("OF_ITEN", "NUMERO;COR;TAM;QTDE\n000001;AZUL;M;10\n000001;AZUL;G;5\n"),
        ElementsAre("3 NUMERO: A OF já entrou em produção."));
    EXPECT_THAT(Errors("OF_ITEN", "NUMERO;COR;TAM;QTDE\n000001;AZUL;M;12\n"),
        ElementsAre("2 NUMERO: A OF já entrou em produção."));
    EXPECT_THAT(Errors("OF1", "NUMERO;CODIGO\n000001;CAL01\n000002;CAL01\n"),
        ElementsAre("2 NUMERO: A OF já entrou em produção."));
}

TEST_P(TableImport, AChangeSaysWhatItChanges)
{
    const auto import = Compare("PRODUTO", "CODIGO;DESCRICAO;PRECO\nCAM01;Camiseta;\nCAL01;Calça;3,25\n");
    ASSERT_EQ(import->Remarks().size(), 2U);
    EXPECT_EQ(import->Remarks()[0].reason, "DESCRICAO: \"Camisa\" passa a \"Camiseta\"; PRECO: \"10,5\" passa a nada");
    EXPECT_EQ(import->Remarks()[1].reason, "PRECO: nada passa a \"3,25\"");
    EXPECT_EQ(import->Remarks()[1].key, "CAL01");
}

TEST_P(TableImport, ARowThatAnotherUserWritesMeanwhileIsNotWrittenTwice)
{
    const auto import = Compare("CADCOR", "COR;DESCRICAO\nROSA;Rosa\n");
    const auto other = Connect();
    other->ExecSQL({"INSERT INTO {CADCOR} (COR) VALUES ('ROSA')"});
    other->CommitRetaining();
    EXPECT_THAT([&] { import->Write(); }, ThrowsMessage<EExchange>(HasSubstr("Outro usuário")));
}

TEST_P(TableImport, TheErrorFileOpensInASpreadsheetAndRunsNothing)
{
    const auto import = Compare("CADCOR", "COR;DESCRICAO\n'=1+2+3+4;x\n;\"a;b\"\nROSA;Rosa\n");
    EXPECT_EQ(ErrorFile(import->Remarks()),
        "\xEF\xBB\xBFLinha;Coluna;Conteúdo;Motivo\r\n"
        "2;COR;'=1+2+3+4;\"O texto tem 8 caracteres; cabem 6.\"\r\n"
        "3;COR;;Falta preencher: é parte da chave.\r\n");
}

} // namespace
} // namespace alinhavo
