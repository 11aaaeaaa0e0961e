#include "forms/text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace alinhavo {
namespace {

using Texts = std::vector<std::string>;

TEST(Text, IsMeasuredAndCutInCharacters)
{
    EXPECT_EQ(Length("ação"), 4u);
    EXPECT_EQ(Length("€😀a"), 3u);
    EXPECT_EQ(Copy("Facção", 3, 3), "cçã");
    EXPECT_EQ(Copy("Facção", 5, 99), "ão");
    EXPECT_EQ(Copy("Facção", 7, 1), "");
    EXPECT_EQ(Copy("Facção", 1, std::string::npos), "Facção");
    EXPECT_EQ(Left("ção", 2), "çã");
    EXPECT_EQ(Right("ção", 2), "ão");
    EXPECT_EQ(Right("ção", 9), "ção");
}

TEST(Text, IsPaddedInCharacters)
{
    EXPECT_EQ(LeftPad("7", '0', 2), "07");
    EXPECT_EQ(LeftPad("çã", ' ', 4), "  çã");
    EXPECT_EQ(RightPad("çã", '.', 4), "çã..");
    EXPECT_EQ(LeftPad("123", '0', 2), "123");
}

TEST(Text, CountsAMalformedByteAsOneCharacter)
{
    EXPECT_EQ(Length("a\xFF\xC3"), 3u);
    EXPECT_EQ(Length("\xC3\xA9\x80"), 2u);
    EXPECT_EQ(Copy("\xFF\xC3\xA9", 2, 1), "é");
    EXPECT_EQ(UpperCase("a\xFFz"), "A\xFFZ");
}

TEST(Text, KnowsWellFormedUtf8)
{
    for (const auto* text : {"", "abc", "ação", "€", "😀", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(ValidUtf8(text)) << text;
    for (const auto* text : {"\x80", "\xC3", "\xC3(", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
             "\xF5\x80\x80\x80", "\xE2\x82", "a\xFF"})
        EXPECT_FALSE(ValidUtf8(text));
}

TEST(Text, LosesBlanksTabsAndLineBreaksAtItsEnds)
{
    EXPECT_EQ(Trim(" \t a b\r\n"), "a b");
    EXPECT_EQ(TrimRight("  a \n"), "  a");
    EXPECT_EQ(Trim(" \n "), "");
    EXPECT_EQ(TrimRight(""), "");
}

TEST(Text, ChangesTheCaseOfAccentedLetters)
{
    EXPECT_EQ(UpperCase("açúcar ÷ ß ÿ 1"), "AÇÚCAR ÷ ß Ÿ 1");
    EXPECT_EQ(LowerCase("AÇÚCAR × Ÿ"), "açúcar × ÿ");
    EXPECT_TRUE(SameText("Facção", "FACÇÃO"));
    EXPECT_FALSE(SameText("Facção", "Faccao"));
    EXPECT_FALSE(SameText("a", "ab"));
}

TEST(Text, IsExplodedAtItsSeparators)
{
    EXPECT_EQ(Explode("", ","), Texts{});
    EXPECT_EQ(Explode("a", ","), Texts{"a"});
    EXPECT_EQ(Explode("a,,b", ","), (Texts{"a", "", "b"}));
    EXPECT_EQ(Explode("a,", ","), (Texts{"a", ""}));
    EXPECT_EQ(Explode("a; b", "; "), (Texts{"a", "b"}));
    EXPECT_EQ(Explode("ab", ""), Texts{"ab"});
}

TEST(Text, IsReplacedFromLeftToRightOnce)
{
    EXPECT_EQ(Replace("a'b'", "'", "''"), "a''b''");
    EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

// As both servers return them from ORDER BY.
const Texts inServerOrder = {"", "\t", " ", "  ", " a", "_", "_a", "-", "-1", ",", ";", ":", "!", "?", ".", "...", "…",
    "'", "\"", "(", ")", "[", "]", "{", "}", "§", "@", "*", "/", "\\", "&", "#", "%", "`", "´", "^", "°", "+", "±", "<",
    "=", ">", "|", "~", "$", "€", "0", "1", "¹", "½", "10", "1A", "2", "²", "9", "a", "A", "ª", "á", "Á", "à", "À", "â",
    "ã", "Ã", "a b", "a-b", "aa", "aá", "áa", "ab", "AB", "Ab c", "ação", "ad", "ae", "æ", "af", "b", "B", "c", "C",
    "ç", "Ç", "ca", "ça", "Ça", "cb", "côte", "coz", "d", "ð", "e", "n", "ñ", "o", "º", "ó", "ø", "œ", "ss", "ß", "z",
    "Z", "þ", "µ", "Ω"};

TEST(CompareText, OrdersMarksDigitsAndLettersAsTheServersDo)
{
    for (std::size_t left = 0; left < inServerOrder.size(); ++left)
        for (std::size_t right = 0; right < inServerOrder.size(); ++right) {
            const int order = CompareText(inServerOrder[left], inServerOrder[right]);
            const int expected = left < right ? -1 : left > right ? 1 : 0;
            ASSERT_EQ((order > 0) - (order < 0), expected) << inServerOrder[left] << " | " << inServerOrder[right];
        }
}

TEST(CompareText, CountsAnAccentMoreThanCase)
{
    EXPECT_LT(CompareText("Aa", "áa"), 0);
    EXPECT_LT(CompareText("acao", "ação"), 0);
    EXPECT_LT(CompareText("ação", "Ação"), 0);
    EXPECT_LT(CompareText("Ação", "acaso"), 0);
    EXPECT_LT(CompareText("cote", "coté"), 0);
}

TEST(CompareText, HoldsOnlyTheSameTextsForEqual)
{
    EXPECT_NE(CompareText("á", "a\u0301"), 0);
    EXPECT_NE(CompareText("a", "a\x01"), 0);
    EXPECT_NE(CompareText("a", "a "), 0);
    EXPECT_EQ(CompareText("ação", "ação"), 0);
}

TEST(CompareText, IsATotalOrderOfAnyBytes)
{
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::string alphabet = "aAbB -'\xC3\xA1\xA7\xC2\xE2\x82\xAC\xFF\x01";
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 5);
    Texts texts(300);
    for (auto& text : texts)
        for (int count = length(random); count > 0; --count)
            text += alphabet[letter(random)];

    std::ranges::sort(texts, [](const auto& left, const auto& right) { return CompareText(left, right) < 0; });

    for (std::size_t left = 0; left < texts.size(); ++left)
        for (std::size_t right = left; right < texts.size(); ++right) {
            const bool same = texts[left] == texts[right];
            ASSERT_EQ(CompareText(texts[left], texts[right]) < 0, !same) << left << " " << right;
            ASSERT_EQ(CompareText(texts[right], texts[left]) > 0, !same) << left << " " << right;
        }
}

} // namespace
} // namespace alinhavo
