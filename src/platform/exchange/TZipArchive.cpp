#include "platform/exchange/TZipArchive.h"

#include "platform/exchange/EExchange.h"

#include <array>
#include <zip.h>

namespace alinhavo {
namespace {

struct TClosePart {
    void operator()(zip_file_t* part) const { zip_fclose(part); }
};

[[noreturn]] void RefuseDamaged() { throw EExchange("A planilha está danificada, ou não é um arquivo XLSX."); }

} // namespace

void TZipArchive::TClose::operator()(zip* archive) const { zip_discard(archive); }

TZipArchive::TZipArchive(const std::filesystem::path& file, std::size_t limit)
    : archive_(zip_open(file.c_str(), ZIP_RDONLY, nullptr))
    , left_(limit)
{
    if (!archive_)
        RefuseDamaged();
}

bool TZipArchive::Has(const std::string& part) const { return zip_name_locate(archive_.get(), part.c_str(), 0) >= 0; }

void TZipArchive::Read(const std::string& part, const std::function<void(std::string_view)>& take)
{
    const std::unique_ptr<zip_file_t, TClosePart> opened(zip_fopen(archive_.get(), part.c_str(), 0));
    if (!opened)
        RefuseDamaged();
    std::array<char, 65536> buffer;
    for (;;) {
        const auto count = zip_fread(opened.get(), buffer.data(), buffer.size());
        if (count < 0)
            RefuseDamaged();
        if (count == 0)
            return;
        if (static_cast<std::size_t>(count) > left_)
            throw EExchange("A planilha é grande demais depois de descompactada.");
        left_ -= static_cast<std::size_t>(count);
        take({buffer.data(), static_cast<std::size_t>(count)});
    }
}

} // namespace alinhavo
