#include "platform/web/TStaticFiles.h"

#include <array>
#include <fstream>
#include <iterator>
#include <sodium.h>
#include <stdexcept>
#include <utility>

namespace alinhavo {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::pair<std::string_view, std::string_view>, 9> ContentTypes = {{
    {".html", "text/html; charset=utf-8"},
    {".js", "text/javascript; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},
    {".json", "application/json"},
    {".webmanifest", "application/manifest+json"},
    {".svg", "image/svg+xml"},
    {".png", "image/png"},
    {".ico", "image/x-icon"},
    {".woff2", "font/woff2"},
}};

std::string ContentTypeOf(const fs::path& file)
{
    for (const auto& [extension, type] : ContentTypes) {
        if (file.extension() == extension)
            return std::string(type);
    }
    return "application/octet-stream";
}

std::string Read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + file.string());
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string EtagOf(std::string_view content)
{
    std::array<unsigned char, 16> hash{};
    crypto_generichash(
        hash.data(), hash.size(), reinterpret_cast<const unsigned char*>(content.data()), content.size(), nullptr, 0);
    std::array<char, hash.size() * 2 + 1> text{};
    sodium_bin2hex(text.data(), text.size(), hash.data(), hash.size());
    return '"' + std::string(text.data()) + '"';
}

} // namespace

TStaticFiles::TStaticFiles(const fs::path& folder)
{
    if (!fs::is_directory(folder))
        throw std::runtime_error("no folder " + folder.string());
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_symlink() || !entry.is_regular_file() || entry.path().extension() == ".gz")
            continue;
        const auto name = '/' + entry.path().lexically_relative(folder).generic_string();
        TStaticFile file{.content = Read(entry.path())};
        file.contentType = ContentTypeOf(entry.path());
        file.etag = EtagOf(file.content);
        file.immutable = name.starts_with("/assets/");
        if (const auto compressed = entry.path().string() + ".gz"; fs::is_regular_file(compressed))
            file.gzip = Read(compressed);
        files_.emplace(name, std::move(file));
    }
}

const TStaticFile* TStaticFiles::Find(std::string_view path) const
{
    const auto found = files_.find(path == "/" ? std::string_view("/index.html") : path);
    return found == files_.end() ? nullptr : &found->second;
}

} // namespace alinhavo
