#include "platform/web/TConnectedSeen.h"

namespace alinhavo {

std::vector<TConectado> TConnectedSeen::Lista() const
{
    auto list = everybody_.Lista();
    for (auto& session : list)
        session.propria = session.id == own_;
    return list;
}

bool TConnectedSeen::Encerra(std::string_view id, std::string_view motivo)
{
    return id != own_ && everybody_.Encerra(id, motivo);
}

} // namespace alinhavo
