#pragma once

#include "facmov/TClerk.h"
#include "movement/TfmFacMov.h"
#include "platform/database/TDatabaseTest.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/TPreferences.h"
#include "platform/services/TTrustedPasswords.h"
#include "platform/session/TSession.h"

#include <memory>
#include <string>
#include <string_view>

namespace alinhavo {

/// A small factory with a session at the movement screen: sectors 10 to 40, of which 40 is the last one of every flow,
/// parts 01 and 02 of product CAM01, warehouses 01 and 08, the user ADMIN. There is no order yet.
class TMovementTest : public TDatabaseTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Written at once, by another connection than the screen's.
    void Write(const TStatement& statement);
    void SetParameter(std::string_view group, int number, std::string_view value);
    /// The first cell of a query on what is committed.
    double Number(const TStatement& statement);

    TfmFacMov& Screen();

    TClerk clerk;
    std::unique_ptr<TSession> session;

private:
    TConfiguration configuration_;
    TTrustedPasswords passwords_;
    std::unique_ptr<TPreferences> preferences_;
    std::unique_ptr<TSqlDatabase> screens_;
};

} // namespace alinhavo
