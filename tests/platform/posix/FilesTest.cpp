// What is at a path when a file is written there: permissions, links, devices.
#include "platform/Files.h"

#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>
#include <filesystem>

using namespace orvane;
namespace fs = std::filesystem;

TEST_CASE(
    "A file that is written anew keeps its permissions, a link its target, and a device is written to") {
    const test::TemporaryFolder folder;
    const fs::path target = folder.file("report.txt"), link = folder.file("link.txt");
    writeFile(target.string(), "old");
    fs::permissions(target, fs::perms(0640));
    fs::create_symlink(target, link);
    writeFile(link.string(), "new");
    CHECK(readFile(target.string()) == "new");
    CHECK(fs::is_symlink(link));
    CHECK(fs::status(target).permissions() == fs::perms(0640));

    writeFile("/dev/null", "taken");
    CHECK(fs::is_character_file("/dev/null"));
}
