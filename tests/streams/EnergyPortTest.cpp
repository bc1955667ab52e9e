// Energy ports: what they accept, what scripts read and write on them, what they miss after a run.
#include "streams/EnergyPort.h"

#include "cobia/Call.h"
#include "tests/streams/TestUnit.h"

#include <doctest/doctest.h>

using namespace orvane;
using namespace orvane::test;
using namespace COBIA;

namespace {

Ref<EnergyPort> port(TestUnit& unit, EnergyKind kind = EnergyKind::plain, bool isFeed = false) {
    return makeObject<EnergyPort>(unit, "Shaft", isFeed, false, kind);
}

/// An energy object with all that any kind needs.
Ref<TestStream> stream() {
    auto result = makeObject<TestStream>();
    result->add("work", 100);
    result->add("temperatureLow", 300);
    result->add("temperatureHigh", 400);
    result->add("axisFrequency", 50);
    return result;
}

ICapeInterface* interfaceOf(const Ref<TestStream>& object) { return object->as<ICapeInterface>(); }

const char* const forPort = "For object connected to port 'Shaft': ";

}  // namespace

TEST_CASE("An energy port says what it is and which parameters it looks for") {
    TestUnit unit;
    struct Row {
        EnergyKind kind;
        bool isFeed;
        const char* description;
    };
    for (const Row& row : {Row{EnergyKind::plain, true, "Orvane Operation Energy Feed Port"},
                           Row{EnergyKind::thermal, false, "Orvane Operation Thermal Energy Product Port"},
                           Row{EnergyKind::axle, true, "Orvane Operation Axle Energy Feed Port"}}) {
        const auto one = port(unit, row.kind, row.isFeed);
        CHECK(one->description() == row.description);
        CHECK(one->portType() == CapePortType::energy);
        const auto collection = query<ICapeCollection>(one->as<ICapeInterface>());
        REQUIRE(collection);
        CapeInteger count = 0;
        call<&ICapeCollection::Table::getCount>(collection, &count);
        CHECK(count == 4);
        const auto item = obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(
            collection.get(), StringObject("AXISFREQUENCY").in());
        CHECK(text<&ICapeIdentification::Table::getComponentDescription>(
                  query<ICapeIdentification>(item).get()) == "Parameter descriptor for energy port");
        RealArray dimensionality;
        call<&ICapeRealParameterSpecification::Table::getDimensionality>(
            query<ICapeRealParameterSpecification>(item), dimensionality.out());
        CHECK(std::vector(dimensionality.view().begin(), dimensionality.view().end()) ==
              std::vector<double>{0, 0, -1});
        for (const CapeInteger outside : {-1, 4}) {
            ICapeInterface* none = nullptr;
            CHECK(static_cast<const ICapeCollection::Table*>(collection->vTbl)
                      ->ItemByIndex(collection->me, outside, &none) == noSuchItem);
        }
    }
}

TEST_CASE("An energy port takes a collection that has work, and keeps its stream when it refuses another") {
    TestUnit unit;
    const auto one = port(unit, EnergyKind::thermal);
    CHECK(connect(*one, nullptr) == "code 103");
    const auto good = makeObject<TestStream>();
    good->add("Work", 1);
    REQUIRE(connect(*one, interfaceOf(good)) == "");
    CHECK(unit.changes == 1);

    const auto noCollection = stream();
    noCollection->hide<ICapeCollection>();
    const auto noWork = makeObject<TestStream>();
    noWork->add("power", 1);
    const auto broken = stream();
    broken->failing = true;
    const std::string at = "in ICapeUnitPort::Connect of Orvane Operation Thermal Energy Product Port: ";
    CHECK(connect(*one, interfaceOf(noCollection)) == at + "Not a collection object");
    CHECK(connect(*one, interfaceOf(noWork)) == at + "Energy stream does not contain work parameter");
    CHECK(connect(*one, interfaceOf(broken)) ==
          at + "CAPE-OPEN error, caused by: in ICapeCollection::Item of stream S-1: no licence");
    CHECK(one->connectedObject().get() == interfaceOf(good));
    CHECK(unit.changes == 1);
    one->disconnect();
}

TEST_CASE("A script reads and writes what its kind of energy port carries") {
    const std::string notThermal = "RuntimeError: temperature_range applies only to port with thermal=True";
    const std::string notAxle = "RuntimeError: axis_frequency applies only to port with axle=True";
    const std::string feed = "RuntimeError: cannot set input energy stream values";
    for (const EnergyKind kind : {EnergyKind::plain, EnergyKind::thermal, EnergyKind::axle}) {
        for (const bool isFeed : {true, false}) {
            CAPTURE(static_cast<int>(kind));
            CAPTURE(isFeed);
            TestUnit unit;
            const auto host = stream();
            const auto one = port(unit, kind, isFeed);
            REQUIRE(connect(*one, interfaceOf(host)) == "");
            REQUIRE(unit.begin(*one) == "");
            const bool thermal = kind == EnergyKind::thermal, axle = kind == EnergyKind::axle;
            CHECK(unit.repr("port.work") == "100.0");
            CHECK(unit.repr("port.temperature_range") == (thermal ? "(300.0, 400.0)" : notThermal));
            CHECK(unit.repr("port.axis_frequency") == (axle ? "50.0" : notAxle));
            CHECK(unit.repr("port.stream_name") == "'S-1'");

            CHECK(unit.error("port.work = 7") == (isFeed ? feed : ""));
            CHECK((*host)[0].value() == (isFeed ? 100 : 7));
            const std::string rangeError = !thermal ? notThermal : isFeed ? feed : "";
            CHECK(unit.error("port.temperature_range = [310, 410]") == rangeError);
            CHECK((*host)[1].value() == (rangeError.empty() ? 310 : 300));
            CHECK((*host)[2].value() == (rangeError.empty() ? 410 : 400));
            const std::string frequencyError = !axle ? notAxle : isFeed ? feed : "";
            CHECK(unit.error("port.axis_frequency = 60.5") == frequencyError);
            CHECK((*host)[3].value() == (frequencyError.empty() ? 60.5 : 50));
            CHECK(unit.error("port.stream_name = 'x'") ==
                  "RuntimeError: The property 'stream_name' is read-only");
            one->disconnect();
        }
    }
}

TEST_CASE("A value that does not fit leaves the stream whole and counts as not given") {
    struct Row {
        const char* statement;
        std::string error;
    };
    const Row rows[] = {
        {"port.work = 'x'", "TypeError: must be real number, not str"},
        {"port.temperature_range = (300,)", "RuntimeError: temperature_range must have two elements"},
        {"port.temperature_range = 300", "RuntimeError: 'temperature_range' must be iterable of real items"},
        {"port.temperature_range = (300, 'x')",
         "RuntimeError: 'temperature_range' must be iterable of real items; given argument is iterable but "
         "not all elements are real numbers"},
        {"port.temperature_range = (310, 2e9)", std::string("RuntimeError: ") + forPort +
                                                    "in ICapeRealParameter::Value of parameter "
                                                    "temperatureHigh: above 1e+09"},
        {"del port.work", "AttributeError: The property 'work' cannot be deleted"},
    };
    TestUnit unit;
    const auto host = stream();
    const auto one = port(unit, EnergyKind::thermal);
    REQUIRE(connect(*one, interfaceOf(host)) == "");
    REQUIRE(unit.begin(*one) == "");
    for (const Row& row : rows) {
        CAPTURE(row.statement);
        CHECK(unit.error(row.statement) == row.error);
        CHECK(unit.repr("port.work, port.temperature_range") == "(100.0, (300.0, 400.0))");
    }
    one->finish();
    CHECK(unit.warnings == std::vector<std::string>{"work not specified for port 'Shaft'",
                                                    "temperature_range not specified for port 'Shaft'"});
    one->disconnect();
}

TEST_CASE("After a run a product port misses what its kind needs, in each run anew") {
    TestUnit unit;
    const auto host = stream();
    const std::string work = "work not specified for port 'Shaft'";
    for (const auto& [kind, second] :
         {std::pair(EnergyKind::plain, ""),
          std::pair(EnergyKind::thermal, "temperature_range not specified for port 'Shaft'"),
          std::pair(EnergyKind::axle, "axis_frequency not specified for port 'Shaft'")}) {
        const auto one = port(unit, kind);
        one->finish();
        CHECK(unit.warnings.empty());  // nothing connected
        REQUIRE(connect(*one, interfaceOf(host)) == "");
        REQUIRE(unit.begin(*one) == "");
        unit.error("port.work = 1\nport.temperature_range = 1, 2\n");
        unit.error("port.axis_frequency = 1");
        if (kind == EnergyKind::thermal) unit.error("port.temperature_range = 1, 2");
        one->finish();
        CHECK(unit.warnings.empty());
        REQUIRE(unit.begin(*one) == "");
        one->finish();
        std::vector<std::string> expected{work};
        if (*second) expected.emplace_back(second);
        CHECK(std::exchange(unit.warnings, {}) == expected);
        one->disconnect();
    }
}

TEST_CASE("A stream that lacks something is told with the port's name") {
    const std::string notReal = "' does not implement ICapeRealParameter";
    struct Row {
        EnergyKind kind;
        std::size_t hidden;
        std::string error;
    };
    for (const Row& row :
         {Row{EnergyKind::plain, 0, "parameter 'work" + notReal},
          Row{EnergyKind::thermal, 1, "parameter 'temperatureLow" + notReal},
          Row{EnergyKind::thermal, 2, "parameter 'temperatureHigh" + notReal},
          Row{EnergyKind::axle, 3, "parameter 'axisFrequency" + notReal}, Row{EnergyKind::plain, 3, ""}}) {
        TestUnit unit;
        const auto host = stream();
        (*host)[row.hidden].hide<ICapeRealParameter>();
        const auto one = port(unit, row.kind);
        REQUIRE(connect(*one, interfaceOf(host)) == "");
        CHECK(unit.begin(*one) == (row.error.empty() ? "" : forPort + row.error));
        one->disconnect();
    }

    TestUnit unit;
    const auto host = stream();
    const auto one = port(unit, EnergyKind::thermal);
    REQUIRE(connect(*one, interfaceOf(host)) == "");
    host->hide<ICapeIdentification>();
    (*host)[0].failing = true;
    REQUIRE(unit.begin(*one) == "");
    CHECK(unit.repr("port.stream_name") ==
          "RuntimeError: information stream does not implement ICapeIdentification");
    CHECK(unit.repr("port.work") == std::string("RuntimeError: ") + forPort +
                                        "in ICapeRealParameter::Value of parameter work: the stream is gone");
    host->clear();
    CHECK(unit.begin(*one) == std::string(forPort) + "parameter 'work' not found");
    host->add("work", 5);
    REQUIRE(unit.begin(*one) == "");
    CHECK(unit.repr("port.work, port.temperature_range") == "(5.0, (nan, nan))");
    CHECK(unit.error("port.temperature_range = 1, 2") ==
          std::string("RuntimeError: ") + forPort + "parameter 'temperatureLow' not found");
    host->hide<ICapeCollection>();
    CHECK(unit.begin(*one) == std::string(forPort) + "object does not implement ICapeCollection");
    CHECK_THROWS_WITH_AS(makeEnergyView(CapeOpenVersion(1), *one, unit, interfaceOf(host)),
                         "Unsupported CAPE-OPEN version", StringException);
    one->disconnect();
}

TEST_CASE("What a script keeps of an energy stream lets go of the host and answers with an error") {
    TestUnit unit;
    PyRef kept;
    {
        const auto host = stream();
        const auto one = port(unit, EnergyKind::thermal);
        REQUIRE(connect(*one, interfaceOf(host)) == "");
        REQUIRE(unit.begin(*one) == "");
        kept = unit.kept();
        unit.release();
        one->disconnect();
    }
    CHECK(liveObjects == 0);
    for (const char* expression : {"port.work", "port.temperature_range", "port.stream_name"})
        CHECK(unit.repr(expression) == "RuntimeError: not initialized");
    CHECK(unit.error("port.work = 1") == "RuntimeError: not initialized");
    CHECK(unit.error("type(port)()") == "RuntimeError: This object cannot be created");
}

TEST_CASE("A new definition of an energy port keeps its stream and takes the kind") {
    TestUnit unit;
    const auto host = stream();
    const auto one = port(unit);
    REQUIRE(connect(*one, interfaceOf(host)) == "");
    const auto next = port(unit, EnergyKind::axle);
    CHECK(one->sameKind(*next));
    CHECK_FALSE(one->sameKind(*port(unit, EnergyKind::plain, true)));
    one->takeOver(*next);
    CHECK(one->description() == next->description());
    REQUIRE(unit.begin(*one) == "");
    CHECK(unit.repr("port.axis_frequency") == "50.0");
    one->disconnect();
}
