#include "platform/web/TCertificate.h"

#include <fstream>
#include <memory>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <stdexcept>
#include <string>

namespace alinhavo {

namespace {

namespace ssl = boost::asio::ssl;
using TContext = ssl::context;

[[noreturn]] void Refuse(const std::string& what, const std::filesystem::path& file, const std::string& why)
{
    throw std::runtime_error(what + " " + file.string() + ": " + why);
}

void CheckReadable(const std::string& what, const std::filesystem::path& file)
{
    std::error_code unknown;
    if (!std::filesystem::exists(file, unknown))
        Refuse(what, file, "o arquivo não existe.");
    std::ifstream stream(file);
    if (!stream || stream.peek() == std::ifstream::traits_type::eof())
        Refuse(what, file, "o arquivo não pode ser lido ou está vazio.");
}

} // namespace

TContext ReadCertificate(const TCertificateFiles& files)
{
    CheckReadable("O certificado", files.certificate);
    CheckReadable("A chave", files.key);

    TContext context(TContext::tls_server);
    context.set_options(TContext::default_workarounds | TContext::no_tlsv1 | TContext::no_tlsv1_1);
    const auto asked = std::make_shared<bool>(false);
    // Nobody is there to type it.
    context.set_password_callback([asked](std::size_t, TContext::password_purpose) {
        *asked = true;
        return std::string();
    });

    boost::system::error_code error;
    context.use_certificate_chain_file(files.certificate.string(), error);
    if (error)
        Refuse("O certificado", files.certificate, "não é um certificado em PEM.");
    context.use_private_key_file(files.key.string(), TContext::pem, error);
    if (*asked)
        Refuse("A chave", files.key, "está protegida por uma senha; grave-a sem senha, legível só para o servidor.");
    if (error && ERR_GET_LIB(static_cast<unsigned long>(error.value())) != ERR_LIB_X509)
        Refuse("A chave", files.key, "não é uma chave em PEM.");
    if (error || SSL_CTX_check_private_key(context.native_handle()) != 1)
        Refuse("A chave", files.key, "não é a do certificado " + files.certificate.string() + ".");
    return context;
}

} // namespace alinhavo
