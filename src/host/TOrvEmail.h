#pragma once

#include <string>

namespace alinhavo {

/// The outgoing mail of a user's session. Stored in the shared transaction; sending is the host's.
class TOrvEmail {
public:
    virtual ~TOrvEmail() = default;
    virtual void NovoEMail() = 0;
    std::string Destinatario;
    std::string Copia;
    std::string Assunto;
    std::string Corpo; ///< HTML
    /// Stores it in the outbox; std::runtime_error without a recipient.
    virtual void SalvaEMail() = 0;
};

} // namespace alinhavo
