#pragma once

#include "platform/web/TWebSession.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace alinhavo {

/// The sessions of a server, by the secret token that their client's cookie holds. Any thread may use it.
class TSessionRegistry {
public:
    TSessionRegistry(TApplicationMaker maker, std::size_t limit);

    struct TEntry {
        std::string token;
        std::shared_ptr<TWebSession> session; ///< null when there are as many as there may be
        bool isNew = false;
    };
    /// The session of the token; a new one with a token of its own when there is none or it has ended.
    TEntry FindOrStart(std::string_view token);
    /// Ends all of them and waits for their threads. None starts afterwards.
    void EndAll();
    std::size_t Count() const;

private:
    void DropEnded();

    const TApplicationMaker maker_;
    const std::size_t limit_;
    mutable std::mutex mutex_;
    std::map<std::string, std::shared_ptr<TWebSession>, std::less<>> sessions_;
    bool closed_ = false;
};

} // namespace alinhavo
