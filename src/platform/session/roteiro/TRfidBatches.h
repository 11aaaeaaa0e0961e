#pragma once

#include "host/TOrvRFID.h"
#include "platform/session/roteiro/TLine.h"

#include <map>
#include <string>

namespace alinhavo::roteiro {

/// A reader service that answers what a roteiro says.
class TRfidBatches final : public TOrvRFID {
public:
    void Add(const TRfid& batch) { batches_.insert_or_assign(batch.batch, batch); }
    bool IsEmpty() const { return batches_.empty(); }

    bool BuscarParametros() override { return true; }
    bool Configurado() const override { return true; }
    void ConfigurarParametros(TForm&) override { }
    bool BuscarDados(std::string_view number, TMemTable& rows, std::string& error, std::string_view tipo) override;

private:
    std::map<std::string, TRfid, std::less<>> batches_;
};

} // namespace alinhavo::roteiro
