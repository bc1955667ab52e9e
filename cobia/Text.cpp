#include "cobia/Text.h"

#include "cobia/CaseTables.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utf8.h>

namespace COBIA {
namespace {

char32_t mapCase(char32_t character, std::span<const CaseRun> runs) noexcept {
    const auto after = std::upper_bound(runs.begin(), runs.end(), character,
                                        [](char32_t c, const CaseRun& run) { return c < run.first; });
    if (after == runs.begin()) return character;
    const CaseRun& run = *std::prev(after);
    if (character > run.last || static_cast<int>(character - run.first) % run.step != 0) return character;
    return static_cast<char32_t>(static_cast<int>(character) + run.distance);
}

std::string mapCase(std::string_view utf8, std::span<const CaseRun> runs) {
    std::string result;
    const std::string text = wellFormed(utf8);
    for (auto at = text.begin(); at != text.end();)
        utf8::append(mapCase(static_cast<char32_t>(utf8::next(at, text.end())), runs),
                     std::back_inserter(result));
    return result;
}

bool isAscii(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

std::string wellFormed(std::string_view utf8) {
    if (utf8::is_valid(utf8.begin(), utf8.end())) return std::string(utf8);
    std::string result;
    utf8::replace_invalid(utf8.begin(), utf8.end(), std::back_inserter(result), 0xFFFD);
    return result;
}

#ifdef _WIN32
std::string toUtf8(CapeTextView text) {
    std::u16string units(text.begin(), text.end());
    const auto isLead = [](char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
    const auto isTrail = [](char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (isLead(units[i]) && i + 1 < units.size() && isTrail(units[i + 1]))
            ++i;
        else if (isLead(units[i]) || isTrail(units[i]))
            units[i] = 0xFFFD;
    }
    return utf8::utf16to8(units);
}

CapeText toCape(std::string_view utf8) {
    const std::u16string units = utf8::utf8to16(wellFormed(utf8));
    return CapeText(units.begin(), units.end());
}
#else
std::string toUtf8(CapeTextView text) { return wellFormed(text); }

CapeText toCape(std::string_view utf8) { return wellFormed(utf8); }
#endif

std::string lowerCase(std::string_view utf8) {
    if (!isAscii(utf8)) return mapCase(utf8, lowerCaseRuns);
    std::string result(utf8);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string upperCase(std::string_view utf8) { return mapCase(utf8, upperCaseRuns); }

bool equalIgnoringCase(std::string_view a, std::string_view b) { return lowerCase(a) == lowerCase(b); }

}  // namespace COBIA
