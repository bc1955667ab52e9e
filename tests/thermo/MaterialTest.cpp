// What scripts read of a feed and write to a product, with the messages they get.
#include "tests/thermo/TestStreams.h"

#include <doctest/doctest.h>

#include <cmath>

using namespace orvane;
using namespace orvane::test;

TEST_CASE("A feed shows the stream that the host connected") {
    TestStreams streams;
    const auto split = streams.package.atVaporFraction(streams.composition, 0.5, streams.pressure);
    CHECK(streams.repr("feed.name") == "'stream feed'");
    CHECK(streams.number("feed.t") == split.temperature);
    CHECK(streams.number("feed.p") == streams.pressure);
    CHECK(streams.repr("feed.x") == "[0.5, 0.3, 0.2]");
    CHECK(streams.number("feed.flow_rate") == 2);
    CHECK(streams.number("feed.vapor_fraction") == 0.5);
    CHECK(streams.repr("[phase.name for phase in feed.phases]") == "['Gas', 'Oil']");
    CHECK(streams.number("feed.get_property('enthalpy')") ==
          doctest::Approx(streams.package.enthalpy(split)));
    CHECK(streams.number("feed.get_property(properties='oddity')") == doctest::Approx(4));
    CHECK(streams.number("feed.get_property(['enthalpy', 'oddity'])[1]") == doctest::Approx(4));
    CHECK(streams.number("len(feed.get_property(['fugacityCoefficient', 'oddity']))") == 4);
}

TEST_CASE("A feed's equilibrium is read on the first need, once, from the port's own object") {
    TestStreams streams;
    CHECK(streams.package.count("feed GetOverallTPFraction") == 1);
    CHECK(streams.package.count("feed GetSinglePhaseProp") == 0);
    streams.eval("feed.get_property('enthalpy')");
    CHECK(streams.package.count("feed GetSinglePhaseProp phaseFraction") == 2);
    streams.eval("(feed.vapor_fraction, feed.phases, feed.t, feed.x, feed.get_property('oddity'))");
    CHECK(streams.package.count("feed GetSinglePhaseProp phaseFraction") == 2);
    CHECK(streams.package.count("feed GetPresentPhases") == 1);
}

TEST_CASE("A feed is never written: what is calculated for it is calculated on one scratch copy") {
    TestStreams streams;
    REQUIRE(streams.error("feed.phase_properties\n"
                          "gas = feed.create_vapor_phase(t=400, p=1e5, x=feed.x)\n"
                          "oil = feed.create_liquid_phase(t=300, p=1e5, x=feed.x)\n"
                          "gas.get_property('enthalpy')\n"
                          "feed.create_phase_pair(gas, oil).get_property('kvalue')\n"
                          "feed.create_phase_equilibrium(x=feed.x, t=350, p=1e5).phases\n"
                          "feed.flow_rate") == "");
    // The feed's own equilibrium is still that of the port's object.
    CHECK(streams.number("feed.vapor_fraction") == 0.5);
    REQUIRE(streams.error("feed.get_property('enthalpy')") == "");
    CHECK(streams.package.count("feed CreateMaterial") == 1);
    CHECK(streams.package.count("feed Set") == 0);
    CHECK(streams.package.count("feed Calc") == 0);
    CHECK(streams.package.count("copy GetOverallProp totalFlow") == 0);
    // A phase is declared when it is new to the copy, and left alone otherwise.
    CHECK(streams.package.count("copy SetPresentPhases") == 3);
}

TEST_CASE("Of a product a script reads what it has specified") {
    TestStreams streams;
    for (const char* attribute : {"t", "p", "x", "vapor_fraction"})
        CHECK(streams.repr(std::string("product.") + attribute) == "RuntimeError: value not specified");
    CHECK(streams.repr("product.solution_type") == "'unspecified'");
    REQUIRE(streams.error(
                "x = (0.2, 0.3, 0.5)\nproduct.x = x\nproduct.vapor_fraction = 1\nproduct.p = 2e5\n"
                "product.flow_rate = 0\nproduct.solution_type = 'retrograde'\nproduct.x.append(1)") == "");
    CHECK(streams.repr(
              "(product.x, product.vapor_fraction, product.p, product.flow_rate, product.solution_type)") ==
          "([0.2, 0.3, 0.5], 1.0, 200000.0, 0.0, 'retrograde')");
    CHECK(streams.product->overall("totalFlow")[0] == 0);
    streams.begin();
    CHECK(streams.repr("product.x") == "RuntimeError: value not specified");
    CHECK(streams.repr("product.solution_type") == "'unspecified'");
}

TEST_CASE("What cannot be read or written says so") {
    struct Row {
        const char* statement;
        const char* error;
    };
    for (const Row& row : {
             Row{"feed.t = 300", "RuntimeError: cannot set t on material object connected to feed port"},
             Row{"feed.p = 1", "RuntimeError: cannot set p on material object connected to feed port"},
             Row{"feed.x = []", "RuntimeError: cannot set x on material object connected to feed port"},
             Row{"feed.vapor_fraction = 1",
                 "RuntimeError: cannot set vapor_fraction on material object connected to feed port"},
             Row{"feed.solution_type = 'normal'",
                 "RuntimeError: cannot set solution_type on object connected to feed port"},
             Row{"feed.solution_type",
                 "RuntimeError: solution_type not available for material object connected to feed port"},
             Row{"feed.flow_rate = 1", "RuntimeError: The property flow_rate is read-only for inlet ports"},
             Row{"feed.set(t=1)",
                 "RuntimeError: cannot invoke set on material object connected to feed port"},
             Row{"feed.copy_from(feed)", "RuntimeError: copy_from can only be used for product materials"},
             Row{"product.phases", "RuntimeError: phases can only be obtained for feed materials"},
             Row{"product.get_property('enthalpy')",
                 "RuntimeError: get_property can only be used for feed materials"},
             Row{"product.compounds = []", "RuntimeError: The property 'compounds' is read-only"},
             Row{"product.name = 'a'", "RuntimeError: The property 'name' is read-only"},
             Row{"del product.t", "AttributeError: The property 't' cannot be deleted"},
             Row{"product.t = 'hot'", "TypeError: must be real number, not str"},
             Row{"product.t = None", "TypeError: must be real number, not NoneType"},
             Row{"product.flow_rate = float('nan')",
                 "RuntimeError: Unspecified value for flow_rate (not a number)"},
             Row{"product.flow_rate = -0.001", "RuntimeError: Invalid value for flow_rate (negative)"},
             Row{"product.solution_type = 1",
                 "RuntimeError: solution type must be a string, 'unspecified', 'normal' or 'retrograde'"},
             Row{"product.solution_type = 'Normal'", "RuntimeError: Invalid solution_type 'Normal': must be "
                                                     "'unspecified', 'normal' or 'retrograde'"},
             Row{"product.create_solid_phase()", "RuntimeError: Material Object does not define solid phase"},
             Row{"product.create_phase_pair(1, 2)", "RuntimeError: phase1 must be Phase"},
             Row{"product.create_phase_pair(product.create_vapor_phase(), 2)",
                 "RuntimeError: phase2 must be Phase"},
             Row{"product.copy_from(product)", "RuntimeError: copy_from cannot copy from a product stream."},
             Row{"product.copy_from([1])",
                 "RuntimeError: argument to copy_from must be PhaseEquilibrium or material feed stream."},
             Row{"feed.get_property([])", "AttributeError: property name(s) not specified"},
             Row{"feed.get_property('')", "AttributeError: property name(s) not specified"},
             Row{"feed.get_property(5)",
                 "RuntimeError: 'properties' must be either string or collection of strings"},
         }) {
        CAPTURE(row.statement);
        TestStreams streams;
        CHECK(streams.error(row.statement) == row.error);
        CHECK(streams.package.count("product Set") == 0);
    }
}

TEST_CASE("A composition is one finite number for each compound, with unity as their sum") {
    struct Row {
        const char* value;
        const char* error;
    };
    for (const Row& row : {
             Row{"[0.5, 0.3, 0.195]", ""},
             Row{"(1, 0, 0)", ""},
             Row{"iter([1.2, -0.1, -0.1])", ""},
             Row{"None", "uninitialized composition"},
             Row{"5", "'composition' must be iterable of real items"},
             Row{"[0.5, 'a', 0.5]", "'composition' must be iterable of real items; given argument is "
                                    "iterable but not all elements are real "
                                    "numbers"},
             Row{"[]", "number of elements in composition does not match number of compounds"},
             Row{"[0.5, 0.5]", "number of elements in composition does not match number of compounds"},
             Row{"[float('nan'), 0.5, 0.5]",
                 "one or more elements of composition are unspecified (not a number)"},
             Row{"[float('inf'), 0.5, 0.5]",
                 "one or more elements of composition are unspecified (not a number)"},
             Row{"[0.5, 0.3, 0.18]", "sum(composition) is not unity"},
             Row{"[0.5, 0.3, 0.211]", "sum(composition) is not unity"},
         }) {
        CAPTURE(row.value);
        const std::string expected = *row.error ? std::string("RuntimeError: ") + row.error : "";
        TestStreams streams;
        REQUIRE(streams.error("product.x = (0.2, 0.3, 0.5)") == "");
        CHECK(streams.error(std::string("product.x = ") + row.value) == expected);
        // A refused value leaves the old one.
        CHECK((streams.repr("product.x") == "[0.2, 0.3, 0.5]") == (*row.error != 0));
        CHECK(streams.error(std::string("product.create_phase_equilibrium(t=300, p=1e5, x=") + row.value +
                            ")") == expected);
    }
}

TEST_CASE("set applies its keywords in the order given, until one fails") {
    TestStreams streams;
    CHECK(streams.error("product.set()") == "RuntimeError: no arguments specified for set");
    CHECK(streams.error("product.set(1)") == "RuntimeError: set does not accept positional arguments");
    CHECK(streams.error("product.set(**{1: 2})") ==
          "RuntimeError: keyword list contains argument names that are not a string");
    CHECK(streams.error("product.set(T=300)") == "RuntimeError: unknown/invalid argument 'T'");
    CHECK(streams.error("product.set(t=300, p=1e5, vapor_fraction=0.5, flow_rate=3)") ==
          "RuntimeError: exactly two equilibrium conditions must be specified for port 'Out'; temperature "
          "and pressure "
          "are already specified");
    CHECK(streams.repr("(product.t, product.p)") == "(300.0, 100000.0)");
    CHECK(streams.package.count("product SetOverallProp totalFlow") == 0);

    streams.begin();
    CHECK(
        streams.error(
            "product.set(Temperature=310, PRESSURE=2e5, x=[1, 0, 0], flow_rate=3, solution_type='normal')") ==
        "");
    CHECK(streams.repr("(product.t, product.p, product.x, product.solution_type)") ==
          "(310.0, 200000.0, [1.0, 0.0, 0.0], 'normal')");
    CHECK(streams.product->overall("totalFlow")[0] == 3);
}

TEST_CASE("The flow rate counts as specified only when the host has taken it") {
    TestStreams streams;
    streams.package.failures["SetOverallProp totalFlow"] = COBIA::capeOpenError;
    CHECK(streams.error("product.flow_rate = 1") == "RuntimeError: in ICapeThermoMaterial::SetOverallProp of "
                                                    "test material: SetOverallProp totalFlow failed");
    CHECK_FALSE(streams.productPort->specification().flowRateSpecified());
    streams.package.failures.clear();
    CHECK(streams.error("product.flow_rate = 1") == "");
    CHECK(streams.productPort->specification().flowRateSpecified());
    streams.package.answers["GetOverallProp totalFlow"] = {1, 2};
    CHECK(streams.repr("product.flow_rate") ==
          "RuntimeError: Invalid output for total flow from Material Object");
}

TEST_CASE("What the package supports is listed") {
    TestStreams streams;
    CHECK(streams.repr("feed.constant_compound_properties") == "['acentricFactor', 'structure']");
    CHECK(streams.repr("feed.temperature_dependent_compound_properties") == "['vaporPressure']");
    CHECK(streams.repr("feed.phase_properties") == "['Enthalpy', 'entropyF', 'fugacityCoefficient']");
    CHECK(streams.repr("feed.phase_pair_properties") == "['kvalue']");
    CHECK(streams.repr("feed.phase_equilibrium_properties") ==
          "['temperature', 'pressure', 'vaporFraction', 'enthalpy', 'entropyF']");
    streams.package.phases = {{"Oil", "Liquid", "", ""}};
    CHECK(streams.repr("product.phase_equilibrium_properties") ==
          "['temperature', 'pressure', 'enthalpy', 'entropyF']");
}

TEST_CASE("Attributes and methods come in their order, each with what help says of it") {
    TestStreams streams;
    REQUIRE(streams.error("Material = type(feed)\n"
                          "names = [n for n in vars(Material) if not n.startswith('_')]") == "");
    CHECK(streams.repr("' '.join(names)") ==
          "'get_property create_vapor_phase create_liquid_phase create_solid_phase create_phase_pair "
          "create_phase_equilibrium set copy_from name constant_compound_properties "
          "temperature_dependent_compound_properties phase_properties phase_pair_properties "
          "phase_equilibrium_properties compounds phase_types flow_rate phases t p x vapor_fraction "
          "solution_type'");
    CHECK(streams.repr("[n for n in names if not getattr(Material, n).__doc__]") == "[]");
    CHECK(streams.repr(
              "Material.set.__doc__.endswith('include \"unspecified\", \"normal\" and \"retrograde\". A "
              "solution_type should not be specified unless vaporFraction is one of the flash "
              "conditions.')") == "True");
    // The list of keywords is the same.
    CHECK(streams.repr("Material.create_phase_equilibrium.__doc__.endswith("
                       "Material.set.__doc__[Material.set.__doc__.index('Keyword'):])") == "True");
}

TEST_CASE("A missing interface is named when it is needed, and not before") {
    struct Row {
        COBIA::CapeUUID missing;
        const char* expression;
        const char* error;
    };
    for (const Row& row : {
             Row{COBIA::ICapeThermoCompounds::uuid, "product.compounds",
                 "Material Object does not implement ICapeThermoCompounds"},
             Row{COBIA::ICapeThermoPhases::uuid, "product.phase_types",
                 "Material Object does not implement ICapeThermoPhases"},
             Row{COBIA::ICapeThermoPropertyRoutine::uuid, "product.phase_properties",
                 "Material Object does not implement ICapeThermoPropertyRoutine"},
             Row{COBIA::ICapeThermoEquilibriumRoutine::uuid,
                 "product.create_phase_equilibrium(t=300, p=1e5, x=[1, 0, 0]).t",
                 "Material Object does not implement CapeThermoEquilibriumRoutine"},
             Row{COBIA::ICapeIdentification::uuid, "product.name",
                 "CAPE-OPEN Material Object does not implement ICapeIdentification"},
         }) {
        TestStreams streams;
        streams.package.missing = {row.missing};
        streams.begin();
        CHECK(streams.repr(row.expression) == std::string("RuntimeError: ") + row.error);
        streams.package.missing.clear();
        CHECK(streams.repr(row.expression).find("Error") == std::string::npos);
    }
}

TEST_CASE("create_phase_equilibrium takes its arguments by position or by keyword") {
    struct Row {
        const char* arguments;
        const char* error;
    };
    for (const Row& row : {
             Row{"x, 'temperature', 350, 'Pressure', 1e5", ""},
             Row{"x, 'pressure', 1e5, 'vaporFraction', 0.5, 'unspecified'", ""},
             Row{"x, 'pressure', 1e5, 'vaporFraction', 0.5, solution_type='normal'", ""},
             Row{"x=x, p=1e5, Enthalpy=0, flow_rate=1", ""},
             Row{"x=x, p=1e5, vapor_fraction=0.5, solution_type='retrograde'", ""},
             Row{"x, 't', 300, 'p', 1e5", "Unknown flash condition: t"},
             Row{"x, 'temperature', 300", "create_phase_equilibrium with positional arguments requires 5 or "
                                          "6 positional arguments; 3 where "
                                          "specified"},
             Row{"x, 1, 300, 'pressure', 1e5", "flash condition 1 must be a string value"},
             Row{"x, 'temperature', 300, None, 1e5", "flash condition 2 must be a string value"},
             Row{"x, 'temperature', 300, 'pressure', 1e5, 1", "solution type must be a string value"},
             Row{"x, 'temperature', 300, 'pressure', 1e5, 'normal'",
                 "Invalid solution_type 'normal' for selected flash conditions"},
             Row{"x, 'pressure', 1e5, 'vaporfraction', 0, 'odd'",
                 "Invalid solution_type 'odd' for selected flash conditions"},
             Row{"x, 'temperature', 300, 'pressure', float('nan')",
                 "Value for pressure not specified (not a number)"},
             Row{"x=x, p=1e5, vapor_fraction=float('nan')",
                 "Value for vapor_fraction not specified (not a number)"},
             Row{"**{1: 2}", "keyword list contains argument names that are not a string"},
             Row{"t=1, p=1, enthalpy=1", "too many flash conditions specified"},
             Row{"t=1, p=1, y=1", "unknown/invalid argument 'y'"},
             Row{"t=1, p=1", "composition not specified"},
             Row{"", "composition not specified"},
             Row{"x=x, p=1", "less than 2 flash conditions specified"},
         }) {
        CAPTURE(row.arguments);
        TestStreams streams;
        const std::string expected = *row.error ? std::string("RuntimeError: ") + row.error : "";
        REQUIRE(streams.error("x = [0.5, 0.3, 0.2]") == "");
        CHECK(streams.error(std::string("e = product.create_phase_equilibrium(") + row.arguments + ")") ==
              expected);
        CHECK(streams.package.flashes().empty());
        if (expected.empty())
            CHECK(streams.number("sum(phase.phase_fraction for phase in e.phases)") == doctest::Approx(1));
    }
}
