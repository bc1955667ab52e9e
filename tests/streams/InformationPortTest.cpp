// Information ports: which parameter they choose, what scripts read and write of it, what they miss after a run.
#include "streams/InformationPort.h"

#include "cobia/Call.h"
#include "tests/streams/TestUnit.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;
using namespace COBIA;

namespace {

const std::vector<double> kelvin{0, 0, 0, 0, 1};

Ref<InformationPort> port(TestUnit& unit, const std::string& dataName = "Set", bool isFeed = false,
                          const std::vector<double>& dimensionality = kelvin) {
    return makeObject<InformationPort>(unit, "Signal", dataName, isFeed, false, dimensionality);
}

ICapeInterface* interfaceOf(const Ref<TestStream>& object) { return object->as<ICapeInterface>(); }

const std::string at = "in ICapeUnitPort::Connect of Orvane Operation Information Product Port: ";
const std::string unsuitable =
    at + "object does not contain suitable real parameter with equal dimensionality";

}  // namespace

TEST_CASE("An information port offers the parameter that it looks for") {
    TestUnit unit;
    const auto one = port(unit, "Set", true);
    CHECK(one->description() == "Orvane Operation Information Feed Port");
    CHECK(one->portType() == CapePortType::information);
    CHECK(one->count() == 1);
    const auto item = one->itemByName("SET");
    CHECK(text<&ICapeIdentification::Table::getComponentName>(query<ICapeIdentification>(item).get()) ==
          "Set");
    CHECK(text<&ICapeIdentification::Table::getComponentDescription>(
              query<ICapeIdentification>(item).get()) == "Parameter descriptor for Signal port");
    CHECK(one->itemByIndex(0) == item);
}

TEST_CASE("A parameter of the data name is chosen before the first that fits") {
    struct Parameter {
        const char* name;
        std::vector<double> dimensionality;
    };
    struct Row {
        const char* dataName;
        std::vector<Parameter> parameters;
        const char* chosen;  // null: none
    };
    const std::vector<double> difference{0, 0, 0, 0, 1, 0, 0, 0, 1};
    const Row rows[] = {
        {"flow", {{"a", kelvin}, {"Flow", kelvin}}, "Flow"},
        {"x", {{"a", kelvin}, {"Flow", kelvin}}, "a"},
        {"flow", {{"flow", {}}, {"b", kelvin}}, "b"},
        {"flow", {{"flow", {1}}, {"b", difference}}, nullptr},
        {"flow", {{"a", {0, 0, 0, 0, 1, 0}}, {"b", kelvin}}, "a"},
        {"flow", {}, nullptr},
    };
    for (const Row& row : rows) {
        CAPTURE(row.dataName);
        TestUnit unit;
        const auto host = makeObject<TestStream>();
        for (const Parameter& parameter : row.parameters)
            host->add(parameter.name, 1, parameter.dimensionality);
        const auto one = port(unit, row.dataName);
        CHECK(connect(*one, interfaceOf(host)) == (row.chosen ? "" : unsuitable));
        CHECK(one->chosenParameter() == (row.chosen ? row.chosen : ""));
        one->disconnect();
    }
    TestUnit unit;
    const auto host = makeObject<TestStream>();
    host->add("p", 1, kelvin);
    host->add("dp", 2, difference);
    const auto one = port(unit, "p", true, difference);
    REQUIRE(connect(*one, interfaceOf(host)) == "");
    CHECK(one->chosenParameter() == "dp");
    one->disconnect();
}

TEST_CASE("Parameters that are not real, or have no name, are passed over") {
    TestUnit unit;
    const auto host = makeObject<TestStream>();
    host->add("Set", 1, kelvin).kind = CapeParamType::integer;
    host->add("Set", 2, kelvin).hide<ICapeParameter>();
    host->add("Set", 3, kelvin).hide<ICapeRealParameter>();
    host->add("Set", 4, kelvin).hide<ICapeIdentification>();
    const auto one = port(unit);
    CHECK(connect(*one, interfaceOf(host)) == unsuitable);
    host->add("last", 5, kelvin);
    REQUIRE(connect(*one, interfaceOf(host)) == "");
    REQUIRE(unit.begin(*one) == "");
    CHECK(unit.repr("port.name, port.value") == "('last', 5.0)");
    one->disconnect();
}

TEST_CASE("A refused object leaves the information port with what it had") {
    TestUnit unit;
    const auto good = makeObject<TestStream>();
    good->add("a", 3, kelvin);
    const auto one = port(unit);
    REQUIRE(connect(*one, interfaceOf(good)) == "");

    const auto shrinking = makeObject<TestStream>();
    shrinking->add("Set", 1, kelvin);
    shrinking->add("b", 1, kelvin);
    shrinking->shrinks = true;
    const auto none = makeObject<TestStream>();
    none->hide<ICapeCollection>();
    CHECK(connect(*one, nullptr) == "code 103");
    CHECK(connect(*one, interfaceOf(shrinking)) == "code 115");
    CHECK(connect(*one, interfaceOf(none)) == at + "Not a collection object");
    REQUIRE(unit.begin(*one) == "");
    CHECK(unit.repr("port.name, port.value") == "('a', 3.0)");
    one->disconnect();
}

TEST_CASE("A script reads an information port, writes a product, and is missed when it does not") {
    for (const bool isFeed : {true, false}) {
        TestUnit unit;
        const auto host = makeObject<TestStream>();
        auto& parameter = host->add("Set", 300, kelvin);
        const auto one = port(unit, "Set", isFeed);
        REQUIRE(connect(*one, interfaceOf(host)) == "");
        REQUIRE(unit.begin(*one) == "");
        CHECK(unit.repr("port.value") == "300.0");
        CHECK(unit.error("port.name = 'x'") == "RuntimeError: The property 'name' is read-only");
        if (isFeed) {
            CHECK(unit.error("port.value = 310") ==
                  "RuntimeError: cannot set input information stream parameter value");
            CHECK(parameter.value() == 300);
            one->disconnect();
            continue;
        }
        CHECK(unit.error("port.value = None") == "TypeError: must be real number, not NoneType");
        parameter.bound = 305;
        CHECK(
            unit.error("port.value = 310") ==
            "RuntimeError: For object connected to port 'Signal': in ICapeRealParameter::Value of parameter "
            "Set: above 305");
        one->finish();
        CHECK(std::exchange(unit.warnings, {}) ==
              std::vector<std::string>{"external parameter value not specified for port 'Signal'"});
        CHECK(unit.error("port.value = 304") == "");
        CHECK(parameter.value() == 304);
        one->finish();
        CHECK(unit.warnings.empty());
        REQUIRE(unit.begin(*one) == "");
        one->finish();
        CHECK(unit.warnings.size() == 1);
        one->disconnect();
        one->finish();
        CHECK(unit.warnings.size() == 1);
    }
}

TEST_CASE("A parameter that went away is told with its name and the port's, and a kept one lets go") {
    TestUnit unit;
    const std::string prefix = "Cannot get parameter 'a' from object connected to port 'Signal': ";
    const auto one = port(unit);
    PyRef kept;
    {
        const auto host = makeObject<TestStream>();
        auto& parameter = host->add("a", 3, kelvin);
        REQUIRE(connect(*one, interfaceOf(host)) == "");
        REQUIRE(unit.begin(*one) == "");
        parameter.hide<ICapeIdentification>();
        CHECK(unit.repr("port.name") == "RuntimeError: parameter does not implement ICapeIdentification");
        kept = unit.kept();
        parameter.hide<ICapeRealParameter>();
        CHECK(unit.begin(*one) == prefix + "parameter does not implement ICapeRealParameter");
        host->clear();
        CHECK(unit.begin(*one) == prefix + "parameter not found");
        host->hide<ICapeCollection>();
        CHECK(unit.begin(*one) == prefix + "object does not implement ICapeCollection");
        CHECK_THROWS_WITH_AS(makeExternalView(CapeOpenVersion(1), *one, unit, interfaceOf(host)),
                             "Unsupported CAPE-OPEN version", StringException);
        unit.release();
        one->disconnect();
    }
    CHECK(liveObjects == 0);
    for (const char* expression : {"port.name", "port.value"})
        CHECK(unit.repr(expression) == "RuntimeError: not initialized");
    CHECK(unit.error("port.value = 1") == "RuntimeError: not initialized");
    CHECK(unit.error("type(port)()").starts_with("RuntimeError: An ExternalParameter cannot be created"));
}

TEST_CASE("A new data name looks through the connected object again") {
    TestUnit unit;
    const auto host = makeObject<TestStream>();
    host->add("a", 1, kelvin);
    host->add("b", 2, kelvin);
    const auto one = port(unit, "a");
    REQUIRE(connect(*one, interfaceOf(host)) == "");
    CHECK_FALSE(one->sameKind(*port(unit, "a", false, {})));
    REQUIRE(one->sameKind(*port(unit, "B")));
    one->takeOver(*port(unit, "B"));
    CHECK(one->chosenParameter() == "b");
    CHECK(one->isConnected());
    host->clear();
    one->takeOver(*port(unit, "c"));
    CHECK_FALSE(one->isConnected());
}
