#pragma once

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace alinhavo {

/// An RFID reader service on the loopback, as docs/rfid.md wants it: it answers batches to whoever has the key.
class TReaderService {
public:
    using TBatch = std::vector<std::pair<std::string, double>>; ///< code and quantity

    explicit TReaderService(std::string key);
    ~TReaderService();
    TReaderService(const TReaderService&) = delete;
    TReaderService& operator=(const TReaderService&) = delete;

    std::string Url() const { return "http://127.0.0.1:" + std::to_string(port_); }
    void Keeps(const std::string& number, TBatch batch);
    /// The request lines so far.
    std::vector<std::string> Requests() const;

private:
    void Serve();
    void Answer(int connection);
    std::string AnswerTo(const std::string& request);

    const std::string key_;
    int listener_ = -1;
    int port_ = 0;
    mutable std::mutex mutex_; ///< guards what follows
    std::map<std::string, TBatch> batches_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

} // namespace alinhavo
