#pragma once

#include "host/TOrvDatabase.h"
#include "host/TOrvEmail.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Mail that waits to be sent (EMAIL_SAIDA, its text in pieces in EMAIL_TEXTO).
class TOutbox final : public TOrvEmail {
public:
    TOutbox(TOrvDatabase& database, std::string userCode)
        : database_(database)
        , user_(std::move(userCode))
    {
    }

    void NovoEMail() override;
    void SalvaEMail() override;

    /// The text in pieces that a column holds. None ends with a blank, which a column would lose; a run of blanks longer
    /// than a piece is shortened, which HTML does not show.
    static std::vector<std::string> Pieces(std::string_view text);

private:
    TOrvDatabase& database_;
    std::string user_;
};

} // namespace alinhavo
