#include "app/tableOfCommand.h"

#include "platform/database/OpenDatabase.h"

#include <stdexcept>

namespace alinhavo {

const TTableDecl& TableOfCommand(const std::string& name)
{
    const auto* table = FindTable(name);
    if (table)
        return *table;
    std::string names;
    for (const TTableDecl& one : Tables()) {
        if (one.keeper == TKeeper::Person || one.keeper == TKeeper::Screen)
            names.append(names.empty() ? "" : ", ").append(one.name);
    }
    throw std::runtime_error("não há a tabela \"" + name + "\". As que aceitam importação são: " + names + ".");
}

std::unique_ptr<TSqlDatabase> OpenForCommand(const std::string& text, const std::string& company)
{
    const auto address = TDatabaseAddress::Parse(text);
    TDatabaseOptions options;
    options.company = company;
    try {
        if (!DatabaseExists(address, options))
            throw std::runtime_error("não existe o banco " + address.Text() + ".");
        return OpenDatabase(address, options);
    } catch (const EDatabaseError& error) {
        if (!address.IsEmbedded() || error.Kind() != TDatabaseErrorKind::Connection)
            throw;
        throw std::runtime_error(std::string(error.what())
            + " Se é o alinhavo servir que o está usando, faça isto pela tela \"Importar e exportar tabelas\", ou pare "
              "o "
              "servidor e repita o comando.");
    }
}

} // namespace alinhavo
