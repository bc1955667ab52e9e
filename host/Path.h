// File names between UTF-8, as the host holds text, and the system's own form.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvane::host {

inline std::filesystem::path pathOf(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

inline std::string textOf(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return std::string(utf8.begin(), utf8.end());
}

}  // namespace orvane::host
