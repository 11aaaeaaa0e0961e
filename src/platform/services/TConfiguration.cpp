#include "platform/services/TConfiguration.h"

#include "forms/text.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace alinhavo {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string KeyOf(std::string_view section, std::string_view key)
{
    return LowerCase(std::string(section) + "." + std::string(key));
}

} // namespace

TConfiguration TConfiguration::Load(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    if (stream)
        text << stream.rdbuf();
    auto configuration = Parse(text.str(), file.string());
    configuration.folder_ = std::filesystem::absolute(file).parent_path();
    return configuration;
}

TConfiguration TConfiguration::Parse(std::string_view text, std::string_view fileName)
{
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    if (!ValidUtf8(text))
        throw std::runtime_error(std::string(fileName) + ": o arquivo não está em UTF-8.");

    TConfiguration configuration;
    std::string section;
    int number = 0;
    for (const auto& line : Explode(text, "\n"))
        configuration.Read(Trim(line), section, std::string(fileName) + ", linha " + std::to_string(++number));
    return configuration;
}

void TConfiguration::Read(std::string_view line, std::string& section, const std::string& place)
{
    if (line.empty() || line.front() == ';' || line.front() == '#')
        return;
    if (line.front() == '[' && line.back() == ']') {
        section = Trim(line.substr(1, line.size() - 2));
        return;
    }
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || Trim(line.substr(0, equals)).empty())
        throw std::runtime_error(place + ": esperado \"chave = valor\".");
    values_[KeyOf(section, Trim(line.substr(0, equals)))] = Trim(line.substr(equals + 1));
}

std::string TConfiguration::Value(std::string_view section, std::string_view key, std::string_view otherwise) const
{
    const auto found = values_.find(KeyOf(section, key));
    return found == values_.end() ? std::string(otherwise) : found->second;
}

std::filesystem::path TConfiguration::SharedRoot() const
{
    return std::filesystem::absolute("." / folder_ / Value("Caminho", "path")).lexically_normal();
}

} // namespace alinhavo
