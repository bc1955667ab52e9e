// Where temporary files stand, and who may read them.
#include "platform/TemporaryFile.h"

#include "cobia/Error.h"
#include "tests/platform/posix/ChildProcess.h"

#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <string>

using namespace orvane;
namespace fs = std::filesystem;

TEST_CASE("TMPDIR says where temporary files stand") {
    TemporaryFile name;
    const std::string folder = name.path() + " ö";
    fs::create_directory(folder);
    const std::string path = inChildProcess([&] {
        setenv("TMPDIR", folder.c_str(), 1);
        return TemporaryFile().path();
    });
    fs::remove(folder);
    CHECK(path.starts_with(folder + "/ORV"));

    const std::string message = inChildProcess([&]() -> std::string {
        setenv("TMPDIR", folder.c_str(), 1);
        try {
            return TemporaryFile().path();
        }
        catch (const COBIA::StringException& error) {
            return error.what();
        }
    });
    CHECK(message == "No temporary directory, check TMPDIR: No such file or directory");
}

TEST_CASE("Nobody else may read a temporary file") {
    const TemporaryFile file;
    const auto others = fs::perms::group_all | fs::perms::others_all;
    CHECK((fs::status(file.path()).permissions() & others) == fs::perms::none);
}
