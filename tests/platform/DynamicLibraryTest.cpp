#include "platform/DynamicLibrary.h"
#include "platform/ModuleLocation.h"

#include "cobia/Error.h"

#include <doctest/doctest.h>
#include <filesystem>
#include <string>

using namespace orvane;
namespace fs = std::filesystem;

namespace {

const std::string libraryPath = std::string(ORVANE_RUNTIME_FIXTURE) + "/" + DynamicLibrary::fileName("COBIA");

void here() {}

}  // namespace

TEST_CASE("A library is loaded and asked for its entry points") {
    const DynamicLibrary library(libraryPath);
    const auto newIdentifier = library.find<COBIA::CapeUUID()>("capeGenUUID");
    REQUIRE(static_cast<bool>(newIdentifier));
    CHECK(newIdentifier().data[15] == 1);
    CHECK(library.find("noSuchEntryPoint") == nullptr);
}

TEST_CASE("A library that cannot be loaded is named, with a reason") {
    const std::string missing = std::string(ORVANE_RUNTIME_FIXTURE) + "/missing.library";
    std::string message;
    try {
        DynamicLibrary library(missing);
    }
    catch (const COBIA::StringException& error) {
        message = error.what();
    }
    CHECK(message.starts_with("Cannot load '" + missing + "': "));
    CHECK(message.size() > missing.size() + 20);
}

TEST_CASE("A module is found by what it holds") {
    const DynamicLibrary library(libraryPath);
    CHECK(fs::equivalent(moduleFile(library.find("capeGenUUID")), libraryPath));

    const fs::path program = moduleFile(addressOf(&here));
    CHECK(program.is_absolute());
    CHECK(program.stem() == "tests-platform");

    const int onTheStack = 0;
    CHECK_THROWS_AS(moduleFile(&onTheStack), COBIA::StringException);
    CHECK_THROWS_AS(makeGlobal(&onTheStack), COBIA::StringException);
}
