#pragma once

#include <functional>

namespace alinhavo {

class TOrvForm;

/// Runs what writes, and commits. When it fails nothing of it stays pending, and the failure goes on to the user: half a user's
/// rights must not wait for another screen's commit.
void GravaTudo(TOrvForm& tela, const std::function<void()>& grava);

} // namespace alinhavo
