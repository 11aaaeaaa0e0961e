#pragma once

#include "platform/database/TDialect.h"

namespace alinhavo {

/// Firebird 3. Companies share the file: a table of company "02" is FACCAO_02, one of company "01" plain FACCAO.
class TFirebirdDialect final : public TDialect {
public:
    using TDialect::TDialect;

    /// Texts are VARCHAR in every place, so that none is filled up with blanks.
    std::string Literal(const TValue& value) const override;
    std::string ColumnType(const TColumnDecl& column) const override;
    std::string CreateIndex(const TTableDecl& table, const TIndexDecl& index) const override;
    std::string LocalConstraint(const TTableDecl& table, std::string_view constraint) const override;
    std::string ExistingColumns() const override;
    std::string ExistingConstraints() const override;
    std::vector<std::string> StatisticsCommands(const std::set<std::string>& constraints) const override;

protected:
    std::string CompanyTable(std::string_view table) const override;
    std::string GlobalTable(std::string_view table) const override;
    std::string Placeholder(std::size_t number) const override;
    std::string Today() const override;
    std::string Now() const override;
    std::string_view StartingWith() const override;
    std::string_view NullsOrder(bool descending) const override;
    /// The engine would walk through the whole index of the key, and look each row up in what the filter found.
    std::string_view SortedKey() const override { return " + 0"; }
    std::string List(const TListAggregate& list, std::size_t number) const override;

private:
    std::string CompanyEnding() const;
};

} // namespace alinhavo
