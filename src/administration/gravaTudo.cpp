#include "administration/gravaTudo.h"

#include "host/TOrvForm.h"

namespace alinhavo {

void GravaTudo(TOrvForm& tela, const std::function<void()>& grava)
{
    try {
        grava();
        tela.CommitRetaining();
    } catch (...) {
        tela.RollbackRetaining();
        throw;
    }
}

} // namespace alinhavo
