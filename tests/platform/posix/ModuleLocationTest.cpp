// Symbols of a library that a host loaded for itself alone.
#include "platform/ModuleLocation.h"

#include "platform/DynamicLibrary.h"
#include "tests/platform/posix/ChildProcess.h"

#include <dlfcn.h>
#include <doctest/doctest.h>
#include <string>

using namespace orvane;

TEST_CASE("A library loaded with local symbols shows them once it is made global") {
    const std::string result = inChildProcess([] {
        const DynamicLibrary library(std::string(ORVANE_RUNTIME_FIXTURE) + "/" +
                                     DynamicLibrary::fileName("COBIA"));
        const auto isVisible = [] { return dlsym(RTLD_DEFAULT, "capeGenUUID") ? "visible" : "hidden"; };
        std::string seen = isVisible();
        makeGlobal(library.find("capeGenUUID"));
        return seen + ", " + isVisible();
    });
    CHECK(result == "hidden, visible");
}

TEST_CASE("The program itself has nothing to make global") {
    static const int ours = 0;
    CHECK_NOTHROW(makeGlobal(&ours));
}
