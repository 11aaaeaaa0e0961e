#pragma once

#include <boost/asio/ssl/context.hpp>
#include <filesystem>

namespace alinhavo {

/// The files (PEM) with which a server proves who it is.
struct TCertificateFiles {
    std::filesystem::path certificate; ///< its own, then those that vouch for it; empty: the server does not encrypt
    std::filesystem::path key; ///< without a password
};

/// What encrypts the connections, from TLS 1.2 on. std::runtime_error, in Portuguese, names the file that cannot be used.
boost::asio::ssl::context ReadCertificate(const TCertificateFiles& files);

} // namespace alinhavo
