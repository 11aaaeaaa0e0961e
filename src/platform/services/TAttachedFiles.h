#pragma once

#include "host/TFuncoes.h"
#include "host/TOrvDatabase.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace alinhavo {

/// Pictures of a code: where the table ARQUIVO says, else by the folder of their kind and the code's name
/// ("arquivos/produtos/CAM01.jpg"). Nothing outside the root of the shared files is ever answered.
class TAttachedFiles {
public:
    TAttachedFiles(TOrvDatabase& database, const std::filesystem::path& root);

    /// Full path; "" when there is none, or it would lie outside the root.
    std::string Find(std::string_view code, TTipo kind);
    /// Where picking files begins.
    std::filesystem::path Folder() const { return root_ / "arquivos"; }

private:
    std::string Registered(std::string_view code, TTipo kind);
    std::string ByName(std::string_view code, TTipo kind) const;
    std::string Inside(const std::filesystem::path& file) const;

    TOrvDatabase& database_;
    std::filesystem::path root_;
};

} // namespace alinhavo
