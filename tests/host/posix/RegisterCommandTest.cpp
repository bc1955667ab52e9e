// `orvane register` with a COBIA runtime that the command finds through its environment.
#include "tests/host/CommandProcess.h"
#include "tests/system/InstalledRuntime.h"

#include <doctest/doctest.h>

using namespace orvane::host;

TEST_CASE("The unit operation is registered, and the registration taken back") {
    const TestFolder folder;
    const orvane::test::InstalledRuntime runtime(ORVANE_RUNTIME_FIXTURE);
    const std::vector<std::string> environment = {"COBIA_FIXTURE_VERSION=1.2.1",
                                                  "COBIA_FIXTURE_REGISTRY=" + folder.file("said").string()};
    const Finished made = command({"register"}, environment);
    CHECK_MESSAGE(made.exitCode == 0, made.error);
    CHECK(made.out.starts_with("The unit operation is registered"));
    CHECK(folder.read("said").find("\nlocation " ORVANE_BIN "/OrvaneOperation.so\n") != std::string::npos);

    const Finished undone = command({"register", "--undo"}, environment);
    CHECK(undone.exitCode == 0);
    CHECK(undone.out.starts_with("The unit operation is no longer registered"));
    CHECK(folder.read("said").find("\nunregister ") != std::string::npos);
}

TEST_CASE("Without a runtime registering fails and says what to install") {
    const orvane::test::InstalledRuntime none("");
    const Finished run = command({"register"});
    CHECK(run.exitCode == 3);
    CHECK_MESSAGE(run.error.find("Install the COBIA runtime first") != std::string::npos, run.error);
}
