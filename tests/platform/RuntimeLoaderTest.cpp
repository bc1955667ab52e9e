#include "platform/RuntimeLoader.h"

#include "cobia/Data.h"
#include "platform/DynamicLibrary.h"

#include <doctest/doctest.h>
#include <string>
#include <string_view>
#include <vector>

using namespace orvane;

namespace {

const std::string libraryPath = std::string(ORVANE_RUNTIME_FIXTURE) + "/" + DynamicLibrary::fileName("COBIA");

std::string reportedVersion;  // of the runtime that is bound
bool reportsVersion = true;

COBIA::CapeResult reportVersion(COBIA::ICapeString* out) {
    if (!reportsVersion) return COBIA::notImplemented;
    COBIA::write(out, COBIA::toCape(reportedVersion));
    return COBIA::noError;
}

/// Binds the fixture's entry points, with the version told here and without the one that is missing.
std::optional<Runtime> bindFixture(std::string_view missing = {}) {
    const DynamicLibrary library(libraryPath);
    return bindRuntime([&](const char* name) -> void* {
        if (name == missing) return nullptr;
        if (name == std::string_view("getCobiaVersion")) return reinterpret_cast<void*>(&reportVersion);
        return library.find(name);
    });
}

}  // namespace

TEST_CASE("A runtime from version 1.2.1 on is taken, and one that cannot say its version") {
    struct Row {
        std::string version;
        bool taken;
    };
    const Row rows[] = {
        {"1.2.1", true}, {"1.2.1.0", true}, {"1.2.2", true},  {"1.3", true},      {"1.3.0.0", true},
        {"2.0", true},   {"1.2", false},    {"1.2.0", false}, {"1.2.0.9", false}, {"1.1.9", false},
        {"0.9", false},  {"", false},       {"soon", false},  {"1.10", true},     {"10", true},
    };
    reportsVersion = true;
    for (const Row& row : rows) {
        reportedVersion = row.version;
        CHECK_MESSAGE(bindFixture().has_value() == row.taken, row.version);
    }

    reportsVersion = false;
    CHECK(bindFixture());
}

TEST_CASE("A runtime that lacks an entry point is none") {
    reportsVersion = true;
    reportedVersion = "1.2.1";
    const std::vector<std::string> entryPoints = {
        "capeGenUUID",
        "capeUUIDFromString",
        "capeStringFromUUID",
        "getCobiaLanguage",
        "getCobiaVersion",
        "getCobiaDataFolder",
        "getCobiaFolder",
        "getCobiaUserDataFolder",
        "getErrorDescription",
        "capeGetRegistryKey",
        "capeGetRegistryWriter",
        "capeGetLibraryEnumerator",
        "capeGetPMCEnumerator",
        "cobiaCreatePMCInstance",
        "cobiaDepersistFromTransitionFormat",
        "cobiaDepersistPMCFromTransitionFormat",
        "capeGetDataClassFactory",
    };
    REQUIRE(bindFixture());
    for (const std::string& missing : entryPoints) CHECK_MESSAGE(!bindFixture(missing), missing);
}

TEST_CASE("Each entry point of the table is the one of its name") {
    const DynamicLibrary library(libraryPath);
    const auto table = bindRuntime([&](const char* name) { return library.find(name); });
    REQUIRE(table);
    const auto leadsTo = [&](auto entry, const std::string& name) {
        CHECK_MESSAGE(reinterpret_cast<void*>(entry) == library.find(name.c_str()), name);
    };
    leadsTo(table->capeGenUUID, "capeGenUUID");
    leadsTo(table->capeUUIDFromString, "capeUUIDFromString");
    leadsTo(table->capeStringFromUUID, "capeStringFromUUID");
    leadsTo(table->getCobiaLanguage, "getCobiaLanguage");
    leadsTo(table->getCobiaVersion, "getCobiaVersion");
    leadsTo(table->getCobiaDataFolder, "getCobiaDataFolder");
    leadsTo(table->getCobiaFolder, "getCobiaFolder");
    leadsTo(table->getCobiaUserDataFolder, "getCobiaUserDataFolder");
    leadsTo(table->getErrorDescription, "getErrorDescription");
    leadsTo(table->capeGetRegistryKey, "capeGetRegistryKey");
    leadsTo(table->capeGetRegistryWriter, "capeGetRegistryWriter");
    leadsTo(table->capeGetLibraryEnumerator, "capeGetLibraryEnumerator");
    leadsTo(table->capeGetPMCEnumerator, "capeGetPMCEnumerator");
    leadsTo(table->cobiaCreatePMCInstance, "cobiaCreatePMCInstance");
    leadsTo(table->cobiaDepersistFromTransitionFormat, "cobiaDepersistFromTransitionFormat");
    leadsTo(table->cobiaDepersistPMCFromTransitionFormat, "cobiaDepersistPMCFromTransitionFormat");
    leadsTo(table->capeGetDataClassFactory, "capeGetDataClassFactory");
}

TEST_CASE("A runtime library is loaded from its folder, identifiers and data class factory included") {
    const auto loaded = loadRuntime(ORVANE_RUNTIME_FIXTURE);
    REQUIRE(loaded);
    CHECK(loaded->capeGenUUID().data[15] == 1);
    CHECK(loaded->dataClassFactory != nullptr);
    CHECK(loaded->dataClassFactory == loaded->capeGetDataClassFactory());
}

TEST_CASE("A folder without a runtime library gives no runtime") {
    CHECK_FALSE(loadRuntime(std::string(ORVANE_RUNTIME_FIXTURE) + "/nowhere"));
    CHECK_FALSE(loadRuntime(""));
}
