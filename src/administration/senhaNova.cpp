#include "administration/senhaNova.h"

#include "forms/text.h"

namespace alinhavo {

std::string RecusaDaSenha(const TSenhaNova& nova)
{
    if (nova.senha.empty())
        return "Informe a nova senha.";
    if (Length(nova.senha) < MenorSenha)
        return "A senha precisa ter pelo menos " + std::to_string(MenorSenha) + " caracteres.";
    if (Length(nova.senha) > MaiorSenha)
        return "A senha pode ter no máximo " + std::to_string(MaiorSenha) + " caracteres.";
    if (SameText(Trim(nova.senha), nova.codigo) || SameText(Trim(nova.senha), nova.nome))
        return "A senha não pode ser o nome nem o código do usuário.";
    if (nova.senha != nova.repetida)
        return "A nova senha e a sua repetição são diferentes.";
    return {};
}

} // namespace alinhavo
