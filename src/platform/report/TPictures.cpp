#include "platform/report/TPictures.h"

#include "forms/numbers.h"
#include "platform/report/THtmlOutput.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>

namespace alinhavo {
namespace {

constexpr std::uintmax_t LargestPicture = 8 << 20;

std::string Base64(std::string_view bytes)
{
    constexpr std::string_view Letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::uint32_t group = 0;
        for (std::size_t index = 0; index < 3; ++index)
            group = group << 8 | (at + index < bytes.size() ? static_cast<unsigned char>(bytes[at + index]) : 0U);
        for (std::size_t index = 0; index < 4; ++index)
            text += at + index <= bytes.size() ? Letters[group >> (18 - 6 * index) & 63] : '=';
    }
    return text;
}

/// By its first bytes; "" when it is no picture.
std::string_view PictureType(std::string_view bytes)
{
    if (bytes.starts_with("\x89PNG\r\n\x1a\n"))
        return "image/png";
    if (bytes.starts_with("\xff\xd8\xff"))
        return "image/jpeg";
    if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a"))
        return "image/gif";
    if (bytes.starts_with("RIFF") && bytes.substr(8).starts_with("WEBP"))
        return "image/webp";
    return {};
}

} // namespace

TPictures::TPictures(const std::filesystem::path& root)
    : root_(std::filesystem::weakly_canonical(root))
{
}

TMarkup TPictures::Picture(const std::string& file, double height, std::string_view description)
{
    const auto& address = Address(file);
    if (address.empty())
        return {};
    TMarkup markup{"<img style=\"max-height:" + FloatToStr(height) + "mm\" src=\"" + address + "\" alt=\"", {}};
    AppendEscapedHtml(markup.html, description);
    markup.html += "\">";
    return markup;
}

const std::string& TPictures::Address(const std::string& file)
{
    const auto found = addresses_.find(file);
    return found != addresses_.end() ? found->second : addresses_.emplace(file, Load(file)).first->second;
}

std::string TPictures::Load(const std::string& file) const
{
    std::error_code error;
    const auto path = std::filesystem::canonical(file, error);
    if (error || root_.empty() || std::ranges::mismatch(root_, path).in1 != root_.end())
        return {};
    const auto size = std::filesystem::file_size(path, error);
    if (error || size > LargestPicture)
        return {};
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    const auto type = PictureType(bytes);
    return type.empty() ? std::string() : "data:" + std::string(type) + ";base64," + Base64(bytes);
}

} // namespace alinhavo
