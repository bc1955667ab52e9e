// Whether the unit may run: the checks, their order and texts, and what becomes of the validation status and the modified
// flag.
#include "tests/unit/ListedMaterial.h"
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

using namespace orvane::test;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

const std::string threePorts =
    "def Configure(unit):\n"
    "    M, P = unit.PortType.MATERIAL, unit.PortDirection.PRODUCT\n"
    "    unit.add_port('A', M, P); unit.add_port('B', M, P, optional=True); unit.add_port('C', M, P)\n";

const std::string fault = "def Validate(unit):\n    raise ValueError('by the script')\n";

bool modified(TestHost& host) {
    CapeBoolean dirty = 7;
    call<&ICapePersist::Table::getIsDirty>(host.as<ICapePersist>(), &dirty);
    return dirty != 0;
}

/// Connects materials for the length of a test; "" leaves the port alone.
class Connections {
public:
    Connections(TestHost& host, std::vector<std::pair<std::string, ListedMaterial*>> materials)
        : host_(host), materials_(std::move(materials)) {
        for (const auto& [port, material] : materials_) host_.connect(port, material->material());
    }
    Connections(const Connections&) = delete;
    Connections& operator=(const Connections&) = delete;
    ~Connections() {
        for (const auto& [port, material] : materials_) host_.disconnect(port);
    }

private:
    TestHost& host_;
    std::vector<std::pair<std::string, ListedMaterial*>> materials_;
};

}  // namespace

TEST_CASE("Compound lists are compared by identifiers in order, and the first port that differs is named") {
    struct Row {
        std::vector<std::string> a, b, c;
        const char* message;
    };
    for (const Row& row :
         {Row{{"Water", "\u00c4thanol"}, {"WATER", "\u00e4THANOL"}, {"water", "\u00c4thanol"}, ""},
          {{"x", "y"},
           {"y", "x"},
           {"x", "y"},
           "material objects connected to ports 'B' and 'A' do not have same compounds"},
          {{"x", "y"},
           {"x", "y"},
           {"x"},
           "material objects connected to ports 'C' and 'A' do not have same compounds"},
          {{"x"},
           {"x"},
           {"x", "y"},
           "material objects connected to ports 'C' and 'A' do not have same compounds"},
          {{"x"}, {"y"}, {"y"}, "material objects connected to ports 'B' and 'A' do not have same compounds"},
          {{}, {"x"}, {"x"}, "material object connected to port 'A' contains no compounds"},
          {{"x"}, {}, {"y"}, "material object connected to port 'B' contains no compounds"}}) {
        ListedMaterial a(row.a), b(row.b), c(row.c);
        {
            TestHost host(threePorts);
            const Connections connections(host, {{"A", &a}, {"B", &b}, {"C", &c}});
            const Verdict verdict = host.validate();
            CHECK(verdict.message == row.message);
            CHECK(verdict.valid == (row.message == std::string()));
            CHECK(host.status() ==
                  (verdict.valid ? CapeValidationStatus::valid : CapeValidationStatus::invalid));

            host.load(threePorts + "    unit.allow_inconsistent_compounds = True\n");
            a.asked = 0;
            CHECK(host.validate().valid);
            CHECK_MESSAGE(a.asked == 0, "nothing is compared");
        }
        CHECK(a.references + b.references + c.references == 0);
    }
}

TEST_CASE("A compound list whose parts differ in length is told, whichever part it is") {
    for (int list = 0; list < 5; ++list) {
        CAPTURE(list);
        ListedMaterial a({"x"}), b({"x", "y"}), c({"x"});
        b.oddList = list;
        TestHost host(threePorts);
        const Connections connections(host, {{"A", &a}, {"B", &b}, {"C", &c}});
        CHECK(host.validate().message ==
              "inconsistent compound data from material object connected to port 'B'");
    }
}

TEST_CASE("Ports come before parameters, parameters before the script, each in its order") {
    const std::string script = threePorts +
                               "    t, m = unit.ParameterType, unit.ParameterMode\n"
                               "    unit.add_parameter('o', t.REAL, m.OUTPUT)\n"
                               "    unit.add_parameter('s', t.STRING, m.INPUT)\n"
                               "    unit.add_parameter('r', t.REAL, m.INPUT)\n" +
                               fault;
    ListedMaterial a({"x"}), c({"x"});
    TestHost host(script);
    CHECK(host.validate().message == "Port 'A' is not connected");
    const Connections connections(host, {{"A", &a}});
    CHECK(host.validate().message == "Port 'C' is not connected");
    const Connections others(host, {{"C", &c}});
    CHECK(host.validate().message == "Parameter 's' is not valid: Value must be specified");
    call<&ICapeStringParameter::Table::putValue>(host.parameter<ICapeStringParameter>("s"),
                                                 StringObject("x").in());
    CHECK(host.validate().message == "Parameter 'r' is not valid: Value must be specified");
    call<&ICapeRealParameter::Table::putValue>(host.parameter<ICapeRealParameter>("r"), 1.0);
    CHECK(host.validate().message.ends_with("ValueError: by the script\n"));
    const Outcome outcome = host.calculate();
    CHECK(outcome.code == capeOpenError);
    CHECK(contains(outcome.text,
                   ": Unit is not valid: Traceback (most recent call last):\n  Line 9, in Validate"));
}

TEST_CASE("Configure that failed is the fault until the script changes, and runs once") {
    TestHost host(
        "import builtins\n"
        "builtins.count = getattr(builtins, 'count', 0)\n"
        "def Configure(unit):\n    builtins.count += 1\n    raise ValueError('run %d' % builtins.count)\n" +
        fault);
    for (int i = 0; i < 3; ++i) {
        const std::string message = host.validate().message;
        CHECK(message.starts_with("Configure() failed: Traceback"));
        CHECK(message.ends_with("ValueError: run 1\n"));
    }
    CHECK(contains(host.calculate().text, "Unit is not valid: Configure() failed: "));
    host.load("def Configure(unit):\n    pass\n");
    CHECK(host.validate().valid);
}

TEST_CASE("A script that cannot be loaded fails Configure, and one without functions is told") {
    TestHost host("def Configure(unit)\n    pass\n");
    CHECK(contains(host.validate().message, "Configure() failed: "));
    CHECK(contains(host.validate().message, "SyntaxError: expected ':'"));
    host.load("");
    CHECK(host.validate().message == "Configure() failed: \nCannot find function 'Configure'");
    host.load("def Configure(unit):\n    pass\n");
    CHECK(host.validate().valid);
    CHECK(host.calculate().text.ends_with(": \nCannot find function 'Calculate'"));
    host.load("def Configure(unit):\n    return 3\n");
    CHECK(host.validate().message == "Configure() failed: \nFunction 'Configure' should not return a value");
}

TEST_CASE("A host that fails to list its compounds fails the validation, which then is undecided") {
    HostError cause("no network", "Licence::check", "server");
    HostError error("no licence", "ICapeThermoCompounds::GetCompoundList", "package", &cause);
    ListedMaterial a({"x"}), c({"x"});
    TestHost host(threePorts);
    const Connections connections(host, {{"A", &a}, {"C", &c}});
    REQUIRE(host.validate().valid);
    c.code = capeOpenError;
    c.error = &error;
    const Outcome validation = TestHost::outcome([&] { host.validate(); });
    CHECK(
        validation.text ==
        "in ICapeUnit::Validate of CAPE-OPEN Unit Operation using python script for calculations: CAPE-OPEN error, "
        "caused by: in ICapeThermoCompounds::GetCompoundList of package: no licence, "
        "caused by: in Licence::check of server: no network");
    CHECK(host.status() == CapeValidationStatus::notValidated);
    const Outcome calculation = host.calculate();
    CHECK(contains(calculation.text, "in ICapeUnit::Calculate of "));
    CHECK(contains(calculation.text, "caused by: in Licence::check of server: no network"));
    for (const CapeResult code : {CapeResult{outOfMemory}, CapeResult{notImplemented}}) {
        c.code = code;
        CHECK(TestHost::outcome([&] { host.validate(); }).code == code);
    }
    c.code = noError;
    CHECK(host.validate().valid);
    CHECK(error.references == 1);
    CHECK(cause.references == 1);
}

TEST_CASE("The script's Validate decides last, prints into the run, and starts with empty data") {
    TestHost host(
        "def Configure(unit):\n"
        "    unit.add_parameter('x', unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=1)\n"
        "def Validate(unit):\n"
        "    print('checked', len(unit.validation_data)); unit.validation_data['a'] = 1\n"
        "    if unit.parameters['x'].value > 5: raise ValueError('too much')\n"
        "def Calculate(unit):\n    print('ran', unit.validation_data)\n");
    const auto parameter = host.parameter<ICapeRealParameter>("x");
    REQUIRE(host.calculate().succeeded());
    CHECK(contains(host.lastCalculation(), "\r\n\r\nchecked 0\r\nran {'a': 1}\r\n"));
    CHECK(host.status() == CapeValidationStatus::valid);
    REQUIRE(host.calculate().succeeded());
    CHECK_MESSAGE(contains(host.lastCalculation(), "\r\n\r\nran"),
                  "what is known to be valid is not validated again");
    call<&ICapeRealParameter::Table::putValue>(parameter, 6.0);
    CHECK(contains(host.calculate().text, "ValueError: too much"));
    CHECK(host.status() == CapeValidationStatus::invalid);
    const std::string report = host.lastCalculation();
    CHECK(contains(report, "checked 0\r\n"));
    CHECK_FALSE(contains(report, "ran"));
    CHECK_FALSE(contains(report, "Calculation took"));
}

TEST_CASE("What changes the unit takes its validation back and marks it modified, and nothing else does") {
    const std::string script =
        threePorts +
        "    unit.add_parameter('x', unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=1)\n"
        "    unit.add_parameter('o', unit.ParameterType.REAL, unit.ParameterMode.OUTPUT)\n"
        "def Calculate(unit):\n    unit.parameters['o'].value = 2\n";
    ListedMaterial a({"x"}), b({"x"}), c({"x"});
    TestHost host(script);
    const Connections connections(host, {{"A", &a}, {"C", &c}});
    const auto x = host.parameter<ICapeRealParameter>("x");

    // From a state that is saved and valid.
    const auto settle = [&] {
        const auto saved = host.save();
        host.load(*saved);
        REQUIRE(host.validate().valid);
        REQUIRE_FALSE(modified(host));
    };
    const auto becomes = [&](CapeValidationStatus status, bool dirty) {
        CHECK(host.status() == status);
        CHECK(modified(host) == dirty);
    };
    using enum CapeValidationStatus;
    settle();
    call<&ICapeRealParameter::Table::putValue>(x, 1.0);
    call<&ICapeParameter::Table::Reset>(query<ICapeParameter>(x));
    host.ports(), host.parameters(), host.lastCalculation();
    becomes(valid, false);
    call<&ICapeRealParameter::Table::putValue>(x, 4.0);
    becomes(notValidated, true);
    settle();
    double value = 0;
    call<&ICapeRealParameter::Table::getValue>(x, &value);
    CHECK(value == 4);
    call<&ICapeParameter::Table::Reset>(query<ICapeParameter>(x));
    becomes(notValidated, true);
    settle();
    host.connect("B", b.material());
    becomes(notValidated, true);
    settle();
    host.disconnect("B");
    becomes(notValidated, true);
    settle();
    CHECK(TestHost::outcome([&] { host.connect("B", x.get()); }).text.ends_with(": Not a material object"));
    becomes(valid, false);
    host.load(script);
    becomes(notValidated, false);
    settle();
    call<&ICapeIdentification::Table::putComponentName>(host.as<ICapeIdentification>(),
                                                        StringObject("H").in());
    becomes(valid, true);
    settle();
    REQUIRE(host.calculate().succeeded());
    CHECK(modified(host));
}

TEST_CASE("A loaded unit is unmodified, also when its values have come back") {
    const std::string script =
        "def Configure(unit):\n"
        "    unit.add_parameter('x', unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=1)\n";
    TestHost first(script);
    call<&ICapeRealParameter::Table::putValue>(first.parameter<ICapeRealParameter>("x"), 4.0);
    const auto saved = first.save();
    CHECK_MESSAGE(modified(first), "saving leaves the flag to the host");
    TestHost second;
    second.load(*saved);
    CHECK_FALSE(modified(second));
    double value = 0;
    call<&ICapeRealParameter::Table::getValue>(second.parameter<ICapeRealParameter>("x"), &value);
    CHECK(value == 4);
    CHECK_FALSE(modified(second));
}
