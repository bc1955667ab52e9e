// Scripting objects that a script keeps past the call, the stream and the port they came from.
#include "tests/thermo/TestStreams.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;

TEST_CASE("Parts of a material outlive it while the call lasts") {
    TestStreams streams;
    REQUIRE(streams.error("oil = feed.phases[1]\ncompound = feed.compounds[0]\n"
                          "e = feed.create_phase_equilibrium(x=feed.x, t=350, p=1e5)\ndel feed") == "");
    CHECK(streams.repr("oil.get_property('oddity')") == "5.0");
    CHECK(streams.repr("compound.name") == "'the compound Alpha'");
    CHECK(streams.repr("e.p") == "100000.0");
}

TEST_CASE("After the call everything that a script kept answers with an error") {
    TestStreams streams;
    REQUIRE(streams.error("gas, oil = feed.phases\npair = feed.create_phase_pair(gas, oil)\n"
                          "compound = feed.compounds[0]\nkind = feed.phase_types[0]\n"
                          "e = feed.create_phase_equilibrium(x=feed.x, t=350, p=1e5)") == "");
    streams.release();
    CHECK(streams.package.liveMaterials == 2);  // the copy has been given back
    for (const char* expression : {"feed.name",
                                   "feed.t",
                                   "feed.p",
                                   "feed.x",
                                   "feed.flow_rate",
                                   "feed.vapor_fraction",
                                   "feed.phases",
                                   "feed.compounds",
                                   "feed.phase_types",
                                   "feed.phase_properties",
                                   "feed.get_property('oddity')",
                                   "feed.create_vapor_phase()",
                                   "feed.create_phase_pair(gas, oil)",
                                   "product.t",
                                   "product.x",
                                   "product.flow_rate",
                                   "product.solution_type",
                                   "product.phase_equilibrium_properties",
                                   "product.set(x=[1, 0, 0])",
                                   "product.set(t=300)",
                                   "product.set(flow_rate=1)",
                                   "product.copy_from(feed)",
                                   "product.create_phase_equilibrium(x=[1, 0, 0], t=300, p=1e5)",
                                   "gas.name",
                                   "gas.properties",
                                   "gas.get_property('oddity')",
                                   "pair.properties",
                                   "pair.get_property('kvalue')",
                                   "e.phases",
                                   "e.x",
                                   "e.t",
                                   "e.vapor_fraction",
                                   "e.get_property('oddity')",
                                   "compound.name",
                                   "compound.get_constant('structure')",
                                   "kind.name",
                                   "kind.key_compound",
                                   "kind.create_phase().name"}) {
        CAPTURE(expression);
        CHECK(streams.repr(expression) == "RuntimeError: not initialized");
    }
    CHECK(streams.error("product.x = [1, 0, 0]") == "RuntimeError: not initialized");
    CHECK(streams.repr("(gas.t > 0, gas.index, compound.index)") == "(True, 0, 0)");
}

TEST_CASE("An object may outlive its unit, and holds nothing of the host then") {
    PyRef kept;
    {
        TestStreams streams;
        REQUIRE(streams.error("feed.get_property('oddity')") == "");
        kept = streams.eval("feed");
    }
    CHECK_FALSE(PyRef::stealMaybe(PyObject_GetAttrString(kept.get(), "t")));
    PyErr_Clear();
}
