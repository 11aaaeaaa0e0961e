#include "platform/session/roteiro/TRfidBatches.h"

namespace alinhavo::roteiro {

bool TRfidBatches::BuscarDados(std::string_view number, TMemTable& rows, std::string& error, std::string_view)
{
    const auto found = batches_.find(number);
    if (found == batches_.end()) {
        error = "Lote " + std::string(number) + " não encontrado.";
        return false;
    }
    const auto& batch = found->second;
    if (batch.failure) {
        error = *batch.failure;
        return false;
    }
    rows.EmptyTable();
    for (const auto& reading : batch.readings) {
        rows.Append();
        rows.FieldByName("CODIGO").Set(reading.code);
        rows.FieldByName("QTDE").Set(reading.quantity);
        rows.Post();
    }
    return true;
}

} // namespace alinhavo::roteiro
