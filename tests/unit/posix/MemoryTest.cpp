// The memory of a process in which a unit is calculated again and again.
#ifndef __SANITIZE_ADDRESS__  // which keeps freed memory aside
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>
#include <fstream>

using namespace orvane::test;

TEST_CASE("Thousands of calculations leave the memory as it was") {
    const auto residentKilobytes = [] {
        std::ifstream status("/proc/self/status");
        for (std::string word; status >> word;)
            if (word == "VmRSS:" && status >> word) return std::stol(word);
        return 0L;
    };
    TestHost host;
    REQUIRE(host.calculateDefault().succeeded());
    for (int i = 0; i < 100; ++i) host.calculate();
    const long before = residentKilobytes();
    for (int i = 0; i < 10000; ++i) host.calculate();
    REQUIRE(before > 0);
    CHECK(residentKilobytes() - before < 1024);
}
#endif
