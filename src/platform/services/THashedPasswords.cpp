#include "platform/services/THashedPasswords.h"

#include <sodium.h>
#include <stdexcept>

namespace alinhavo {

THashedPasswords::THashedPasswords()
{
    if (sodium_init() < 0)
        throw std::runtime_error("a biblioteca de criptografia não iniciou.");
}

bool THashedPasswords::Matches(std::string_view stored, std::string_view password) const
{
    const std::string hash(stored);
    return crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
}

std::string THashedPasswords::Hash(std::string_view password) const
{
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(hash, password.data(), password.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
            crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13)
        != 0)
        throw std::runtime_error("falta memória para gravar a senha.");
    return hash;
}

} // namespace alinhavo
