// Files whose names no code page holds together.
#include "tests/host/CommandProcess.h"

#include <doctest/doctest.h>

using namespace orvane::host;

TEST_CASE("Cases, scripts and results may have any names") {
    const orvane::test::TemporaryFolder folder("Gr\u00f6\u00dfe \u4e2d \U0001f600");
    folder.write("Skript \u4e2d.py", "def Configure(unit): pass\n"
                                     "def Calculate(unit): print('\u4e2d \U0001f600')\n");
    folder.write("case \u00e4.toml",
                 "[package]\ncompounds = [\"methane\"]\n[unit]\nscript = \"Skript \u4e2d.py\"\n");
    const std::string file = folder.utf8() + "/case \u00e4.toml",
                      result = folder.utf8() + "/r \U0001f600.json";
    const Finished run = command({"run", file, "--json", result});
    CHECK_MESSAGE(run.exitCode == 0, run.error);
    CHECK_MESSAGE(run.out.starts_with("\u4e2d \U0001f600"), run.out);
    CHECK(std::filesystem::exists(folder.path() / std::filesystem::path(u8"r \U0001f600.json")));

    const Finished missing = command({"run", folder.utf8() + "/\u4e2d.toml"});
    CHECK(missing.exitCode == 2);
    CHECK_MESSAGE(missing.error.find("\u4e2d.toml") != std::string::npos, missing.error);
}
