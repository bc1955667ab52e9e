#include "host/Base64.h"

namespace orvane::host {
namespace {

constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string toBase64(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t j = 0; j < 3; ++j) group = group << 8 | (j < count ? bytes[i + j] : 0u);
        for (std::size_t j = 0; j < 4; ++j) text += j <= count ? digits[group >> (18 - 6 * j) & 63u] : '=';
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> fromBase64(std::string_view text) {
    if (text.size() % 4 != 0) return std::nullopt;
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < text.size(); i += 4) {
        const bool isLast = i + 4 == text.size();
        std::size_t count = 3;
        if (isLast && text[i + 3] == '=') count = text[i + 2] == '=' ? 1 : 2;
        std::uint32_t group = 0;
        for (std::size_t j = 0; j < 4; ++j) {
            const std::size_t digit = j <= count ? digits.find(text[i + j]) : 0;
            if (digit == std::string_view::npos) return std::nullopt;
            group = group << 6 | static_cast<std::uint32_t>(digit);
        }
        for (std::size_t j = 0; j < count; ++j)
            bytes.push_back(static_cast<std::uint8_t>(group >> (16 - 8 * j) & 255u));
    }
    return bytes;
}

}  // namespace orvane::host
