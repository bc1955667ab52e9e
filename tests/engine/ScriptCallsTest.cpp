// Loading scripts and calling their functions: what reaches the caller as output, and what as an error.
#include "tests/engine/RecordingUnit.h"

#include "engine/PythonEntry.h"
#include "engine/UnitObject.h"

#include <doctest/doctest.h>

#include <thread>

using namespace orvane;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST_CASE("What a script prints is the call's output, and nothing else is") {
    const CallTexts texts = RecordingUnit::calculate("print('a', 1)\nprint('\\u00e4\\u4e2d')");
    CHECK(texts.output == "a 1\n\u00e4\u4e2d\n");
    CHECK(texts.errors.empty());
    CHECK(RecordingUnit::calculate("import sys\nprint('x', file=sys.stderr)").errors == "x\n");
    // No text is too odd to be printed, since a failure to print would hide what it was about.
    CHECK(RecordingUnit::calculate("print('a\\0b\\ud800')").output == std::string("a\0b\uFFFD\n", 7));
    CHECK(contains(RecordingUnit::calculate("raise ValueError('a\\0b')").errors,
                   std::string("ValueError: a\0b", 15)));
}

TEST_CASE("A script that raises is told with its line and its source") {
    RecordingUnit unit("def helper():\n    return 1 / 0\n\ndef Calculate(unit):\n    helper()\n");
    const std::string errors = unit.call(FunctionKind::calculate).errors;
    CHECK(contains(errors, "Line 5, in Calculate"));
    CHECK(contains(errors, "Line 2, in helper"));
    CHECK(contains(errors, "return 1 / 0"));
    CHECK(contains(errors, "ZeroDivisionError: division by zero"));
    CHECK_FALSE(contains(errors, "File \"<string>\""));
}

TEST_CASE("A syntax error names the line, and leaves a script without functions") {
    RecordingUnit unit("x = 1\ndef Calculate(unit)\n    pass\n");
    CHECK(contains(unit.loadErrors, "Line 2"));
    CHECK(contains(unit.loadErrors, "def Calculate(unit)"));
    CHECK(contains(unit.loadErrors, "SyntaxError"));
    CHECK(unit.call(FunctionKind::calculate).errors == "\nCannot find function 'Calculate'");
}

TEST_CASE("Only Validate may be missing") {
    RecordingUnit unit("Configure = 3\n");
    CHECK(unit.call(FunctionKind::configure).errors == "\nCannot find function 'Configure'");
    CHECK(unit.call(FunctionKind::calculate).errors == "\nCannot find function 'Calculate'");
    CHECK(unit.call(FunctionKind::validate, false).errors.empty());
}

TEST_CASE("A function should not return a value") {
    RecordingUnit unit("def Configure(unit):\n    unit.add_report('r')\n    return True\n");
    CHECK(unit.call(FunctionKind::configure).errors == "\nFunction 'Configure' should not return a value");
    CHECK(unit.reportsDeclared == std::vector<std::string>{"r"});
}

TEST_CASE("No way of leaving a script ends the process") {
    struct Row {
        const char* body;
        const char* text;
    };
    for (const Row& row :
         {Row{"import sys\nsys.exit(3)", "SystemExit: 3"},
          Row{"raise KeyboardInterrupt", "KeyboardInterrupt"}, Row{"exit()", "SystemExit"},
          Row{"def f(): f()\nf()", "RecursionError"}, Row{"raise RuntimeError('\\ud800')", "RuntimeError"},
          Row{"import sys\nsys.stderr = None\nraise ValueError('lost')", "ValueError: lost"},
          Row{"import sys\nsys.excepthook = lambda *a: None\nraise ValueError('hook')",
              "ValueError: hook"}}) {
        CAPTURE(row.body);
        CHECK(contains(RecordingUnit::calculate(row.body).errors, row.text));
        CHECK(RecordingUnit::calculate("print('alive')").output == "alive\n");
    }
    // Nothing of a failure stays in the interpreter.
    CHECK(RecordingUnit::calculate("import sys\nprint(hasattr(sys, 'last_exc'))").output == "False\n");
}

TEST_CASE("An error of the script's module is named as the user's") {
    RecordingUnit unit("import sys\ndef Calculate(unit):\n    sys.modules[Calculate.__module__].nothing\n"
                       "Calculate.__module__ = __name__\n");
    CHECK(contains(unit.call(FunctionKind::calculate).errors,
                   "module 'user_defined_unit' has no attribute 'nothing'"));
}

TEST_CASE("A script's module is known to the interpreter while it lives") {
    RecordingUnit unit(
        "from __future__ import annotations\nimport dataclasses\n@dataclasses.dataclass\nclass P:\n    t: float\n"
        "def Calculate(unit):\n    print(P(1.5).t)\n");
    CHECK(unit.loadErrors.empty());
    CHECK(unit.call(FunctionKind::calculate).output == "1.5\n");
}

TEST_CASE("Warnings are told once, in the output and to the unit, and are no errors") {
    RecordingUnit unit(
        "import warnings\ndef Calculate(unit):\n    warnings.warn('hot')\n    print('done')\n");
    for (int i = 0; i < 2; ++i) {
        unit.warnings.clear();
        const CallTexts texts = unit.call(FunctionKind::calculate);
        CHECK(texts.output == "done\nWarning: hot\n");
        CHECK(texts.errors.empty());
        CHECK(unit.warnings == std::vector<std::string>{"hot"});
    }
}

TEST_CASE("Reports get what was printed into them during Calculate, whatever the outcome") {
    RecordingUnit unit(
        "def Calculate(unit):\n    print('x', file=unit.reports['R'])\n    raise ValueError\n");
    unit.reportsDeclared = {"R"};
    unit.call(FunctionKind::calculate);
    REQUIRE(unit.reports.size() == 1);
    CHECK(unit.reports[0] == std::pair<std::string, std::string>("R", "x\n"));
    CHECK(unit.openCalls == 0);
    CHECK(unit.endedCalls == 1);
}

TEST_CASE("The unit's dictionaries last as long as they should") {
    RecordingUnit unit("def Validate(unit):\n    unit.validation_data['v'] = len(unit.validation_data)\n"
                       "    unit.volatile_data['n'] = unit.volatile_data.get('n', 0) + 1\n"
                       "def Calculate(unit):\n    unit.ports['x'] = 1\n"
                       "    print(unit.validation_data, unit.volatile_data, len(unit.ports))\n");
    unit.call(FunctionKind::validate);
    unit.call(FunctionKind::validate);
    CHECK(unit.call(FunctionKind::calculate).output == "{'v': 0} {'n': 2} 1\n");
    CHECK(unit.call(FunctionKind::calculate).output == "{'v': 0} {'n': 2} 1\n");
}

TEST_CASE("A unit that is called back while it calculates keeps what the outer call printed") {
    RecordingUnit inner("def Calculate(unit):\n    print('inner')\n    raise ValueError('within')\n");
    RecordingUnit outer(
        "print('loading')\ndef Calculate(unit):\n    print('outer')\n    raise ValueError('without')\n");
    CallTexts within;
    outer.onFillPorts = [&] {
        scriptEngine().outputText() += "before\n";
        within = inner.call(FunctionKind::calculate);
    };
    const CallTexts texts = outer.call(FunctionKind::calculate);
    CHECK(texts.output == "before\nouter\n");
    CHECK(contains(texts.errors, "raise ValueError('without')"));
    CHECK(within.output == "inner\n");
    CHECK(contains(within.errors, "raise ValueError('within')"));
    CHECK_FALSE(contains(within.errors, "without"));
}

TEST_CASE("A call within a call of the same unit leaves the outer one its objects") {
    RecordingUnit unit("def Validate(unit): print(sorted(unit.ports), sorted(unit.reports))\n"
                       "def Calculate(unit): print(sorted(unit.ports), sorted(unit.reports))\n");
    unit.reportsDeclared = {"R"};
    std::string within;
    unit.onFillPorts = [&] {
        unit.onFillPorts = nullptr;
        PyDict_SetItemString(contentOf<UnitObject>(unit.object.get()).ports.get(), "Feed", Py_None);
        within = unit.call(FunctionKind::validate).output;
        CHECK(unit.openCalls == 1);
    };
    CHECK(unit.call(FunctionKind::calculate).output == "['Feed'] ['R']\n");
    CHECK(within == "[] ['R']\n");
    CHECK(unit.openCalls == 0);
    CHECK(unit.endedCalls == 2);
}

TEST_CASE("What goes wrong outside of the script is the call's error too") {
    RecordingUnit unit("def Calculate(unit):\n    print('not reached')\n");
    unit.onFillPorts = [] { throw std::runtime_error("no feed"); };
    const CallTexts texts = unit.call(FunctionKind::calculate);
    CHECK(texts.output.empty());
    CHECK(texts.errors == "\nUnhandled exception: no feed");
    CHECK(unit.openCalls == 0);
    CHECK(unit.endedCalls == 1);
    unit.onFillPorts = [] { throw 3; };
    CHECK(unit.call(FunctionKind::calculate).errors == "\nUnhandled exception");
}

TEST_CASE("Units calculate from several threads, one after the other") {
    RecordingUnit first(
        "import time\ndef Calculate(unit):\n    for i in range(20):\n        print('first'); time.sleep(1e-4)\n");
    RecordingUnit second(
        "import time\ndef Calculate(unit):\n    for i in range(20):\n        print('second'); time.sleep(1e-4)\n");
    CallTexts ofFirst, ofSecond;
    std::thread other([&] { ofFirst = first.call(FunctionKind::calculate); });
    ofSecond = second.call(FunctionKind::calculate);
    other.join();
    CHECK_FALSE(contains(ofFirst.output, "second"));
    CHECK_FALSE(contains(ofSecond.output, "first"));
    CHECK(ofFirst.output.size() == 20 * 6);
    CHECK(ofSecond.output.size() == 20 * 7);
}
