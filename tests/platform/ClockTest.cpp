#include "platform/Clock.h"

#include <chrono>
#include <doctest/doctest.h>
#include <string>

using namespace orvane;
using namespace std::chrono_literals;

TEST_CASE("Elapsed time is cut to milliseconds and shown with three digits") {
    struct Row {
        std::chrono::nanoseconds elapsed;
        const char* text;
    };
    const Row rows[] = {
        {0ns, "0"},
        {999'999ns, "0"},
        {1ms, "0.001"},
        {3ms, "0.003"},
        {1'999'999ns, "0.001"},
        {12'345'678ns, "0.012"},
        {123'456'789ns, "0.123"},
        {1s, "1"},
        {1'234'567'800ns, "1.23"},
        {1'236ms, "1.24"},
        {9'996ms, "10"},
        {59'949ms, "59.9"},
        {100s, "100"},
        {999'600ms, "1e+03"},
        {1'234'567ms, "1.23e+03"},
        {24h, "8.64e+04"},
    };
    for (const Row& row : rows) CHECK_MESSAGE(elapsedText(row.elapsed) == row.text, row.elapsed.count());
}

TEST_CASE("A moment is a date, a comma and the time of day in 24 hours") {
    using namespace std::chrono;
    const auto afternoon = sys_days(2024y / March / 5) + 17h + 4min + 9s + 999ms;
    CHECK(utcDateAndTime(afternoon).ends_with(", 17:04:09"));
    CHECK(utcDateAndTime(sys_days(2024y / March / 5)).ends_with("0:00:00"));
    CHECK(utcDateAndTime(sys_days(1970y / January / 1) - 1ms).ends_with(", 23:59:59"));

    // Whatever the form of the date, another day looks different.
    CHECK(utcDateAndTime(afternoon) != utcDateAndTime(afternoon + days(1)));
    CHECK(utcDateAndTime(afternoon) != utcDateAndTime(afternoon + days(366)));
}
