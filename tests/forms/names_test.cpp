#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>

namespace alinhavo {
namespace {

std::string ReadFile(const std::filesystem::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

/// Members of the kind `TEdit edtX {parent, "edtX" …}`: how many there are; those whose literal is another.
int CompareNames(const std::string& source, std::vector<std::string>& different)
{
    static const std::regex member(R"(\n\s+T\w+\s+(\w+)\s*\{\s*\*?\w+,\s*"(\w+)\")");
    int count = 0;
    for (std::sregex_iterator match(source.begin(), source.end(), member), end; match != end; ++match, ++count)
        if ((*match)[1] != (*match)[2])
            different.push_back((*match)[1].str() + " is named " + (*match)[2].str());
    return count;
}

bool IsScreen(const std::filesystem::path& path)
{
    const auto name = path.filename().string();
    return path.extension() == ".h" && (name.starts_with("Tfm") || name.starts_with("TFm"));
}

TEST(NamesOfControls, AreThoseOfTheirMembers)
{
    const std::filesystem::path root = ALINHAVO_SOURCE_DIR;
    std::vector<std::string> different;
    int count = 0;
    for (const auto* folder : {"src", "tests/forms"})
        for (const auto& file : std::filesystem::recursive_directory_iterator(root / folder))
            if (IsScreen(file.path()))
                count += CompareNames(ReadFile(file.path()), different);
    EXPECT_GT(count, 20);
    EXPECT_EQ(different, std::vector<std::string>{});
}

TEST(NamesOfControls, ThatDifferAreFound)
{
    std::vector<std::string> different;
    EXPECT_EQ(
        CompareNames("\n    TEdit edtA {*this, \"edtB\"};\n    TEdit edtC {pnl,\n        \"edtC\"};", different), 2);
    EXPECT_EQ(different, (std::vector<std::string>{"edtA is named edtB"}));
}

} // namespace
} // namespace alinhavo
