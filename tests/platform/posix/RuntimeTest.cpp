// The runtime of a process, from its registry files to the error descriptions.
#include "platform/RuntimeLoader.h"

#include "cobia/Error.h"
#include "platform/DynamicLibrary.h"
#include "platform/Files.h"
#include "platform/ModuleLocation.h"
#include "platform/posix/RuntimeRegistry.h"
#include "platform/TemporaryFile.h"
#include "tests/platform/posix/ChildProcess.h"

#include <algorithm>
#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

using namespace orvane;
namespace fs = std::filesystem;

namespace {

/// A folder with a user's registry, gone with its owner.
class ConfigHome {
public:
    explicit ConfigHome(const std::string& registry) {
        fs::remove(name_.path());
        fs::create_directories(name_.path() + "/cape-open");
        writeFile(name_.path() + "/cape-open/registry.ini", registry);
    }
    ~ConfigHome() { fs::remove_all(name_.path()); }

    /// For a child process: what it finds as the user's registry.
    void use() const {
        for (const char* name : {"SUDO_UID", "PKEXEC_UID"}) unsetenv(name);
        setenv("XDG_CONFIG_HOME", name_.path().c_str(), 1);
    }

private:
    TemporaryFile name_;
};

/// No machine has a higher version installed.
std::string registryWith(const std::string& folder, const std::string& version = "4000000000.0") {
    return "[" + std::string(runtimeKey) + "]\ndefault = " + folder + "\nversion = " + version + "\n";
}

/// What a fresh process with that registry makes of an error code; "none: " in front where it has no runtime.
std::string descriptionOf(COBIA::CapeResult code, const std::string& registry, const char* version) {
    const ConfigHome home(registry);
    return inChildProcess([&] {
        home.use();
        setenv("COBIA_FIXTURE_VERSION", version, 1);
        const bool found = runtime() != nullptr;
        if (runtime() != runtime()) throw std::logic_error("there are two runtimes");
        return (found ? "" : "none: ") + COBIA::errorDescription(code);
    });
}

}  // namespace

TEST_CASE("A registered runtime is loaded and describes error codes") {
    const std::string registry = registryWith(ORVANE_RUNTIME_FIXTURE);
    CHECK(descriptionOf(COBIA::denied, registry, "1.2.1") == "fixture text of 106");
    CHECK(descriptionOf(COBIA::noSuchItem, registry, "1.2.1") ==
          "No such item");  // the fixture does not know it
}

TEST_CASE("A registered runtime that cannot be used is as good as none") {
    CHECK(descriptionOf(COBIA::denied, registryWith(ORVANE_RUNTIME_FIXTURE), "1.2") == "none: Denied");
    CHECK(descriptionOf(COBIA::denied, registryWith("/no/such/folder"), "1.2.1") == "none: Denied");
}

TEST_CASE("Registrations are read from the files of this process") {
    const auto firstFolder = [](const std::string& registry) {
        const ConfigHome home(registry);
        return inChildProcess([&] {
            home.use();
            const auto found = registeredRuntimes();
            return found.empty() || found.front().version.numbers[0] != 4000000000 ? "none"
                                                                                   : found.front().folder;
        });
    };
    CHECK(firstFolder(registryWith("/opt/cobia")) == "/opt/cobia");
    CHECK(firstFolder(registryWith("")) == "none");  // a folder that is empty is no folder
    CHECK(firstFolder("[" + std::string(runtimeKey) + "]\nversion = 4000000000\n") == "none");
    CHECK(firstFolder("[Software]\ndefault = /opt/cobia\nversion = 4000000000\n") == "none");
    CHECK(firstFolder("") == "none");
}

TEST_CASE("Of two roots the higher version is loaded, of equal ones the user's") {
    struct Row {
        const char *user, *machine;
        const char* loaded;
    };
    const TemporaryFile name;
    const fs::path folder = name.path() + " runtimes";
    const std::string fixture = std::string(ORVANE_RUNTIME_FIXTURE) + "/" + DynamicLibrary::fileName("COBIA");
    for (const char* root : {"user", "machine"}) {
        fs::create_directories(folder / root);
        fs::copy_file(fixture, folder / root / DynamicLibrary::fileName("COBIA"));
    }
    for (const Row& row : {Row{"1.2.1", "1.3", "machine"},
                           {"1.3", "1.2.1", "user"},
                           {"1.2.1", "1.2.1", "user"},
                           {"1.2.1", "1.2.1.0", "user"},
                           {"1.2.9", "1.2.10", "machine"},
                           {nullptr, "1.2.1", "machine"},
                           {"1.2.1", nullptr, "user"}}) {
        std::vector<std::string> files;
        for (const auto& [root, version] : {std::pair{"user", row.user}, {"machine", row.machine}}) {
            files.push_back((folder / root / "registry.ini").string());
            fs::remove(files.back());
            if (version) writeFile(files.back(), registryWith((folder / root).string(), version));
        }
        const auto chosen = chooseRuntime(runtimesIn(files));
        REQUIRE(chosen);
        const auto runtime = loadRuntime(chosen->folder);
        REQUIRE(runtime);
        CHECK(moduleFile(reinterpret_cast<const void*>(runtime->capeGenUUID)) ==
              (folder / row.loaded / DynamicLibrary::fileName("COBIA")).string());
    }
    fs::remove_all(folder);
}

TEST_CASE("Threads that ask for the runtime at once get the same one") {
    const ConfigHome home(registryWith(ORVANE_RUNTIME_FIXTURE));
    const std::string result = inChildProcess([&] {
        home.use();
        setenv("COBIA_FIXTURE_VERSION", "1.2.1", 1);
        std::vector<const Runtime*> found(8);
        std::vector<std::thread> threads;
        for (const Runtime*& each : found) threads.emplace_back([&each] { each = runtime(); });
        for (std::thread& thread : threads) thread.join();
        const bool same =
            std::all_of(found.begin(), found.end(), [&](const auto* each) { return each == found[0]; });
        return std::string(same && found[0] ? "the same" : "none, or several");
    });
    CHECK(result == "the same");
}
