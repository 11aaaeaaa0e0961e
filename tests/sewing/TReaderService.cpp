#include "sewing/TReaderService.h"

#include "forms/numbers.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>

namespace alinhavo {
namespace {

std::string Http(std::string_view status, const std::string& body)
{
    return "HTTP/1.1 " + std::string(status) + "\r\nContent-Type: application/json\r\nContent-Length: "
        + std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
}

std::string Json(const TReaderService::TBatch& batch)
{
    std::string items;
    for (const auto& [code, quantity] : batch)
        items += (items.empty() ? "" : ",") + (R"({"code":")" + code) + R"(","quantity":)" + FloatToStr(quantity) + "}";
    return R"({"items":[)" + items + "]}";
}

std::string Between(const std::string& text, std::string_view before, std::string_view after)
{
    const auto begin = text.find(before);
    if (begin == std::string::npos)
        return {};
    const auto from = begin + before.size();
    const auto end = text.find(after, from);
    return end == std::string::npos ? std::string() : text.substr(from, end - from);
}

} // namespace

TReaderService::TReaderService(std::string key)
    : key_(std::move(key))
    , listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(place);
    if (bind(listener_, reinterpret_cast<sockaddr*>(&place), size) != 0 || listen(listener_, 8) != 0
        || getsockname(listener_, reinterpret_cast<sockaddr*>(&place), &size) != 0)
        throw std::runtime_error("no port for the reader service");
    port_ = ntohs(place.sin_port);
    thread_ = std::thread([this] { Serve(); });
}

TReaderService::~TReaderService()
{
    shutdown(listener_, SHUT_RDWR);
    thread_.join();
    close(listener_);
}

void TReaderService::Keeps(const std::string& number, TBatch batch)
{
    const std::lock_guard lock(mutex_);
    batches_[number] = std::move(batch);
}

std::vector<std::string> TReaderService::Requests() const
{
    const std::lock_guard lock(mutex_);
    return requests_;
}

void TReaderService::Serve()
{
    for (int connection = 0; (connection = accept(listener_, nullptr, nullptr)) >= 0;) {
        Answer(connection);
        close(connection);
    }
}

void TReaderService::Answer(int connection)
{
    std::string request;
    char buffer[4096];
    while (request.find("\r\n\r\n") == std::string::npos) {
        const auto size = read(connection, buffer, sizeof(buffer));
        if (size <= 0)
            return;
        request.append(buffer, static_cast<std::size_t>(size));
    }
    const auto answer = AnswerTo(request);
    for (std::size_t sent = 0; sent < answer.size();) {
        const auto size = send(connection, answer.data() + sent, answer.size() - sent, MSG_NOSIGNAL);
        if (size <= 0)
            return;
        sent += static_cast<std::size_t>(size);
    }
}

std::string TReaderService::AnswerTo(const std::string& request)
{
    const std::lock_guard lock(mutex_);
    requests_.push_back(request.substr(0, request.find("\r\n")));
    if (Between(request, "X-Api-Key: ", "\r\n") != key_)
        return Http("403 Forbidden", {});
    const auto batch = batches_.find(Between(request, "GET /batches/", "?"));
    if (batch == batches_.end())
        return Http("404 Not Found", R"({"error":"Lote desconhecido."})");
    return Http("200 OK", Json(batch->second));
}

} // namespace alinhavo
