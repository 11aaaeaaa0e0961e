#include "TDemoTest.h"

#include "platform/verification/TVerification.h"

namespace alinhavo {
namespace {

class VerificationOfDemo : public TDemoTest { };
ON_BOTH_SERVERS(VerificationOfDemo);

TEST_P(VerificationOfDemo, FindsNoError)
{
    for (const TViolation& violation : Verify(*db))
        EXPECT_NE(violation.severity, TSeverity::Error) << violation.check << ": " << violation.keys;
}

} // namespace
} // namespace alinhavo
