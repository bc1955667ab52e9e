// An interpreter that another component of the process started before: units run in it, and it stays that component's.
// Each case needs a process of its own, as ctest gives it.
#include "engine/PythonEntry.h"
#include "tests/engine/RecordingUnit.h"

#include <doctest/doctest.h>

#include <future>
#include <thread>

using namespace orvane;

namespace {

void startForeign() {
    REQUIRE_MESSAGE(!Py_IsInitialized(), "this case must run in a process of its own");
    Py_Initialize();
    REQUIRE(PyRun_SimpleString(
                "import io, sys\nmine = sys.stdout = io.StringIO()\npath = list(sys.path)\n") == 0);
}

/// Whether a condition on what the component left in its main module still holds.
bool holds(const char* condition) {
    return PyRun_SimpleString((std::string("assert ") + condition).c_str()) == 0;
}

}  // namespace

TEST_CASE("Units run in an interpreter that was there before, on the thread that holds its lock") {
    startForeign();
    CHECK(RecordingUnit::calculate("print('inside')").output == "inside\n");
    CHECK(RecordingUnit::calculate("1/0").errors.find("ZeroDivisionError") != std::string::npos);
    CHECK(PyGILState_Check() == 1);
    CHECK(holds("sys.stdout is mine and mine.getvalue() == '' and sys.path == path"));
}

TEST_CASE("Units wait for an interpreter whose lock another thread holds") {
    startForeign();
    CallTexts texts;
    std::thread host([&] { texts = RecordingUnit::calculate("print('inside')"); });
    // Busy with Python, as a component that runs scripts of its own.
    CHECK(PyRun_SimpleString(
              "import time\nuntil = time.monotonic() + 0.3\nwhile time.monotonic() < until: pass\n") == 0);
    Py_BEGIN_ALLOW_THREADS host.join();
    Py_END_ALLOW_THREADS CHECK(texts.output == "inside\n");
    CHECK(holds("sys.stdout is mine"));
}

TEST_CASE("A thread that holds the interpreter's lock and one that runs a unit do not wait for each other") {
    startForeign();
    startTestEngine();
    std::promise<void> running;
    CallTexts ofOther;
    std::thread other([&] {
        RecordingUnit unit("import time\ndef Calculate(unit):\n    time.sleep(0.1)\n    print('other')\n");
        unit.onFillPorts = [&] { running.set_value(); };
        ofOther = unit.call(FunctionKind::calculate);
    });
    Py_BEGIN_ALLOW_THREADS running.get_future().wait();
    Py_END_ALLOW_THREADS CHECK(RecordingUnit::calculate("print('this')").output == "this\n");
    CHECK(PyGILState_Check() == 1);
    Py_BEGIN_ALLOW_THREADS other.join();
    Py_END_ALLOW_THREADS CHECK(ofOther.output == "other\n");
}

TEST_CASE("An interpreter that its owner has ended is not ended again") {
    startForeign();
    CHECK(RecordingUnit::calculate("print('inside')").output == "inside\n");
    CHECK(Py_FinalizeEx() == 0);
    // The engine's own end comes with the end of the process.
    CHECK_FALSE(Py_IsInitialized());
}
