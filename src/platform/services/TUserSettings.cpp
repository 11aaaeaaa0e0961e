#include "platform/services/TUserSettings.h"

namespace alinhavo {
namespace {

std::string KeyOf(std::string_view section, std::string_view key)
{
    return std::string(section) + "." + std::string(key);
}

} // namespace

std::string TUserSettings::Read(std::string_view section, std::string_view key, std::string_view otherwise)
{
    const auto found = preferences_.Open(
        TStatement("SELECT VALOR FROM {PREFERENCIA} WHERE USUARIO = ? AND CHAVE = ?", user_, KeyOf(section, key)));
    return found.RowCount() == 0 ? std::string(otherwise) : found.Column(0).Value(0).AsString();
}

void TUserSettings::Write(std::string_view section, std::string_view key, std::string_view value)
{
    const auto name = KeyOf(section, key);
    try {
        if (!Update(name, value))
            Insert(name, value);
        preferences_.CommitRetaining();
    } catch (...) {
        preferences_.RollbackRetaining();
        throw;
    }
}

bool TUserSettings::Update(const std::string& key, std::string_view value)
{
    return preferences_.ExecSQL(
               TStatement("UPDATE {PREFERENCIA} SET VALOR = ? WHERE USUARIO = ? AND CHAVE = ?", value, user_, key))
        > 0;
}

/// Another session of the same user may have written the key in between: then it is there to be updated.
void TUserSettings::Insert(const std::string& key, std::string_view value)
{
    try {
        preferences_.ExecSQL(
            TStatement("INSERT INTO {PREFERENCIA} (USUARIO, CHAVE, VALOR) VALUES (?, ?, ?)", user_, key, value));
    } catch (const EDatabaseError& error) {
        if (error.Kind() != TDatabaseErrorKind::Duplicate)
            throw;
        Update(key, value);
    }
}

} // namespace alinhavo
