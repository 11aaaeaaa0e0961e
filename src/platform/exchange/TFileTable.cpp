#include "platform/exchange/TFileTable.h"

#include "platform/exchange/EExchange.h"

#include <fstream>
#include <iterator>

namespace alinhavo {
namespace {

constexpr std::string_view ZipMark = "PK\x03\x04";
constexpr std::string_view OldWorkbookMark = "\xD0\xCF\x11\xE0";

std::string Bytes(const std::filesystem::path& path, const TFileLimits& limits)
{
    std::error_code failure;
    const auto size = std::filesystem::file_size(path, failure);
    std::ifstream file(path, std::ios::binary);
    if (failure || !file)
        throw EExchange("O arquivo " + path.filename().string() + " não pode ser lido.");
    if (size > limits.bytes)
        throw EExchange("O arquivo é grande demais.");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TFileTable ReadTableFile(const std::filesystem::path& file, const TFileLimits& limits)
{
    const auto bytes = Bytes(file, limits);
    if (bytes.starts_with(ZipMark))
        return ReadWorkbook(file, limits);
    if (bytes.starts_with(OldWorkbookMark))
        throw EExchange("A planilha está num formato antigo (XLS); salve-a como XLSX ou CSV.");
    return ReadSeparatedText(bytes, limits);
}

} // namespace alinhavo
