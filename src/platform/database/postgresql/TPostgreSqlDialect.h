#pragma once

#include "platform/database/TDialect.h"

namespace alinhavo {

/// PostgreSQL 15. Each company has a schema: the tables of company "02" are emp02.faccao; the global ones are in public.
class TPostgreSqlDialect final : public TDialect {
public:
    using TDialect::TDialect;

    std::string Literal(const TValue& value) const override;
    std::string ColumnType(const TColumnDecl& column) const override;
    std::string CreateIndex(const TTableDecl& table, const TIndexDecl& index) const override;
    std::string LocalConstraint(const TTableDecl& table, std::string_view constraint) const override;
    std::vector<std::string> Preparations() const override;
    std::string ExistingColumns() const override;
    std::string ExistingConstraints() const override;
    std::vector<std::string> StatisticsCommands(const std::set<std::string>& constraints) const override;

    /// The company's schema.
    std::string Schema() const;

protected:
    std::string CompanyTable(std::string_view table) const override;
    std::string GlobalTable(std::string_view table) const override;
    std::string Placeholder(std::size_t number) const override;
    std::string Today() const override;
    std::string Now() const override;
    std::string_view StartingWith() const override;
    std::string_view NullsOrder(bool descending) const override;
    std::string_view SortedKey() const override { return {}; }
    std::string List(const TListAggregate& list, std::size_t number) const override;
};

} // namespace alinhavo
