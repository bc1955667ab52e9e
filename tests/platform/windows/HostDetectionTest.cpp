// The simulator that this process is, by its own command line.
#include "platform/HostDetection.h"

#include "platform/ModuleLocation.h"
#include "platform/windows/SystemText.h"
#include "tests/system/Process.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;

// Passes in a process whose program has that name.
TEST_CASE("This process is Tarnq" * doctest::skip()) { CHECK(hostKind() == HostKind::tarnq); }

TEST_CASE("A simulator in a folder of any name is recognised") {
    const TemporaryFolder folder("Tarnq \u00e4\U0001f600");
    const auto program = folder.path() / "TARNQ.EXE";
    std::filesystem::copy_file(wide(moduleFile(addressOf(&hostKind))), program);
    Process process({narrow(program.native()), "--no-skip", "--test-case=This process is Tarnq"}, {},
                    folder.path() / "out", folder.path() / "errors");
    CHECK(process.wait(60) == 0);
}
