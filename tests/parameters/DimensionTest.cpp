#include "parameters/Dimension.h"

#include "parameters/Dimensionality.h"
#include "tests/parameters/Script.h"

#include <doctest/doctest.h>

using namespace orvane;

TEST_CASE("Scripts compose dimensions of the base units") {
    struct Row {
        const char* expression;
        std::vector<double> exponents;
        const char* unit;
    };
    const Row rows[] = {
        {"METER", {1}, "m"},
        {"KILOGRAM", {0, 1}, "kg"},
        {"SECOND", {0, 0, 1}, "s"},
        {"AMPERE", {0, 0, 0, 1}, "A"},
        {"KELVIN", {0, 0, 0, 0, 1}, "K"},
        {"MOLE", {0, 0, 0, 0, 0, 1}, "mol"},
        {"CANDELA", {0, 0, 0, 0, 0, 0, 1}, "cd"},
        {"RADIAN", {0, 0, 0, 0, 0, 0, 0, 1}, "rad"},
        {"METER*KELVIN", {1, 0, 0, 0, 1}, "m*K"},
        {"KELVIN*METER", {1, 0, 0, 0, 1}, "m*K"},
        {"METER/SECOND", {1, 0, -1}, "m/s"},
        {"SECOND/METER", {-1, 0, 1}, "s/m"},
        {"KILOGRAM*METER**2/SECOND**2", {2, 1, -2}, "J"},
        {"1/SECOND", {0, 0, -1}, "Hz"},
        {"1.0000000000001/SECOND", {0, 0, -1}, "Hz"},
        {"True/SECOND", {0, 0, -1}, "Hz"},
        {"METER**0.5", {0.5}, "m**0.5"},
        {"METER**-1", {-1}, "1/m"},
        {"METER**0", {0}, ""},
        {"pow(METER, 2, None)", {2}, "m**2"},
    };
    Script script;
    CHECK(script.error("globals().update({n: v for n, v in vars(Dimension).items() if n.isupper()})") == "");
    for (const Row& row : rows) {
        CAPTURE(row.expression);
        const PyRef dimension = script.eval(row.expression);
        REQUIRE(dimensionExponents(dimension.get()));
        CHECK(*dimensionExponents(dimension.get()) == row.exponents);
        CHECK(unitText(row.exponents) == row.unit);
    }
    CHECK_MESSAGE(*dimensionExponents(script.eval("METER").get()) == std::vector<double>{1},
                  "operands stay whole");
    CHECK(script.repr("type(METER)") == "<class 'capeopen_unit.Dimension'>");
}

TEST_CASE("What is no algebra of dimensions is refused with a reason") {
    const std::pair<const char*, const char*> rows[] = {
        {"METER*2", "TypeError: Expected a Dimension"},
        {"2*METER", "TypeError: Expected a Dimension"},
        {"METER/2", "TypeError: Expected a Dimension"},
        {"'a'/METER", "TypeError: Expected a Dimension"},
        {"2**METER", "TypeError: Expected a Dimension"},
        {"10**400/METER", "TypeError: Expected a Dimension"},
        {"2/METER", "TypeError: Only the number 1 can be divided by a dimension"},
        {"(1 + 1e-11)/METER", "TypeError: Only the number 1 can be divided by a dimension"},
        {"float('nan')/METER", "TypeError: Only the number 1 can be divided by a dimension"},
        {"METER**'a'", "TypeError: must be real number, not str"},
        {"METER**METER", "TypeError: must be real number, not capeopen_unit.Dimension"},
        {"pow(METER, 2, 3)", "TypeError: Ternary power not supported for Dimension"},
        {"Interrupting()/METER", "KeyboardInterrupt: "},
        {"Dimension()",
         "RuntimeError: A Dimension cannot be created. Use base units unit.Dimension.METER, "
         "unit.Dimension.KILOGRAM, unit.Dimension.SECOND, unit.Dimension.AMPERE, unit.Dimension.KELVIN, "
         "unit.Dimension.MOLE, unit.Dimension.CANDELA, and unit.Dimension.RADIAN or derived units."},
    };
    Script script;
    CHECK(script.error("METER = Dimension.METER\n"
                       "class Interrupting:\n"
                       "    def __float__(self): raise KeyboardInterrupt") == "");
    for (const auto& [expression, error] : rows) CHECK(script.error(expression) == error);
}

TEST_CASE("Only Dimension objects have exponents") {
    Script script;
    CHECK(!dimensionExponents(script.eval("3.5").get()));
    CHECK(!dimensionExponents(script.eval("[1, 0]").get()));
    CHECK(!dimensionExponents(script.eval("Dimension").get()));
}
