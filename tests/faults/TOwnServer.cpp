#include "faults/TOwnServer.h"

#include <array>
#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace alinhavo {
namespace {

/// What the command prints.
std::string Run(const std::string& arguments)
{
    auto* pipe
        = popen((ALINHAVO_SOURCE_DIR "/tests/faults/own_server.sh " + arguments).c_str(), "r"); // NOLINT(cert-env33-c)
    if (!pipe)
        throw std::runtime_error("no process for own_server.sh");
    std::string printed;
    std::array<char, 256> part{};
    while (std::fgets(part.data(), part.size(), pipe))
        printed += part.data();
    if (pclose(pipe) != 0)
        throw std::runtime_error("own_server.sh failed: " + arguments);
    return printed;
}

} // namespace

TOwnServer::TOwnServer()
{
    std::istringstream printed(Run("start"));
    std::getline(printed, folder_);
    std::getline(printed, uri_);
}

TOwnServer::~TOwnServer()
{
    try {
        Run("stop " + folder_);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
}

void TOwnServer::Restart() { Run("restart " + folder_); }

} // namespace alinhavo
