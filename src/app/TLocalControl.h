#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace alinhavo {

/// Lets commands on the same machine reach the process that an embedded database belongs to: a socket beside the file, which only
/// whoever may write the file can open. One command at a time; each is a line of words, and is answered with what it says and
/// its exit code.
class TLocalControl {
public:
    using TWords = std::vector<std::string>;
    /// Carries out a command on the control's thread; the exit code.
    using TCommand = std::function<int(const TWords&, std::ostream&)>;

    /// std::runtime_error when the socket cannot be made.
    TLocalControl(const std::filesystem::path& database, TCommand command);
    /// Waits for a command that is under way.
    ~TLocalControl();
    TLocalControl(const TLocalControl&) = delete;
    TLocalControl& operator=(const TLocalControl&) = delete;

private:
    void Run();
    void Answer(int connection);

    std::filesystem::path path_;
    TCommand command_;
    int socket_ = -1;
    int wake_[2] = {-1, -1}; ///< a pipe: written to at the end
    std::thread thread_;
};

/// Has the process that serves the database carry out a command, and writes what it says. Nothing when no process serves it, and
/// for a database that needs none.
std::optional<int> AskServer(const std::string& database, const TLocalControl::TWords& words, std::ostream& out);

} // namespace alinhavo
