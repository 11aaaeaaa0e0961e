#pragma once

#include <string>
#include <string_view>

namespace alinhavo {

/// The number with zeros ahead, `width` digits.
std::string Code(int number, int width);

/// The last digit of an EAN 13 or DUN 14 code, for the digits before it.
char EanCheckDigit(std::string_view digits);
/// "789" for Brazil, the maker's four digits, five of the item and the check digit.
std::string Ean13(int item);

/// A CNPJ with its two check digits, written "12.345.678/0001-95". `root` has up to eight digits.
std::string Cnpj(int root);

} // namespace alinhavo
