#include "platform/report/TWorkFolder.h"

#include <cstdlib>
#include <stdexcept>

namespace alinhavo {

TWorkFolder::TWorkFolder()
{
    auto pattern = (std::filesystem::temp_directory_path() / "alinhavo-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("Não foi possível criar uma pasta temporária.");
    path_ = pattern;
}

TWorkFolder::~TWorkFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

} // namespace alinhavo
