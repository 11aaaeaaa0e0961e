#include "app/demo/TClerk.h"

#include "forms/TDialog.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace alinhavo {

TClerk::TClerk(TOrvDatabase& database, TSessionUser user, const TScreenRegistry& registerScreens,
    std::vector<std::string_view> known)
    : preferences_(database)
    , known_(std::move(known))
    , session_(*this, nullptr,
          TSessionSetup{.database = database,
              .preferences = preferences_,
              .configuration = configuration_,
              .user = std::move(user),
              .company = "01",
              .passwords = passwords_,
              .openDatabase = {}})
    , hands_(session_, [this](const TUserEvent& event) { Send(event); })
{
    registerScreens(session_);
}

void TClerk::Send(const TUserEvent& event)
{
    const std::string refusal = session_.Handle(event);
    if (said_)
        throw std::runtime_error(*std::exchange(said_, {}));
    if (!refusal.empty())
        throw std::runtime_error(refusal);
}

TUserEvent TClerk::Next()
{
    const TDialog* dialog = session_.TopDialog();
    if (!dialog)
        throw std::logic_error("a modal screen waits for a clerk who does not know it");
    const bool isKnown = dialog->Offers(TModalResult::Yes) && std::ranges::any_of(known_, [&](std::string_view text) {
        return dialog->text.find(text) != std::string::npos;
    });
    if (isKnown)
        return {.kind = TUserEvent::TKind::Answer, .answer = TModalResult::Yes};
    if (!said_)
        said_ = dialog->text;
    return {.kind = TUserEvent::TKind::Answer, .answer = dialog->EscAnswer()};
}

} // namespace alinhavo
