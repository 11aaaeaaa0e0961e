#pragma once

#include "platform/database/TDatabaseTest.h"
#include "platform/verification/TVerification.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace alinhavo {

/// What a test compares of a violation.
struct TFinding {
    TSeverity severity;
    std::string check;
    std::string keys;
    bool operator==(const TFinding&) const = default;
};

std::ostream& operator<<(std::ostream& out, const TFinding& finding);

/// A database with one order whose tables agree: ten pieces of one colour and size entered sector 10 (position 1), eight
/// went on to sector 20 (position 2) and two were second quality, five went on to the last sector 30 (position 3), four of
/// which are in stock. Movements 1 to 3 tell it, in that order. Sector 40 is outside the flow.
class TVerificationTest : public TDatabaseTest {
protected:
    void SetUp() override;

    void Execute(const std::vector<TStatement>& statements);
    std::vector<TFinding> Findings();
    /// The names of the invariants that are broken as errors, and those broken as remarks.
    std::vector<std::string> Checks(TSeverity severity);
};

/// A position of the order, of part 01, colour AZUL, size M and flow 001 unless told otherwise.
struct TPosition {
    std::string order = "000001";
    std::string part = "01";
    std::string colour = "AZUL";
    std::string size = "M";
    std::string sector = "30";
    TValue batch = {};
    TValue parent = {};
    double entered = 5;
    double good = 0;
    double lost = 0;
    std::string reprocess = {};
};
TStatement Insert(const TPosition& position);

/// A movement of the grid: without a reprocess its column is an empty text; of another part that left with it, null.
struct TMovement {
    int source = 3;
    int batch = 2;
    std::string part = "01";
    std::string sector = "30";
    double good = 0;
    double lost = 0;
    TValue reprocess = "";
    std::string stock = "N";
};
TStatement Insert(const TMovement& movement);

} // namespace alinhavo
