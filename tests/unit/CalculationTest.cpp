// Configure, validate, calculate: what a host sees of a script's runs.
#include "tests/unit/TestHost.h"

#include "package/CompoundTable.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace orvane::test;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// A unit with a feed and a product, whose Calculate is the given lines on `fd` and `pr`.
std::string script(const std::string& body) {
    std::string result = "def Configure(unit):\n"
                         "    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)\n"
                         "    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)\n"
                         "def Calculate(unit):\n"
                         "    fd = unit.ports['Feed']; pr = unit.ports['Product']\n";
    std::istringstream lines(body);
    for (std::string line; std::getline(lines, line);) result += "    " + line + "\n";
    return result;
}

void setDuty(TestHost& host, double duty) {
    call<&ICapeRealParameter::Table::putValue>(host.parameter<ICapeRealParameter>("heat duty"), duty);
}

}  // namespace

TEST_CASE("The default script declares a heater") {
    TestHost host;
    CHECK(host.names(host.ports()) == std::vector<std::string>{"Feed", "Product"});
    CHECK(host.names(host.parameters()) == std::vector<std::string>{"Heat Duty"});
    RealArray dimensionality;
    call<&ICapeRealParameter::Table::getDimensionality>(host.parameter<ICapeRealParameter>("Heat Duty"),
                                                        dimensionality.out());
    CHECK(std::vector<double>(dimensionality.view().begin(), dimensionality.view().end()) ==
          std::vector<double>{2, 1, -3});
    CHECK(host.status() == CapeValidationStatus::notValidated);
}

TEST_CASE("The heater's energy balance closes, also for a product that boils") {
    struct Row {
        double temperature, pressure, duty;
    };
    for (const Row& row : {Row{300, 1e6, 5e4}, Row{180, 4e6, 3e4}, Row{200, 1e6, 0}, Row{230, 2e6, -2e4}}) {
        CAPTURE(row.temperature);
        TestHost host;
        host.feed("Feed", 10, row.temperature, row.pressure);
        auto& product = host.stream("Product");
        setDuty(host, row.duty);
        const Outcome outcome = host.calculate();
        REQUIRE_MESSAGE(outcome.succeeded(), outcome.text);
        const auto fed = host.stream("Feed").energy();
        const auto produced = product.energy();
        REQUIRE((fed && produced));
        const double scale = std::max({std::fabs(row.duty), 10 * std::fabs(fed->enthalpy), 1.0});
        CHECK(std::fabs(10 * (produced->enthalpy - fed->enthalpy) - row.duty) < 1e-9 * scale);
        CHECK(product.overall().has(orvane::host::Property::totalFlow));
    }
}

TEST_CASE("Calculation after calculation gives the same, and nothing of the host is kept") {
    TestHost host;
    setDuty(host, 5e4);
    REQUIRE(host.calculateDefault().succeeded());
    const double first = host.stream("Product").energy()->enthalpy;
    for (int i = 0; i < 5; ++i) REQUIRE(host.calculate().succeeded());
    CHECK(host.stream("Product").energy()->enthalpy == first);
}

TEST_CASE("An unconnected port, a bad value and a failed Configure each say why the unit is invalid") {
    TestHost host;
    CHECK(host.validate().message == "Port 'Feed' is not connected");
    CHECK(host.status() == CapeValidationStatus::invalid);
    host.feed();
    CHECK(host.validate().message == "Port 'Product' is not connected");
    host.stream("Product");
    CHECK(host.validate().valid);
    CHECK(host.status() == CapeValidationStatus::valid);
    setDuty(host, 1);
    CHECK(host.status() == CapeValidationStatus::notValidated);

    host.load("def Configure(unit):\n    raise ValueError('no')\n");
    const std::string message = host.validate().message;
    CHECK(contains(message, "Configure() failed: "));
    CHECK(contains(message, "Line 2, in Configure"));
    CHECK(contains(message, "ValueError: no"));
    // The collections stay as they were.
    CHECK(host.names(host.ports()) == std::vector<std::string>{"Feed", "Product"});
}

TEST_CASE("A calculation that fails tells the script's error as the host's error") {
    const std::string raising = script("print('before')\nraise RuntimeError('too hot')");
    TestHost host(raising);
    const Outcome outcome = host.calculateDefault();
    CHECK(outcome.code == capeOpenError);
    CHECK(contains(
        outcome.text,
        "in ICapeUnit::Calculate of CAPE-OPEN Unit Operation using python script for calculations: "));
    CHECK(contains(outcome.text, "Line 7, in Calculate"));
    CHECK(contains(outcome.text, "raise RuntimeError('too hot')"));
    const std::string report = host.lastCalculation();
    CHECK(contains(report, "Calculation starts: Calculation at "));
    CHECK(contains(report, "before\r\n"));
    CHECK(contains(report, "RuntimeError: too hot"));
    CHECK(contains(report, "\r\n\r\nCalculation took "));
}

TEST_CASE("A calculation of an invalid unit does not run the script") {
    TestHost host(script("print('ran')"));
    const Outcome outcome = host.calculate();
    CHECK(outcome.code == capeOpenError);
    CHECK(contains(outcome.text, ": Unit is not valid: Port 'Feed' is not connected"));
    CHECK_FALSE(contains(host.lastCalculation(), "ran"));
}

TEST_CASE("What a script forgets is a warning, in the output and to the host") {
    TestHost host("def Configure(unit):\n"
                  "    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)\n"
                  "    unit.add_parameter('Out', unit.ParameterType.REAL, unit.ParameterMode.OUTPUT)\n"
                  "def Calculate(unit):\n    pass\n");
    host.stream("Product");
    REQUIRE(host.calculate().succeeded());
    CHECK(host.messages() ==
          std::vector<std::string>{
              "Orvane Operation warning: Ouput parameter 'Out' was never specified",
              "Orvane Operation warning: x not specified for port 'Product'",
              "Orvane Operation warning: flow_rate not specified for port 'Product'",
              "Orvane Operation warning: missing phase equilibrium conditions for port 'Product'"});
    CHECK(contains(host.lastCalculation(), "Warning: x not specified for port 'Product'\r\n"));
}

TEST_CASE("A product that cannot be flashed fails the run with the host's own error as the cause") {
    TestHost host(script("print('here')\npr.set(x=fd.x, flow_rate=1, t=300, enthalpy=1e12)"));
    const Outcome outcome = host.calculateDefault();
    CHECK(outcome.code == capeOpenError);
    CHECK(contains(outcome.text,
                   "CAPE-OPEN error, caused by: in ICapeThermoEquilibriumRoutine::CalcEquilibrium of "));
    CHECK(contains(host.lastCalculation(), "here\r\n"));
    CHECK(contains(host.lastCalculation(), "Calculation took "));
}

TEST_CASE("A feed is never written by the unit") {
    TestHost host(script("fd.get_property(['enthalpy', 'entropy', 'volume'])\n"
                         "try:\n    fd.t = 400\n"
                         "except RuntimeError as e:\n    print(e)\n"
                         "pr.set(x=fd.x, t=fd.t, p=fd.p, flow_rate=fd.flow_rate)"));
    host.feed();
    const auto before = host.stream("Feed").energy();
    REQUIRE(host.calculateDefault().succeeded());
    CHECK(contains(host.lastCalculation(), "cannot set t on material object connected to feed port"));
    CHECK(host.stream("Feed").energy()->enthalpy == before->enthalpy);
    CHECK(std::fabs(host.stream("Product").energy()->enthalpy - before->enthalpy) < 1e-6);
}

TEST_CASE("What a script keeps of a call answers with an error afterwards") {
    TestHost host(script("if 'fd' in unit.volatile_data:\n"
                         "    for read in (lambda: unit.volatile_data['fd'].flow_rate,\n"
                         "                 lambda: unit.volatile_data['fd'].get_property('volume')):\n"
                         "        try:\n            read()\n"
                         "        except RuntimeError as e:\n            print('refused')\n"
                         "unit.volatile_data['fd'] = fd\n"
                         "pr.set(x=fd.x, t=fd.t, p=fd.p, flow_rate=1)"));
    REQUIRE(host.calculateDefault().succeeded());
    REQUIRE(host.calculate().succeeded());
    CHECK(contains(host.lastCalculation(), "refused\r\nrefused\r\n"));
}

TEST_CASE("Streams of different packages do not fit together unless the script allows it") {
    const auto other = [](const char* id) {
        auto package = std::make_shared<orvane::host::PropertyPackage>(
            std::vector<orvane::package::Compound>{orvane::package::CompoundTable::instance().at(id)},
            std::vector<orvane::package::Interaction>());
        return makeObject<orvane::host::MaterialObject>("Other", package);
    };
    TestHost host;
    host.feed();
    const auto water = other("water");
    host.connect("Product", water->as<ICapeThermoMaterial>());
    CHECK(host.validate().message ==
          "material objects connected to ports 'Product' and 'Feed' do not have same compounds");
    host.load("def Configure(unit):\n"
              "    unit.allow_inconsistent_compounds = True\n"
              "    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)\n"
              "    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)\n");
    // A port that is declared again keeps what is connected to it.
    CHECK(host.validate().valid);
    host.disconnect("Product");
}

TEST_CASE("A unit defined by a module runs the module's functions") {
    TestHost host("import types\n"
                  "other = types.ModuleType('other')\n"
                  "exec('''\n"
                  "def Configure(unit):\n"
                  "    unit.add_report('Of module')\n"
                  "    try:\n"
                  "        unit.define_from(__import__('sys'))\n"
                  "    except RuntimeError as e:\n"
                  "        unit.private_data['error'] = str(e)\n"
                  "def Calculate(unit):\n"
                  "    print(unit.private_data['error'], list(unit.reports))\n"
                  "''', other.__dict__)\n"
                  "def Configure(unit):\n"
                  "    unit.define_from(other)\n"
                  "    try:\n"
                  "        unit.add_report('late')\n"
                  "    except RuntimeError as e:\n"
                  "        assert str(e) == 'cannot call add_report after define_from'\n");
    const Outcome outcome = host.calculate();
    REQUIRE_MESSAGE(outcome.succeeded(), outcome.text);
    CHECK(contains(host.lastCalculation(), "cannot call define_from more than once ['Of module']"));
}

TEST_CASE("Names are unique without regard to case, and declared during Configure only") {
    struct Row {
        const char* lines;
        const char* error;
    };
    const char* head = "def Configure(unit):\n    M, F = unit.PortType.MATERIAL, unit.PortDirection.FEED\n"
                       "    R, I = unit.ParameterType.REAL, unit.ParameterMode.INPUT\n    ";
    for (const Row& row :
         {Row{"unit.add_port('\u00c4', M, F); unit.add_port('\u00e4', M, F)", "Duplicate port name"},
          Row{"unit.add_port('', M, F)", "port cannot have empty name"},
          Row{"unit.add_parameter('A', R, I); unit.add_parameter('a', R, I)", "duplicate parameter name"},
          Row{"unit.add_report('A'); unit.add_report('a')", "Duplicate report name"},
          Row{"unit.add_report('\u00e4'); unit.add_image('\u00c4', 'f')",
              "A report by that name already exists"},
          Row{"unit.add_report('A'); unit.add_image('a', 'f')", "A report by that name already exists"},
          Row{"unit.add_image('A', 'f'); unit.add_report('a')", "An image by that name already exists"},
          Row{"unit.add_image('A', '')", "Image cannot have empty function name"},
          Row{"unit.add_report('A'); unit.define_from(__import__('sys'))",
              "cannot call define_from after add_report"}}) {
        CAPTURE(row.lines);
        TestHost host(head + std::string(row.lines) + "\n");
        CHECK(contains(host.validate().message, std::string("RuntimeError: ") + row.error));
    }
    TestHost host("def Configure(unit):\n    pass\ndef Calculate(unit):\n    unit.add_report('x')\n");
    CHECK(contains(host.calculate().text, "add_report can only be called from Configure()"));
}
