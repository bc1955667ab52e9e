// The form of date and time is that of the system's locale.
#include "platform/Clock.h"

#include "platform/windows/SystemText.h"

#include <doctest/doctest.h>
#include <windows.h>

using namespace orvane;
using namespace std::chrono;

namespace {

std::string localeText(LCTYPE what) {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"", text[100] = L"";
    GetSystemDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
    GetLocaleInfoEx(name, what, text, 100);
    return narrow(text);
}

/// 5 March 2024 by a short date picture, of numbers alone.
std::string written(const std::string& picture) {
    std::string result;
    for (std::size_t i = 0; i < picture.size();) {
        const std::size_t end = std::min(picture.find_first_not_of(picture[i], i), picture.size());
        const bool two = end - i == 2;
        switch (picture[i]) {
        case 'd': result += two ? "05" : "5"; break;
        case 'M': result += two ? "03" : "3"; break;
        case 'y': result += two ? "24" : "2024"; break;
        default: result += picture.substr(i, end - i);
        }
        i = end;
    }
    return result;
}

}  // namespace

TEST_CASE("A moment is written as the system's locale writes short dates") {
    const std::string picture = localeText(LOCALE_SSHORTDATE);
    REQUIRE(!picture.empty());
    REQUIRE(picture.find("MMM") == picture.npos);
    const std::string text = utcDateAndTime(sys_days(2024y / March / 5) + 17h + 4min + 9s);
    CHECK(text == written(picture) + ", 17:04:09");
}
