#include "host/TTransDataSet.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace alinhavo {
namespace {

TEST(TTransDataSet, TheTargetGetsTheFieldsAndNoRows)
{
    TMemTable source;
    source.AddField("CODIGO", TFieldKind::Text, 15, {.title = "Produto"});
    source.AddField("QTDE", TFieldKind::Float);
    source.Append();
    source.Post();

    TMemTable target;
    TTransDataSet copy;
    copy.SetTabelaOrigem(source);
    copy.SetTabelaDestino(target);
    copy.CriaCampos();

    ASSERT_EQ(target.Fields().size(), 2U);
    EXPECT_EQ(target.FieldByName("CODIGO").Size(), 15);
    EXPECT_EQ(target.FieldByName("CODIGO").options.title, "Produto");
    EXPECT_EQ(target.FieldByName("QTDE").Kind(), TFieldKind::Float);
    EXPECT_TRUE(target.IsEmpty());
}

TEST(TTransDataSet, ASecondCopyReplacesTheFieldsOfTheFirst)
{
    TMemTable first;
    first.AddField("A", TFieldKind::Text, 1);
    TMemTable second;
    second.AddField("B", TFieldKind::Text, 1);

    TMemTable target;
    TTransDataSet copy;
    copy.SetTabelaDestino(target);
    copy.SetTabelaOrigem(first);
    copy.CriaCampos();
    copy.SetTabelaOrigem(second);
    copy.CriaCampos();
    EXPECT_EQ(target.FindField("A"), nullptr);
    EXPECT_NE(target.FindField("B"), nullptr);
}

TEST(TTransDataSet, WithoutBothItIsAMistakeOfTheProgram)
{
    TTransDataSet copy;
    EXPECT_THROW(copy.CriaCampos(), std::logic_error);
}

} // namespace
} // namespace alinhavo
