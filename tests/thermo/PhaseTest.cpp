// Phases, pairs of them, equilibria and compounds, as scripts work with them.
#include "tests/thermo/TestStreams.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;

namespace {

struct Row {
    const char* statement;
    const char* error;
};

}  // namespace

TEST_CASE("A phase type is what the package defines") {
    TestStreams streams;
    CHECK(streams.repr("[(p.index, p.name, p.state_of_aggregation, p.key_compound, p.excluded_compound) "
                       "for p in feed.phase_types]") ==
          "[(0, 'Gas', 'vapor', '', ''), (1, 'Oil', 'liquid', '', 'Gamma')]");
    CHECK(streams.repr("feed.phase_types[0] is feed.phase_types[0]") == "True");
    CHECK(streams.repr("feed.phase_types[1].create_phase(t=300).name") == "'Oil'");
    streams.package.phases = {{"Odd", "Unknown", "nobody", ""}};
    CHECK(streams.repr("product.phase_types") ==
          "RuntimeError: inconsistent compound data from material object");
    // A call that failed leaves nothing behind.
    streams.package.phases = {{"Odd", "Unknown", "BETA", ""}};
    CHECK(streams.repr("[(p.state_of_aggregation, p.key_compound) for p in product.phase_types]") ==
          "[('', 'Beta')]");
}

TEST_CASE("Solids and phases of no known state are phases like others") {
    TestStreams streams;
    streams.package.phases = {
        {"Oil", "liquid", "", ""}, {"Ice", "SOLID", "Beta", ""}, {"Glass", "Unknown", "", ""}};
    CHECK(streams.repr("[(p.name, p.state_of_aggregation, p.key_compound) for p in product.phase_types]") ==
          "[('Oil', 'liquid', ''), ('Ice', 'solid', 'Beta'), ('Glass', '', '')]");
    CHECK(streams.repr("product.create_solid_phase(t=200, p=1e5, x=[0, 1, 0]).name") == "'Ice'");
    CHECK(streams.error("product.create_solid_phase(t=200, p=1e5, x=[0, 1, 0]).get_property('enthalpy')") ==
          "");
    CHECK(streams.error("product.create_vapor_phase()") ==
          "RuntimeError: Material Object does not define vapor phase");
    CHECK(streams.repr("product.phase_equilibrium_properties") ==
          "['temperature', 'pressure', 'enthalpy', 'entropyF']");
}

TEST_CASE("A phase calculates at its own state") {
    TestStreams streams;
    REQUIRE(streams.error("gas = product.create_vapor_phase(t=400, p=2e5)\ngas.x = (0.2, 0.3, 0.5)") == "");
    CHECK(streams.number("gas.get_property('enthalpy')") ==
          doctest::Approx(streams.package.enthalpy(true, 400, {0.2, 0.3, 0.5})));
    CHECK(streams.repr("gas.get_property('fugacityCoefficient')") == "[1.0, 1.0, 1.0]");
    CHECK(streams.repr("gas.get_property(('oddity', 'fugacityCoefficient'))") == "[3.0, [1.0, 1.0, 1.0]]");
    CHECK(streams.repr("gas.get_property(['oddity'])") == "[3.0]");
    CHECK(streams.repr("(gas.index, gas.name, gas.state_of_aggregation, gas.t, gas.p, gas.x)") ==
          "(0, 'Gas', 'vapor', 400.0, 200000.0, (0.2, 0.3, 0.5))");
    REQUIRE(streams.error("gas.set(t=350)\ngas.p += 1") == "");
    CHECK(streams.repr("(gas.t, gas.p)") == "(350.0, 200001.0)");
    CHECK(streams.error("gas.set(t=1, p='a')") == "TypeError: must be real number, not str");
    CHECK(streams.repr("(gas.t, gas.p)") == "(350.0, 200001.0)");
    CHECK(streams.repr("product.create_liquid_phase().x") == "None");
}

TEST_CASE("A phase that cannot calculate says why") {
    for (const Row& row : {
             Row{"gas.get_property([])", "AttributeError: property name(s) not specified"},
             Row{"gas.get_property(1)",
                 "TypeError: 'properties' must be either string or collection of strings"},
             Row{"gas.get_property(['a', 1])", "TypeError: 'properties' must be either string or collection "
                                               "of strings; given argument is a collection "
                                               "but not all elements are strings"},
             Row{"gas.x = None; gas.get_property('oddity')", "ValueError: uninitialized composition"},
             Row{"gas.x = [1]; gas.get_property('oddity')",
                 "ValueError: number of elements in composition does not match number of compounds"},
             Row{"gas.t = float('nan'); gas.get_property('oddity')",
                 "ValueError: Temperature not specified (not a number)"},
             Row{"gas.p = float('nan'); gas.get_property('oddity')",
                 "ValueError: Pressure not specified (not a number)"},
             Row{"gas.get_property('unheard')",
                 "ValueError: in ICapeThermoPropertyRoutine::CalcSinglePhaseProp of test material: cannot "
                 "calculate unheard"},
             Row{"type(gas)()",
                 "RuntimeError: A Phase type can be created from a Material, PhaseType or PhaseEquilibrium"},
             Row{"type(product.phase_types[0])()",
                 "RuntimeError: A phase type cannot be created directly. Use Material.phase_types instead."},
             Row{"type(product)()", "RuntimeError: A Material can be obtained from a port (unit.ports) or by "
                                    "duplication of an existing "
                                    "material"},
             Row{"type(product.compounds[0])()", "RuntimeError: A compound should be created by a package"},
         }) {
        CAPTURE(row.statement);
        TestStreams streams;
        REQUIRE(streams.error("gas = product.create_vapor_phase(t=400, p=2e5, x=[0.2, 0.3, 0.5])") == "");
        CHECK(streams.error(row.statement) == row.error);
    }
}

TEST_CASE("The basis of an unlisted property is learned from its first reading") {
    TestStreams streams;
    // Names of this test alone, since what is learned is kept for the process.
    REQUIRE(streams.error("gas = product.create_vapor_phase(t=400, p=2e5, x=[0.2, 0.3, 0.5])\n"
                          "gas.get_property('shape')") == "");
    CHECK(streams.package.count("product GetSinglePhaseProp shape") == 2);
    REQUIRE(streams.error("gas.get_property('shape')") == "");
    CHECK(streams.package.count("product GetSinglePhaseProp shape") == 3);
    REQUIRE(streams.error("gas.get_property('enthalpy')") == "");
    CHECK(streams.package.count("product GetSinglePhaseProp enthalpy") == 1);

    // Of one that cannot be read on either basis the second error is told, and nothing is learned.
    streams.package.failures["GetSinglePhaseProp volatility"] = COBIA::capeOpenError;
    CHECK(streams.error("gas.get_property('volatility')") ==
          "ValueError: in ICapeThermoMaterial::GetSinglePhaseProp of test material: GetSinglePhaseProp "
          "volatility failed");
    CHECK(streams.package.count("product GetSinglePhaseProp volatility") == 2);
    streams.package.failures.clear();
    for (const int readings : {1, 2}) {
        REQUIRE(streams.error("gas.get_property('Volatility')") == "");
        CHECK(streams.package.count("product GetSinglePhaseProp V") == readings);
    }
}

TEST_CASE("A pair is two phases of one material") {
    for (const Row& row : {
             Row{"Pair(1, gas)", "RuntimeError: phase1 must be a phase"},
             Row{"Pair(gas, 1)", "RuntimeError: phase2 must be a phase"},
             Row{"Pair(gas, gas)", "RuntimeError: phase1 and phase2 cannot be the same phase"},
             Row{"product.create_phase_pair(gas, gas)",
                 "RuntimeError: phase1 and phase2 cannot be the same phase"},
             Row{"Pair(gas, feed.create_vapor_phase())",
                 "RuntimeError: phase1 and phase2 must be from the material type"},
             Row{"pair.phase1 = oil", "RuntimeError: The property 'phase1' is read-only"},
             Row{"pair.get_property([])", "AttributeError: property name(s) not specified"},
             Row{"pair.get_property(1)",
                 "RuntimeError: 'properties' must be either string or collection of strings"},
             Row{"gas.t = nan; pair.get_property('kvalue')",
                 "RuntimeError: Temperature not specified for phase 1 (not a number)"},
             Row{"gas.p = nan; pair.get_property('kvalue')",
                 "RuntimeError: Pressure not specified for phase 1 (not a number)"},
             Row{"oil.t = nan; pair.get_property('kvalue')",
                 "RuntimeError: Temperature not specified for phase 2 (not a number)"},
             Row{"oil.p = nan; pair.get_property('kvalue')",
                 "RuntimeError: Pressure not specified for phase 2 (not a number)"},
             Row{"assert pair.get_property('kvalue') == [400, 300]", ""},
             Row{"assert Pair(oil, gas).get_property(['kvalue']) == [[300, 400]]", ""},
             Row{"assert pair.phase1 is gas and pair.phase2 is oil and pair.properties == ['kvalue']", ""},
         }) {
        CAPTURE(row.statement);
        TestStreams streams;
        REQUIRE(streams.error("nan = float('nan')\n"
                              "gas = product.create_vapor_phase(t=400, p=2e5, x=[0.2, 0.3, 0.5])\n"
                              "oil = product.create_liquid_phase(t=300, p=1e5, x=[0.2, 0.3, 0.5])\n"
                              "pair = product.create_phase_pair(gas, oil)\nPair = type(pair)") == "");
        CHECK(streams.error(row.statement) == row.error);
    }
}

TEST_CASE("A phase equilibrium is calculated when it is first read, once") {
    TestStreams streams;
    REQUIRE(streams.error(
                "e = feed.create_phase_equilibrium(x=(0.5, 0.3, 0.2), p=1e5, vapor_fraction=0.25)") == "");
    CHECK(streams.package.flashes().empty());
    CHECK(streams.number("e.vapor_fraction") == 0.25);
    CHECK(streams.number("e.t") == streams.package.atVaporFraction({0.5, 0.3, 0.2}, 0.25, 1e5).temperature);
    CHECK(streams.repr("(e.p, e.x, [p.name for p in e.phases])") ==
          "(100000.0, [0.5, 0.3, 0.2], ['Gas', 'Oil'])");
    CHECK(streams.number("e.get_property('oddity')") == doctest::Approx(0.25 * 3 + 0.75 * 5));
    CHECK(streams.package.flashes().size() == 1);
    CHECK(streams.number("feed.create_phase_equilibrium(x=feed.x, p=1e5, t=200).vapor_fraction") == 0);
    CHECK(streams.error("type(e)()") == "RuntimeError: A PhaseEquilibrium should be created by a Material");
    CHECK(streams.error("e.t = 1") == "RuntimeError: The property 't' is read-only");
}

TEST_CASE("An equilibrium that the host gives wrongly is refused") {
    struct AnswerRow {
        const char* call;
        std::vector<double> answer;
        const char* error;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const char* const fraction = "Invalid values for equilibrium phase fraction from Material Object";
    for (const AnswerRow& row : {
             AnswerRow{"phaseFraction", {nan}, fraction},
             AnswerRow{"phaseFraction", {-1e-9}, fraction},
             AnswerRow{"phaseFraction", {1.1}, fraction},
             AnswerRow{"phaseFraction", {}, fraction},
             AnswerRow{"fraction", {0.5, 0.5}, "Inconsistent size of phase composition on Material Object"},
             AnswerRow{"temperature", {300, 300}, "Invalid response from Material Object"},
         }) {
        CAPTURE(row.error);
        TestStreams streams;
        streams.package.answers[std::string("GetSinglePhaseProp ") + row.call] = row.answer;
        CHECK(streams.repr("feed.phases") == std::string("RuntimeError: ") + row.error);
        streams.package.answers.clear();
        CHECK(streams.number("len(feed.phases)") == 2);
    }

    TestStreams streams;
    streams.package.phases = {{"Gas", "vapor", "", ""}};
    CHECK(streams.repr("feed.phases") ==
          "RuntimeError: Undefined phase 'Oil' on Material Object after CalcEquilibrium");
    COBIA::Ref<TestMaterial> empty = COBIA::makeObject<TestMaterial>(streams.package, "empty");
    streams.feed->setPresentPhases(COBIA::TextsView(COBIA::StringArray().in()), {});
    CHECK(streams.repr("feed.vapor_fraction") == "RuntimeError: No equilibrium phases on Material Object");
}

TEST_CASE("The phases of an equilibrium are the script's to change, at its own risk") {
    for (const Row& row : {
             Row{"e.phases[1].phase_fraction = nan",
                 "RuntimeError: Equilibrium contains a phase with undefined phase_fraction"},
             Row{"e.phases[1].t = nan", "RuntimeError: Equilibrium contains a phase with undefined t"},
             Row{"e.phases[0].p = nan", "RuntimeError: Equilibrium contains a phase with undefined p"},
             Row{"e.phases[0].x = None", "RuntimeError: uninitialized composition"},
             Row{"e.phases.append(1)", "RuntimeError: phase list contains non-Phase objects"},
             Row{"e.phases.clear()", "RuntimeError: No equilibrium phases on Material Object"},
         }) {
        CAPTURE(row.statement);
        for (const char* source :
             {"feed", "feed.create_phase_equilibrium(x=feed.x, p=1e5, vapor_fraction=0.25)"}) {
            TestStreams streams;
            REQUIRE(streams.error(std::string("nan = float('nan')\ne = ") + source + "\n" + row.statement) ==
                    "");
            CHECK(streams.error("e.get_property('oddity')") == row.error);
            CHECK(streams.error("product.copy_from(e)") == row.error);
        }
    }
    // The number of values differs between the phases.
    TestStreams streams;
    CHECK(streams.repr("feed.get_property('shape')") ==
          "RuntimeError: Material Object returned invalid property results");
}

TEST_CASE("A compound gives what the package knows of it") {
    TestStreams streams;
    REQUIRE(streams.error("a, b, c = feed.compounds") == "");
    CHECK(streams.repr("(a.index, b.index, a.name, b.formula, a.molecular_weight, c.molecular_weight)") ==
          "(0, 1, 'the compound Alpha', 'B2', 20.0, nan)");
    CHECK(streams.repr("c.formula") == "RuntimeError: No data");
    CHECK(streams.repr("a.cas_registry_number") == "RuntimeError: No data");
    CHECK(streams.repr("[b.get_constant(name) for name in ('acentricFactor', 'structure', 'carbonAtoms', "
                       "'isAromatic')]") == "[0.25, 'ring', 6, True]");
    CHECK(streams.package.count("feed GetCompoundConstant structure Beta") == 1);
    for (const char* name : {"empty", "unavailable"})
        CHECK(streams.repr(std::string("a.get_constant('") + name + "')") == "RuntimeError: No data");
    for (const char* name : {"tooMany", "none"})
        CHECK(streams.repr(std::string("a.get_constant('") + name + "')") ==
              "RuntimeError: Invalid response from Material Object");

    CHECK(streams.repr("a.get_temperature_dependent_property('vaporPressure', 300)") == "300.0");
    CHECK(streams.repr("a.get_temperature_dependent_property(['vaporPressure', 'other'], t=300)") ==
          "[300.0, 600.0]");
    CHECK(streams.repr("a.get_temperature_dependent_property([], 300)") ==
          "RuntimeError: No properties specified");
    CHECK(streams.repr("a.get_temperature_dependent_property('unavailable', 300)") ==
          "RuntimeError: No data");
    streams.package.answers["GetTDependentProperty short"] = {};
    CHECK(streams.repr("a.get_temperature_dependent_property('short', 300)") ==
          "RuntimeError: Invalid response from Material Object");
    CHECK(streams.package.count("feed GetCompoundList") == 1);
}
