#pragma once

#include "platform/session/roteiro/IWorld.h"
#include "platform/session/roteiro/TStage.h"

namespace alinhavo::roteiro {

/// What must be so in a session: EMismatch when it is not.
class TChecks {
public:
    /// `session` is null while nobody is logged in.
    TChecks(IWorld& world, IPlayedSession* session)
        : world_(world)
        , session_(session)
    {
    }

    void operator()(const TExpectText& check) const;
    void operator()(const TExpectState& check) const;
    void operator()(const TExpectRows& check) const;
    void operator()(const TExpectSum& check) const;
    void operator()(const TExpectCell& check) const;
    void operator()(const TExpectItems& check) const;
    void operator()(const TExpectColumn& check) const;
    void operator()(const TExpectMenu& check) const;
    void operator()(const TExpectSql& check) const;
    void operator()(const TExpectLog& check) const;
    void operator()(const TExpectLogRows& check) const;
    void operator()(const TExpectReport& check) const;
    void operator()(const TExpectReportText& check) const;
    void operator()(const TExpectSound& check) const;

private:
    IPlayedSession& Session() const;
    TStage Stage() const { return TStage(Session().Thread().Application()); }
    std::vector<std::string> LogTexts(const std::string& module) const;

    IWorld& world_;
    IPlayedSession* session_;
};

} // namespace alinhavo::roteiro
