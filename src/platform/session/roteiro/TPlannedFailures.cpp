#include "platform/session/roteiro/TPlannedFailures.h"

#include "forms/text.h"
#include "host/EDatabaseError.h"

#include <string>
#include <string_view>
#include <utility>

namespace alinhavo::roteiro {
namespace {

/// As a person would write it: without marks of tables, in upper case, with one blank for each run of them.
std::string Plain(std::string_view sql)
{
    std::string plain;
    for (const char character : sql) {
        const bool blank = character == ' ' || character == '\n' || character == '\r' || character == '\t';
        if (character == '{' || character == '}' || (blank && (plain.empty() || plain.back() == ' ')))
            continue;
        plain += blank ? ' ' : character;
    }
    return UpperCase(TrimRight(plain));
}

} // namespace

void TPlannedFailures::Plan(TPlannedFailure failure)
{
    failure.prefix = Plain(failure.prefix);
    planned_.push_back(std::move(failure));
}

void TPlannedFailures::Count(const TStatement& statement)
{
    if (planned_.empty())
        return;
    const auto sql = Plain(statement.Text());
    for (auto failure = planned_.begin(); failure != planned_.end(); ++failure) {
        if (!sql.starts_with(failure->prefix) || --failure->count > 0)
            continue;
        const auto text = failure->text;
        planned_.erase(failure);
        throw EDatabaseError(TDatabaseErrorKind::Other, text);
    }
}

} // namespace alinhavo::roteiro
