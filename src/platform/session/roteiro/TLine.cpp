#include "platform/session/roteiro/TLine.h"

namespace alinhavo::roteiro {
namespace {

template <typename... TKinds>
bool IsOneOf(const TStep& step)
{
    return (std::holds_alternative<TKinds>(step) || ...);
}

} // namespace

bool IsDialog(const TStep& step)
{
    return IsOneOf<TMessage, TQuestion, TInput, TLookup, TSupervisor, TFile, TModal>(step);
}

bool IsUserAction(const TStep& step)
{
    return IsOneOf<TOpen, TClose, TActivate, TClick, TFill, TPass, TWrite, TChoose, TCheck, TTurn, TPress, TFillCell,
        TGoToRow, TDoubleClick, TPaste, TMenu, TTitleClick>(step);
}

} // namespace alinhavo::roteiro
