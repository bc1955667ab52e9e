// Case files: what they mean, and what is said about wrong ones.
#include "host/CaseReader.h"
#include "package/PengRobinsonModel.h"

#include <doctest/doctest.h>
#include <string>

using namespace orvane::host;
using doctest::Approx;

namespace {

// Line 1 is [package]; a row of the test below adds to it or replaces it.
const std::string package = "[package]\ncompounds = [\"methane\", \"propane\"]\n";
const std::string stream = package + "[streams.Feed]\ntemperature = 300\npressure = 1e5\nflow_rate = 2\n";

std::string errorOf(const std::string& text) {
    try {
        readCase(text, "folder/case.toml");
        return "";
    }
    catch (const CaseError& error) {
        return error.what();
    }
}

}  // namespace

TEST_CASE("A case file says package, parameters and feeds") {
    const CaseFile read = readCase(package + R"(
[[package.interaction]]
pair = ["propane", "methane"]
kij = 0.25

[unit]
name = "Heater"

[unit.parameters]
"Heat Duty" = 5e4
Stages = 3
Mode = "fast"
Dry = true
Profile = [1, 2.5]

[streams.Feed]
pressure = 50e5
enthalpy = -1000
flow_rate = 100
composition = { propane = 0.2500001, methane = 0.75 }

[streams.Other]
temperature = 300
pressure = 1e5
flow_rate = 0
composition = [0, 1]

[streams.Product]
)",
                                   "case.toml");
    CHECK(read.package->ids() == std::vector<std::string>{"methane", "propane"});
    CHECK(dynamic_cast<const orvane::package::PengRobinsonModel&>(read.package->model())
              .equation()
              .interaction(0, 1) == 0.25);
    CHECK(read.unitName == "Heater");
    CHECK(!read.script);

    REQUIRE(read.parameters.size() == 5);
    for (const CaseParameter& parameter : read.parameters) {
        CAPTURE(parameter.name);
        if (parameter.name == "Heat Duty") {
            CHECK(std::get<double>(parameter.value) == 5e4);
            CHECK(parameter.place == "case.toml:12");
        } else if (parameter.name == "Stages")
            CHECK(std::get<std::int64_t>(parameter.value) == 3);
        else if (parameter.name == "Mode")
            CHECK(std::get<std::string>(parameter.value) == "fast");
        else if (parameter.name == "Dry")
            CHECK(std::get<bool>(parameter.value));
        else
            CHECK(std::get<std::vector<double>>(parameter.value) == std::vector{1.0, 2.5});
    }

    REQUIRE(read.streams.size() == 3);
    const CaseState& feed = *read.streams[0].state;
    CHECK(feed.first.kind == ConditionKind::pressure);
    CHECK(feed.second.kind == ConditionKind::enthalpy);
    CHECK(feed.second.value == -1000);
    CHECK(feed.flowRate == 100);
    CHECK(feed.composition[0] == Approx(0.75).epsilon(1e-6));
    CHECK(feed.composition[0] + feed.composition[1] == 1);  // normalised
    CHECK(read.streams[1].state->composition == std::vector{0.0, 1.0});
    CHECK(!read.streams[2].state);
}

TEST_CASE("A case file says energy and information streams") {
    const CaseFile read = readCase(package + R"(
[energy.Shaft]
work = -5e3
axis_frequency = 50

[energy.Heating]
temperature_low = 300
temperature_high = 400
work = 1

[energy.Product]

[information.Set]
value = 350
name = "Setpoint"
dimension = "K"

[information.Other]
value = 1
dimension = [0, 0, 0, 0, 1, 0, 0, 0, 1]
)",
                                   "case.toml");
    REQUIRE(read.energies.size() == 3);
    for (const CaseEnergy& energy : read.energies) {
        CAPTURE(energy.port);
        CHECK(energy.isGiven() == (energy.port != "Product"));
        CHECK(energy.work.value_or(0) == (energy.port == "Shaft" ? -5e3 : energy.port == "Heating" ? 1 : 0));
        CHECK(energy.axisFrequency.value_or(0) == (energy.port == "Shaft" ? 50 : 0));
        CHECK(energy.temperatureLow.value_or(0) == (energy.port == "Heating" ? 300 : 0));
        CHECK(energy.temperatureHigh.value_or(0) == (energy.port == "Heating" ? 400 : 0));
    }
    REQUIRE(read.informations.size() == 2);
    const bool setFirst = read.informations[0].port == "Set";
    const CaseInformation& set = read.informations[setFirst ? 0 : 1];
    CHECK(set.value == 350);
    CHECK(set.name == "Setpoint");
    CHECK(set.dimensionality == std::vector<double>{0, 0, 0, 0, 1, 0, 0, 0});
    CHECK(read.informations[setFirst ? 1 : 0].dimensionality ==
          std::vector<double>{0, 0, 0, 0, 1, 0, 0, 0, 1});
}

TEST_CASE("A wrong case file is refused with its line and the way out") {
    struct Row {
        std::string text;
        int line;
        const char* message;
    };
    const Row rows[] = {
        {"x = [1,\n\n", 2, "array"},
        {package + "[unit\n", 3, "table"},
        {"[unit]\n", 1, "there is no [package]"},
        {package + "[stream]\n", 3, "unknown key 'stream', did you mean 'streams'?"},
        {package + "zzz = 1\n", 3,
         "unknown key 'zzz' in [package]; known: 'model', 'compounds' and 'interaction'"},
        {package + "package = 1\n", 3, "unknown key 'package' in [package]"},
        {package + "[unit]\nscrpt = \"a.py\"\n", 4, "unknown key 'scrpt' in [unit], did you mean 'script'?"},
        {package + "[unit]\nscript = 3\n", 4, "'script' is to be a text in quotes, not an integer"},
        {package + "[unit]\nscript = \"no.py\"\n", 4, "no.py' cannot be read: No such file"},
        {package + "[unit.parameters]\nA = { b = 1 }\n", 4, "parameter 'A' is to be a number"},
        {package + "[unit.parameters]\nA = [1, \"b\"]\n", 4,
         "parameter 'A': an array holds numbers, not a text"},
        {"[package]\nmodel = \"NRTL\"\ncompounds = [\"water\"]\n", 2,
         "unknown model 'NRTL'; known: 'Peng-Robinson'"},
        {"[package]\n", 1, "[package] has no 'compounds'"},
        {"[package]\ncompounds = []\n", 2, "'compounds' is empty"},
        {"[package]\ncompounds = [\"methane\",\n\"metane\"]\n", 3, "metane"},
        {"[package]\ncompounds = [\"methane\", \"methane\"]\n", 2, "methane"},
        {package + "[[package.interaction]]\npair = [\"methane\"]\nkij = 1\n", 4,
         "'pair' is to name two compounds"},
        {package + "[streams.Feed]\ntemprature = 3\n", 4,
         "unknown key 'temprature' in [streams.Feed], did you mean 'temperature'?"},
        {package + "[streams.Feed]\npressure = 1e5\n", 3, "[streams.Feed] has 1 of the conditions"},
        {stream, 3, "[streams.Feed] has no 'composition'"},
        {stream + "composition = { methane = 0.9 }\n", 7, "add up to 0.9, not to 1"},
        {stream + "composition = { methane = 0.9, propane = 0.100002 }\n", 7, "add up to 1.000002, not to 1"},
        {stream + "composition = { methane = 1.1, propane = -0.1 }\n", 7,
         "the mole fraction of 'propane' is -0.1, which is negative"},
        {stream + "composition = { methane = 0.5, butane = 0.5 }\n", 7,
         "the package has no compound 'butane'"},
        {stream + "composition = { methane = 0.5, propan = 0.5 }\n", 7, "did you mean 'propane'?"},
        {stream + "composition = { methane = 0.5, CH4 = 0.5 }\n", 7,
         "compound 'methane' stands in 'composition' twice"},
        {stream + "composition = [1]\n", 7, "1 fractions for 2 compounds"},
        {stream + "composition = { methane = nan }\n", 7, "which is no amount"},
        {package + "[streams.F]\ntemperature = -5\npressure = 1\n", 4,
         "'temperature' is -5, which is not positive"},
        {package + "[streams.F]\ntemperature = \"5\"\n", 4, "'temperature' is to be a number, not a text"},
        {package + "[streams.F]\nentropy = 300\nenthalpy = 1\n", 3, "enthalpy and entropy together"},
        {package + "[streams.F]\ntemperature = 300\nvapor_fraction = 1.5\n", 5, "'vapor_fraction' is 1.5"},
        {"[package]\nmodel = \"NRTL\"\ncompounds = [\"water\"]\n", 2, "known: 'Peng-Robinson', 'ideal'"},
        {"[package]\nmodel = \"ideal\"\ncompounds = [\"water\", \"methane\"]\n"
         "[[package.interaction]]\npair = [\"water\", \"methane\"]\nkij = 0.1\n",
         3, "takes no interaction parameters"},
        {package + "[streams.F]\ntemperature = 300\npressure = 1\nflow_rate = -1\n", 6, "'flow_rate' is -1"},
        {package + "[energies.F]\n", 3, "unknown key 'energies', did you mean 'energy'?"},
        {package + "[energy.F]\nwrk = 1\n", 4, "unknown key 'wrk' in [energy.F], did you mean 'work'?"},
        {package + "[energy.F]\nwork = inf\n", 4, "'work' is inf, which is no amount"},
        {package + "[energy.F]\ntemperature_low = -3\n", 4,
         "'temperature_low' is -3, which is negative; it is in K"},
        {package + "[energy.F]\ntemperature_low = 3\n", 3, "give both temperature_low and temperature_high"},
        {package + "[energy.F]\ntemperature_low = 5\ntemperature_high = 4\n", 4,
         "above 'temperature_high' of 4 K"},
        {package + "[information.F]\nvalu = 1\n", 4,
         "unknown key 'valu' in [information.F], did you mean 'value'?"},
        {package + "[information.F]\nvalue = true\n", 4, "'value' is to be a number, not true or false"},
        {package + "[information.F]\ndimension = \"bar\"\n", 4, "unknown unit 'bar' of 'dimension'"},
        {package + "[information.F]\ndimension = [1, 2, 3, 4, 5, 6, 7, 8, 9, 10]\n", 4, "has 10 exponents"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.text);
        const std::string error = errorOf(row.text);
        CHECK_MESSAGE(error.starts_with("folder/case.toml:" + std::to_string(row.line) + ": "), error);
        CHECK_MESSAGE(error.find(row.message) != std::string::npos, error);
    }
}

TEST_CASE("A setting of the command line is a name and a raw value") {
    const CaseParameter setting = readSetting(" Heat Duty = 5e4=x ");
    CHECK(setting.name == "Heat Duty");
    CHECK(std::get<RawText>(setting.value).text == "5e4=x");
    for (const char* wrong : {"Heat Duty", "=3", ""})
        CHECK_THROWS_WITH_AS(readSetting(wrong), doctest::Contains("NAME=VALUE"), CaseError);
}
