// The material object as a unit sees it: what it holds, what a flash leaves on it, what it refuses.
#include "tests/host/TestMaterial.h"

#include <cmath>
#include <doctest/doctest.h>
#include <numeric>

using namespace orvane::host;
using doctest::Approx;
using Texts = std::vector<std::string>;

namespace {

const TestMaterial::Specification byVaporFraction = {"phaseFraction", "mole", "Vapor"};

// At 300 K and 20 bar vapour and liquid, at 400 K and 1 bar gas, at 250 K and 100 bar liquid.
const std::vector<double> feed = {0.4, 0.3, 0.3};

double mixtureOf(const TestMaterial& material, const std::string& property) {
    double sum = 0;
    for (const std::string& phase : material.present()) {
        material.calculate({property}, phase);
        sum += material.of(phase, "phaseFraction", "mole").at(0) * material.of(phase, property, "mole").at(0);
    }
    return sum;
}

}  // namespace

TEST_CASE("A flash leaves on the material what the package finds") {
    const TestMaterial material;
    const auto package = makePackage(testCompounds);
    struct Row {
        double temperature, pressure;
        Texts phases;
    };
    for (const Row& row :
         {Row{300, 20e5, {"Vapor", "Liquid"}}, Row{400, 1e5, {"Vapor"}}, Row{250, 100e5, {"Liquid"}}}) {
        CAPTURE(row.temperature);
        material.flash(feed, row.temperature, row.pressure);
        const auto expected = package->equilibrium({ConditionKind::temperature, row.temperature},
                                                   {ConditionKind::pressure, row.pressure}, feed);
        REQUIRE(material.present() == row.phases);
        REQUIRE(expected.phases.size() == row.phases.size());
        for (std::size_t i = 0; i < row.phases.size(); ++i) {
            CHECK(material.statuses().at(i) == 1);
            CHECK(material.of(row.phases[i], "phaseFraction", "mole") ==
                  std::vector{expected.phases[i].fraction});
            CHECK(material.of(row.phases[i], "fraction", "mole") == expected.phases[i].composition);
            CHECK(material.of(row.phases[i], "temperature") == std::vector{row.temperature});
            CHECK(material.of(row.phases[i], "pressure") == std::vector{row.pressure});
        }
    }
}

TEST_CASE("A flash at the enthalpy or entropy of a state finds that state, in either order of conditions") {
    const TestMaterial material;
    for (const double temperature : {250.0, 300.0, 400.0}) {
        CAPTURE(temperature);
        material.flash(feed, temperature, 20e5);
        const double enthalpy = mixtureOf(material, "enthalpy");
        const double entropy = mixtureOf(material, "entropy");

        const auto again = [&](const char* property, double value, bool pressureFirst) {
            material.setOverall(property, "mole", {value});
            material.setPresent({"Vapor", "Liquid"});
            const TestMaterial::Specification by = {property, "mole", "overall"};
            if (pressureFirst)
                material.equilibrium(TestMaterial::byPressure, by);
            else
                material.equilibrium(by, TestMaterial::byPressure);
            return material.overall("temperature").at(0);
        };
        CHECK(again("enthalpy", enthalpy, true) == Approx(temperature).epsilon(1e-8));
        CHECK(mixtureOf(material, "enthalpy") == Approx(enthalpy).epsilon(1e-8));
        CHECK(again("enthalpy", enthalpy, false) == Approx(temperature).epsilon(1e-8));
        CHECK(again("entropy", entropy, true) == Approx(temperature).epsilon(1e-8));
        const double formation = mixtureOf(material, "enthalpyF") - mixtureOf(material, "enthalpy");
        CHECK(again("enthalpyF", enthalpy + formation, true) == Approx(temperature).epsilon(1e-8));
    }
}

TEST_CASE("Mass and mole bases are of one state") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    material.setOverall("totalFlow", "mole", {7});
    const std::vector<double> molarMass = {0.016043, 0.044097, 0.072151};  // kg/mol

    const auto mean = [&](const std::vector<double>& x) {
        return std::inner_product(x.begin(), x.end(), molarMass.begin(), 0.0);
    };
    for (const char* phase : {"Vapor", "Liquid"}) {
        const double m = mean(material.of(phase, "fraction", "mole"));
        material.calculate({"enthalpy", "volume", "density", "molecularWeight"}, phase);
        CHECK(material.of(phase, "molecularWeight").at(0) == Approx(1000 * m).epsilon(1e-5));
        CHECK(material.of(phase, "enthalpy", "mass").at(0) * m ==
              Approx(material.of(phase, "enthalpy", "mole").at(0)).epsilon(1e-5));
        for (const char* basis : {"mole", "mass"}) {
            CHECK(material.of(phase, "volume", basis).at(0) * material.of(phase, "density", basis).at(0) ==
                  Approx(1));
        }
        CHECK(material.of(phase, "density", "mass").at(0) ==
              Approx(m * material.of(phase, "density", "mole").at(0)).epsilon(1e-5));
    }
    const double vaporMass = material.of("Vapor", "phaseFraction", "mass").at(0);
    CHECK(vaporMass + material.of("Liquid", "phaseFraction", "mass").at(0) == Approx(1));
    CHECK(vaporMass < material.of("Vapor", "phaseFraction", "mole").at(0));

    const auto flows = material.overall("flow", "mass");
    CHECK(std::accumulate(flows.begin(), flows.end(), 0.0) ==
          Approx(material.overall("totalFlow", "mass").at(0)));
    const auto ofVapor = material.of("Vapor", "flow", "mole");
    const auto ofLiquid = material.of("Liquid", "flow", "mole");
    for (std::size_t i = 0; i < 3; ++i) CHECK(ofVapor[i] + ofLiquid[i] == Approx(7 * feed[i]));

    const TestMaterial other;
    SUBCASE("set by mass fractions and mass flow") {
        other.setOverall("fraction", "mass", material.overall("fraction", "mass"));
        other.setOverall("totalFlow", "mass", material.overall("totalFlow", "mass"));
    }
    SUBCASE("set by mass flows") { other.setOverall("flow", "mass", flows); }
    SUBCASE("set by mole flows") { other.setOverall("flow", "mole", material.overall("flow", "mole")); }
    CHECK(other.overall("totalFlow", "mole").at(0) == Approx(7).epsilon(1e-12));
    for (std::size_t i = 0; i < 3; ++i)
        CHECK(other.overall("fraction", "mole").at(i) == Approx(feed[i]).epsilon(1e-12));
}

TEST_CASE("What was neither set nor calculated is an error that names property and owner") {
    const TestMaterial material;
    CHECK(errorOf([&] { material.overall("temperature"); }).find("'temperature' of the overall mixture") !=
          std::string::npos);
    CHECK(errorOf([&] { material.of("Liquid", "temperature"); }).find("'Liquid' is not present") !=
          std::string::npos);
    material.setPresent({"Vapor"});
    CHECK(errorOf([&] { material.of("Vapor", "enthalpy", "mole"); }).find("'enthalpy' of phase 'Vapor'") !=
          std::string::npos);
    CHECK(errorOf([&] {
              material.calculate({"enthalpy"}, "Vapor");
          }).find("'temperature' of phase 'Vapor'") != std::string::npos);
    material.setOverall("totalFlow", "mole", {1});
    CHECK(errorOf([&] { material.overall("totalFlow", "mass"); }).find("the composition") !=
          std::string::npos);
    CHECK(errorOf([&] { material.overall("temperature"); }).find("material object 'S1'") !=
          std::string::npos);
}

TEST_CASE("A wrong value is refused, says what is wrong, and leaves the old one") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    material.setOverall("totalFlow", "mole", {5});
    struct Row {
        const char* property;
        const char* basis;
        std::vector<double> values;
        const char* message;
    };
    const double nan = std::nan("");
    for (const Row& row : {
             Row{"temperature", "", {nan}, "nan is not a number"},
             Row{"temperature", "", {-3}, "-3 is not positive"},
             Row{"temperature", "", {300, 301}, "takes 1 value, not 2"},
             Row{"temperature", "mole", {300}, "has no basis 'mole'"},
             Row{"pressure", "", {std::numeric_limits<double>::infinity()}, "inf is not a number"},
             Row{"totalFlow", "", {3}, "has no basis ''"},
             Row{"totalFlow", "volume", {3}, "has no basis 'volume'"},
             Row{"totalFlow", "mole", {-1}, "-1 is negative"},
             Row{"fraction", "mole", {0.5, 0.5}, "takes 3 values, not 2"},
             Row{"fraction", "mole", {0.5, 0.4, 0.2}, "adds up to 1.1, not to 1"},
             Row{"fraction", "mole", {0.5, 0.6, -0.1}, "compound 'n-pentane': -0.1 is negative"},
             Row{"flow", "mole", {0, 0, 0}, "0 for every compound"},
             Row{"phaseFraction", "mole", {0.5}, "is of a phase"},
             Row{"warmth", "", {1}, "unknown property 'warmth'"},
         }) {
        CAPTURE(row.property);
        const std::string error = errorOf([&] { material.setOverall(row.property, row.basis, row.values); });
        CHECK_MESSAGE(error.find(row.message) != std::string::npos, error);
    }
    CHECK(material.overall("temperature") == std::vector{300.0});
    CHECK(material.overall("totalFlow", "mole") == std::vector{5.0});
    CHECK(material.overall("fraction", "mole").at(1) == Approx(0.3));
    CHECK(material.statuses() == std::vector{1, 1});

    CHECK(errorOf([&] { material.of("Solid", "temperature"); }).find("unknown phase 'Solid'") !=
          std::string::npos);
    CHECK(errorOf([&] {
              material.setOf("Vapor", "flow", "mole", {1, 2, 3});
          }).find("follows from") != std::string::npos);
}

TEST_CASE("Names are found whatever their letter case") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    CHECK(material.overall("TEMPERATURE") == std::vector{300.0});
    CHECK(material.of("vapor", "Fraction", "MOLE") == material.of("Vapor", "fraction", "mole"));
}

TEST_CASE("What was calculated from an old state does not outlive it") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    material.calculate({"enthalpy"}, "Vapor");

    SUBCASE("a phase's temperature takes the phase's properties away") {
        material.setOf("Vapor", "temperature", "", {310});
        CHECK(errorOf([&] { material.of("Vapor", "enthalpy", "mole"); }).find("neither set nor calculated") !=
              std::string::npos);
        CHECK(material.of("Vapor", "fraction", "mole").size() == 3);
    }
    SUBCASE("another temperature of the mixture takes the equilibrium away, the same one does not") {
        material.setOverall("temperature", "", {300});
        CHECK(material.statuses() == std::vector{1, 1});
        material.setOverall("temperature", "", {310});
        CHECK(material.statuses() == std::vector{0, 0});
    }
    SUBCASE("a flash that fails leaves no phases") {
        material.setOverall("enthalpy", "mole", {1e12});
        material.setPresent({"Vapor", "Liquid"});
        CHECK(errorOf([&] { material.equilibrium(TestMaterial::byPressure, TestMaterial::byEnthalpy); }) !=
              "");
        CHECK(material.present().empty());
    }
    SUBCASE("the enthalpy that specified a flash goes with the next one") {
        material.setOverall("enthalpy", "mole", {mixtureOf(material, "enthalpy") + 100});
        material.setPresent({"Vapor", "Liquid"});
        material.equilibrium(TestMaterial::byPressure, TestMaterial::byEnthalpy);
        CHECK(material.overall("enthalpy", "mole").size() == 1);
        material.setOverall("temperature", "", {310});
        CHECK(errorOf([&] { material.overall("enthalpy", "mole"); }) != "");
    }
    SUBCASE("clearing takes all") {
        COBIA::call<&TestMaterial::Material::Table::ClearAllProps>(material.material);
        CHECK(material.present().empty());
        CHECK(errorOf([&] { material.overall("temperature"); }) != "");
    }
}

TEST_CASE("Every condition that a unit can ask for leads back to the state, on a mole and a mass basis") {
    for (const char* basis : {"mole", "mass"}) {
        CAPTURE(std::string(basis));
        const TestMaterial material;
        material.flash(feed, 300, 20e5);
        const double fraction = material.of("Vapor", "phaseFraction", basis).at(0);
        const auto again = [&](const TestMaterial::Specification& first,
                               const TestMaterial::Specification& second) {
            material.setPresent({"Vapor", "Liquid"});
            if (second[0] == "phaseFraction") material.setOf("Vapor", "phaseFraction", "mole", {fraction});
            material.equilibrium(first, second);
            CHECK(material.overall("temperature").at(0) == Approx(300).epsilon(1e-7));
            CHECK(material.overall("pressure").at(0) == Approx(20e5).epsilon(1e-7));
        };
        for (const char* property : {"enthalpy", "enthalpyF", "entropy", "entropyF", "volume"}) {
            CAPTURE(std::string(property));
            double value = 0;
            for (const char* phase : {"Vapor", "Liquid"}) {
                material.calculate({property}, phase);
                value += material.of(phase, "phaseFraction", basis).at(0) *
                         material.of(phase, property, basis).at(0);
            }
            for (const auto& given : {TestMaterial::byPressure, TestMaterial::byTemperature}) {
                material.setOverall(property, basis, {value});
                again(given, {property, basis, "overall"});
            }
        }
        if (std::string(basis) == "mass") continue;
        again(TestMaterial::byPressure, byVaporFraction);
        again(TestMaterial::byTemperature, byVaporFraction);
    }
}

TEST_CASE("Every property that is offered of a phase or two is calculated and read on its bases") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    const auto routine = COBIA::query<TestMaterial::Routine>(material.material);
    COBIA::StringArray offered, offeredOfTwo;
    COBIA::call<&TestMaterial::Routine::Table::getSinglePhasePropList>(routine, offered.out());
    COBIA::call<&TestMaterial::Routine::Table::getTwoPhasePropList>(routine, offeredOfTwo.out());
    CHECK(offered.utf8().size() >= 23);
    for (const char* phase : {"Vapor", "Liquid"}) {
        const double weight = [&] {
            material.calculate({"molecularWeight"}, phase);
            return material.of(phase, "molecularWeight").at(0) * 1e-3;
        }();
        for (const auto& name : offered.utf8()) {
            CAPTURE(name);
            material.calculate({name}, phase);
            const bool plain = errorOf([&] { material.of(phase, name); }).empty();
            const bool perAmount = errorOf([&] { material.of(phase, name, "mass"); }).empty();
            const bool ofMoles = errorOf([&] { material.of(phase, name, "mole"); }).empty();
            CHECK(plain != ofMoles);  // it has a basis, or none
            const bool byAmounts = name.find(".Dmol") != std::string::npos;
            CHECK(perAmount == (ofMoles && !byAmounts));
            for (const double value : material.of(phase, name, plain ? "" : "mole"))
                CHECK(std::isfinite(value));
            if (!perAmount) continue;
            const double ratio = name.starts_with("density") ? 1 / weight : weight;
            CHECK(material.of(phase, name, "mass").at(0) * ratio ==
                  Approx(material.of(phase, name, "mole").at(0)));
        }
    }
    for (const auto& name : offeredOfTwo.utf8()) {
        CAPTURE(name);
        COBIA::call<&TestMaterial::Routine::Table::CalcTwoPhaseProp>(
            routine, COBIA::StringArray({name}).in(), COBIA::StringArray({"Vapor", "Liquid"}).in());
        COBIA::RealArray values;
        COBIA::call<&TestMaterial::Material::Table::GetTwoPhaseProp>(
            material.material, COBIA::StringObject(name).in(), COBIA::StringArray({"Vapor", "Liquid"}).in(),
            COBIA::StringObject().in(), values.out());
        CHECK(values.view().size() == (name == "surfaceTension" ? 1 : 3));
    }
    material.calculate({"activityCoefficient", "activity"}, "Liquid");
    const auto gamma = material.of("Liquid", "activityCoefficient"),
               activity = material.of("Liquid", "activity");
    const auto x = material.of("Liquid", "fraction", "mole");
    for (std::size_t i = 0; i < 3; ++i) CHECK(activity[i] == Approx(gamma[i] * x[i]));
    CHECK(gamma[2] == Approx(1).epsilon(0.1));  // the solvent, nearly pure
}

TEST_CASE("Derivatives of a phase are asked for by the property's name and what they are by") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    CHECK(errorOf([&] { material.of("Vapor", "enthalpy.Dtemperature", "mole"); }).find("not calculated") !=
          std::string::npos);
    material.calculate({"Enthalpy.DTEMPERATURE", "heatCapacityCp", "fugacity.Dmoles", "fugacity"}, "Vapor");
    CHECK(material.of("Vapor", "enthalpy.Dtemperature", "mole") ==
          material.of("Vapor", "heatCapacityCp", "mole"));

    // All compounds' fugacities by the first compound come first: of these its own alone rises with its amount.
    const auto byMoles = material.of("Vapor", "fugacity.Dmoles");
    REQUIRE(byMoles.size() == 9);
    const auto fugacity = material.of("Vapor", "fugacity");
    const auto x = material.of("Vapor", "fraction", "mole");
    CHECK(byMoles[0] > 0);
    CHECK(byMoles[1] == Approx(-fugacity[1]).epsilon(0.2));
    for (std::size_t i = 0; i < 3; ++i) {
        double sum = 0;
        for (std::size_t j = 0; j < 3; ++j) sum += x[j] * byMoles[j * 3 + i];
        CHECK(sum == Approx(0).scale(fugacity[i]).epsilon(1e-12));
    }

    for (const char* name : {"viscosity.Dtemperature", "density.Dmoles", "temperature.Dpressure"}) {
        const auto refusal = errorOf([&] { material.calculate({name}, "Vapor"); });
        CHECK(refusal.find(name) != std::string::npos);
        CHECK(refusal.find("GetSinglePhasePropList") != std::string::npos);
    }
    CHECK(errorOf([&] { material.calculate({"enthalpy.Dvolume"}, "Vapor"); }).find("enthalpy.Dvolume") !=
          std::string::npos);
    material.calculate({"enthalpy.Dmoles"}, "Vapor");
    CHECK(errorOf([&] { material.of("Vapor", "enthalpy.Dmoles", "mass"); }).find("takes 'mole'") !=
          std::string::npos);
    material.setOf("Vapor", "temperature", "", {310});
    CHECK(!errorOf([&] { material.of("Vapor", "enthalpy.Dmoles", "mole"); }).empty());
}

TEST_CASE("A flash that the package does not have is refused and asks to be told so") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    const auto supported = [&](const TestMaterial::Specification& first,
                               const TestMaterial::Specification& second, const std::string& solutionType) {
        COBIA::CapeBoolean result = 2;
        COBIA::call<&TestMaterial::Equilibrium::Table::CheckEquilibriumSpec>(
            COBIA::query<TestMaterial::Equilibrium>(material.material), COBIA::StringArray(first).in(),
            COBIA::StringArray(second).in(), COBIA::StringObject(solutionType).in(), &result);
        return result == 1;
    };
    CHECK(supported(TestMaterial::byEnthalpy, TestMaterial::byPressure, "Unspecified"));
    CHECK(!supported(TestMaterial::byTemperature, TestMaterial::byPressure, "retrograde"));
    CHECK(!supported(TestMaterial::byEnthalpy, {"volume", "mole", "overall"}, "unspecified"));
    CHECK(!supported(TestMaterial::byEnthalpy, byVaporFraction, "unspecified"));
    CHECK(!supported(TestMaterial::byTemperature, TestMaterial::byTemperature, "unspecified"));
    CHECK(supported(TestMaterial::byTemperature, byVaporFraction, "retrograde"));
    CHECK(supported({"volume", "mole", "overall"}, TestMaterial::byTemperature, "normal"));
    CHECK(!supported(TestMaterial::byTemperature, byVaporFraction, "abnormal"));

    material.setOverall("volume", "mole", {1e-3});
    material.setOverall("enthalpy", "mole", {1e3});
    material.setPresent({"Vapor", "Liquid"});
    const auto flash = [&](const TestMaterial::Specification& second, const std::string& solutionType) {
        return errorOf([&] { material.equilibrium(TestMaterial::byTemperature, second, solutionType); });
    };
    CHECK(errorOf([&] {
              material.equilibrium(TestMaterial::byEnthalpy, {"volume", "mole", "overall"});
          }).find("no flash for enthalpy and volume") != std::string::npos);
    CHECK(flash(TestMaterial::byPressure, "upside down").find("unknown solution type") != std::string::npos);
    CHECK(flash({"pressure", "", "Vapor"}, "unspecified").find("not of 'Vapor'") != std::string::npos);
    CHECK(flash({"pressure"}, "unspecified").find("property, basis and phase") != std::string::npos);
    CHECK(flash(TestMaterial::byPressure, "retrograde").find("solution type 'retrograde'") !=
          std::string::npos);
    material.setPresent({"Vapor"});
    CHECK(flash(TestMaterial::byPressure, "unspecified").find("'Liquid' is not declared present") !=
          std::string::npos);
}

TEST_CASE("A copy holds what its source held, and lives on its own") {
    const TestMaterial source;
    source.flash(feed, 300, 20e5);
    source.calculate({"enthalpy"}, "Liquid");
    const TestMaterial copy(
        COBIA::obtain<TestMaterial::Material, &TestMaterial::Material::Table::CreateMaterial>(
            source.material.get()));
    CHECK(copy.present().empty());
    const auto copyFrom = [&](const TestMaterial& from) {
        COBIA::call<&TestMaterial::Material::Table::CopyFromMaterial>(copy.material, from.material.get());
    };
    copyFrom(source);
    source.setOverall("temperature", "", {310});
    CHECK(copy.overall("temperature") == std::vector{300.0});
    CHECK(copy.statuses() == std::vector{1, 1});
    CHECK(copy.of("Liquid", "enthalpy", "mole") == source.of("Liquid", "enthalpy", "mole"));

    CHECK(errorOf([&] {
              copyFrom(TestMaterial({"methane", "propane"}));
          }).find("other compounds") != std::string::npos);
    CHECK(copy.overall("temperature") == std::vector{300.0});
}

TEST_CASE("Phase properties hold the laws that bind them") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    const auto vapor = [&](const char* property, const char* basis) {
        material.calculate({property}, "Vapor");
        return material.of("Vapor", property, basis);
    };
    const double enthalpy = vapor("enthalpy", "mole").at(0);
    const double entropy = vapor("entropy", "mole").at(0);
    const double volume = vapor("volume", "mole").at(0);
    CHECK(vapor("gibbsEnergy", "mole").at(0) == Approx(enthalpy - 300 * entropy));
    CHECK(vapor("internalEnergy", "mole").at(0) == Approx(enthalpy - 20e5 * volume));
    CHECK(vapor("helmholtzEnergy", "mole").at(0) == Approx(enthalpy - 20e5 * volume - 300 * entropy));
    CHECK(vapor("compressibilityFactor", "").at(0) ==
          Approx(20e5 * volume / (orvane::package::gasConstant * 300)));
    CHECK(vapor("heatCapacityCp", "mole").at(0) > vapor("heatCapacityCv", "mole").at(0));

    material.calculate({"fugacity"}, "Liquid");
    const auto fugacity = vapor("fugacity", "");
    const auto phi = vapor("fugacityCoefficient", "");
    const auto lnPhi = vapor("logFugacityCoefficient", "");
    const auto y = material.of("Vapor", "fraction", "mole");
    for (std::size_t i = 0; i < 3; ++i) {
        CHECK(fugacity[i] == Approx(material.of("Liquid", "fugacity").at(i)).epsilon(1e-7));
        CHECK(fugacity[i] == Approx(phi[i] * y[i] * 20e5));
        CHECK(std::exp(lnPhi[i]) == Approx(phi[i]));
    }
    // Without a basis where there is one, and the other way round.
    CHECK(errorOf([&] { material.of("Vapor", "enthalpy"); }).find("has no basis ''") != std::string::npos);
    CHECK(errorOf([&] { material.of("Vapor", "fugacity", "mole"); }).find("it takes an empty one") !=
          std::string::npos);
}

TEST_CASE("Entropy and enthalpy from the elements agree with the tabulated standard state") {
    const TestMaterial material({"propane"});
    material.flash({1}, 298.15, 1000);
    material.calculate({"enthalpyF", "entropyF"}, "Vapor");
    const auto& propane = orvane::package::CompoundTable::instance().at("propane");
    CHECK(material.of("Vapor", "enthalpyF", "mole").at(0) ==
          Approx(propane.idealGasFormationEnthalpy).epsilon(1e-4));
    // An ideal gas at 1000 Pa, 100 times thinner than at the standard pressure of 100 kPa.
    CHECK(material.of("Vapor", "entropyF", "mole").at(0) ==
          Approx(propane.idealGasAbsoluteEntropy + orvane::package::gasConstant * std::log(100.0))
              .epsilon(1e-4));
}

TEST_CASE("K-values at equilibrium are the ratio of the compositions, in the order that was asked for") {
    const TestMaterial material;
    material.flash(feed, 300, 20e5);
    const auto y = material.of("Vapor", "fraction", "mole");
    const auto x = material.of("Liquid", "fraction", "mole");
    const auto kvalues = [&](const Texts& calculated, const Texts& asked) {
        COBIA::call<&TestMaterial::Routine::Table::CalcTwoPhaseProp>(
            COBIA::query<TestMaterial::Routine>(material.material), COBIA::StringArray({"kvalue"}).in(),
            COBIA::StringArray(calculated).in());
        COBIA::RealArray values;
        COBIA::call<&TestMaterial::Material::Table::GetTwoPhaseProp>(
            material.material, COBIA::StringObject("kvalue").in(), COBIA::StringArray(asked).in(),
            COBIA::StringObject().in(), values.out());
        return std::vector<double>(values.view().begin(), values.view().end());
    };
    const auto down = kvalues({"Vapor", "Liquid"}, {"vapor", "liquid"});
    const auto up = kvalues({"Liquid", "Vapor"}, {"Liquid", "Vapor"});
    for (std::size_t i = 0; i < 3; ++i) {
        CHECK(down[i] == Approx(y[i] / x[i]).epsilon(1e-7));
        CHECK(up[i] == Approx(x[i] / y[i]).epsilon(1e-7));
    }
    CHECK(errorOf([&] {
              kvalues({"Vapor", "Liquid"}, {"Liquid", "Vapor"});
          }).find("neither set") != std::string::npos);
    CHECK(errorOf([&] { kvalues({"Vapor", "Vapor"}, {}); }).find("twice") != std::string::npos);
}

TEST_CASE("ln phi and its derivatives come as the flags say") {
    const TestMaterial material;
    const auto routine = COBIA::query<TestMaterial::Routine>(material.material);
    const auto lnPhi = [&](double temperature, int flags, int which) {
        COBIA::RealArray results[4];
        COBIA::call<&TestMaterial::Routine::Table::CalcAndGetLnPhi>(
            routine, COBIA::StringObject("Vapor").in(), temperature, 5e5, COBIA::RealView(feed).in(), flags,
            results[0].out(), results[1].out(), results[2].out(), results[3].out());
        const auto values = results[which].view();
        return std::vector<double>(values.begin(), values.end());
    };
    CHECK(lnPhi(400, 1, 1).empty());
    CHECK(lnPhi(400, 2, 0).empty());
    CHECK(lnPhi(400, 15, 2).size() == 3);
    CHECK(lnPhi(400, 15, 3).size() == 9);
    for (std::size_t i = 0; i < 3; ++i) {
        const double slope = (lnPhi(400.01, 1, 0).at(i) - lnPhi(399.99, 1, 0).at(i)) / 0.02;
        CHECK(lnPhi(400, 2, 1).at(i) == Approx(slope).epsilon(1e-5));
    }
}

TEST_CASE("One object answers for all interfaces of a material, and for no others") {
    const TestMaterial material;
    CHECK(COBIA::query<COBIA::ICapeThermoCompounds>(material.material));
    CHECK(COBIA::query<COBIA::ICapeThermoPhases>(material.material));
    CHECK(COBIA::query<COBIA::ICapeThermoEquilibriumRoutine>(material.material));
    CHECK(!COBIA::query<COBIA::ICapeUnit>(material.material));
    const auto identity = COBIA::query<COBIA::ICapeInterface>(material.material);
    CHECK(COBIA::query<COBIA::ICapeInterface>(COBIA::query<COBIA::ICapeThermoPhases>(material.material)) ==
          identity);
    const auto identification = COBIA::query<COBIA::ICapeIdentification>(material.material);
    CHECK(COBIA::text<&COBIA::ICapeIdentification::Table::getComponentName>(identification.get()) == "S1");
}
