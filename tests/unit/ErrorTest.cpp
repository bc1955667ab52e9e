// Failures on their way to the host: codes, scopes, sources, texts and causes of the last error, and warnings that the host
// does not take.
#include "tests/unit/ListedMaterial.h"
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <functional>

using namespace orvane::test;

namespace {

/// The last error of an object, taken out of it: "SCOPE | SOURCE | TEXT", "none" without one.
template <class I> std::string takeError(const Ref<I>& object, Ref<ICapeError>* cause = nullptr) {
    Ref<ICapeError> error;
    const auto* table = static_cast<const ICapeInterface::Table*>(object->vTbl);
    if (const CapeResult code = table->getLastError(object->me, error.receive()); code != noError) {
        CHECK(code == noSuchItem);
        return "none";
    }
    const auto* getters = static_cast<const ICapeError::Table*>(error->vTbl);
    StringObject scope, source, text;
    REQUIRE(getters->getScope(error->me, scope.out()) == noError);
    REQUIRE(getters->getSource(error->me, source.out()) == noError);
    REQUIRE(getters->getErrorText(error->me, text.out()) == noError);
    Ref<ICapeError> given;
    REQUIRE(getters->getCause(error->me, given.receive()) == noError);
    if (cause) *cause = given;
    return scope.utf8() + " | " + source.utf8() + " | " + text.utf8();
}

/// The code of a slot of an interface, without asking for its last error.
template <class I, class... Arguments>
CapeResult codeOf(const Ref<I>& object, Slot<Arguments...> I::Table::*slot,
                  std::type_identity_t<Arguments>... arguments) {
    return (static_cast<const typename I::Table*>(object->vTbl)->*slot)(object->me, arguments...);
}

const std::string fiveInputs =
    "def Configure(unit):\n"
    "    t, m = unit.ParameterType, unit.ParameterMode\n"
    "    unit.add_parameter('r', t.REAL, m.INPUT, default=1, min=0)\n"
    "    unit.add_parameter('i', t.INTEGER, m.INPUT, default=1, min=0)\n"
    "    unit.add_parameter('s', t.STRING, m.INPUT)\n"
    "    unit.add_parameter('a', t.ARRAY_REAL, m.INPUT, default=1, min=0, length=2)\n"
    "    unit.add_parameter('out', t.REAL, m.OUTPUT)\n"
    "    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)\n";

}  // namespace

TEST_CASE("Each operation that fails tells its scope, the object and the reason, once") {
    TestHost host(fiveInputs);
    const auto unit = host.as<ICapeUnit>();
    const auto persist = host.as<ICapePersist>();
    const auto port = host.port("Feed");
    const auto real = host.parameter<ICapeRealParameter>("r");
    const auto integer = host.parameter<ICapeIntegerParameter>("i");
    const auto string = host.parameter<ICapeStringParameter>("s");
    const auto stringSpecification = host.parameter<ICapeStringParameterSpecification>("s");
    const auto array = host.parameter<ICapeArrayRealParameter>("a");
    const RealArray negative({1, -1});
    const IntegerArray second({1});
    const StringObject empty;
    const auto damaged = makeObject<orvane::host::PersistStore>();
    StringObject anyText;
    StringArray anyTexts;
    const std::string ofUnit = " | CAPE-OPEN Unit Operation using python script for calculations | ";
    const auto of = [](const char* name) {
        return " | Orvane Operation parameter \"" + std::string(name) + "\" | ";
    };

    struct Row {
        std::function<CapeResult()> operation;
        Ref<ICapeInterface> object;
        std::string error;
    };
    const Row rows[] = {
        {[&] { return codeOf(unit, &ICapeUnit::Table::Calculate); }, unit,
         "ICapeUnit::Calculate" + ofUnit + "Unit is not valid: Port 'Feed' is not connected"},
        {[&] { return codeOf(port, &ICapeUnitPort::Table::Connect, unit.get()); }, port,
         "ICapeUnitPort::Connect | Orvane Operation Material Feed Port | Not a material object"},
        {[&] { return codeOf(real, &ICapeRealParameter::Table::putValue, -1.0); }, real,
         "ICapeRealParameter::Value" + of("r") + "Value is below minimum value of 0"},
        {[&] { return codeOf(integer, &ICapeIntegerParameter::Table::putValue, -1); }, integer,
         "ICapeIntegerParameter::Value" + of("i") + "Value is below minimum value of 0"},
        {[&] { return codeOf(string, &ICapeStringParameter::Table::putValue, empty.in()); }, string,
         "ICapeStringParameter::Value" + of("s") + "Value must be specified"},
        {[&] { return codeOf(string, &ICapeStringParameter::Table::getDefaultValue, anyText.out()); }, string,
         "ICapeStringParameter::DefaultValue" + of("s") + "no default value"},
        {[&] { return codeOf(string, &ICapeStringParameter::Table::getOptionList, anyTexts.out()); }, string,
         "ICapeStringParameter::OptionList" + of("s") + "no option list"},
        {[&] {
             return codeOf(stringSpecification, &ICapeStringParameterSpecification::Table::getOptionList,
                           anyTexts.out());
         },
         string, "ICapeStringParameterSpecification::OptionList" + of("s") + "no option list"},
        {[&] { return codeOf(array, &ICapeArrayRealParameter::Table::putValue, negative.in()); }, array,
         "ICapeArrayRealParameter::Value" + of("a") + "Element value is below minimum value of 0"},
        {[&] { return codeOf(array, &ICapeArrayRealParameter::Table::SetElementValue, second.in(), -1.0); },
         array,
         "ICapeArrayRealParameter::SetElementValue" + of("a") + "Element value is below minimum value of 0"},
    };
    for (const Row& row : rows) {
        CHECK(row.operation() == capeOpenError);
        CHECK(takeError(row.object) == row.error);
        CHECK(takeError(row.object) == "none");
    }

    CHECK(codeOf(persist, &ICapePersist::Table::Load, damaged->as<ICapePersistReader>()) != noError);
}

TEST_CASE("A unit that the host renames fails under its own description") {
    TestHost host;
    call<&ICapeIdentification::Table::putComponentDescription>(host.as<ICapeIdentification>(),
                                                               StringObject("Erhitzer \u00fc").in());
    CHECK(host.calculate().text ==
          "in ICapeUnit::Calculate of Erhitzer \u00fc: Unit is not valid: Port 'Feed' is not connected");
}

TEST_CASE("Codes other than 1 leave the last error as it was") {
    TestHost host(fiveInputs);
    const auto output = host.parameter<ICapeRealParameter>("out");
    const auto parameters = host.parameters();
    ICapeInterface* item = nullptr;
    struct Row {
        CapeResult code, expected;
        Ref<ICapeInterface> object;
    };
    const IntegerArray wrong({2});
    double element = 0;
    const auto array = host.parameter<ICapeArrayRealParameter>("a");
    const StringObject name("new");
    for (const auto& [code, expected, object] :
         {Row{codeOf(output, &ICapeRealParameter::Table::putValue, 1.0), denied, output},
          {codeOf(query<ICapeParameter>(output), &ICapeParameter::Table::Reset), denied, output},
          {codeOf(query<ICapeIdentification>(output), &ICapeIdentification::Table::putComponentName,
                  name.in()),
           denied, output},
          {codeOf(parameters, &ICapeCollection::Table::ItemByIndex, CapeInteger{5}, &item), noSuchItem,
           parameters},
          {codeOf(parameters, &ICapeCollection::Table::ItemByName, name.in(), &item), noSuchItem, parameters},
          {codeOf(array, &ICapeArrayRealParameter::Table::GetElementValue, wrong.in(), &element), noSuchItem,
           array}}) {
        CHECK(code == expected);
        CHECK(takeError(object) == "none");
    }
    const auto unit = host.as<ICapeUnit>();
    ICapeInterface* found = &*unit;
    CHECK(static_cast<const ICapeUnit::Table*>(unit->vTbl)
              ->base.queryInterface(unit->me, &ICapeThermoMaterial::uuid, &found) == noSuchInterface);
    CHECK(found == nullptr);
    CHECK(takeError(unit) == "none");
}

TEST_CASE("A later failure takes the place of the one before, and success leaves it") {
    TestHost host(fiveInputs);
    const auto real = host.parameter<ICapeRealParameter>("r");
    codeOf(real, &ICapeRealParameter::Table::putValue, -1.0);
    codeOf(real, &ICapeRealParameter::Table::putValue, std::numeric_limits<double>::quiet_NaN());
    CHECK(codeOf(real, &ICapeRealParameter::Table::putValue, 3.0) == noError);
    CHECK(takeError(real) ==
          "ICapeRealParameter::Value | Orvane Operation parameter \"r\" | Value must be specified");
}

TEST_CASE("A host's own error reaches the host again as the cause, the very object") {
    HostError cause("inner", "Inner::scope", "inner source");
    HostError error("outer", "Outer::scope", "outer source", &cause);
    ListedMaterial material({"x"});
    material.code = capeOpenError;
    material.error = &error;
    {
        TestHost host(fiveInputs);
        host.connect("Feed", material.material());
        const auto unit = host.as<ICapeUnit>();
        CHECK(codeOf(unit, &ICapeUnit::Table::Calculate) == capeOpenError);
        CHECK(error.references == 2);
        Ref<ICapeError> given;
        CHECK(
            takeError(unit, &given) ==
            "ICapeUnit::Calculate | CAPE-OPEN Unit Operation using python script for calculations | CAPE-OPEN error");
        CHECK(given.get() == &error);
        host.disconnect("Feed");
    }
    CHECK(error.references == 1);
    CHECK(cause.references == 1);
    CHECK(material.references == 0);
}

TEST_CASE("What a host's error withholds is said to be unknown in the report of the run") {
    struct Row {
        CapeResult scope, source, text;
        const char* told;
    };
    for (const Row& row :
         {Row{1, 0, 0, "in <unknown scope> of S: T"},
          {0, 1, 0, "in O of <unknown source>: T"},
          {0, 0, 1, "in O of S: Failed to obtain error text; CAPE-OPEN error"},
          {1, 1, 1,
           "in <unknown scope> of <unknown source>: Failed to obtain error text; CAPE-OPEN error"}}) {
        HostError error("T", "O", "S");
        error.scopeCode = row.scope;
        error.sourceCode = row.source;
        error.textCode = row.text;
        ListedMaterial material({"x"});
        material.code = capeOpenError;
        material.error = &error;
        TestHost host(fiveInputs);
        host.connect("Feed", material.material());
        CHECK(TestHost::outcome([&] {
                  host.validate();
              }).text.ends_with(std::string("caused by: ") + row.told));
        host.disconnect("Feed");
    }
}

TEST_CASE("A host that does not take a warning gets its error back, and no value is lost") {
    HostError error("log is full", "ICapeDiagnostic::LogMessage", "host");
    HostDiagnostic diagnostic(&error);
    // The diagnostics stand in for the simulation context too: only queryInterface is asked of that.
    auto* const context =
        reinterpret_cast<ICapeSimulationContext*>(static_cast<ICapeInterface*>(&diagnostic));
    {
        TestHost host("def Configure(unit):\n"
                      "    t, m = unit.ParameterType, unit.ParameterMode\n"
                      "    unit.add_parameter('new', t.REAL, m.INPUT)\n"
                      "    unit.add_parameter('x', t.REAL, m.INPUT)\n"
                      "    unit.add_parameter('o', t.REAL, m.OUTPUT)\n"
                      "def Calculate(unit):\n    print('before')\n");
        call<&ICapeUtilities::Table::putSimulationContext>(host.as<ICapeUtilities>(), context);
        const auto saved = host.save();
        saved->addTexts("parameterNames", {"gone", "x", "o"});
        saved->addReal("parameter1", 7.5);
        host.load(*saved);
        const Outcome outcome = TestHost::outcome([&] { host.ports(); });
        CHECK(outcome.text ==
              "in ICapeUnit::ports of CAPE-OPEN Unit Operation using python script for calculations: "
              "CAPE-OPEN error, caused by: in ICapeDiagnostic::LogMessage of host: log is full");
        double value = 0;
        call<&ICapeRealParameter::Table::getValue>(host.parameter<ICapeRealParameter>("x"), &value);
        CHECK(value == 7.5);

        call<&ICapeRealParameter::Table::putValue>(host.parameter<ICapeRealParameter>("new"), 1.0);
        CHECK(host.calculate().text.ends_with(
            "caused by: in ICapeDiagnostic::LogMessage of host: log is full"));
        CHECK(host.lastCalculation().find("before\r\n") != std::string::npos);
        diagnostic.code = outOfMemory;
        CHECK(host.calculate().code == outOfMemory);
        diagnostic.code = noError;
        CHECK(host.calculate().succeeded());
        diagnostic.logged.clear();
        call<&ICapeUtilities::Table::Terminate>(host.as<ICapeUtilities>());
        CHECK(diagnostic.references == 1);
        CHECK(host.calculate().succeeded());
        CHECK(diagnostic.logged.empty());
    }
    CHECK(error.references == 1);
}

TEST_CASE("A simulation context that answers for nothing is as good as none") {
    ListedMaterial other({"x"});
    TestHost host(
        "import warnings\ndef Configure(unit):\n    pass\ndef Calculate(unit):\n    warnings.warn('w')\n");
    auto* const context =
        reinterpret_cast<ICapeSimulationContext*>(static_cast<ICapeInterface*>(other.material()));
    call<&ICapeUtilities::Table::putSimulationContext>(host.as<ICapeUtilities>(), context);
    CHECK(host.calculate().succeeded());
    CHECK(host.messages().empty());
}
