#include "platform/TextMode.h"

#include <doctest/doctest.h>

using orvane::inTextMode;

TEST_CASE("Every line ends in CR LF, once, however often the text is written") {
    const std::string written = inTextMode("a\nb\r\n\n\rc\r");
    CHECK(written == "a\r\nb\r\n\r\n\rc\r");
    CHECK(inTextMode(written) == written);
    CHECK(inTextMode("\r\r\n") == "\r\r\n");
    CHECK(inTextMode("").empty());
}
