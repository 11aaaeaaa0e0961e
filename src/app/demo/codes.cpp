#include "app/demo/codes.h"

namespace alinhavo {
namespace {

/// Weights 2 to 9, counted from the right and starting again at 2.
char CnpjDigit(std::string_view digits)
{
    int sum = 0;
    int weight = 2;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        sum += (*digit - '0') * weight;
        weight = weight == 9 ? 2 : weight + 1;
    }
    const int rest = sum % 11;
    return static_cast<char>('0' + (rest < 2 ? 0 : 11 - rest));
}

} // namespace

std::string Code(int number, int width)
{
    std::string text = std::to_string(number);
    const auto digits = static_cast<std::size_t>(width);
    if (text.size() < digits)
        text.insert(0, digits - text.size(), '0');
    return text;
}

char EanCheckDigit(std::string_view digits)
{
    int sum = 0;
    int weight = 3;
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        sum += (*digit - '0') * weight;
        weight = 4 - weight;
    }
    return static_cast<char>('0' + (10 - sum % 10) % 10);
}

std::string Ean13(int item)
{
    std::string code = "7890412" + Code(item, 5);
    code += EanCheckDigit(code);
    return code;
}

std::string Cnpj(int root)
{
    std::string digits = Code(root, 8) + "0001";
    digits += CnpjDigit(digits);
    digits += CnpjDigit(digits);
    return digits.substr(0, 2) + "." + digits.substr(2, 3) + "." + digits.substr(5, 3) + "/" + digits.substr(8, 4) + "-"
        + digits.substr(12, 2);
}

} // namespace alinhavo
