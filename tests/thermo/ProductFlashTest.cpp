// From what a script asks of a product to the flashes on the host's object.
#include "tests/thermo/TestStreams.h"
#include "thermo/CapeMaterial.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;

namespace {

using Texts = std::vector<std::string>;

double enthalpyOfProduct(TestStreams& streams) {
    const double vapor = streams.product->phaseValue("Gas", "phaseFraction");
    return vapor * streams.product->phaseValue("Gas", "enthalpy") +
           (1 - vapor) * streams.product->phaseValue("Oil", "enthalpy");
}

}  // namespace

TEST_CASE("A product is brought to the two conditions that were specified") {
    TestStreams streams;
    REQUIRE(streams.error("h = feed.get_property('enthalpy')\n"
                          "product.set(x=feed.x, p=feed.p, flow_rate=feed.flow_rate, enthalpy=h)") == "");
    CHECK(streams.package.flashes().empty());
    CHECK(streams.finish() == "");
    CHECK(streams.warnings.empty());
    CHECK(streams.package.flashes() == Texts{"pressure+enthalpy unspecified"});
    CHECK(streams.product->overall("fraction") == streams.composition);
    CHECK(streams.product->overall("totalFlow")[0] == 2);
    CHECK(streams.product->phaseValue("Gas", "phaseFraction") == doctest::Approx(0.5));
    // The next run starts from nothing.
    streams.begin();
    CHECK(streams.finish() == "");
    CHECK(streams.package.flashes().size() == 1);
    CHECK(streams.warnings == Texts{"x not specified for port 'Out'",
                                    "flow_rate not specified for port 'Out'",
                                    "missing phase equilibrium conditions for port 'Out'"});
}

TEST_CASE("The vapour fraction is told with the label of the vapour phase") {
    TestStreams streams;
    REQUIRE(streams.error("product.set(x=[0.5, 0.3, 0.2], vapor_fraction=0.25, p=1e5, flow_rate=1, "
                          "solution_type='retrograde')") == "");
    CHECK(streams.finish() == "");
    CHECK(streams.package.flashes() == Texts{"phaseFraction+pressure retrograde"});
    CHECK(streams.product->phaseValue("Gas", "phaseFraction") == 0.25);
}

TEST_CASE("A product that cannot be flashed fails the run, or is left alone") {
    struct Row {
        const char* script;
        const char* failure;
        int warnings;
    };
    const char* const noVapor = "Unable to perform vapor fraction flash: no vapor phase defined";
    for (const Row& row : {
             Row{"product.set(x=[1, 0, 0], flow_rate=1, p=1e5, t=300)", "", 0},
             Row{"product.set(x=[1, 0, 0], flow_rate=1, p=1e5, vapor_fraction=0)", noVapor, 0},
             Row{"product.set(x=[1, 0, 0], flow_rate=1, p=1e5, t=300, solution_type='retrograde')",
                 "Material product port solution_type can only be specified in case vapor_fraction is "
                 "specified",
                 0},
             Row{"product.copy_from(product.create_phase_equilibrium(x=[1, 0, 0], t=200, "
                 "p=1e5))\nproduct.flow_rate = 1",
                 noVapor, 0},
             Row{"product.set(flow_rate=1, p=1e5, t=300)", "", 1},
             Row{"product.set(x=[1, 0, 0], p=1e5)", "", 2},
         }) {
        CAPTURE(row.script);
        TestStreams streams;
        streams.package.phases = {{"Oil", "liquid", "", ""}};
        REQUIRE(streams.error(row.script) == "");
        const auto before = streams.package.flashes().size();
        CHECK(streams.finish() == row.failure);
        CHECK(static_cast<int>(streams.warnings.size()) == row.warnings);
        CHECK(streams.package.flashes().size() - before == (*row.failure || row.warnings ? 0 : 1));
    }
}

TEST_CASE("copy_from matches the source by the first flash that gives its enthalpy") {
    struct Row {
        const char* name;
        double vaporFraction;
        double offset;  // added to the enthalpy that the host tells for the source [J/mol]
        Texts flashes;
    };
    const std::string vapor = "pressure+phaseFraction unspecified";
    const std::string temperature = "pressure+temperature unspecified";
    const std::string enthalpy = "pressure+enthalpy unspecified";
    for (const Row& row : {
             Row{"between the boundaries", 0.5, 0, {temperature}},
             Row{"on the bubble point", 0, 0, {vapor}},
             Row{"on the dew point", 1, 0, {vapor}},
             Row{"near enough", 0.5, 0.009, {temperature}},
             Row{"not near enough", 0.5, 0.011, {temperature, enthalpy}},
             Row{"on a boundary, not near enough", 0, 1, {vapor, temperature, enthalpy}},
         }) {
        CAPTURE(row.name);
        TestStreams streams;
        const auto split =
            streams.package.atVaporFraction(streams.composition, row.vaporFraction, streams.pressure);
        streams.setFeed(split);
        streams.begin();
        REQUIRE(streams.number("len(feed.phases)") == 2);
        // The source's enthalpy is calculated for each phase, and asked for once in each.
        if (row.offset != 0) {
            const double told = streams.package.enthalpy(split) + row.offset;
            streams.package.answers["GetSinglePhaseProp enthalpy"] = {told};
        }
        REQUIRE(streams.error("product.copy_from(feed)") == "");
        streams.package.answers.clear();
        CHECK(streams.finish() == "");
        CHECK(streams.package.flashes() == row.flashes);
        CHECK(streams.warnings.empty());
        CHECK(streams.product->overall("totalFlow")[0] == 2);
        CHECK(streams.product->overall("fraction") == streams.composition);
    }
}

TEST_CASE("A product copied from a feed has the feed's enthalpy") {
    TestStreams streams;
    const double enthalpy = streams.number("feed.get_property('enthalpy')");
    REQUIRE(streams.error("product.copy_from(source=feed)") == "");
    CHECK(streams.finish() == "");
    CHECK(enthalpyOfProduct(streams) == doctest::Approx(enthalpy));
}

TEST_CASE("copy_from a phase equilibrium leaves the flow to the script") {
    TestStreams streams;
    REQUIRE(
        streams.error("e = product.create_phase_equilibrium(x=[0.2, 0.3, 0.5], p=1e5, vapor_fraction=0.5)\n"
                      "product.copy_from(e)") == "");
    CHECK(streams.repr("product.x") == "[0.2, 0.3, 0.5]");
    CHECK(
        streams.error("product.t = 300") ==
        "RuntimeError: cannot set equilibrium conditions for port 'Out'; copy_from has been called already.");
    CHECK(streams.finish() == "");
    CHECK(streams.warnings == Texts{"flow_rate not specified for port 'Out'"});
    // A new run may specify by conditions again.
    streams.begin();
    CHECK(streams.error("product.t = 300") == "");
    CHECK(streams.error("product.copy_from(feed)") ==
          "RuntimeError: cannot call copy_fromm on port 'Out'; temperature is already specified");
}

TEST_CASE("The enthalpy after a flash is read with care") {
    struct Row {
        const char* call;
        std::vector<double> answer;
        const char* failure;
    };
    for (const Row& row : {
             Row{"GetSinglePhaseProp phaseFraction",
                 {},
                 "unexpected number of values for phase fraction from Material Object"},
             Row{"GetSinglePhaseProp phaseFraction",
                 {0.5, 0.5},
                 "unexpected number of values for phase fraction from Material Object"},
             Row{"GetSinglePhaseProp enthalpy",
                 {1, 2},
                 "unexpected number of values for enthalpy from Material Object"},
         }) {
        TestStreams streams;
        REQUIRE(streams.error("product.copy_from(feed)") == "");
        streams.package.answers[row.call] = row.answer;
        CHECK(streams.finish() == row.failure);
    }
}

TEST_CASE("There is one version of the interfaces") {
    TestStreams streams;
    PortOwner& owner = streams;
    CHECK_THROWS_WITH(
        makeMaterial(CapeOpenVersion(1), *streams.feedPort, owner, streams.feedPort->connectedObject().get()),
        "Unsupported CAPE-OPEN version");
}

TEST_CASE("What is connected must be a material") {
    TestStreams streams;
    CHECK(streams.feedPort->description() == "Orvane Operation Material Feed Port");
    CHECK(streams.productPort->description() == "Orvane Operation Material Product Port");
    streams.package.missing = {COBIA::ICapeThermoMaterial::uuid};
    CHECK_THROWS_WITH_AS(streams.productPort->connect(streams.feed->as<COBIA::ICapeIdentification>()),
                         "Not a material object", COBIA::cape_open_error);
    CHECK_THROWS_WITH(streams.feedPort->scriptObject(),
                      "CAPE-OPEN Material Object does not implement ICapeThermoMaterial");
    streams.package.missing.clear();

    streams.productPort->disconnect();
    CHECK_FALSE(streams.productPort->scriptObject());
    CHECK(streams.finish() == "");
    CHECK(streams.warnings.empty());
}

TEST_CASE("The compounds of a port are listed as the host gives them") {
    TestStreams streams;
    const CompoundList compounds = streams.feedPort->compoundList();
    CHECK(compounds.identifiers == Texts{"Alpha", "Beta", "Gamma"});
    CHECK(compounds.boilingPoints.size() == 3);
    CHECK_FALSE(compounds.consistent());
    streams.package.missing = {COBIA::ICapeThermoCompounds::uuid};
    CHECK_THROWS_WITH(streams.feedPort->compoundList(),
                      "Material Object does not implement ICapeThermoCompounds");
}
