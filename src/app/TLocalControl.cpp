#include "app/TLocalControl.h"

#include "forms/text.h"
#include "platform/database/TDatabaseAddress.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <unistd.h>

namespace alinhavo {
namespace {

namespace fs = std::filesystem;

constexpr char Between = '\t';
constexpr std::size_t LongestCommand = 8192;

/// A descriptor, closed with this.
class TDescriptor {
public:
    explicit TDescriptor(int descriptor)
        : descriptor_(descriptor)
    {
    }
    ~TDescriptor()
    {
        if (descriptor_ >= 0)
            close(descriptor_);
    }
    TDescriptor(const TDescriptor&) = delete;
    TDescriptor& operator=(const TDescriptor&) = delete;
    int Get() const { return descriptor_; }

private:
    int descriptor_;
};

fs::path SocketOf(const fs::path& database) { return fs::absolute(database).string() + ".controle"; }

sockaddr_un AddressOf(const fs::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.string().size() >= sizeof(address.sun_path))
        throw std::runtime_error("o caminho do banco é longo demais para o controle local: " + path.string());
    std::strcpy(address.sun_path, path.c_str());
    return address;
}

void SendAll(int connection, std::string_view text)
{
    while (!text.empty()) {
        const auto sent = send(connection, text.data(), text.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return;
        text.remove_prefix(static_cast<std::size_t>(sent));
    }
}

/// Up to a line's end, or all there is.
std::string ReceiveLine(int connection)
{
    std::string line;
    for (char c = 0; line.size() < LongestCommand && recv(connection, &c, 1, 0) == 1 && c != '\n';)
        line += c;
    return line;
}

std::string ReceiveAll(int connection)
{
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t got = 0; (got = recv(connection, buffer.data(), buffer.size(), 0)) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(got));
    return text;
}

} // namespace

TLocalControl::TLocalControl(const fs::path& database, TCommand command)
    : path_(SocketOf(database))
    , command_(std::move(command))
{
    const auto address = AddressOf(path_);
    fs::remove(path_);
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto mask = umask(S_IRWXG | S_IRWXO);
    const bool bound = socket_ >= 0 && bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    umask(mask);
    if (!bound || listen(socket_, 4) != 0 || pipe2(wake_, O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), path_.string());
    thread_ = std::thread(&TLocalControl::Run, this);
}

TLocalControl::~TLocalControl()
{
    close(wake_[1]);
    thread_.join();
    close(wake_[0]);
    close(socket_);
    std::error_code ignored;
    fs::remove(path_, ignored);
}

void TLocalControl::Run()
{
    for (;;) {
        std::array<pollfd, 2> waiting{
            {{.fd = socket_, .events = POLLIN, .revents = 0}, {.fd = wake_[0], .events = POLLIN, .revents = 0}}};
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            return;
        if (waiting[1].revents != 0)
            return;
        if (waiting[0].revents == 0)
            continue;
        const TDescriptor connection(accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC));
        if (connection.Get() >= 0)
            Answer(connection.Get());
    }
}

void TLocalControl::Answer(int connection)
{
    std::ostringstream told;
    const int code = command_(Explode(ReceiveLine(connection), std::string(1, Between)), told);
    SendAll(connection, std::to_string(code) + "\n" + told.str());
}

std::optional<int> AskServer(const std::string& database, const TLocalControl::TWords& words, std::ostream& out)
{
    const auto address = TDatabaseAddress::Parse(database);
    if (!address.IsEmbedded() || !fs::exists(SocketOf(address.path)))
        return std::nullopt;
    const auto place = AddressOf(SocketOf(address.path));
    const TDescriptor connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (connect(connection.Get(), reinterpret_cast<const sockaddr*>(&place), sizeof(place)) != 0)
        return std::nullopt; // left behind by a server that was ended
    std::string line;
    for (const auto& word : words)
        line += (line.empty() ? "" : std::string(1, Between)) + word;
    SendAll(connection.Get(), line + "\n");
    const auto answer = ReceiveAll(connection.Get());
    const auto end = answer.find('\n');
    if (end == std::string::npos)
        throw std::runtime_error("o servidor terminou sem responder.");
    out << answer.substr(end + 1);
    return std::stoi(answer.substr(0, end));
}

} // namespace alinhavo
