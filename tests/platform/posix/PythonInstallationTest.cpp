#include "platform/PythonInstallation.h"

#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace orvane;
using orvane::test::TemporaryFolder;

TEST_CASE("A library without its installation gives no search path and no program") {
    CHECK(installationPath("/nowhere/lib/libpython3.14.so").empty());
    CHECK(pythonProgram("/nowhere/lib/libpython3.14.so").empty());
}

TEST_CASE("An installation's folders are searched in order, also where libraries stand below them") {
    const TemporaryFolder prefix;
    for (const char* file :
         {"lib/python314.zip", "lib/python3.14/os.py", "lib/python3.14/lib-dynload/math.so",
          "lib/python3.14/site-packages/x.py", "lib/python3.14/dist-packages/y.py", "bin/python3.14"})
        prefix.write(file, "");
    const std::string lib = prefix.utf8() + "/lib";
    const std::vector<std::string> expected = {
        lib + "/python314.zip", lib + "/python3.14", lib + "/python3.14/lib-dynload",
        lib + "/python3.14/site-packages", lib + "/python3.14/dist-packages"};
    for (const char* file : {"/libpython3.14.so.1.0", "/x86_64-linux-gnu/libpython3.14.so.1.0"}) {
        CHECK(installationPath(lib + file) == expected);
        CHECK(pythonProgram(lib + file) == prefix.utf8() + "/bin/python3.14");
    }
}
