#pragma once

#include "forms/TMemTable.h"

#include <string>
#include <vector>

namespace alinhavo {

/// A table of pieces by colour and size, as the tests of datasets use it.
struct TPieces : TMemTable {
    using TMemTable::TMemTable;

    TStringField Cor{*this, "Cor", 6};
    TStringField Tam{*this, "Tam", 4};
    TFloatField Quant{*this, "Quant"};
    TIntegerField Mov{*this, "Mov"};
    TDateField Data{*this, "Data"};

    void Add(std::string_view cor, std::string_view tam = "", double quant = 0)
    {
        Append();
        Cor = cor;
        Tam = tam;
        Quant = quant;
        Post();
    }
};

/// The texts of a column in the rows shown, separated by blanks.
inline std::string Column(const TDataSet& table, std::string_view name)
{
    std::string texts;
    for (std::size_t row = 0; row < table.RecordCount(); ++row)
        texts += (row == 0 ? "" : " ") + table.CellText(row, table.FieldByName(name));
    return texts;
}

/// What happened, in its order.
struct TDiary {
    std::string text;

    void Keep(TEvent<>& event, std::string name)
    {
        event.connect([this, name = std::move(name)] { Write(name); });
    }
    void KeepAll(TDataSet& table)
    {
        Keep(table.BeforeInsert, "BeforeInsert");
        Keep(table.OnNewRecord, "OnNewRecord");
        Keep(table.BeforeEdit, "BeforeEdit");
        Keep(table.BeforePost, "BeforePost");
        Keep(table.AfterPost, "AfterPost");
        Keep(table.BeforeDelete, "BeforeDelete");
        Keep(table.AfterDelete, "AfterDelete");
        Keep(table.AfterCancel, "AfterCancel");
        Keep(table.BeforeScroll, "BeforeScroll");
        Keep(table.AfterScroll, "AfterScroll");
    }
    void Write(const std::string& name) { text += (text.empty() ? "" : " ") + name; }
    std::string Take() { return std::exchange(text, {}); }
};

} // namespace alinhavo
