// The script editor of a module that a link leads to.
#include "tests/unit/Editor.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <filesystem>

using namespace orvane::test;

TEST_CASE("A module that stands behind a link looks for its editor beside the link") {
    namespace fs = std::filesystem;
    const TemporaryFolder temporary;
    const fs::path& folder = temporary.path();
    fs::create_directory(folder / "real");
    fs::copy_file(fs::path(ORVANE_BIN) / "Orvane3.14.so", folder / "real" / "Orvane3.14.so");
    fs::create_symlink(folder / "real" / "Orvane3.14.so", folder / "Orvane3.14.so");
    const orvane::host::ModuleLoader module(folder / "Orvane3.14.so");
    TestHost host(module);
    const std::string message = edit(host).outcome.text;
    CHECK_MESSAGE(message.find("'" + (folder / "OrvaneOperation.so").string() + "'") != message.npos,
                  message);
}
