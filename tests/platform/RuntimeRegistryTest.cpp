#include "platform/RuntimeRegistry.h"

#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace orvane;

TEST_CASE("A version is up to four numbers") {
    struct Row {
        std::string text;
        RuntimeVersion version;
    };
    const Row rows[] = {
        {"1.2.3.4", {{1, 2, 3, 4}}},
        {"1.2.1", {{1, 2, 1, 0}}},
        {"2", {{2, 0, 0, 0}}},
        {"1.2.3.4.5", {{1, 2, 3, 4}}},
        {"010.02", {{10, 2, 0, 0}}},
        {"1.2.1-beta", {{1, 2, 1, 0}}},
        {"1.2rc.9", {{1, 2, 0, 0}}},
        {"1..3", {{1, 0, 3, 0}}},
        {".5", {{0, 5, 0, 0}}},
        {"1.", {{1, 0, 0, 0}}},
        {"", {{}}},
        {"v1.2", {{}}},
        {" 1.2", {{}}},
        {"-1", {{}}},
        {"99999999999999999999999.1", {{4294967295, 1, 0, 0}}},
    };
    for (const Row& row : rows) CHECK_MESSAGE(parseVersion(row.text) == row.version, row.text);
}

TEST_CASE("Versions compare number by number") {
    const std::string ascending[] = {"",       "0.9", "1.2",  "1.2.0.1", "1.2.1", "1.2.1.1",
                                     "1.2.10", "1.3", "1.10", "2.0",     "10.0"};
    for (std::size_t i = 1; i < std::size(ascending); ++i)
        CHECK_MESSAGE(parseVersion(ascending[i - 1]) < parseVersion(ascending[i]), ascending[i]);
    CHECK(parseVersion("1.2.1") == parseVersion("1.2.1.0"));
}

TEST_CASE("The highest version is chosen, of equal ones the first") {
    struct Row {
        std::vector<const char*> versions;
        int chosen;
    };
    const Row rows[] = {
        {{"1.2.1", "1.3"}, 1}, {{"1.3", "1.2.1"}, 0}, {{"1.2.1", "1.2.1"}, 0},  {{"1.2.1", "1.2.1.0"}, 0},
        {{"1.9", "1.10"}, 1},  {{"", ""}, 0},         {{"junk", "0.0.0.1"}, 1}, {{"1.0"}, 0},
    };
    for (const Row& row : rows) {
        std::vector<RuntimeRegistration> registrations;
        for (const char* version : row.versions)
            registrations.push_back({std::to_string(registrations.size()), parseVersion(version)});
        const auto chosen = chooseRuntime(registrations);
        REQUIRE(chosen);
        CHECK(chosen->folder == std::to_string(row.chosen));
    }
    CHECK_FALSE(chooseRuntime({}));
}
