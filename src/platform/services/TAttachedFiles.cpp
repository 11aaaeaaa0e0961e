#include "platform/services/TAttachedFiles.h"

#include "forms/text.h"
#include "platform/services/singleValue.h"

#include <algorithm>

namespace alinhavo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view extensions[] = {".jpg", ".jpeg", ".png", ".webp", ".gif"};

std::string_view FolderOf(TTipo kind)
{
    switch (kind) {
    case TTipo::Estampa:
        return "estampas";
    case TTipo::Medidas:
        return "medidas";
    case TTipo::Produto:
        return "produtos";
    case TTipo::Produto2:
        return "produtos2";
    }
    return {};
}

} // namespace

TAttachedFiles::TAttachedFiles(TOrvDatabase& database, const fs::path& root)
    : database_(database)
    , root_(fs::weakly_canonical(root))
{
    if (!root_.has_filename())
        root_ = root_.parent_path();
}

std::string TAttachedFiles::Find(std::string_view code, TTipo kind)
{
    if (code.empty())
        return {};
    auto file = Registered(code, kind);
    return file.empty() ? ByName(code, kind) : file;
}

std::string TAttachedFiles::Registered(std::string_view code, TTipo kind)
{
    const auto path = SingleValue(database_,
        TStatement("SELECT CAMINHO FROM {ARQUIVO} WHERE CODIGO = ? AND TIPO = ?", code, static_cast<int>(kind)))
                          .AsString();
    return path.empty() ? std::string() : Inside(Replace(path, "\\", "/"));
}

std::string TAttachedFiles::ByName(std::string_view code, TTipo kind) const
{
    if (code.find_first_of("/\\") != std::string_view::npos)
        return {};
    for (const auto extension : extensions) {
        auto file = Inside(Folder() / FolderOf(kind) / (std::string(code) + std::string(extension)));
        if (!file.empty())
            return file;
    }
    return {};
}

/// The file, with its links followed, when it is there and stands below the root. A path that begins at the root of the
/// shared files ("/arquivos/x.jpg") is taken as beginning there.
std::string TAttachedFiles::Inside(const fs::path& file) const
{
    std::error_code failure;
    auto full = fs::weakly_canonical(file, failure);
    const auto isBelow = [this](const fs::path& path) { return std::ranges::mismatch(root_, path).in1 == root_.end(); };
    if (!file.is_absolute() || failure || !isBelow(full))
        full = fs::weakly_canonical(root_ / file.relative_path(), failure);
    return !failure && isBelow(full) && fs::is_regular_file(full, failure) ? full.string() : std::string();
}

} // namespace alinhavo
