#include "platform/services/TPreferences.h"

namespace alinhavo {

std::optional<std::string> TPreferences::Read(std::string_view user, std::string_view key)
{
    const std::lock_guard lock(mutex_);
    const auto found
        = database_.Open(TStatement("SELECT VALOR FROM {PREFERENCIA} WHERE USUARIO = ? AND CHAVE = ?", user, key));
    if (found.RowCount() == 0)
        return std::nullopt;
    return found.Column(0).Value(0).AsString();
}

std::map<std::string, std::string> TPreferences::ReadAll(std::string_view user, std::string_view beginning)
{
    const std::lock_guard lock(mutex_);
    const auto found = database_.Open(TStatement("SELECT CHAVE, VALOR FROM {PREFERENCIA} WHERE USUARIO = ?", user));
    std::map<std::string, std::string> all;
    for (std::size_t row = 0; row < found.RowCount(); ++row) {
        const auto key = found.Column(0).Text(row);
        if (key.starts_with(beginning))
            all.emplace(key.substr(beginning.size()), found.Column(1).Value(row).AsString());
    }
    return all;
}

void TPreferences::Write(std::string_view user, std::string_view key, std::string_view value)
{
    Commit([&] {
        if (!Update(user, key, value))
            Insert(user, key, value);
    });
}

void TPreferences::Remove(std::string_view user, std::string_view key)
{
    Commit(
        [&] { database_.ExecSQL(TStatement("DELETE FROM {PREFERENCIA} WHERE USUARIO = ? AND CHAVE = ?", user, key)); });
}

void TPreferences::Commit(const std::function<void()>& write)
{
    const std::lock_guard lock(mutex_);
    try {
        write();
        database_.CommitRetaining();
    } catch (...) {
        database_.RollbackRetaining();
        throw;
    }
}

bool TPreferences::Update(std::string_view user, std::string_view key, std::string_view value)
{
    return database_.ExecSQL(
               TStatement("UPDATE {PREFERENCIA} SET VALOR = ? WHERE USUARIO = ? AND CHAVE = ?", value, user, key))
        > 0;
}

/// Another process may have written the key in between: then it is there to be updated.
void TPreferences::Insert(std::string_view user, std::string_view key, std::string_view value)
{
    try {
        database_.ExecSQL(
            TStatement("INSERT INTO {PREFERENCIA} (USUARIO, CHAVE, VALOR) VALUES (?, ?, ?)", user, key, value));
    } catch (const EDatabaseError& error) {
        if (error.Kind() != TDatabaseErrorKind::Duplicate)
            throw;
        Update(user, key, value);
    }
}

} // namespace alinhavo
