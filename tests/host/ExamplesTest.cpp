// The examples that users copy: each runs, with both models of the package, and obeys the laws of its unit.
#include "package/CompoundTable.h"
#include "tests/host/CommandProcess.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <doctest/doctest.h>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

using namespace orvane::host;
using doctest::Approx;
using nlohmann::json;

namespace {

const std::filesystem::path examples = std::filesystem::path(ORVANE_SOURCE) / "examples";

std::string caseOf(const std::string& name) { return (examples / name / (name + ".toml")).string(); }

json runCase(const std::string& file, std::vector<std::string> settings = {}) {
    std::vector<std::string> arguments{"run", file, "--json", "-"};
    for (auto& setting : settings) {
        arguments.push_back("--set");
        arguments.push_back(std::move(setting));
    }
    const Finished run = command(arguments);
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    return json::parse(run.out);
}

json runExample(const std::string& name, std::vector<std::string> settings = {}) {
    return runCase(caseOf(name), std::move(settings));
}

std::string errorOfExample(const std::string& name, std::vector<std::string> settings, int exitCode = 1) {
    std::vector<std::string> arguments{"run", caseOf(name)};
    for (auto& setting : settings) {
        arguments.push_back("--set");
        arguments.push_back(std::move(setting));
    }
    const Finished run = command(arguments);
    CHECK(run.exitCode == exitCode);
    return run.error;
}

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

double of(const json& result, const std::string& stream, const std::string& what) {
    return result["streams"][stream][what].get<double>();
}

double parameter(const json& result, const std::string& name) {
    return result["parameters"][name].get<double>();
}

std::map<std::string, double> atoms(const std::string& formula) {
    std::map<std::string, double> result;
    for (std::size_t i = 0; i < formula.size();) {
        std::string symbol(1, formula[i++]);
        while (i < formula.size() && std::islower(static_cast<unsigned char>(formula[i])))
            symbol += formula[i++];
        std::string count;
        while (i < formula.size() && std::isdigit(static_cast<unsigned char>(formula[i])))
            count += formula[i++];
        result[symbol] += count.empty() ? 1 : std::stod(count);
    }
    return result;
}

// Atoms of each element [mol/s], and the enthalpy from the elements [W], that streams carry in or out.
struct Flows {
    std::map<std::string, double> elements;
    double energy = 0, energyScale = 0;
};

Flows flows(const json& result, bool feeds) {
    Flows sum;
    for (const auto& [name, stream] : result["streams"].items()) {
        const bool isFeed = holds(name, "Feed");
        if (isFeed != feeds) continue;
        const double flow = stream["flow_rate"].get<double>();
        const double energy = flow * stream["enthalpy"].get<double>();
        sum.energy += energy;
        sum.energyScale += std::abs(energy);
        for (const auto& [id, fraction] : stream["composition"].items()) {
            const auto& compound = orvane::package::CompoundTable::instance().at(id);
            const double amount = flow * fraction.get<double>();
            for (const auto& [element, count] : atoms(compound.formula))
                sum.elements[element] += amount * count;
            sum.energy += amount * compound.idealGasFormationEnthalpy;
            sum.energyScale += std::abs(amount * compound.idealGasFormationEnthalpy);
        }
    }
    return sum;
}

void checkBalances(const json& result) {
    const Flows in = flows(result, true), out = flows(result, false);
    for (const auto& flow : in.elements) {
        CAPTURE(flow.first);
        CHECK(out.elements.at(flow.first) == Approx(flow.second).epsilon(1e-9));
    }
    double supplied = 0;
    for (const char* name : {"Heat Duty", "Power"})
        if (result["parameters"].contains(name)) supplied += parameter(result, name);
    CHECK(out.energy == Approx(in.energy + supplied).scale(in.energyScale).epsilon(1e-8));
}

}  // namespace

TEST_CASE("Every example of a unit closes its balances of elements and energy, with both models") {
    int count = 0;
    for (const auto& folder : std::filesystem::directory_iterator(examples)) {
        const std::string name = folder.path().filename().string();
        CAPTURE(name);
        TestFolder copy;
        std::filesystem::copy(folder.path(), copy.file(name), std::filesystem::copy_options::recursive);
        std::string text = copy.read(name + "/" + name + ".toml");
        const std::string model = "model = \"Peng-Robinson\"";
        if (!holds(text, model)) continue;  // not about a unit's balances
        ++count;
        checkBalances(runExample(name));
        text.replace(text.find(model), model.size(), "model = \"ideal\"");
        copy.write(name + "/" + name + ".toml", text);
        checkBalances(runCase(copy.file(name + "/" + name + ".toml").string()));
    }
    CHECK(count >= 11);
}

TEST_CASE("The mixer takes the lowest pressure and makes entropy") {
    const json result = runExample("mixer");
    CHECK(of(result, "Product", "pressure") == 30e5);
    CHECK(of(result, "Product", "flow_rate") == Approx(100));
    CHECK(of(result, "Product", "flow_rate") * of(result, "Product", "entropy") >
          80 * of(result, "Feed 1", "entropy") + 20 * of(result, "Feed 2", "entropy"));
}

TEST_CASE("The splitter divides the flow and keeps the state, also when a product gets nothing") {
    for (const char* fraction : {"0", "0.25", "1"}) {
        const json result = runExample("splitter", {std::string("Split Fraction=") + fraction});
        CHECK(of(result, "Product 1", "flow_rate") == Approx(50 * std::stod(fraction)));
        for (const char* product : {"Product 1", "Product 2"}) {
            CHECK(of(result, product, "temperature") ==
                  Approx(of(result, "Feed", "temperature")).epsilon(1e-9));
            CHECK(of(result, product, "vapor_fraction") == Approx(0.4).epsilon(1e-6));
        }
    }
    CHECK(holds(errorOfExample("splitter", {"Split Fraction=1.5"}, 2), "Split Fraction"));
}

TEST_CASE("The drum parts vapour and liquid of one temperature, and has one product when one phase is left") {
    const json result = runExample("flash-drum");
    CHECK(of(result, "Vapor", "temperature") == Approx(of(result, "Liquid", "temperature")).epsilon(1e-7));
    CHECK(of(result, "Vapor", "vapor_fraction") == Approx(1).epsilon(1e-6));
    CHECK(of(result, "Liquid", "vapor_fraction") == Approx(0).scale(1).epsilon(1e-6));
    const auto& vapor = result["streams"]["Vapor"]["composition"];
    const auto& liquid = result["streams"]["Liquid"]["composition"];
    CHECK(vapor["methane"].get<double>() > 10 * liquid["methane"].get<double>());
    CHECK(vapor["n-decane"].get<double>() < 0.1 * liquid["n-decane"].get<double>());
    const json hot = runExample("flash-drum", {"Heat Duty=4e6"});
    CHECK(of(hot, "Liquid", "flow_rate") == 0);
    CHECK(of(hot, "Vapor", "flow_rate") == Approx(40));
}

TEST_CASE("The valve keeps the enthalpy, cools and makes entropy, and raises no pressure") {
    const json result = runExample("valve");
    CHECK(of(result, "Product", "enthalpy") == Approx(of(result, "Feed", "enthalpy")).epsilon(1e-9));
    CHECK(of(result, "Product", "entropy") > of(result, "Feed", "entropy"));
    CHECK(of(result, "Product", "vapor_fraction") > 0.3);  // the pure compound boils
    CHECK(parameter(result, "Temperature Change") ==
          Approx(of(result, "Product", "temperature") - 310).epsilon(1e-9));
    CHECK(holds(errorOfExample("valve", {"Outlet Pressure=5e6"}), "cannot raise the pressure"));
}

TEST_CASE("Pump and compressor take up more than the ideal work, and the ideal work makes no entropy") {
    for (const auto& row : std::map<std::string, std::string>{{"pump", "Efficiency"},
                                                              {"compressor", "Isentropic Efficiency"}}) {
        const std::string &name = row.first, &efficiency = row.second;
        CAPTURE(name);
        const json real = runExample(name), ideal = runExample(name, {efficiency + "=1"});
        CHECK(parameter(real, "Power") * parameter(real, efficiency) ==
              Approx(parameter(ideal, "Power")).epsilon(1e-8));
        CHECK(of(ideal, "Product", "entropy") == Approx(of(ideal, "Feed", "entropy")).epsilon(1e-8));
        CHECK(of(real, "Product", "entropy") > of(ideal, "Product", "entropy"));
        CHECK(holds(errorOfExample(name, {"Outlet Pressure=1e5"}), "below that of the feed"));
    }
    // A liquid hardly gives way: v (P2 - P1), with n-butane's 0.1 l/mol.
    const json pump = runExample("pump", {"Efficiency=1"});
    CHECK(parameter(pump, "Power") == Approx(100 * 1e-4 * 15e5).epsilon(0.1));
    CHECK(of(pump, "Product", "vapor_fraction") == 0);
}

TEST_CASE("Heat passes from the hot side to the cold one and no further") {
    double last = 0;
    for (const char* effectiveness : {"0", "0.5", "1"}) {
        const json result = runExample("heat-exchanger", {std::string("Effectiveness=") + effectiveness});
        const double duty =
            30 * (of(result, "Cold Product", "enthalpy") - of(result, "Cold Feed", "enthalpy"));
        CHECK(duty ==
              Approx(100 * (of(result, "Hot Feed", "enthalpy") - of(result, "Hot Product", "enthalpy")))
                  .scale(1e5));
        CHECK(duty >= last);
        last = duty;
        CHECK(of(result, "Hot Product", "temperature") >= of(result, "Cold Feed", "temperature") - 2);
        CHECK(of(result, "Cold Product", "temperature") <= of(result, "Hot Feed", "temperature") + 1e-6);
        const auto entropy = [&](const char* stream) {
            return of(result, stream, "flow_rate") * of(result, stream, "entropy");
        };
        CHECK(entropy("Hot Product") + entropy("Cold Product") > entropy("Hot Feed") + entropy("Cold Feed"));
    }
    CHECK(last > 1e5);
}

TEST_CASE("The component separator recovers what is asked for and takes one value a compound") {
    const json result = runExample("component-separator");
    const auto top = [&](const char* id) {
        return of(result, "Top", "flow_rate") * result["streams"]["Top"]["composition"][id].get<double>() /
               (100 * result["streams"]["Feed"]["composition"][id].get<double>());
    };
    CHECK(top("ethane") == Approx(1));
    CHECK(top("propane") == Approx(0.99));
    CHECK(top("n-butane") == Approx(0.005));
    CHECK(of(result, "Top", "temperature") < of(result, "Bottom", "temperature"));
    CHECK(holds(errorOfExample("component-separator", {"Recovery in Top=0.5,0.5"}),
                "has 2 values for 5 compounds"));
}

TEST_CASE("Burning methane sets free its heat of combustion") {
    const json result = runExample("conversion-reactor");
    CHECK(parameter(result, "Reaction Heat") ==
          Approx(0.2 * 802.3e3).epsilon(0.002));  // CRC Handbook, 298.15 K
    CHECK(of(result, "Product", "temperature") > 800);
    CHECK(result["streams"]["Product"]["composition"]["methane"] == 0.0);
    // The host sees a reaction in it, not four compounds that went astray.
    REQUIRE(result["warnings"].size() == 1);
    CHECK(holds(result["warnings"][0].get<std::string>(),
                "their elements close, as in a reaction: methane -0.2"));
    const json less = runExample("conversion-reactor", {"Conversion=0.5"});
    CHECK(of(less, "Product", "temperature") < of(result, "Product", "temperature"));
}

// K = exp(4577.8 / T - 4.33): J. M. Moe, Chem. Eng. Prog. 58 (1962) 33.
TEST_CASE("The water-gas shift comes to its published equilibrium") {
    for (const double T : {550.0, 700.0, 900.0}) {
        CAPTURE(T);
        const json result = runExample("equilibrium-reactor", {"Temperature=" + std::to_string(T)});
        CHECK(parameter(result, "ln K") == Approx(4577.8 / T - 4.33).scale(1).epsilon(0.05));
        const auto x = [&](const char* id) {
            return result["streams"]["Product"]["composition"][id].get<double>();
        };
        // Nearly an ideal gas.
        CHECK(std::log(x("carbon-dioxide") * x("hydrogen") / x("carbon-monoxide") / x("water")) ==
              Approx(parameter(result, "ln K")).scale(1).epsilon(0.15));
    }
}
