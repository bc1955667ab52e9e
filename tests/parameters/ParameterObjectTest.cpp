#include "parameters/ParameterObject.h"

#include "tests/parameters/HostView.h"
#include "tests/parameters/Script.h"

using namespace orvane;

TEST_CASE("A script reads what a parameter is") {
    struct Row {
        ParameterDeclaration declaration;
        const char* shown;
    };
    const Row rows[] = {
        {declare("Größe", true, RealValues{1, 2.5, none, none}),
         "('Größe', 'what it is', True, 0, 'real', 2.5)"},
        {declare("n", false, IntegerValues{1, -7, 0, 9}), "('n', 'what it is', False, 1, 'integer', -7)"},
        {declare("s", true, StringValues{"", "π", {}}), "('s', 'what it is', True, 2, 'string', 'π')"},
        {declare("b", true, BooleanValues{false, true}), "('b', 'what it is', True, 3, 'boolean', True)"},
        {declare("x", true, RealArrayValues{0, {1, none}, none, none, 0}),
         "('x', 'what it is', True, 4, 'real[]', [1.0, nan])"},
        {declare("x", true, RealArrayValues{0, {}, none, none, 0}),
         "('x', 'what it is', True, 4, 'real[]', [])"},
    };
    CountingOwner owner;
    Script script;
    for (const auto& [declaration, shown] : rows) {
        script.put("p", makeParameterObject(makeParameter(owner, declaration)));
        CHECK(script.repr("p.name, p.description, p.is_input, p.type_id, p.type, p.value") == shown);
    }
    CHECK(script.repr("type(p).is_input.__doc__") ==
          "'True for input parameters, False for output parameters.'");
    CHECK(script.repr("type(p).type_id.__doc__") == "'Type ID, as passed to add_parameter.'");
    CHECK(script.repr("type(p)") == "<class 'capeopen_unit.Parameter'>");
}

TEST_CASE("A script writes outputs by the rules of inputs") {
    struct Row {
        ParameterDeclaration declaration;
        const char* statement;
        const char* error;
        const char* value;  // afterwards
    };
    const auto real = declare("q", false, RealValues{1, 2, 0, 9});
    const auto optional = declare("q", false, RealValues{1, 2, 0, 9}, true);
    const auto integer = declare("n", false, IntegerValues{1, 2, 0, 9});
    const auto string = declare("s", false, StringValues{"", "a", {"a", "b"}});
    const auto boolean = declare("b", false, BooleanValues{false, false});
    const auto array = declare("x", false, RealArrayValues{0, {1, 2}, 0, 9, 2});
    const Row rows[] = {
        {real, "p.value = 3", "", "3.0"},
        {real, "p.value = -1", "ValueError: Value is below minimum value of 0", "2.0"},
        {real, "p.value = float('nan')", "ValueError: Value must be specified", "2.0"},
        {optional, "p.value = float('nan')", "", "nan"},
        {real, "p.value = 'a'", "TypeError: must be real number, not str", "2.0"},
        {real, "p.value = Failing()", "ZeroDivisionError: on the way", "2.0"},
        {integer, "p.value = 7", "", "7"},
        {integer, "p.value = 10", "ValueError: Value is above maximum value of 9", "2"},
        {integer, "p.value = 2.0", "TypeError: 'float' object cannot be interpreted as an integer", "2"},
        {integer, "p.value = 2**31", "OverflowError: Python int too large to convert to C int", "2"},
        {integer, "p.value = -2**31", "ValueError: Value must be specified", "2"},
        {integer, "p.value = -1", "ValueError: Value is below minimum value of 0", "2"},
        {string, "p.value = 'b'", "", "'b'"},
        {string, "p.value = 'c'", "ValueError: value must be one of \"a\" or \"b\"", "'a'"},
        {string, "p.value = 1", "TypeError: expected a string, not int", "'a'"},
        {boolean, "p.value = [0]", "", "True"},
        {array, "p.value = (3, 4)", "", "[3.0, 4.0]"},
        {array, "p.value = (v for v in p.value[::-1])", "", "[2.0, 1.0]"},
        {array, "p.value = [1]", "ValueError: Invalid size", "[1.0, 2.0]"},
        {array, "p.value = [1, 'a']",
         "RuntimeError: 'value' must be iterable of real items; given argument is iterable but not all "
         "elements are "
         "real numbers",
         "[1.0, 2.0]"},
        {array, "p.value = 1", "RuntimeError: 'value' must be iterable of real items", "[1.0, 2.0]"},
        {real, "p.name = 'x'", "RuntimeError: The property 'name' is read-only", "2.0"},
        {real, "del p.value", "AttributeError: The property 'value' cannot be deleted", "2.0"},
    };
    Script script;
    CHECK(script.error("class Failing:\n    def __float__(self): raise ZeroDivisionError('on the way')") ==
          "");
    for (const Row& row : rows) {
        CAPTURE(row.statement);
        CountingOwner owner;
        const auto parameter = makeParameter(owner, row.declaration);
        script.put("p", makeParameterObject(parameter));
        CHECK(script.error(row.statement) == row.error);
        CHECK(script.repr("p.value") == row.value);
        const bool succeeded = *row.error == '\0';
        CHECK(parameter->isValueGiven() == succeeded);
        CHECK(owner.heard() == (succeeded ? 1 : 0));
        CHECK(!parameter->isInput());
    }
}

TEST_CASE("A value counts as given also when it is the one before") {
    CountingOwner owner;
    Script script;
    const auto parameter = makeParameter(owner, declare("q", false, RealValues{1, 2, none, none}));
    script.put("p", makeParameterObject(parameter));
    CHECK(script.error("p.value = 2") == "");
    CHECK(parameter->isValueGiven());
    CHECK(owner.heard() == 0);
    parameter->setValueGiven(false);
    CHECK(!parameter->isValueGiven());
}

TEST_CASE("A script can neither write inputs nor make parameters") {
    CountingOwner owner;
    Script script;
    const auto input = makeParameter(owner, declare("x", true, RealValues{1, 2, none, none}));
    script.put("p", makeParameterObject(input));
    CHECK(script.error("p.value = 3") == "RuntimeError: cannot set value of input parameter");
    CHECK(script.error("p.value = 'a'") == "RuntimeError: cannot set value of input parameter");
    CHECK(script.repr("p.value") == "2.0");
    CHECK(!input->isValueGiven());
    CHECK(script.error("type(p)()").starts_with("RuntimeError: A Parameter cannot be created."));
}

TEST_CASE("A parameter that a script kept lives on with its object") {
    Script script;
    {
        CountingOwner owner;
        const auto output = makeParameter(owner, declare("q", false, RealValues{1, 2, none, none}));
        script.put("p", makeParameterObject(output));
        output->disown();
    }
    CHECK(script.error("p.value = 3") == "");
    CHECK(script.repr("p.name, p.value") == "('q', 3.0)");
}

TEST_CASE("A detached object answers with an error") {
    Script script;
    script.put("p", makeParameterObject(nullptr));
    for (const char* attribute : {"name", "description", "is_input", "type_id", "type", "value"})
        CHECK(script.error(std::string("p.") + attribute) == "RuntimeError: not initialized");
    CHECK(script.error("p.value = 3") == "RuntimeError: not initialized");
}
