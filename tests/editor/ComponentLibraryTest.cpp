// The companion library, used as a COBIA host uses it.
#include "cobia/Call.h"
#include "cobia/Text.h"
#include "platform/DynamicLibrary.h"
#include "tests/system/Environment.h"
#include "tests/system/InstalledRuntime.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>

using namespace COBIA;
using namespace orvane::test;
using orvane::DynamicLibrary;
namespace fs = std::filesystem;

namespace {

using Entry = CapeResult();
using Create = CapeResult(const CapeUUID*, ICapeInterface**);

constexpr CapeUUID component = "50c3f11c-882a-48d5-bd54-fe6841c111bf"_uuid;
const fs::path built = ORVANE_BIN;

DynamicLibrary companion(const fs::path& folder = built) {
    const std::u8string file = (folder / DynamicLibrary::moduleName("OrvaneOperation")).u8string();
    return DynamicLibrary(std::string(file.begin(), file.end()));
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(stream), {});
    std::erase(text, '\r');
    return text;
}

}  // namespace

TEST_CASE("The library registers its unit operation for the user, and takes that back") {
    const TemporaryFolder folder;
    const InstalledRuntime runtime(ORVANE_RUNTIME_FIXTURE);
    setVariable("COBIA_FIXTURE_VERSION", "1.2.1");
    setVariable("COBIA_FIXTURE_REGISTRY", folder.utf8() + "/registry");
    const DynamicLibrary library = companion();
    REQUIRE(library.find<Entry>("capeRegisterObjects")() == noError);

    const std::string said = contentOf(folder.path() / "registry");
    CAPTURE(said);
    CHECK(said.starts_with("registry of this user\nname Orvane Operation\n"));
    for (const char* line :
         {"description CAPE-OPEN Unit Operation using python script for calculations",
          "CAPE-OPEN version 1.2", "identifier 50c3f11c-882a-48d5-bd54-fe6841c111bf",
          "category 678c09a5-7d66-11d2-a67d-00105a42887f", "category 37e03033-63b9-4f55-b5c4-807bede03deb",
          "service 1", "program Orvane.Operation.1", "general program Orvane.Operation"})
        CHECK_MESSAGE(said.find("\n" + std::string(line) + "\n") != said.npos, line);
    const std::size_t location = said.find("\nlocation ") + 10;
    CHECK(fs::equivalent(said.substr(location, said.find('\n', location) - location),
                         built / DynamicLibrary::moduleName("OrvaneOperation")));

    fs::remove(folder.path() / "registry");
    REQUIRE(library.find<Entry>("capeUnregisterObjects")() == noError);
    CHECK(contentOf(folder.path() / "registry") ==
          "registry of this user\nunregister 50c3f11c-882a-48d5-bd54-fe6841c111bf\n");

    // What the runtime answers is passed on.
    unsetVariable("COBIA_FIXTURE_REGISTRY");
    CHECK(library.find<Entry>("capeRegisterObjects")() == 501);
}

TEST_CASE("Without a runtime there is nowhere to register") {
    const InstalledRuntime none("");
    const DynamicLibrary library = companion();
    CHECK(library.find<Entry>("capeRegisterObjects")() == noService);
    CHECK(library.find<Entry>("capeUnregisterObjects")() == noService);
}

TEST_CASE("The library creates units of the module beside it, and nothing else") {
    const auto create = companion().find<Create>("capeCreateObject");
    ICapeInterface* made = nullptr;
    CHECK(create(nullptr, &made) == nullPointer);
    CHECK(create(&component, nullptr) == nullPointer);
    CHECK(create(&ICapeUnit::uuid, &made) == noSuchItem);
    CHECK(made == nullptr);

    REQUIRE(create(&component, &made) == noError);
    const auto unit = Ref<ICapeInterface>::adopt(made);
    CHECK(query<ICapeUnit>(unit));
    CHECK(text<&ICapeIdentification::Table::getComponentName>(query<ICapeIdentification>(unit).get()) ==
          "Orvane Operation");
}

TEST_CASE("A module that is missing is no service, and can be put beside the library later") {
    const TemporaryFolder folder("Gr\u00f6\u00dfe \U0001f600");
    const std::string name = DynamicLibrary::moduleName("OrvaneOperation"),
                      module = DynamicLibrary::moduleName("Orvane3.14");
    fs::copy_file(built / name, folder.path() / name);
    const auto create = companion(folder.path()).find<Create>("capeCreateObject");
    ICapeInterface* made = nullptr;
    CHECK(create(&component, &made) == noService);
    fs::copy_file(built / module, folder.path() / module);
    REQUIRE(create(&component, &made) == noError);
    CHECK(query<ICapeUnit>(Ref<ICapeInterface>::adopt(made)));
}
