#include "platform/services/HttpGet.h"

#include <curl/curl.h>
#include <memory>
#include <stdexcept>

namespace alinhavo {
namespace {

/// The library starts once for the process.
void StartCurl()
{
    static const auto started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started != CURLE_OK)
        throw std::runtime_error("A biblioteca de rede não iniciou.");
}

struct TReceived {
    std::string body;
    std::size_t largest;
};

/// Taking less than was offered ends the transfer.
std::size_t Receive(const char* data, std::size_t, std::size_t size, void* target)
{
    auto& received = *static_cast<TReceived*>(target);
    if (received.body.size() + size > received.largest)
        return 0;
    received.body.append(data, size);
    return size;
}

std::string Explained(CURLcode failure)
{
    switch (failure) {
    case CURLE_OPERATION_TIMEDOUT:
        return "O serviço não respondeu a tempo.";
    case CURLE_WRITE_ERROR:
        return "A resposta do serviço é grande demais.";
    case CURLE_URL_MALFORMAT:
    case CURLE_UNSUPPORTED_PROTOCOL:
        return "O endereço do serviço é inválido.";
    default:
        return "Não foi possível conectar ao serviço.";
    }
}

using THandle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;
using THeaders = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

THeaders HeadersOf(const THttpRequest& request)
{
    THeaders headers(nullptr, &curl_slist_free_all);
    for (const auto& header : request.headers) {
        auto* grown = curl_slist_append(headers.get(), header.c_str());
        if (!grown)
            throw std::bad_alloc();
        [[maybe_unused]] auto* const before = headers.release();
        headers.reset(grown);
    }
    return headers;
}

} // namespace

THttpAnswer HttpGet(const THttpRequest& request)
{
    StartCurl();
    const THandle curl(curl_easy_init(), &curl_easy_cleanup);
    const auto headers = HeadersOf(request);
    TReceived received{{}, request.largestBody};
    curl_easy_setopt(curl.get(), CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(curl.get(), CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl.get(), CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, static_cast<long>(request.patience.count()));
    curl_easy_setopt(curl.get(), CURLOPT_NOSIGNAL, 1L); // other sessions' threads are running
    curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, &Receive);
    curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &received);

    if (const auto outcome = curl_easy_perform(curl.get()); outcome != CURLE_OK)
        throw std::runtime_error(Explained(outcome));
    long status = 0;
    curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &status);
    return {static_cast<int>(status), std::move(received.body)};
}

std::string UrlEscaped(std::string_view text)
{
    StartCurl();
    const std::unique_ptr<char, decltype(&curl_free)> escaped(
        curl_easy_escape(nullptr, text.data(), static_cast<int>(text.size())), &curl_free);
    return escaped ? escaped.get() : "";
}

} // namespace alinhavo
