#pragma once

#include "host/TTableDecl.h"

/// The declarations by subject; each function gives the tables of one file.
namespace alinhavo::tables {

std::span<const TTableDecl> Finance(); ///< accounts payable and what classifies them
std::span<const TTableDecl> Invoices(); ///< fiscal notes sent and received
std::span<const TTableDecl> Materials(); ///< raw material and how products consume it
std::span<const TTableDecl> Movement(); ///< where pieces stand, what moved, what the floor did with them
std::span<const TTableDecl> Orders(); ///< production orders and the sales orders that they serve
std::span<const TTableDecl> Partners(); ///< subcontractors, customers, suppliers and who works for them
std::span<const TTableDecl> Prices(); ///< what subcontractors are paid and products are sold for
std::span<const TTableDecl> Products(); ///< the product, its colours, sizes, prints and classes
std::span<const TTableDecl> Quality(); ///< defects, inspections and what they measure
std::span<const TTableDecl> Sectors(); ///< sectors and the flows that lead through them
std::span<const TTableDecl> Stock(); ///< stock, its history, and what a posting names
std::span<const TTableDecl> System(); ///< companies, users, rights, parameters, log, mail

} // namespace alinhavo::tables
