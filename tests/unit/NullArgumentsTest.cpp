// Nulls from the host: outputs and texts that are missing, and interfaces that are passed in as null.
#include "tests/NullArguments.h"
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

using namespace orvane::test;

namespace {

const char* const everything =
    "import warnings\n"
    "def Configure(unit):\n"
    "    t, m = unit.ParameterType, unit.ParameterMode\n"
    "    for mode in (m.INPUT, m.OUTPUT):\n"
    "        for type in (t.REAL, t.INTEGER, t.BOOLEAN, t.STRING, t.ARRAY_REAL):\n"
    "            unit.add_parameter('p%d' % len(names), type, mode)\n"
    "            names.append(0)\n"
    "    for d in (unit.PortDirection.FEED, unit.PortDirection.PRODUCT):\n"
    "        for kind in 'MATERIAL', 'ENERGY', 'INFORMATION':\n"
    "            unit.add_port(kind + str(id(d)), getattr(unit.PortType, kind), d)\n"
    "    unit.add_report('R'); unit.add_image('I', 'f')\n"
    "names = []\n"
    "def Validate(unit):\n    warnings.warn('Validate ran')\n"
    "def Calculate(unit):\n    warnings.warn('Calculate ran')\n";

std::string joined(const std::vector<std::string>& lines) {
    std::string result;
    for (const std::string& line : lines) result += line + "\n";
    return result;
}

template <class I, class... Arguments>
CapeResult codeOf(I* object, Slot<Arguments...> I::Table::*slot,
                  std::type_identity_t<Arguments>... arguments) {
    return (static_cast<const typename I::Table*>(object->vTbl)->*slot)(object->me, arguments...);
}

}  // namespace

TEST_CASE("A null where a slot gives or reads something answers 103, in every slot of every object") {
    TestHost host{std::string(everything)};
    NullSweep unit, ports, parameters;
    sweepTree(host.as<ICapeUnit>().get(), unit);
    sweepTree(host.ports().get(), ports);
    sweepTree(host.parameters().get(), parameters);
    CHECK_MESSAGE(unit.faults.empty(), joined(unit.faults));
    CHECK_MESSAGE(ports.faults.empty(), joined(ports.faults));
    CHECK_MESSAGE(parameters.faults.empty(), joined(parameters.faults));

    CHECK(unit.interfaces == 5);
    // Of the collection; of two ports each for material, energy with its four specifications, and information with one.
    CHECK(ports.interfaces == 2 + 2 * (2 + 3 + 4 * 3 + 3 + 3));
    // Common ones, the typed one and its specification; an array has two more.
    CHECK(parameters.interfaces == 2 + 2 * (4 * 5 + 7));
    CHECK(host.messages().empty());
}

TEST_CASE("The module's entry point answers 103 to a null") {
    const orvane::host::DynamicLibrary module(std::filesystem::path(ORVANE_BIN) /
                                              orvane::host::moduleFileName());
    auto* const create = reinterpret_cast<CapeResult (*)(ICapeInterface**)>(module.symbol("createOrvane"));
    REQUIRE(static_cast<bool>(create));
    CHECK(create(nullptr) == nullPointer);
}

TEST_CASE("A null stores no error and keeps the one before") {
    TestHost host;
    const auto unit = host.as<ICapeUnit>();
    CHECK(codeOf(unit.get(), &ICapeUnit::Table::Calculate) == capeOpenError);
    NullSweep sweep;
    sweepObject(unit.get(), sweep);
    const auto* table = static_cast<const ICapeUnit::Table*>(unit->vTbl);
    Ref<ICapeError> error;
    REQUIRE(table->base.getLastError(unit->me, error.receive()) == noError);
    StringObject scope;
    const auto* errorTable = static_cast<const ICapeError::Table*>(error->vTbl);
    REQUIRE(errorTable->getScope(error->me, scope.out()) == noError);
    CHECK(scope.utf8() == "ICapeUnit::Calculate");
    CHECK(table->base.getLastError(unit->me, error.receive()) == noSuchItem);
}

TEST_CASE("An error object answers 103 to a null") {
    TestHost host;
    const auto unit = host.as<ICapeUnit>();
    codeOf(unit.get(), &ICapeUnit::Table::Calculate);
    Ref<ICapeError> error;
    REQUIRE(static_cast<const ICapeUnit::Table*>(unit->vTbl)->base.getLastError(unit->me, error.receive()) ==
            noError);
    const auto* table = static_cast<const ICapeError::Table*>(error->vTbl);
    CHECK(table->getErrorText(error->me, nullptr) == nullPointer);
    CHECK(table->getCause(error->me, nullptr) == nullPointer);
    CHECK(table->getSource(error->me, nullptr) == nullPointer);
    CHECK(table->getScope(error->me, nullptr) == nullPointer);
}

TEST_CASE("A null interface is refused where one is needed, and takes the context away") {
    TestHost host;
    host.feed();
    CHECK(codeOf(host.as<ICapePersist>().get(), &ICapePersist::Table::Save, nullptr, 0) == nullPointer);
    CHECK(codeOf(host.as<ICapePersist>().get(), &ICapePersist::Table::Load, nullptr) == nullPointer);
    CHECK(codeOf(host.port("Feed").get(), &ICapeUnitPort::Table::Connect, nullptr) == nullPointer);
    const auto connected =
        obtain<ICapeInterface, &ICapeUnitPort::Table::getConnectedObject>(host.port("Feed").get());
    CHECK_MESSAGE(connected, "what was connected stays");
    CHECK(codeOf(host.as<ICapeUtilities>().get(), &ICapeUtilities::Table::putSimulationContext, nullptr) ==
          noError);
    host.load("import warnings\ndef Configure(unit):\n    warnings.warn('unheard')\n");
    host.ports();
    CHECK(host.messages().empty());
}
