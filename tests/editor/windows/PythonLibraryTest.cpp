// Where python314.dll is looked for, in which order, and what is said when it is nowhere.
#include "pythonlibrary/PythonLibrary.h"

#include "cobia/Text.h"
#include "tests/system/Environment.h"
#include "tests/system/Process.h"
#include "tests/system/windows/OwnRegistry.h"
#include "tests/TemporaryFolder.h"

#include <doctest/doctest.h>
#include <fstream>

using namespace orvane::test;
namespace fs = std::filesystem;

namespace {

const std::wstring installPath = L"Software\\Python\\PythonCore\\3.14\\InstallPath";

std::wstring loadedFile() {
    wchar_t file[1024] = L"";
    GetModuleFileNameW(GetModuleHandleW(L"python314.dll"), file, 1024);
    return file;
}

/// Any library stands for Python's; its name is what is looked for.
void place(const fs::path& folder) {
    fs::create_directories(folder);
    fs::copy_file(fs::path(ORVANE_RUNTIME_FIXTURE) / "COBIA.dll", folder / "python314.dll");
}

std::string messageOf(const fs::path& beside) {
    try {
        orvane::loadPythonLibrary(beside);
    }
    catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

/// Each place is tried in a process of its own, since a loaded library stays. It gets the folder that holds them all.
void inOwnProcess(const char* name) {
    const TemporaryFolder folder("Gr\u00f6\u00dfe \U0001f600");
    wchar_t program[1024];
    GetModuleFileNameW(nullptr, program, 1024);
    Process process({COBIA::toUtf8(program), "--no-skip", std::string("--test-case=") + name},
                    {"ORVANE_FOLDER=" + folder.utf8(), "PATH=C:\\windows\\system32", "WINEPATH="},
                    folder.path() / "out", folder.path() / "errors");
    const int exitCode = process.wait(60);
    std::ifstream out(folder.path() / "out");
    CHECK_MESSAGE(exitCode == 0, std::string(std::istreambuf_iterator<char>(out), {}));
}

fs::path folderOfAll() { return fs::path(_wgetenv(L"ORVANE_FOLDER")).make_preferred(); }

}  // namespace

TEST_CASE("child: the user's comes first" * doctest::skip()) {
    OwnRegistry registry;
    const fs::path all = folderOfAll();
    for (const char* name : {"user", "machine", "beside"}) place(all / name);
    registry.user.text(installPath, L"", (all / "user").native() + L"\\");
    registry.machine.text(installPath, L"", (all / "machine").native());
    CHECK(messageOf(all / "beside") == "");
    CHECK(fs::equivalent(loadedFile(), all / "user" / "python314.dll"));
    // The one that the process has is the one that counts.
    fs::remove_all(all / "machine");
    CHECK(messageOf("") == "");
}

TEST_CASE("child: the machine's comes next" * doctest::skip()) {
    OwnRegistry registry;
    const fs::path all = folderOfAll();
    for (const char* name : {"machine", "beside"}) place(all / name);
    registry.user.text(installPath, L"", (all / "user").native());
    registry.machine.text(installPath, L"", (all / "machine").native());
    CHECK(messageOf(all / "beside") == "");
    CHECK(fs::equivalent(loadedFile(), all / "machine" / "python314.dll"));
}

TEST_CASE("child: then the neighbour" * doctest::skip()) {
    OwnRegistry registry;
    place(folderOfAll() / "beside");
    CHECK(messageOf(folderOfAll() / "beside") == "");
    CHECK(fs::equivalent(loadedFile(), folderOfAll() / "beside" / "python314.dll"));
}

TEST_CASE("child: then the path" * doctest::skip()) {
    OwnRegistry registry;
    place(folderOfAll() / "path");
    setVariable("PATH", COBIA::toUtf8((folderOfAll() / "path").native()));
    CHECK(messageOf(folderOfAll() / "beside") == "");
    CHECK(fs::equivalent(loadedFile(), folderOfAll() / "path" / "python314.dll"));
}

TEST_CASE("child: none" * doctest::skip()) {
    OwnRegistry registry;
    const fs::path all = folderOfAll();
    fs::create_directories(all / "beside");
    std::ofstream(all / "beside" / "python314.dll") << "no library";
    registry.machine.text(installPath, L"", (all / "gone").native());
    const std::string key = COBIA::toUtf8(installPath);
    const std::string message = messageOf(all / "beside");
    CAPTURE(message);
    for (const std::string& part :
         {std::string("the library of CPython 3.14, python314.dll, was not found: "),
          "HKEY_CURRENT_USER\\" + key + " is not there; ",
          "'" + COBIA::toUtf8((all / "gone" / "python314.dll").native()) +
              "', named by HKEY_LOCAL_MACHINE\\" + key + ", is not there; ",
          "'" + COBIA::toUtf8((all / "beside" / "python314.dll").native()) + "' ",
          std::string("; PATH does not have it")})
        CHECK_MESSAGE(message.find(part) != message.npos, part);
}

TEST_CASE(
    "Python's library is looked for where installers register it, then beside the module, then on the path") {
    for (const char* name : {"child: the user's comes first", "child: the machine's comes next",
                             "child: then the neighbour", "child: then the path"})
        inOwnProcess(name);
}

TEST_CASE("A Python library that is nowhere is an error with all places and what is wrong there") {
    inOwnProcess("child: none");
}
