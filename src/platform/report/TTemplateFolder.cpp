#include "platform/report/TTemplateFolder.h"

#include "forms/text.h"
#include "platform/report/ETemplate.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace alinhavo {
namespace {

constexpr std::uintmax_t LargestTemplate = 1 << 20;

bool IsNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

} // namespace

std::string TemplateFile(std::string_view name) { return std::string(name) + ".prt"; }

std::string TTemplateFolder::Read(std::string_view name) const
{
    const auto path = Find(name);
    if (std::filesystem::file_size(path) > LargestTemplate)
        throw ETemplate({TemplateFile(name)}, {}, "o arquivo é grande demais.");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw ETemplate({TemplateFile(name)}, {}, "o arquivo não pode ser lido.");
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!ValidUtf8(text))
        throw ETemplate({TemplateFile(name)}, {}, "o arquivo não está em UTF-8.");
    return text;
}

std::filesystem::path TTemplateFolder::Find(std::string_view name) const
{
    if (name.empty() || !std::ranges::all_of(name, IsNameCharacter))
        throw ETemplate({TemplateFile(name)}, {}, "o nome do modelo só pode ter letras, algarismos, \"_\" e \"-\".");
    for (const auto& folder : folders_) {
        auto path = folder / TemplateFile(name);
        if (std::filesystem::is_regular_file(path))
            return path;
    }
    throw ETemplate({TemplateFile(name)}, {}, "o arquivo não foi encontrado.");
}

} // namespace alinhavo
