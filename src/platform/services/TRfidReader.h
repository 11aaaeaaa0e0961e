#pragma once

#include "host/TOrvRFID.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/TUserSettings.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// What one tag of a batch stands for.
struct TRfidItem {
    std::string code;
    double quantity = 0;
};

/// The items of a batch out of the service's answer; std::runtime_error with a Portuguese text when it is none.
std::vector<TRfidItem> ParseRfidBatch(std::string_view json);

/// Batches of the RFID reader service over HTTP (docs/rfid.md). Address and key are the user's own settings, else those of
/// section "RFID" of the configuration ("endereco", "chave").
class TRfidReader final : public TOrvRFID {
public:
    TRfidReader(TUserSettings& settings, const TConfiguration& configuration)
        : settings_(settings)
        , configuration_(configuration)
    {
    }

    bool BuscarParametros() override;
    bool Configurado() const override { return !address_.empty(); }
    void ConfigurarParametros(TForm& screen) override;
    bool BuscarDados(std::string_view number, TMemTable& rows, std::string& error, std::string_view tipo) override;

private:
    std::string Setting(std::string_view key);
    std::vector<TRfidItem> Fetch(std::string_view number, std::string_view tipo) const;

    TUserSettings& settings_;
    const TConfiguration& configuration_;
    std::string address_;
    std::string key_;
};

} // namespace alinhavo
