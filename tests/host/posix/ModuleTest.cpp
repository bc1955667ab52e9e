// Modules that are none, and modules that find no Python.
#include "tests/host/CommandProcess.h"

#include <cstdlib>
#include <dlfcn.h>
#include <doctest/doctest.h>
#include <filesystem>
#include <nlohmann/json.hpp>

using namespace orvane::host;

namespace {

const std::string heater = ORVANE_SOURCE "/examples/heater/heater.toml";

void checkFailure(const Finished& run, const std::string& text) {
    CHECK(run.exitCode == 3);
    CHECK_MESSAGE(run.error.find(text) != std::string::npos, run.error);
}

/// Where the module finds its Python library.
std::string pythonLibrary() {
    void* const module = dlopen(ORVANE_BIN "/Orvane3.14.so", RTLD_LAZY | RTLD_LOCAL);
    REQUIRE(module);
    Dl_info library{};
    REQUIRE(dladdr(dlsym(module, "Py_Initialize"), &library) != 0);
    return library.dli_fname;
}

}  // namespace

TEST_CASE("A library that is no unit operation ends with exit code 3") {
    const TestFolder folder;
    Dl_info library{};  // the system's own library stands for every other
    REQUIRE(dladdr(reinterpret_cast<void*>(&std::abort), &library) != 0);
    checkFailure(command({"run", heater, "--module", library.dli_fname, "--json", folder.file("r").string()}),
                 "does not export createOrvane");
    const auto error = nlohmann::json::parse(folder.read("r"))["error"].get<std::string>();
    CHECK(error.find("createOrvane") != std::string::npos);
}

TEST_CASE("A module that finds no Python ends with exit code 3 and the way out") {
    const TestFolder folder;
    folder.write("libpython3.14.so.1.0", "no library");
    const std::string searched = folder.file("").string();
    checkFailure(command({"run", heater}, {"LD_LIBRARY_PATH=" + searched}),
                 "The Python library that it needs is missing. Install the shared library of CPython 3.14");

    // The library alone, without its modules.
    std::filesystem::copy_file(pythonLibrary(), searched + "/libpython3.14.so.1.0",
                               std::filesystem::copy_options::overwrite_existing);
    checkFailure(
        command({"run", heater}, {"LD_LIBRARY_PATH=" + searched}),
        "Failed to initialize Python: Py_Initialize failed. Install the shared library of CPython 3.14");
}
