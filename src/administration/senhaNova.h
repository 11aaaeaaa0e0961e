#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace alinhavo {

inline constexpr std::size_t MenorSenha = 8; ///< characters
inline constexpr std::size_t MaiorSenha = 50; ///< characters

/// What a person typed for a new password, and whose it is to be.
struct TSenhaNova {
    std::string_view senha;
    std::string_view repetida;
    std::string_view codigo; ///< of the user
    std::string_view nome; ///< likewise
};

/// Why it cannot become a password, in the words that the user reads; empty when it can.
std::string RecusaDaSenha(const TSenhaNova& nova);

} // namespace alinhavo
