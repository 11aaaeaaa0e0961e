#include "platform/services/TStock.h"

#include "platform/services/singleValue.h"

#include <cmath>
#include <stdexcept>

namespace alinhavo {
namespace {

/// A blank part of the key may stand in the table as null or as an empty text; the others are found by the index.
void AddKey(TStatement& sql, std::string_view column, std::string_view value)
{
    if (value.empty())
        sql.Add(" AND COALESCE(?, '') = ''", TName(column));
    else
        sql.Add(" AND ? = ?", TName(column), value);
}

double Change(const TEstoque& posting) { return posting.Saida ? -posting.Quantidade : posting.Quantidade; }

} // namespace

std::string TStock::CodigoTipoMovEstoque(TTipoMovimentoEstoque kind)
{
    return SingleValue(
        database_, TStatement("SELECT MIN(CODIGO) FROM {TABBAI} WHERE TIPO_ESTOQUE = ?", static_cast<int>(kind)))
        .AsString();
}

void TStock::PostProduct(const TEstoque& posting)
{
    CheckKnown("PRODUTO", posting.Codigo, "Produto");
    Check(posting);
    const auto row = ProductRow(posting);
    if (row.IsNull())
        database_.ExecSQL(TStatement(R"(
            INSERT INTO {PA_ITEN} (CODIGO, COR, TAM, TIPO, DEPOSITO, LOTE, QUANTIDADE) VALUES (?, ?, ?, ?, ?, ?, ?))",
            posting.Codigo, posting.Cor, posting.Tam, posting.Qualidade, posting.Deposito, posting.Lote,
            Change(posting)));
    else
        database_.ExecSQL(TStatement("UPDATE {PA_ITEN} SET QUANTIDADE = COALESCE(QUANTIDADE, 0) + CAST(? AS DOUBLE "
                                     "PRECISION) WHERE IDENTIFICADOR = ?",
            Change(posting), row));
    WriteHistory(TName("PA_MOV"), posting);
}

void TStock::PostMaterial(const TEstoque& posting)
{
    CheckKnown("MATERIAL", posting.Codigo, "Material");
    Check(posting);
    const auto row = MaterialRow(posting);
    const bool priced = !posting.Saida && posting.Custo > 0;
    if (row.IsNull())
        database_.ExecSQL(TStatement(R"(
            INSERT INTO {MAT_ITEN} (CODIGO, COR, DEPOSITO, LOTE, QUALIDADE, QTDE, PRECO_MED) VALUES (?, ?, ?, ?, ?, ?, ?))",
            posting.Codigo, posting.Cor, posting.Deposito, posting.Lote, posting.Qualidade, Change(posting),
            priced ? TValue(posting.Custo) : TValue()));
    else if (priced)
        database_.ExecSQL(TStatement(R"(
            UPDATE {MAT_ITEN}
               SET PRECO_MED = CASE WHEN QTDE > 0 AND PRECO_MED > 0
                       THEN (QTDE * PRECO_MED + CAST(? AS DOUBLE PRECISION)) / (QTDE + CAST(? AS DOUBLE PRECISION))
                       ELSE CAST(? AS DOUBLE PRECISION) END,
                   QTDE = COALESCE(QTDE, 0) + CAST(? AS DOUBLE PRECISION)
             WHERE IDENTIFICADOR = ?)",
            posting.Quantidade * posting.Custo, posting.Quantidade, posting.Custo, posting.Quantidade, row));
    else
        database_.ExecSQL(TStatement(
            "UPDATE {MAT_ITEN} SET QTDE = COALESCE(QTDE, 0) + CAST(? AS DOUBLE PRECISION) WHERE IDENTIFICADOR = ?",
            Change(posting), row));
    WriteHistory(TName("MAT_MOV"), posting);
}

void TStock::Check(const TEstoque& posting)
{
    CheckKnown("DEPOSITO", posting.Deposito, "Depósito");
    CheckKnown("TABBAI", posting.TipoMovimento, "Tipo de movimento de estoque");
    if (!(posting.Quantidade > 0) || !std::isfinite(posting.Quantidade))
        throw std::runtime_error("A quantidade do movimento de estoque deve ser maior que zero.");
}

void TStock::CheckKnown(std::string_view table, std::string_view code, std::string_view what)
{
    const TStatement sql("SELECT 1 FROM {?} WHERE CODIGO = ?", TName(table), code);
    if (SingleValue(database_, sql).IsNull())
        throw std::runtime_error(std::string(what) + " \"" + std::string(code) + "\" não cadastrado.");
}

TValue TStock::ProductRow(const TEstoque& posting)
{
    TStatement sql("SELECT MIN(IDENTIFICADOR) FROM {PA_ITEN} WHERE CODIGO = ?", posting.Codigo);
    AddKey(sql, "COR", posting.Cor);
    AddKey(sql, "TAM", posting.Tam);
    AddKey(sql, "DEPOSITO", posting.Deposito);
    AddKey(sql, "LOTE", posting.Lote);
    AddKey(sql, "TIPO", posting.Qualidade);
    return SingleValue(database_, sql);
}

TValue TStock::MaterialRow(const TEstoque& posting)
{
    TStatement sql("SELECT MIN(IDENTIFICADOR) FROM {MAT_ITEN} WHERE CODIGO = ?", posting.Codigo);
    AddKey(sql, "COR", posting.Cor);
    AddKey(sql, "DEPOSITO", posting.Deposito);
    AddKey(sql, "LOTE", posting.Lote);
    AddKey(sql, "QUALIDADE", posting.Qualidade);
    return SingleValue(database_, sql);
}

void TStock::WriteHistory(const TName& table, const TEstoque& posting)
{
    database_.ExecSQL(TStatement(R"(
        INSERT INTO {?} (CODIGO, COR, TAM, PARTE, LOTE, DEPOSITO, QUALIDADE, DOCUMENTO, ORIGEM, TIPO_MOV, SAIDA,
                         QUANTIDADE, CUSTO, DATA, OBSERVACAO, USUARIO, DATA_HORA)
        VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, COALESCE(CAST(? AS DATE), CURRENT_DATE), ?, ?, CURRENT_TIMESTAMP))",
        table, posting.Codigo, posting.Cor, posting.Tam, posting.Parte, posting.Lote, posting.Deposito,
        posting.Qualidade, posting.Documento, posting.Origem, posting.TipoMovimento, posting.Saida ? "S" : "N",
        posting.Quantidade, posting.Custo > 0 ? TValue(posting.Custo) : TValue(), posting.Data.Date(),
        posting.Observacao, user_));
}

} // namespace alinhavo
