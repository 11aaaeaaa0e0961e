#include "TServicesTest.h"

#include <fstream>
#include <unistd.h>

namespace alinhavo {

void TServicesTest::SetUp()
{
    TDatabaseTest::SetUp();
    if (IsSkipped())
        return;
    preferencesDatabase = Connect();
    preferences = std::make_unique<TPreferences>(*preferencesDatabase);
    static int last = 0;
    folder = std::filesystem::temp_directory_path()
        / ("alinhavo-services-" + std::to_string(getpid()) + "-" + std::to_string(++last));
    std::filesystem::create_directories(folder);
    configuration = TConfiguration::Load(folder / "alinhavo.ini");
    services = std::make_unique<TSessionServices>(TSessionSetup{
        .database = *db,
        .preferences = *preferences,
        .configuration = configuration,
        .user = {.code = "001", .name = "ANA"},
        .company = "01",
        .passwords = passwords,
        .openDatabase = [this](const std::string&) { return Connect(); },
    });
    app = std::make_unique<TOrvApplication>(user, services->Services(), &user);
    form = std::make_unique<TOrvForm>(*app, "TfmTeste", "Teste");
}

void TServicesTest::TearDown()
{
    form.reset();
    app.reset();
    services.reset();
    preferences.reset();
    preferencesDatabase.reset();
    if (!folder.empty())
        std::filesystem::remove_all(folder);
    TDatabaseTest::TearDown();
}

void TServicesTest::Sql(const std::string& text)
{
    db->ExecText(text);
    db->CommitRetaining();
}

std::string TServicesTest::Failure(const std::function<void()>& code)
{
    try {
        code();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return {};
}

} // namespace alinhavo
