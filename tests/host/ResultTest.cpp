// Results as machines and people read them, and whether balances are judged rightly.
#include "host/CalculationReport.h"
#include "host/Closure.h"
#include "host/ResultJson.h"
#include "host/ResultTables.h"
#include "host/Table.h"
#include "host/UnitText.h"

#include <doctest/doctest.h>
#include <nlohmann/json.hpp>

using namespace orvane::host;

namespace {

RunResult heater() {
    RunResult result;
    result.compounds = {"methane", "propane"};
    result.valid = true;
    result.success = true;
    result.output = "printed\xff";
    result.warnings = {"first"};
    result.parameters = {{"Heat Duty", "W", true, true, 5e4},
                         {"Stages", "", true, false, 3},
                         {"Dry", "", true, false, true},
                         {"Mode", "", true, false, std::string("fast")},
                         {"Profile", "K", false, false, std::vector{0.1, notKnown}},
                         {"Count", "", true, false, ParameterValue()}};
    StreamResult feed{"Feed", true, 300, 5e6, 100, 1, -1000, -30, {0.75, 0.25}, {{"Vapor", 1, {0.75, 0.25}}}};
    StreamResult product = feed;
    product.port = "Prodúct";
    product.isFeed = false;
    product.temperature = 1.0 / 3;
    product.enthalpy = -500;
    result.streams = {feed, product};
    result.elapsedSeconds = 0.5;
    return result;
}

}  // namespace

TEST_CASE("The JSON result has every key, reals that come back exactly, and null for what is not known") {
    RunResult result = heater();
    result.streams[1].entropy = notKnown;
    result.energies = {{"Shaft", false, 5}};
    result.informations = {{"Signal", true, "Setpoint", "K", 350}};
    result.reports = {{"Sum", "1 + 1\n"}};
    const std::string text = resultJson(result);
    const auto json = nlohmann::ordered_json::parse(text);

    std::vector<std::string> keys;
    for (const auto& [key, value] : json.items()) keys.push_back(key);
    CHECK(keys == std::vector<std::string>{"valid", "message", "success", "error", "output", "warnings",
                                           "parameters", "streams", "energy", "information", "reports",
                                           "elapsed_seconds"});
    CHECK(json["valid"] == true);
    CHECK(json["output"] == "printed\xef\xbf\xbd");
    CHECK(json["parameters"]["Heat Duty"].get<double>() == 5e4);
    CHECK(json["parameters"]["Heat Duty"].is_number_float());
    CHECK(json["parameters"]["Stages"].is_number_integer());
    CHECK(json["parameters"]["Dry"] == true);
    CHECK(json["parameters"]["Profile"][1].is_null());
    CHECK(json["parameters"]["Count"].is_null());
    const auto& product = json["streams"]["Prodúct"];
    CHECK(product["temperature"].get<double>() == 1.0 / 3);
    CHECK(product["entropy"].is_null());
    CHECK(product["composition"]["propane"].get<double>() == 0.25);
    CHECK(product["phases"]["Vapor"]["fraction"].get<double>() == 1);
    CHECK(text.find("\"temperature\": 0.33333333333333331,") != std::string::npos);
    CHECK(text.ends_with("}\n"));

    CHECK(json["energy"]["Shaft"]["work"].get<double>() == 5);
    CHECK(json["energy"]["Shaft"]["axis_frequency"].is_null());
    CHECK(json["information"]["Signal"]["value"].get<double>() == 350);
    CHECK(json["information"]["Signal"]["name"] == "Setpoint");
    CHECK(json["reports"]["Sum"] == "1 + 1\n");

    result.valid.reset();
    result.streams[0].composition.clear();
    const auto failed = nlohmann::json::parse(resultJson(result));
    CHECK(failed["valid"].is_null());
    CHECK(failed["streams"]["Feed"]["composition"]["methane"].is_null());
}

TEST_CASE("A balance is judged after what parameters supply, and relative to what flows") {
    RunResult result = heater();
    REQUIRE(closure(result));
    CHECK(closure(result)->warnings().empty());  // 100 mol/s times 500 J/mol is the duty of 5e4 W
    CHECK(closure(result)->energy.in == doctest::Approx(-5e4));
    CHECK(closure(result)->suppliedBy == std::vector<std::string>{"Heat Duty"});

    SUBCASE("an output that is a power counts too") {
        result.parameters[0].isInput = false;
        CHECK(closure(result)->warnings().empty());
    }
    SUBCASE("energy that nobody supplied is a warning") {
        result.parameters[0].value = 4.9e4;
        const auto warnings = closure(result)->warnings();
        REQUIRE(warnings.size() == 1);
        CHECK(warnings[0].find("energy does not close") == 0);
        CHECK(warnings[0].find("'Heat Duty': 49000 W") != std::string::npos);
    }
    SUBCASE("each compound is judged for itself, above one part in a million") {
        result.streams[1].composition = {0.75 + 0.5e-6, 0.25 - 0.5e-6};
        const auto warnings = closure(result)->warnings();
        REQUIRE(warnings.size() == 1);
        CHECK(warnings[0].find("propane does not close: in 25,") == 0);
    }
    SUBCASE("energy streams count, and powers that are outputs repeat what these say") {
        result.parameters[0].isInput = false;
        result.energies = {{"Heating", true, 6e4}, {"Shaft", false, 1e4}};
        const auto balance = *closure(result);
        CHECK(balance.warnings().empty());
        CHECK(balance.supplied == 6e4);
        CHECK(balance.suppliedBy == std::vector<std::string>{"Heating"});
        result.energies[1].work = 0;
        CHECK(closure(result)->warnings().size() == 1);
        result.energies[1].work = notKnown;
        CHECK(!closure(result));
    }
    SUBCASE("a stream that is not known leaves nothing to judge") {
        result.streams[1].enthalpy = notKnown;
        CHECK(!closure(result));
    }
    SUBCASE("nothing flows") {
        for (auto& stream : result.streams) stream.flowRate = 0;
        result.parameters[0].value = 0.0;
        CHECK(closure(result)->warnings().empty());
    }
}

TEST_CASE("Tables stay aligned whatever the script, and show units and what is missing") {
    Table table(1);
    table.row({"Größe", "1"});
    table.row({"温度", "22"});
    table.row({"e\xcc\x81", "333"});
    table.row({"short"});
    CHECK(table.text() == "Größe    1\n温度    22\ne\xcc\x81      333\nshort\n");

    RunResult result = heater();
    result.streams[1].entropy = notKnown;
    const std::string text = resultTables(result, closure(result));
    std::vector<std::size_t> widths;
    for (std::size_t begin = 0; begin < text.find("\n\n"); begin = text.find('\n', begin) + 1) {
        const std::string line = text.substr(begin, text.find('\n', begin) - begin);
        if (line != "  Composition [mol/mol]") widths.push_back(displayWidth(line));
    }
    CHECK(widths.size() == 10);
    CHECK(std::equal(widths.begin() + 1, widths.end(), widths.begin()));
    CHECK(text.find("Heat Duty [W]") != std::string::npos);
    CHECK(text.find("Profile [K] (output)") != std::string::npos);
    CHECK(text.find("[0.1, -]") != std::string::npos);
    CHECK(text.find("supplied by 'Heat Duty': 50000 W") != std::string::npos);
}

TEST_CASE("Units are written as people write them") {
    struct Row {
        std::vector<double> exponents;
        const char* text;
    };
    for (const Row& row :
         {Row{{2, 1, -3}, "W"}, Row{{0, 0, 0, 0, 1, 0, 0, 0, 1}, "K"}, Row{{2, 1, -2, 0, 0, -1}, "J/mol"},
          Row{{}, ""}, Row{{1.5, 0, -2}, "m1.5 s-2"}, Row{{0, 1, 0, 2, 0, 0, 1}, "kg A2 cd"}}) {
        CHECK(unitText(row.exponents) == row.text);
    }
    for (const char* unit : {"W", "K", "mol/s", "J/mol/K", "rad"})
        CHECK(unitText(*exponentsOf(unit)) == unit);
    CHECK(!exponentsOf("bar"));
    CHECK(isPower(std::vector<double>{2, 1, -3, 0}));
    CHECK(!isPower(std::vector<double>{2, 1, -2}));
}

TEST_CASE("Of the unit's report of a calculation the printed text is left") {
    const std::string start = "Calculation starts: Calculation at 11/21/26, 13:27\r\n\r\n";
    const std::string end = "\r\n\r\nCalculation took 0.01 s\r\n";
    CHECK(printedOutput(start + "one\r\n\r\ntwo\r\n" + end, "") == "one\n\ntwo");
    CHECK(printedOutput(start + end, "") == "");
    CHECK(printedOutput(start + "one\r\n\r\nTraceback\r\nE: x\r\n" + end, "Traceback\nE: x\n") == "one");
    // The host was told more than the unit's report says: its chain of causes ends with it.
    CHECK(printedOutput(start + "one\r\n\r\nin Flash: x" + end, "in Calculate, caused by: in Flash: x") ==
          "one");
    CHECK(printedOutput(start, "") == "");
    CHECK(printedOutput("", "") == "");
    CHECK(printedOutput("another form", "") == "another form");
}
