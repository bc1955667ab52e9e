// Where the form of the date comes from.
#include "platform/Clock.h"

#include "tests/platform/posix/ChildProcess.h"

#include <clocale>
#include <cstdlib>
#include <doctest/doctest.h>
#include <locale.h>
#include <string>

using namespace orvane;
using namespace std::chrono;

namespace {

/// A fixed moment in a fresh process with these settings.
std::string fixedMoment(const char* locale, const char* timeZone) {
    return inChildProcess([&] {
        for (const char* name : {"LC_ALL", "LANG"}) unsetenv(name);
        setenv("LC_TIME", locale, 1);
        setenv("TZ", timeZone, 1);
        return utcDateAndTime(sys_days(2024y / March / 5) + 7h + 4min + 9s);
    });
}

}  // namespace

TEST_CASE("The date has the form of LC_TIME and the day of UTC") {
    CHECK(fixedMoment("C", "UTC") == "03/05/24, 07:04:09");
    CHECK(fixedMoment("C", "XYZ+11") == "03/05/24, 07:04:09");

    if (const locale_t german = newlocale(LC_TIME_MASK, "de_DE.UTF-8", nullptr)) {
        freelocale(german);
        CHECK(fixedMoment("de_DE.UTF-8", "UTC") == "05.03.2024, 07:04:09");
    } else {
        MESSAGE("de_DE.UTF-8 is not installed: its form of a date is not checked");
    }
}

TEST_CASE("A locale that is not installed counts as C") {
    CHECK(fixedMoment("xx_XX.UTF-8", "UTC") == "03/05/24, 07:04:09");
}

TEST_CASE("The process keeps its own locale") {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    utcDateAndTime();
    CHECK(std::setlocale(LC_ALL, nullptr) == before);
}
