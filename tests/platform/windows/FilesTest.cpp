// What is at a path when a file is written there: devices, and files that others have open.
#include "platform/Files.h"

#include "cobia/Error.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>
#include <windows.h>

using namespace orvane;

TEST_CASE("A device is written to, and a file that somebody holds stays as it was") {
    const test::TemporaryFolder folder;
    writeFile("NUL", "taken");

    const std::string held = folder.utf8() + "/held.txt";
    writeFile(held, "old");
    const HANDLE holder = CreateFileW(folder.file("held.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    REQUIRE(holder != INVALID_HANDLE_VALUE);
    CHECK_THROWS_AS(writeFile(held, "new"), COBIA::StringException);
    CHECK(readFile(held) == "old");
    CHECK(folder.count() == 1);
    CloseHandle(holder);
    writeFile(held, "new");
    CHECK(readFile(held) == "new");
}
