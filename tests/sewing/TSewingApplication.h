#pragma once

#include "host/TOrvApplication.h"
#include "movement/TfmFacMov.h"
#include "platform/database/OpenDatabase.h"
#include "platform/services/TConfiguration.h"
#include "platform/services/TPreferences.h"
#include "platform/services/TSessionServices.h"
#include "platform/services/TTrustedPasswords.h"

#include <memory>
#include <string>

namespace alinhavo {

/// What stands behind a session; a base, so that it is there before the application and ends after it.
struct TSewingGround {
    explicit TSewingGround(const TDatabaseAddress& address);

    std::unique_ptr<TSqlDatabase> database;
    TPreferences preferences;
    TConfiguration configuration;
    TTrustedPasswords passwords;
    TSessionServices services;
};

/// ADMIN's session at a factory whose one order is being sewn. Its RFID reader is the real one.
class TSewingApplication final : private TSewingGround, public TOrvApplication {
public:
    static constexpr int PiecesOfLine = 100;

    /// Fills a database that holds the schema alone: an order of so many lines, each a piece with an EAN, a label of 128 and a
    /// box of twelve.
    static void Fill(TSqlDatabase& database, int lines);
    /// Of the piece of that line, from 1.
    static std::string Ean(int line);
    static std::string Label(int line); ///< of 128, without an order

    /// Over a database that was filled.
    TSewingApplication(IEventSource& source, IView* view, const TDatabaseAddress& address);

    TSqlDatabase& Connection() { return *database; }
    /// The movement screen, its grid open on all lines and ready to be read into.
    TfmFacMov& OpenGrid();
};

} // namespace alinhavo
