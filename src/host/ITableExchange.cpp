#include "host/ITableExchange.h"

namespace alinhavo {
namespace {

std::string Counted(int count, const std::string& one, const std::string& many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace

bool TakesImport(const TTableDecl& table) { return table.keeper == TKeeper::Person || table.keeper == TKeeper::Screen; }

std::string Summary(const TImportCounts& counts)
{
    auto text = Counted(counts.Read(), "linha", "linhas") + ": ";
    const auto add = [&text](int count, const std::string& one, const std::string& many) {
        if (count > 0)
            text += Counted(count, one, many) + ", ";
    };
    add(counts.added, "nova", "novas");
    add(counts.changed, "alterada", "alteradas");
    add(counts.same, "igual", "iguais");
    add(counts.skipped, "ignorada", "ignoradas");
    return text + (counts.wrong == 0 ? "nenhuma errada" : Counted(counts.wrong, "errada", "erradas"));
}

std::string ImportLogText(const std::string& fileName, const TImportCounts& counts)
{
    return "ARQUIVO " + fileName + ", " + Summary(counts);
}

} // namespace alinhavo
