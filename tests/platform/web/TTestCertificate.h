#pragma once

#include <filesystem>
#include <openssl/ec.h>
#include <openssl/evp.h>
#include <string>

namespace alinhavo {

/// A key of its own, made for one test.
class TTestKey {
public:
    TTestKey()
        : key_(EVP_EC_gen("P-256"))
    {
    }
    ~TTestKey() { EVP_PKEY_free(key_); }
    TTestKey(const TTestKey&) = delete;
    TTestKey& operator=(const TTestKey&) = delete;

    EVP_PKEY* Get() const { return key_; }
    /// With a password where one is given.
    void Write(const std::filesystem::path& file, const std::string& password = {}) const;
    /// That it vouches for itself.
    void WriteCertificate(const std::filesystem::path& file) const;

private:
    EVP_PKEY* key_;
};

} // namespace alinhavo
