#pragma once

#include <array>
#include <string_view>

/// Under what a person looks for a table.
namespace alinhavo::group {

inline constexpr std::string_view products = "Produtos";
inline constexpr std::string_view colours = "Cores e tamanhos";
inline constexpr std::string_view partners = "Parceiros";
inline constexpr std::string_view orders = "Pedidos e ordens";
inline constexpr std::string_view sectors = "Setores e fluxos";
inline constexpr std::string_view production = "Produção";
inline constexpr std::string_view prices = "Preços";
inline constexpr std::string_view stock = "Depósitos e estoque";
inline constexpr std::string_view materials = "Materiais";
inline constexpr std::string_view quality = "Qualidade";
inline constexpr std::string_view people = "Pessoas";
inline constexpr std::string_view periods = "Períodos";
inline constexpr std::string_view invoices = "Notas fiscais";
inline constexpr std::string_view finance = "Financeiro";

/// In the order in which a factory that begins fills them.
inline constexpr std::array all{products, colours, partners, orders, sectors, production, prices, stock, materials,
    quality, people, periods, invoices, finance};

} // namespace alinhavo::group
