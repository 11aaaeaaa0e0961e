#include "platform/services/TInventory.h"

#include "forms/TDataSet.h"

namespace alinhavo {
namespace {

TValue Cell(const TDataSet& rows, std::string_view column)
{
    return column.empty() ? TValue() : rows.FieldByName(column).Value();
}

/// Codes are written as texts, so that an empty one is found again as it was written.
std::string Code(const TDataSet& rows, std::string_view column) { return Cell(rows, column).AsString(); }

TStatement Removal(const TColunasInventario& columns, const TDataSet& rows)
{
    return TStatement(R"(
        DELETE FROM {INVENTARIO}
         WHERE DATA = CURRENT_DATE AND CODIGO = ? AND COR = ? AND TAM = ? AND NUMERO = ? AND PARTE = ? AND CODCLI = ?)",
        Code(rows, columns.produto), Code(rows, columns.cor), Code(rows, columns.tam), Code(rows, columns.numero),
        Code(rows, columns.parte), Code(rows, columns.codcli));
}

TStatement Line(const TColunasInventario& columns, const TDataSet& rows, const std::string& user)
{
    return TStatement(R"(
        INSERT INTO {INVENTARIO} (DATA, CODIGO, COR, TAM, NUMERO, LOTE, PARTE, DESCRICAO, UNIDADE, CODCLI, QUANTIDADE,
                                  PRECO, POSSE, USUARIO, DATA_HORA)
        VALUES (CURRENT_DATE, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, CURRENT_TIMESTAMP))",
        Code(rows, columns.produto), Code(rows, columns.cor), Code(rows, columns.tam), Code(rows, columns.numero),
        Code(rows, columns.lote), Code(rows, columns.parte), Cell(rows, columns.descricao), Cell(rows, columns.unidade),
        Code(rows, columns.codcli), Cell(rows, columns.quantidade), Cell(rows, columns.preco),
        Cell(rows, columns.posse), user);
}

} // namespace

void TInventory::Write(const TColunasInventario& columns, TDataSet& rows)
{
    rows.ForEach([&] { database_.ExecSQL(Removal(columns, rows)); });
    rows.ForEach([&] {
        if (Cell(rows, columns.quantidade).AsFloat() != 0)
            database_.ExecSQL(Line(columns, rows, user_));
    });
    database_.CommitRetaining();
}

} // namespace alinhavo
