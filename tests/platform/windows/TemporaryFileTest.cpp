// Where temporary files stand, and their names.
#include "platform/TemporaryFile.h"

#include "cobia/Error.h"
#include "platform/windows/SystemText.h"
#include "tests/system/Environment.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>
#include <filesystem>

using namespace orvane;
using namespace orvane::test;
namespace fs = std::filesystem;

TEST_CASE("TMP says where temporary files stand, whatever its characters") {
    const TemporaryFolder folder("Gr\u00f6\u00dfe \U0001f600");
    setVariable("TMP", folder.utf8());
    const TemporaryFile plain, picture(".png");
    for (const TemporaryFile* file : {&plain, &picture}) {
        const fs::path path = wide(file->path());
        CHECK(fs::equivalent(path.parent_path(), folder.path()));
        CHECK(path.filename().native().starts_with(L"ORV"));
        CHECK(fs::file_size(path) == 0);
    }
    CHECK(plain.path().ends_with(".tmp"));

    setVariable("TMP", folder.utf8() + "/missing");
    for (const char* suffix : {"", ".png"}) {
        std::string message;
        try {
            TemporaryFile file(suffix);
        }
        catch (const COBIA::StringException& error) {
            message = error.what();
        }
        CHECK_MESSAGE(message.starts_with("Cannot create a file in '"), message);
        CHECK_MESSAGE(message.find("missing") != message.npos, message);
    }
}
