#pragma once

#include "forms/TMemTable.h"

namespace alinhavo {

/// Copies the structure of one dataset into another.
class TTransDataSet {
public:
    void SetTabelaOrigem(const TDataSet& source) { source_ = &source; }
    void SetTabelaDestino(TMemTable& target) { target_ = &target; }
    /// The target gets the source's fields, and no rows. Both must have been set.
    void CriaCampos();

private:
    const TDataSet* source_ = nullptr;
    TMemTable* target_ = nullptr;
};

} // namespace alinhavo
