#include "platform/Identifier.h"

#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <set>
#include <string>
#include <vector>

TEST_CASE("Identifiers are random GUIDs of 32 upper-case digits, each a new one") {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::set<std::string> all;
    std::array<std::set<char>, 32> seen;
    for (int i = 0; i < 1000; ++i) {
        const std::string identifier = orvane::randomIdentifier();
        REQUIRE(identifier.size() == 32);
        CHECK(identifier.find_first_not_of(digits) == identifier.npos);
        all.insert(identifier);
        for (std::size_t at = 0; at < 32; ++at) seen[at].insert(identifier[at]);
    }
    CHECK(all.size() == 1000);

    // Two places are fixed by the kind of GUID; in every other place every digit turns up.
    CHECK(seen[12] == std::set<char>{'4'});
    CHECK(seen[16] == std::set<char>{'8', '9', 'A', 'B'});
    for (std::size_t at = 0; at < 32; ++at)
        if (at != 12 && at != 16) CHECK_MESSAGE(seen[at].size() == 16, "place " << at);
}
