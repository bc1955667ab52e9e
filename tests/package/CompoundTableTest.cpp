// The tables that the package is built with, and finding a compound in them.
#include "package/CompoundTable.h"

#include "package/PackageError.h"

#include <doctest/doctest.h>

#include <set>

using namespace orvane::package;

TEST_CASE("Every compound of the table has plausible constants") {
    const auto& compounds = CompoundTable::instance().compounds();
    CHECK(compounds.size() == 59);
    std::set<std::string> ids;
    for (const auto& c : compounds) {
        CAPTURE(c.id);
        CHECK(ids.insert(c.id).second);
        CHECK(!c.name.empty());
        CHECK(!c.formula.empty());
        CHECK(!c.source.empty());
        // CAS numbers end in a check digit.
        int sum = 0, weight = 0;
        for (auto it = c.cas.rbegin() + 2; it != c.cas.rend(); ++it)
            if (*it != '-') sum += ++weight * (*it - '0');
        CHECK(sum % 10 == c.cas.back() - '0');
        const double Zc = c.criticalPressure * c.criticalVolume / (8.314462618 * c.criticalTemperature);
        CHECK(Zc > 0.20);
        CHECK(Zc < 0.32);
        CHECK(c.normalBoilingPoint < c.criticalTemperature);
        CHECK(c.heatCapacityMinimumTemperature < 298.15);
        CHECK(c.heatCapacityMaximumTemperature > 298.15);
    }
}

TEST_CASE("A compound is found by id, name, formula or CAS number in any letter case") {
    const auto& table = CompoundTable::instance();
    struct {
        const char *text, *id;
    } const rows[] = {
        {"methane", "methane"},
        {"METHANE", "methane"},
        {"ch4", "methane"},
        {"74-82-8", "methane"},
        {"Carbon Dioxide", "carbon-dioxide"},
        {"1,3-Butadiene", "1-3-butadiene"},
        {"h2o", "water"},
        {"C12H26", "n-dodecane"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.text);
        REQUIRE(table.find(row.text));
        CHECK(table.find(row.text)->id == row.id);
    }
    CHECK(table.find("unobtainium") == nullptr);
    CHECK(table.find("") == nullptr);
}

TEST_CASE("A compound that is not found is answered with what may have been meant") {
    const auto& table = CompoundTable::instance();
    CHECK(table.nearest("metane").front() == "methane");
    CHECK(table.nearest("etahne").front() == "ethane");
    CHECK(table.nearest("carbon dioxid", 1) == std::vector<std::string>{"carbon-dioxide"});
    CHECK(table.nearest("propene", 2).size() == 2);
    CHECK(table.nearest("xyzzyxyzzy").empty());
    CHECK_THROWS_WITH_AS(table.at("metane"), doctest::Contains("nearest: methane"), PackageError);
    CHECK_THROWS_WITH_AS(table.at("C4H10"), doctest::Contains("n-butane, isobutane"), PackageError);
    CHECK(table.find("C4H10") == nullptr);
}

TEST_CASE("Interaction parameters are symmetric and zero where none is known") {
    const auto& table = CompoundTable::instance();
    CHECK(table.interaction("water", "methane") == 0.485);
    CHECK(table.interaction("methane", "water") == 0.485);
    CHECK(table.interaction("n-decane", "nitrogen") == 0.1122);
    CHECK(table.interaction("water", "ethanol") == 0);
    CHECK_FALSE(table.hasInteraction("water", "ethanol"));
    CHECK(table.hasInteraction("propane", "n-octane"));  // known to be 0
    CHECK(table.interaction("propane", "n-octane") == 0);
}
