#pragma once

#include <string>
#include <string_view>

namespace alinhavo {

/// The passwords of users. What a person typed goes in and never comes out: it stands in no statement and in no log.
class TSenhas {
public:
    virtual ~TSenhas() = default;
    /// Whether it is the present password of the session's own user: empty, or why it is refused. Wrong ones slow down as at the
    /// login: for a while, which the text tells, not even the right one is looked at.
    virtual std::string Confere(std::string_view senha) = 0;
    /// Gives the user of that code another password, in the shared transaction.
    virtual void Grava(std::string_view usuario, std::string_view senha) = 0;
};

} // namespace alinhavo
