// `orvane register`, as far as it goes without a registry of its own.
#include "host/System.h"
#include "tests/host/CommandProcess.h"

#include <doctest/doctest.h>

using namespace orvane::host;

TEST_CASE("Registering names the library that is missing, or is none, with exit code 3") {
    const TestFolder folder;
    const std::string none = folder.file("none").string();
    const Finished missing = command({"register", "--library", none});
    CHECK(missing.exitCode == 3);
    CHECK_MESSAGE(missing.error.find("there is no library '" + none + "'") != std::string::npos,
                  missing.error);

    const Finished broken = command({"register", "--library", folder.write("broken", "no library")});
    CHECK(broken.exitCode == 3);
    CHECK_MESSAGE(broken.error.starts_with("error: "), broken.error);

    const std::string module = std::string(ORVANE_BIN "/") + std::string(moduleFileName());
    for (const std::string option : {"", "--undo"}) {
        std::vector<std::string> words = {"register", "--library", module};
        if (!option.empty()) words.push_back(option);
        const Finished other = command(words);
        CHECK(other.exitCode == 3);
        const std::string entry = option.empty() ? "capeRegisterObjects" : "capeUnregisterObjects";
        CHECK_MESSAGE(other.error.find("does not export " + entry) != std::string::npos, other.error);
    }
}
