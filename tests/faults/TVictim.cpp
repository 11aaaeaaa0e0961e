#include "faults/TVictim.h"

#include "faults/TWorkshop.h"
#include "movement/TfmFacMov.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace alinhavo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Mark = "--victim";
constexpr char EndOfText = '\0';

int Run(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {fs::read_symlink("/proc/self/exe").string(), std::string(Mark)});
    std::vector<char*> raw;
    for (auto& argument : arguments)
        raw.push_back(argument.data());
    raw.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, raw[0], nullptr, nullptr, raw.data(), environ) != 0)
        throw std::runtime_error("the victim could not be started");
    int status = 0;
    waitpid(process, &status, 0);
    return status;
}

std::vector<std::string> Texts(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::vector<std::string> texts;
    for (std::string text; std::getline(stream, text, EndOfText);)
        texts.push_back(text);
    return texts;
}

fs::path RecordOf(const TDatabaseAddress& address) { return address.path + ".record"; }

void Record(const TDatabaseAddress& address, const std::vector<std::string>& texts)
{
    std::ofstream stream(RecordOf(address), std::ios::binary);
    for (const auto& text : texts)
        stream << text << EndOfText;
}

std::vector<std::string> RunAndRead(const TDatabaseAddress& address, const std::string& role, const std::string& what)
{
    if (const int status = Run({address.Text(), role, what}); status != 0)
        throw std::runtime_error(role + " of " + what + " ended with " + std::to_string(status));
    auto texts = Texts(RecordOf(address));
    fs::remove(RecordOf(address));
    return texts;
}

// In the victim ----------------------------------------------------------------------------------------------------------

void Watched(const TDatabaseAddress& address, const TOperation& operation)
{
    const auto other = OpenDatabase(address);
    TWorkshop workshop(address);
    operation.prepare(workshop);
    int moments = 0;
    std::vector<std::string> texts{"", Committed(*other)};
    workshop.database.OnMoment = [&] { ++moments; };
    workshop.database.OnCommitted = [&] { texts.push_back(Committed(*other)); };
    operation.act(workshop);
    texts.front() = std::to_string(moments);
    Record(address, texts);
}

void Killed(const TDatabaseAddress& address, const TOperation& operation, int moment)
{
    TWorkshop workshop(address);
    operation.prepare(workshop);
    workshop.database.OnMoment = [&moment] {
        if (--moment == 0)
            kill(getpid(), SIGKILL);
    };
    operation.act(workshop);
}

rlimit Limit(const fs::path& file, rlim_t more)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const auto before = limit;
    limit.rlim_cur = fs::file_size(file) + more;
    setrlimit(RLIMIT_FSIZE, &limit);
    return before;
}

/// Fills the pages that the file has already, so that the next row needs a new one.
void FillUp(TSqlDatabase& database)
{
    const std::string text(200, 'x');
    for (const int rows : {100, 1}) {
        try {
            for (;;) {
                for (int row = 0; row < rows; ++row)
                    database.ExecSQL({"INSERT INTO {GERALOG} (MODULO, TEXTO) VALUES ('CHEIO', ?)", text});
                database.CommitRetaining();
            }
        } catch (const EDatabaseError&) {
            database.RollbackRetaining();
        }
    }
}

void Starved(const TDatabaseAddress& address)
{
    std::signal(SIGXFSZ, SIG_IGN);
    TWorkshop workshop(address);
    const auto other = OpenDatabase(address);
    const auto& operation = FindOperation("confirmation");
    operation.prepare(workshop);
    workshop.clerk.Heard();
    const auto before = Limit(address.path, 0);
    FillUp(*other);
    operation.act(workshop);
    auto texts = workshop.clerk.Heard();
    setrlimit(RLIMIT_FSIZE, &before);

    auto& screen = workshop.Screen<TfmFacMov>("TfmFacMov");
    texts.push_back("on screen: " + screen.edtOFNum.text());
    screen.TbTemp.ForEach([&] { texts.back() += " " + screen.TbTemp.Quant.AsString(); });
    texts.emplace_back(workshop.Moved(TWorkshop::Order) ? "moved" : "not moved");
    workshop.Session().Host.database.RollbackRetaining();
    operation.act(workshop);
    for (const auto& text : workshop.clerk.Heard())
        texts.push_back("again: " + text);
    texts.emplace_back(workshop.Moved(TWorkshop::Order) ? "moved" : "not moved");
    Record(address, texts);
}

} // namespace

TVictim::TRecord TVictim::Watch(const TDatabaseAddress& address, const std::string& operation)
{
    auto texts = RunAndRead(address, "watch", operation);
    TRecord record;
    record.moments = std::atoi(texts.at(0).c_str());
    record.commitPoints.assign(texts.begin() + 1, texts.end());
    return record;
}

bool TVictim::Kill(const TDatabaseAddress& address, const std::string& operation, int moment)
{
    const int status = Run({address.Text(), "kill", operation, std::to_string(moment)});
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

std::vector<std::string> TVictim::Starve(const TDatabaseAddress& address)
{
    return RunAndRead(address, "starve", "confirmation");
}

int TVictim::Main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 4 || arguments[0] != Mark)
        return -1;
    const auto address = TDatabaseAddress::Parse(arguments[1]);
    const auto& operation = FindOperation(arguments[3]);
    if (arguments[2] == "watch")
        Watched(address, operation);
    else if (arguments[2] == "kill")
        Killed(address, operation, std::atoi(arguments.at(4).c_str()));
    else
        Starved(address);
    return testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0;
}

} // namespace alinhavo
