#include "platform/PythonInstallation.h"

#include "platform/windows/SystemText.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace orvane;
using orvane::test::TemporaryFolder;

TEST_CASE(
    "An installation is searched in the archive, DLLs, lib and site-packages, those that exist, in this order") {
    const TemporaryFolder folder("Python \u00e4\U0001f600");
    const std::string prefix = narrow(folder.path().native()) + "\\";
    const std::string library = prefix + "python314.dll";
    CHECK(installationPath(library).empty());
    CHECK(pythonProgram(library).empty());

    folder.write("lib/site-packages/x.py", "");
    folder.write("python.exe", "");
    CHECK(installationPath(library) == std::vector{prefix + "lib", prefix + "lib\\site-packages"});
    CHECK(pythonProgram(library) == prefix + "python.exe");

    folder.write("DLLs/_socket.pyd", "");
    folder.write("python314.zip", "");
    CHECK(installationPath(library) == std::vector{prefix + "python314.zip", prefix + "DLLs", prefix + "lib",
                                                   prefix + "lib\\site-packages"});
    // The archive has the name of the library, whatever that is.
    CHECK(installationPath(prefix + "python3.14.dll").front() == prefix + "DLLs");
    CHECK(installationPath("python314.dll").empty());
}
