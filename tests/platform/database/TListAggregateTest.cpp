#include "platform/database/TListAggregate.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

std::string Tagged(const std::vector<std::pair<std::string, std::string>>& elements, char number = 'A')
{
    std::string text{listmarks::Begin, number};
    for (const auto& [element, key] : elements)
        text += listmarks::Element + element + listmarks::Key
            + (key == "null" ? std::string(1, listmarks::NullKey) : key);
    return text + listmarks::End;
}

TListAggregate ByOneKey(bool numeric, bool descending = false)
{
    return {.separator = " ", .keys = {{.numeric = numeric, .descending = descending}}};
}

TEST(TListAggregate, TextWithoutListsStays) { EXPECT_EQ(FoldLists("Ação", {ByOneKey(false)}), "Ação"); }

TEST(TListAggregate, NumbersAreOrderedAsNumbersAndTextsAsTexts)
{
    const auto text = Tagged({{"b", "10"}, {"a", "9"}});
    EXPECT_EQ(FoldLists(text, {ByOneKey(true)}), "a b");
    EXPECT_EQ(FoldLists(text, {ByOneKey(false)}), "b a");
    EXPECT_EQ(FoldLists(Tagged({{"2", "b"}, {"1", "Á"}}), {ByOneKey(false)}), "1 2");
}

TEST(TListAggregate, NullsAreLowest)
{
    const auto text = Tagged({{"b", "1"}, {"a", "null"}, {"c", "-5"}});
    EXPECT_EQ(FoldLists(text, {ByOneKey(true)}), "a c b");
    EXPECT_EQ(FoldLists(text, {ByOneKey(true, true)}), "b c a");
}

TEST(TListAggregate, EqualKeysKeepTheOrderOfArrival)
{
    EXPECT_EQ(FoldLists(Tagged({{"b", "1"}, {"a", "1"}, {"c", "0"}}), {ByOneKey(true)}), "c b a");
}

TEST(TListAggregate, SeveralListsInOneTextHaveEachTheirOwnOrder)
{
    const auto text = "<" + Tagged({{"b", "2"}, {"a", "1"}}) + "|" + Tagged({{"x", "1"}, {"y", "2"}}, 'B') + ">";
    EXPECT_EQ(FoldLists(text, {ByOneKey(true), ByOneKey(true, true)}), "<a b|y x>");
}

TEST(TListAggregate, EmptyElementsStay)
{
    EXPECT_EQ(FoldLists(Tagged({{"", "1"}, {"a", "2"}}), {ByOneKey(true)}), " a");
}

} // namespace
} // namespace alinhavo
