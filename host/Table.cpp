#include "host/Table.h"

#include <algorithm>
#include <utility>

namespace orvane::host {
namespace {

/// The character at the start of the text, and how many bytes it takes. Ill-formed bytes count as a character
/// each.
std::pair<char32_t, std::size_t> firstCharacter(std::string_view utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 1 || length > utf8.size()) return {lead, 1};
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        character = (character << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3Fu);
    }
    return {character, length};
}

std::size_t width(char32_t c) {
    struct Range {
        char32_t first, last;
    };
    static constexpr Range combining[] = {
        {0x300, 0x36F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}, {0xFE00, 0xFE0F}};
    static constexpr Range wide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                                     {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                                     {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
    const auto holds = [c](const Range& range) { return c >= range.first && c <= range.last; };
    if (std::ranges::any_of(combining, holds)) return 0;
    return std::ranges::any_of(wide, holds) ? 2 : 1;
}

}  // namespace

std::size_t displayWidth(std::string_view utf8) {
    std::size_t result = 0;
    while (!utf8.empty()) {
        const auto [character, length] = firstCharacter(utf8);
        result += width(character);
        utf8.remove_prefix(length);
    }
    return result;
}

std::string Table::text() const {
    std::vector<std::size_t> widths;
    for (const auto& cells : rows_) {
        widths.resize(std::max(widths.size(), cells.size()));
        for (std::size_t i = 0; i < cells.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(cells[i]));
    }
    std::string result;
    for (const auto& cells : rows_) {
        std::string line;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const std::string filling(widths[i] - displayWidth(cells[i]), ' ');
            if (i > 0) line += "  ";
            line += i < leftColumns_ ? cells[i] + filling : filling + cells[i];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        result += line + '\n';
    }
    return result;
}

}  // namespace orvane::host
