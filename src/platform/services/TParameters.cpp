#include "platform/services/TParameters.h"

#include "platform/services/singleValue.h"

namespace alinhavo {

std::string TParameters::Value(std::string_view group, int number)
{
    return SingleValue(
        database_, TStatement("SELECT VALOR FROM {PARAMETRO} WHERE GRUPO = ? AND NUMERO = ?", group, number))
        .AsString();
}

} // namespace alinhavo
