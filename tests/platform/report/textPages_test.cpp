#include "platform/report/textPages.h"

#include <gtest/gtest.h>
#include <string>

namespace alinhavo {
namespace {

TEST(TextPages, stand_one_on_a_sheet_as_they_are)
{
    const auto html = TextPages("\nFicha <1>\n  a\f2\n\f");
    EXPECT_NE(html.find("<pre>\n\nFicha &lt;1&gt;\n  a</pre><pre>2\n</pre></body>"), std::string::npos) << html;
    EXPECT_NE(html.find("Content-Security-Policy"), std::string::npos);
    EXPECT_NE(html.find("size:A4 portrait"), std::string::npos);
    EXPECT_NE(html.find("font:11.00pt/"), std::string::npos) << html;
}

TEST(TextPages, become_smaller_where_a_line_or_a_page_is_long)
{
    EXPECT_NE(TextPages(std::string(132, 'x')).find("size:A4 landscape"), std::string::npos);
    EXPECT_NE(TextPages(std::string(132, 'x')).find("font:9.89pt/"), std::string::npos);
    std::string page;
    for (int line = 0; line < 66; ++line)
        page += "x\n";
    EXPECT_NE(TextPages(page).find("font:10.35pt/"), std::string::npos) << TextPages(page);
}

TEST(TextPages, an_endless_one_is_broken_by_the_paper)
{
    std::string page;
    for (int line = 0; line < 1000; ++line)
        page += "x\n";
    EXPECT_NE(TextPages(page).find("font:11.00pt/"), std::string::npos);
}

} // namespace
} // namespace alinhavo
