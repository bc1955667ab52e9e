// Parameters that a script declares, as a host reads, sets and resets them and a script does, and what becomes of them when
// the script changes.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <cmath>
#include <limits>

using namespace orvane::test;

namespace {

constexpr double unspecified = std::numeric_limits<double>::quiet_NaN();

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

template <class Table, class T> T outputOf(Slot<T*> Table::*);

template <auto slot, class I> auto read(const Ref<I>& object) {
    decltype(outputOf(slot)) value{};
    call<slot>(object, &value);
    return value;
}

template <auto slot, class I> std::vector<double> reals(const Ref<I>& object) {
    RealArray result;
    call<slot>(object, result.out());
    return {result.view().begin(), result.view().end()};
}

std::string script(const std::string& parameters, const std::string& calculate = "pass") {
    return "def Configure(unit):\n    t, m, D = unit.ParameterType, unit.ParameterMode, unit.Dimension\n" +
           parameters + "def Calculate(unit):\n    " + calculate + "\n";
}

const std::string pressureDrop =
    "    unit.add_parameter('dP', t.REAL, m.INPUT, default=2, initial=3, min=1, max=9, difference=True,\n"
    "                       dimension=D.KILOGRAM/D.METER/D.SECOND**2, description='pressure drop')\n";

}  // namespace

TEST_CASE("A host finds in a parameter what the script declared") {
    TestHost host(script(
        pressureDrop +
        "    unit.add_parameter('n', t.INTEGER, m.OUTPUT)\n"
        "    unit.add_parameter('fluid', t.STRING, m.INPUT, options=['a', '\u03b2'], default='\u03b2')\n"
        "    unit.add_parameter('b', t.BOOLEAN, m.INPUT, default=True)\n"
        "    unit.add_parameter('x', t.ARRAY_REAL, m.OUTPUT, default=4, length=3)\n"));
    using Real = ICapeRealParameter::Table;
    const auto drop = host.parameter<ICapeRealParameter>("DP");
    CHECK(read<&Real::getValue>(drop) == 3);
    CHECK(read<&Real::getDefaultValue>(drop) == 2);
    CHECK(read<&Real::getLowerBound>(drop) == 1);
    CHECK(read<&Real::getUpperBound>(drop) == 9);
    CHECK(reals<&Real::getDimensionality>(drop) == std::vector<double>{-1, 1, -2, 0, 0, 0, 0, 0, 1});
    CHECK(text<&ICapeIdentification::Table::getComponentDescription>(
              query<ICapeIdentification>(drop).get()) == "pressure drop");

    using Integer = ICapeIntegerParameter::Table;
    const auto integer = host.parameter<ICapeIntegerParameter>("n");
    CHECK(read<&Integer::getLowerBound>(integer) == undefinedInteger);
    CHECK(read<&Integer::getUpperBound>(integer) == std::numeric_limits<CapeInteger>::max());
    CHECK(read<&ICapeParameter::Table::getMode>(query<ICapeParameter>(integer)) == CapeParamMode::output);
    CHECK(read<&ICapeParameter::Table::getType>(query<ICapeParameter>(integer)) == CapeParamType::integer);
    CHECK(text<&ICapeIdentification::Table::getComponentDescription>(
              query<ICapeIdentification>(integer).get()) == "Orvane Operation Integer Output Parameter");

    using String = ICapeStringParameter::Table;
    const auto fluid = host.parameter<ICapeStringParameter>("fluid");
    StringArray options;
    call<&String::getOptionList>(fluid, options.out());
    CHECK(options.utf8() == std::vector<std::string>{"a", "\u03b2"});
    CHECK(read<&String::getRestrictedToList>(fluid) == 1);
    CHECK(text<&String::getValue>(fluid.get()) == "\u03b2");

    CHECK(read<&ICapeBooleanParameter::Table::getValue>(host.parameter<ICapeBooleanParameter>("b")) == 1);

    const auto array = host.parameter<ICapeArrayParameter>("x");
    IntegerArray size;
    call<&ICapeArrayParameter::Table::getSize>(array, size.out());
    CHECK(read<&ICapeArrayParameter::Table::getNumDimensions>(array) == 1);
    CHECK(std::vector<CapeInteger>(size.view().begin(), size.view().end()) == std::vector<CapeInteger>{3});
    CHECK(reals<&ICapeArrayRealParameter::Table::getValue>(query<ICapeArrayRealParameter>(array)) ==
          std::vector<double>{4, 4, 4});
}

TEST_CASE("Host and script set parameters by the same rules, each on its own side") {
    TestHost host(script(pressureDrop + "    unit.add_parameter('q', t.REAL, m.OUTPUT, min=0)\n",
                         "for name, value in (('dP', 5), ('q', -1), ('q', 'a'), ('q', 2)):\n"
                         "        try:\n            unit.parameters[name].value = value\n"
                         "        except Exception as e:\n            print(type(e).__name__, e)\n"
                         "    print(unit.parameters['dP'].value, unit.parameters['q'].value)"));
    const auto drop = host.parameter<ICapeRealParameter>("dP");
    const auto output = host.parameter<ICapeRealParameter>("q");
    CHECK(TestHost::outcome([&] { call<&ICapeRealParameter::Table::putValue>(output, 1.0); }).code == denied);
    CHECK(TestHost::outcome([&] {
              call<&ICapeRealParameter::Table::putValue>(drop, 10.0);
          }).text.ends_with(": Value is above maximum value of 9"));
    call<&ICapeRealParameter::Table::putValue>(drop, 8.0);
    REQUIRE(host.calculate().succeeded());
    CHECK(contains(host.lastCalculation(), "RuntimeError cannot set value of input parameter\r\n"
                                           "ValueError Value is below minimum value of 0\r\n"
                                           "TypeError must be real number, not str\r\n8.0 2.0\r\n"));
    CHECK(read<&ICapeRealParameter::Table::getValue>(output) == 2);
    CHECK(host.messages().empty());
    call<&ICapeParameter::Table::Reset>(query<ICapeParameter>(drop));
    CHECK(read<&ICapeRealParameter::Table::getValue>(drop) == 2);
}

TEST_CASE("An output counts as given when the script gives the value of the run before") {
    TestHost host(script(
        "    unit.add_parameter('q', t.REAL, m.OUTPUT)\n    unit.add_parameter('r', t.REAL, m.OUTPUT)\n",
        "unit.parameters['q'].value = 2"));
    for (std::size_t run = 1; run <= 2; ++run) {
        REQUIRE(host.calculate().succeeded());
        CHECK(host.messages() ==
              std::vector<std::string>(run,
                                       "Orvane Operation warning: Ouput parameter 'r' was never specified"));
    }
}

TEST_CASE("A parameter that a changed script declares again is the same to the host, with its value") {
    struct Row {
        const char* again;
        bool kept;
    };
    for (
        const Row& row :
        {Row{"    unit.add_parameter('DP', t.REAL, m.INPUT, default=4, max=6, dimension=D.KILOGRAM/D.METER/D.SECOND**2, "
             "difference=True)\n",
             true},
         {"    unit.add_parameter('dP', t.REAL, m.OUTPUT, dimension=D.KILOGRAM/D.METER/D.SECOND**2, difference=True)\n",
          true},
         {"    unit.add_parameter('dP', t.REAL, m.INPUT, dimension=D.KELVIN, default=4)\n", false},
         {"    unit.add_parameter('dP', t.INTEGER, m.INPUT, default=4)\n", false},
         {"    pass\n", false}}) {
        CAPTURE(row.again);
        TestHost host(script(pressureDrop));
        const auto drop = host.parameter<ICapeRealParameter>("dP");
        call<&ICapeRealParameter::Table::putValue>(drop, 5.0);
        host.load(script(row.again));
        const auto names = host.names(host.parameters());
        const auto now = names.empty() ? nullptr : host.parameter<ICapeRealParameter>("dp");
        CHECK((now == drop) == row.kept);
        CHECK(read<&ICapeRealParameter::Table::getValue>(drop) == 5);
        // One that the unit has dropped still answers, and the unit no longer hears of it.
        host.validate();
        const auto before = host.status();
        const bool isInput =
            read<&ICapeParameter::Table::getMode>(query<ICapeParameter>(drop)) == CapeParamMode::input;
        CHECK(TestHost::outcome([&] { call<&ICapeRealParameter::Table::putValue>(drop, 6.0); }).succeeded() ==
              isInput);
        CHECK((host.status() == before) == (!row.kept || !isInput));
    }
}

TEST_CASE("Values that mean unspecified are accepted where the parameter is optional alone") {
    const auto declared = [](const char* optional) {
        return script("    unit.add_parameter('r', t.REAL, m.INPUT, optional=" + std::string(optional) +
                      ")\n    unit.add_parameter('s', t.STRING, m.INPUT, optional=" + optional +
                      ")\n    unit.add_parameter('a', t.ARRAY_REAL, m.INPUT, length=2, optional=" + optional +
                      ")\n");
    };
    TestHost optional(declared("True")), required(declared("False"));
    const RealArray partly({1, unspecified}), empty, wrongSize({1});
    const auto setting = [&](TestHost& host, const RealArray& values) {
        return TestHost::outcome([&] {
                   call<&ICapeArrayRealParameter::Table::putValue>(
                       host.parameter<ICapeArrayRealParameter>("a"), values.in());
               })
            .text;
    };
    CHECK(setting(optional, partly).empty());
    CHECK(setting(optional, empty).empty());
    CHECK(setting(optional, wrongSize).ends_with(": Invalid size"));
    CHECK(setting(required, partly).ends_with(": All elements must be specified"));
    CHECK(setting(required, empty).ends_with(": Value must be specified"));
    CHECK(setting(required, wrongSize).ends_with(": Invalid size"));
    CHECK(optional.validate().valid);
    CHECK(required.validate().message == "Parameter 'r' is not valid: Value must be specified");
    const auto real = optional.parameter<ICapeRealParameter>("r");
    call<&ICapeRealParameter::Table::putValue>(real, 1.0);
    call<&ICapeParameter::Table::Reset>(query<ICapeParameter>(real));
    CHECK(std::isnan(read<&ICapeRealParameter::Table::getValue>(real)));
}
