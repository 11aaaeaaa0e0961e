#pragma once

#include "forms/TMemTable.h"
#include "host/TOrvQuery.h"

namespace alinhavo {

/// Where an order stands: its positions in one part, each with its balance.
struct TQryConsulta final : TOrvQuery {
    using TOrvQuery::TOrvQuery;

    TStringField NUMERO{*this, "NUMERO", 6, {.title = "OF"}};
    TIntegerField MOV{*this, "MOV", {.title = "Mov."}};
    TIntegerField ORDEM{*this, "ORDEM", {.title = "Ordem"}};
    TStringField OP{*this, "OP", 3, {.title = "Setor"}};
    TStringField DESC_SETOR{*this, "DESC_SETOR", 0, {.title = "Descrição do setor"}};
    TStringField CODCLI{*this, "CODCLI", 5, {.title = "Facção"}};
    TStringField NOME{*this, "NOME", 0, {.title = "Nome"}};
    TStringField COR{*this, "COR", 6, {.title = "Cor"}};
    TStringField DESC_COR{*this, "DESC_COR", 0, {.title = "Descrição da cor"}};
    TStringField CORPARTE{*this, "CORPARTE", 0, {.title = "Cor da parte"}};
    TStringField TAM{*this, "TAM", 4, {.title = "Tam."}};
    TFloatField QT_ORIG{*this, "QT_ORIG", {.title = "Quant. Orig."}};
    TFloatField QUANT{*this, "QUANT", {.title = "Quant. Prod."}};
    TFloatField QUANT_2{*this, "QUANT_2", {.title = "Quant. Seg."}};
    TFloatField QUANT_I{*this, "QUANT_I", {.title = "Quant. Inc."}};
    TFloatField QUANT_F{*this, "QUANT_F", {.title = "Quant. Falt."}};
    TFloatField QUANT_B{*this, "QUANT_B", {.title = "Quant. Bai."}}; ///< what the history says that left
    TFloatField SALDO{*this, "SALDO", {.title = "Saldo"}};
    TDateField DATA_SAI{*this, "DATA_SAI", {.title = "Envio"}};
    TDateField DT_R{*this, "DT_R", {.title = "Prev. Retorno"}};
    TDateField DATA_RET{*this, "DATA_RET", {.title = "Retorno"}}; ///< of the last movement out of the position
    TStringField REPROCESSO{*this, "REPROCESSO", 3, {.title = "Reprocesso"}};
    TStringField CODIGO{*this, "CODIGO", 15, {.title = "Produto"}};
    TStringField CODIGO2{*this, "CODIGO2", 0, {.title = "Referência"}};
    TStringField PARTE{*this, "PARTE", 2, {.title = "Parte"}};
    TStringField PEDIDO{*this, "PEDIDO", 12, {.title = "Pedido"}};
    TStringField PERIODO{*this, "PERIODO", 6, {.title = "Período"}};
    TStringField DESC_PERIODO{*this, "DESC_PERIODO", 0, {.title = "Descrição do período"}};
    TFloatField PRECO{*this, "PRECO", {.title = "Preço"}};
    TFloatField UNITARIO{*this, "UNITARIO", {.title = "Unitário"}};
    TStringField OBSERVACAO{*this, "OBSERVACAO", 0, {.title = "Observação"}};
    TIntegerField IDENTIFICADOR{*this, "IDENTIFICADOR", {.title = "Identificador"}};
    TIntegerField ID_ANT{*this, "ID_ANT", {.title = "Veio de"}};
};

/// The sectors of the order's flow, with the totals of its positions in them.
struct TTbFluxo final : TMemTable {
    using TMemTable::TMemTable;

    TIntegerField Ordem{*this, "Ordem", {.readOnly = true}};
    TStringField Setor{*this, "Setor", 3, {.readOnly = true}};
    TStringField Descricao{*this, "Descricao", 80, {.title = "Descrição", .readOnly = true}};
    TStringField Endereco{*this, "Endereco", 30, {.title = "Endereço"}}; ///< where the pieces lie; the user's
    TFloatField Quant{*this, "Quant", {.title = "Quant.", .readOnly = true}};
    TFloatField Quant_B{*this, "Quant_B", {.title = "Quant. Bai.", .readOnly = true}};
    TFloatField Saldo{*this, "Saldo", {.readOnly = true}};
    TFloatField Reprocesso{*this, "Reprocesso", {.readOnly = true}}; ///< balance of the positions in reprocess
    TStringField Faccao{*this, "Faccao", 80, {.title = "Facção", .readOnly = true}};
    TDateField DT_Inicio{*this, "DT_Inicio", {.title = "Início", .readOnly = true}};
    TDateField DT_Fim{*this, "DT_Fim", {.title = "Fim", .readOnly = true}};
    TIntegerField Dias{*this, "Dias", {.readOnly = true}};
};

/// The movements of an order's part that can be reversed: rows of FACCAO3.
struct TQryEstorno final : TOrvQuery {
    using TOrvQuery::TOrvQuery;

    TIntegerField MOV{*this, "MOV", {.title = "Mov."}};
    TStringField PARTE{*this, "PARTE", 2, {.title = "Parte"}};
    TStringField DESC_PARTE{*this, "DESC_PARTE", 0, {.title = "Descrição da parte"}};
    TStringField SETOR{*this, "SETOR", 3, {.title = "Setor"}};
    TStringField DESC_SETOR{*this, "DESC_SETOR", 0, {.title = "Descrição do setor"}};
    TStringField CODCLI{*this, "CODCLI", 5, {.title = "Facção"}};
    TStringField NOME{*this, "NOME", 0, {.title = "Nome"}};
    TStringField COR{*this, "COR", 6, {.title = "Cor"}};
    TStringField DESC_COR{*this, "DESC_COR", 0, {.title = "Descrição da cor"}};
    TStringField TAM{*this, "TAM", 4, {.title = "Tam."}};
    TDateField DT_LAN{*this, "DT_LAN", {.title = "Data"}};
    TFloatField QT_ORIG{*this, "QT_ORIG", {.title = "Quant. Orig."}};
    TFloatField QUANT{*this, "QUANT", {.title = "Quant. Prod."}};
    TFloatField QUANT_2{*this, "QUANT_2", {.title = "Quant. Seg."}};
    TFloatField QUANT_I{*this, "QUANT_I", {.title = "Quant. Inc."}};
    TFloatField QUANT_F{*this, "QUANT_F", {.title = "Quant. Falt."}};
    TStringField NUMERO{*this, "NUMERO", 6, {.title = "OF"}};
    TStringField CODIGO{*this, "CODIGO", 15, {.title = "Produto"}};
    TStringField CODCLI_ANT{*this, "CODCLI_ANT", 5, {.title = "Destino"}};
    TStringField NOTA{*this, "NOTA", 30, {.title = "Nota"}};
    TStringField QUAL{*this, "QUAL", 2, {.title = "Qualidade"}};
    TStringField DEPOSITO{*this, "DEPOSITO", 3, {.title = "Depósito"}};
    TStringField DESC_DEPOSITO{*this, "DESC_DEPOSITO", 0, {.title = "Descrição do depósito"}};
    TStringField ESTOQUE{*this, "ESTOQUE", 1, {.title = "Estoque"}}; ///< "S" when stock was posted for the row
    TIntegerField IDENTIFICADOR{*this, "IDENTIFICADOR", {.title = "Identificador"}};
    TIntegerField ID_ANT{*this, "ID_ANT", {.title = "Saiu de"}}; ///< the position that was moved

    double Losses() const { return QUANT_2.value() + QUANT_I.value() + QUANT_F.value(); }
};

/// The way of a position's pieces, from where they came: each position leads to the one before it.
struct TTbRastrear final : TMemTable {
    using TMemTable::TMemTable;

    TIntegerField Ordem{*this, "Ordem"};
    TIntegerField Mov{*this, "Mov", {.title = "Mov."}};
    TStringField Cliente{*this, "Cliente", 5, {.title = "Facção"}};
    TStringField Nome{*this, "Nome", 80};
    TStringField Setor{*this, "Setor", 3};
    TStringField DescSetor{*this, "DescSetor", 80, {.title = "Descrição do setor"}};
    TFloatField Qtde{*this, "Qtde", {.title = "Quant."}};
    TStringField Cor{*this, "Cor", 6};
    TStringField Tam{*this, "Tam", 4, {.title = "Tam."}};
    TIntegerField ID{*this, "ID", {.title = "Identificador"}};
    TIntegerField ID_Ant{*this, "ID_Ant", {.title = "Veio de"}};
    TIntegerField Tag{*this, "Tag", {.visible = false}}; ///< 1 once the position before it was looked for
};

} // namespace alinhavo
