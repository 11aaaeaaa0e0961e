#include "TTestCertificate.h"

#include <cstdio>
#include <memory>
#include <openssl/pem.h>
#include <openssl/x509.h>
#include <stdexcept>

namespace alinhavo {

namespace {

using TFile = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

TFile Create(const std::filesystem::path& path)
{
    TFile file(std::fopen(path.c_str(), "w"), &std::fclose);
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
    return file;
}

} // namespace

void TTestKey::Write(const std::filesystem::path& path, const std::string& password) const
{
    const auto file = Create(path);
    const auto* secret = reinterpret_cast<const unsigned char*>(password.data());
    PEM_write_PrivateKey(file.get(), key_, password.empty() ? nullptr : EVP_aes_256_cbc(),
        password.empty() ? nullptr : secret, static_cast<int>(password.size()), nullptr, nullptr);
}

void TTestKey::WriteCertificate(const std::filesystem::path& path) const
{
    constexpr long OneDay = 24 * 60 * 60;
    const std::unique_ptr<X509, void (*)(X509*)> certificate(X509_new(), &X509_free);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -OneDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), OneDay);
    X509_set_pubkey(certificate.get(), key_);
    auto* name = X509_get_subject_name(certificate.get());
    const auto* value = reinterpret_cast<const unsigned char*>("127.0.0.1");
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, value, -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509_sign(certificate.get(), key_, EVP_sha256());
    PEM_write_X509(Create(path).get(), certificate.get());
}

} // namespace alinhavo
