#include "host/TOrvApplication.h"

#include "host/TfmLog.h"

namespace alinhavo {

TOrvApplication::TOrvApplication(IEventSource& source, THostServices services, IView* view)
    : TApplication(source, view)
    , Host(services)
{
    RegisterForm(TfmLog::Class, [](TApplication& application) { return std::make_unique<TfmLog>(application); });
}

void TOrvApplication::SetNow(TDateTime now)
{
    TApplication::SetNow(now);
    Host.database.SetNow(now);
}

} // namespace alinhavo
