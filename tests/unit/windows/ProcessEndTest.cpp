// The end of a process that has the module: in order, abrupt, with scripts' threads at work.
#include "tests/system/Process.h"
#include "tests/TemporaryFolder.h"
#include "tests/unit/TestHost.h"

#include <cstdlib>
#include <doctest/doctest.h>
#include <windows.h>

using namespace orvane::test;

namespace {

const char* const leavesWord = "import atexit, os\n"
                               "@atexit.register\n"
                               "def _():\n    open(os.environ['ORVANE_WORD'], 'w').write('done')\n";
const char* const startsThreads = "import threading, time\n"
                                  "def busy():\n    while True: pass\n"
                                  "def idle():\n    while True: time.sleep(0.01)\n"
                                  "for f in (busy, idle): threading.Thread(target=f).start()\n";

[[noreturn]] void calculateAndEnd(const std::string& script, void (*end)()) {
    {
        TestHost host(script + "def Configure(unit): pass\ndef Calculate(unit): pass\n");
        if (!host.calculate().succeeded()) TerminateProcess(GetCurrentProcess(), 99);
    }
    end();
    TerminateProcess(GetCurrentProcess(), 98);
    std::abort();
}

void exitProcess() { ExitProcess(7); }
void exitProgram() { std::exit(7); }

struct End {
    int exitCode;
    std::string word;
};

/// Runs one of the cases below, which all others leave out, in a process of its own.
End endOf(const std::string& name) {
    const TemporaryFolder folder;
    wchar_t program[1024];
    GetModuleFileNameW(nullptr, program, 1024);
    Process process({toUtf8(program), "--no-skip", "--test-case=" + name},
                    {"ORVANE_WORD=" + folder.utf8() + "/word"}, folder.path() / "out",
                    folder.path() / "errors");
    const int exitCode = process.wait(30);
    std::ifstream word(folder.path() / "word");
    return {exitCode, {std::istreambuf_iterator<char>(word), {}}};
}

}  // namespace

TEST_CASE("child: exit" * doctest::skip()) { calculateAndEnd(leavesWord, exitProgram); }
TEST_CASE("child: exit with threads" * doctest::skip()) {
    calculateAndEnd(std::string(leavesWord) + startsThreads, exitProgram);
}
TEST_CASE("child: ExitProcess" * doctest::skip()) { calculateAndEnd(leavesWord, exitProcess); }
TEST_CASE("child: ExitProcess with threads" * doctest::skip()) {
    calculateAndEnd(std::string(leavesWord) + startsThreads, exitProcess);
}
TEST_CASE("child: ExitProcess with a unit" * doctest::skip()) {
    static TestHost* const forgotten = new TestHost(std::string(leavesWord) + startsThreads +
                                                    "def Configure(unit): pass\ndef Calculate(unit): pass\n");
    if (forgotten->calculate().succeeded()) ExitProcess(7);
}

TEST_CASE(
    "A process that ends through its C runtime ends the interpreter in order, whatever threads scripts left") {
    for (const char* name : {"child: exit", "child: exit with threads"}) {
        CAPTURE(name);
        const End end = endOf(name);
        CHECK(end.exitCode == 7);
        CHECK(end.word == "done");
    }
}

TEST_CASE(
    "A process that ends past its C runtime neither hangs nor crashes, and ends the interpreter where it can") {
    const End end = endOf("child: ExitProcess");
    CHECK(end.exitCode == 7);
    CHECK(end.word == "done");
    // What the threads held, the interpreter lock perhaps, nobody will ever give back.
    for (const char* name : {"child: ExitProcess with threads", "child: ExitProcess with a unit"}) {
        CAPTURE(name);
        CHECK(endOf(name).exitCode == 7);
    }
}
