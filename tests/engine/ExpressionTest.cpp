// Values that users type, and values shown so that they can be typed back.
#include "engine/Expression.h"
#include "engine/Conversion.h"
#include "engine/PythonEntry.h"
#include "engine/PythonGuard.h"
#include "tests/engine/RecordingUnit.h"

#include <cmath>
#include <doctest/doctest.h>

using namespace orvane;

namespace {

/// What an expression comes to: repr of its value, or the error.
struct Evaluated {
    std::string value;
    CallTexts texts;
};

Evaluated evaluate(const std::string& text) {
    startTestEngine();
    Evaluated result;
    result.texts = evaluateExpression(
        text, [&](PyObject* value) { result.value = toText(PyRef::steal(PyObject_Repr(value)).get()); });
    return result;
}

}  // namespace

TEST_CASE("An expression gives its value") {
    CHECK(evaluate("2 * 3.5").value == "7.0");
    CHECK(evaluate(" \t[1, 2]").value == "[1, 2]");
    CHECK(evaluate("'\u00e4\U0001f600'").value == "'\u00e4\U0001f600'");
    CHECK(evaluate("5").texts.errors.empty());
    CHECK(evaluate("print('said')").texts.output == "said\n");
    // Nothing of one expression is left for the next.
    evaluate("(a := 1)");
    CHECK(evaluate("a").texts.errors.find("NameError") != std::string::npos);
}

TEST_CASE("The words nan and inf are numbers where they stand free, and only there") {
    CHECK(evaluate("nan").value == "nan");
    CHECK(evaluate("[1.0, nan,nan]").value == "[1.0, nan, nan]");
    CHECK(evaluate("-nan*2").value == "nan");
    CHECK(evaluate("-inf").value == "-inf");
    CHECK(evaluate("float('nan')").value == "nan");
    CHECK(evaluate("'nan'").value == "'nan'");
    struct Row {
        const char* text;
        const char* error;
    };
    for (const Row& row : {Row{"nano", "'nano'"}, Row{"nan1", "'nan1'"}, Row{"banan", "'banan'"},
                           Row{"1 .nan", "'nan'"}, Row{"\u00e4nan", "'\u00e4nan'"}}) {
        CAPTURE(row.text);
        const std::string errors = evaluate(row.text).texts.errors;
        CHECK_MESSAGE(errors.find(row.error) != std::string::npos, errors);
    }
}

TEST_CASE("An expression that fails says where, and shows its own text") {
    RecordingUnit script("first = 'line of the script'\n");
    struct Row {
        std::string text;
        const char* error;
    };
    for (const Row& row : {Row{"1 +", "SyntaxError"}, Row{"", "SyntaxError"}, Row{"a = 1", "SyntaxError"},
                           Row{"1/0", "ZeroDivisionError: division by zero"},
                           Row{std::string("1\0+1", 4), "SyntaxError: source code string cannot contain"},
                           Row{"exit(3)", "SystemExit: 3"}}) {
        CAPTURE(row.text);
        const Evaluated result = evaluate(row.text);
        CHECK_MESSAGE(result.texts.errors.find(row.error) != std::string::npos, result.texts.errors);
        CHECK(result.texts.errors.find("line of the script") == std::string::npos);
        CHECK(result.texts.errors.find("File \"<string>\"") == std::string::npos);
        CHECK(result.value.empty());
    }
    CHECK(evaluate("[1/0]").texts.errors.find("    [1/0]") != std::string::npos);
}

TEST_CASE("What receives a value may refuse it with an error of any kind") {
    startTestEngine();
    const auto errors = [](auto&& refuse) {
        return evaluateExpression("1", [&](PyObject*) { refuse(); }).errors;
    };
    CHECK(errors([] { throw RefusedValue("Value is above maximum value of 0"); }) ==
          "ValueError: Value is above maximum value of 0\n");
    CHECK(errors([] {
              PyErr_SetString(PyExc_TypeError, "must be real number");
              throw PythonErrorSet();
          }) == "TypeError: must be real number\n");
    CHECK(errors([] { throw std::runtime_error("gone"); }) == "RuntimeError: gone\n");
    CHECK(errors([] {}).empty());
}

TEST_CASE("Values are shown as expressions that read back as the same values") {
    startTestEngine();
    const std::vector<const char*> expressions = {"0.1",      "-7",   "nan",
                                                  "'it\\'s'", "True", "[1.0, nan, 2.5e-300]"};
    std::vector<PyRef> values;
    for (const char* expression : expressions)
        CHECK(evaluateExpression(expression, [&](PyObject* value) {
                  values.push_back(PyRef::share(value));
              }).errors.empty());
    const ValueTexts shown = valuesToText(values.size(), [&](std::size_t i) { return values[i]; });
    CHECK(shown.texts ==
          std::vector<std::string>{"0.1", "-7", "nan", "\"it's\"", "True", "[1.0, nan, 2.5e-300]"});
    CHECK(shown.errors.empty());
    const InterpreterLock lock;
    values.clear();
}

TEST_CASE("A value that cannot be shown leaves the others, and the reason") {
    startTestEngine();
    const ValueTexts shown = valuesToText(3, [](std::size_t i) -> PyRef {
        if (i == 1) throw std::runtime_error("no value");
        return toPython(static_cast<int>(i));
    });
    CHECK(shown.texts == std::vector<std::string>{"0", "", "2"});
    CHECK(shown.errors == "RuntimeError: no value\n");
    CHECK(valuesToText(0, nullptr).texts.empty());
}
