// Energy and information streams of a case, from the file to the result.
#include "tests/host/CommandProcess.h"

#include "cobia/Call.h"
#include "host/ParameterStream.h"

#include <doctest/doctest.h>
#include <limits>
#include <nlohmann/json.hpp>

using namespace orvane::host;
using nlohmann::json;

namespace {

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// A unit that takes heat and shaft work in, and gives heat off again.
const std::string script = R"(
def Configure(unit):
    T, D = unit.PortType, unit.PortDirection
    unit.add_port('Heating', T.ENERGY, D.FEED, thermal=True)
    unit.add_port('Shaft', T.ENERGY, D.FEED, axle=True)
    unit.add_port('Losses', T.ENERGY, D.PRODUCT)
    unit.add_port('Set', T.INFORMATION, D.FEED, data_name='Setpoint', dimension=unit.Dimension.KELVIN)
    unit.add_port('Level', T.INFORMATION, D.PRODUCT, optional=True)
def Calculate(unit):
    heating, shaft = unit.ports['Heating'], unit.ports['Shaft']
    print(heating.stream_name, heating.temperature_range, shaft.axis_frequency)
    print(unit.ports['Set'].name, unit.ports['Set'].value)
    unit.ports['Losses'].work = heating.work + shaft.work
    unit.ports['Level'].value = 0.25
)";

const std::string head = "[package]\ncompounds = [\"methane\"]\n[unit]\nscript = \"unit.py\"\n";
const std::string streams = "[energy.Heating]\nwork = 2e3\ntemperature_low = 300\ntemperature_high = 400\n"
                            "[energy.shaft]\nwork = 500\naxis_frequency = 50\n"
                            "[information.Set]\nvalue = 350\n";

}  // namespace

TEST_CASE("Energy and information reach the script, and come back in tables, JSON and the balance") {
    const TestFolder folder;
    folder.write("unit.py", script);
    const auto file = folder.write("case.toml", head + streams);
    const Finished run = command({"run", file});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    CHECK(run.error == "");
    for (const char* part : {"Heating (300.0, 400.0) 50.0\nSetpoint 350.0", "Work [W]",
                             "Lower temperature [K]", "Set: Setpoint [K]   350", "Level: Level",
                             "energy [W]       2500  2500", "supplied by 'Heating', 'Shaft': 2500 W"})
        CHECK_MESSAGE(holds(run.out, part), run.out);

    const Finished machine = command({"run", file, "--json", "-"});
    const json result = json::parse(machine.out);
    CHECK(result["energy"]["Losses"]["work"] == 2500.0);
    CHECK(result["energy"]["Losses"]["axis_frequency"].is_null());
    CHECK(result["energy"]["Heating"]["temperature_high"] == 400.0);
    CHECK(result["information"]["Level"]["value"] == 0.25);
    CHECK(result["information"]["Set"]["unit"] == "K");
}

TEST_CASE("What a script leaves out is a warning, and what it writes wrong an error that names the stream") {
    const TestFolder folder;
    const auto file = folder.write("case.toml", head + streams);
    const auto with = [&](const std::string& from, const std::string& to) {
        std::string changed = script;
        changed.replace(changed.find(from), from.size(), to);
        folder.write("unit.py", changed);
        return command({"run", file});
    };
    const Finished missing = with("unit.ports['Losses'].work = heating.work + shaft.work", "pass");
    CHECK(missing.exitCode == 0);
    CHECK(holds(missing.error, "work not specified for port 'Losses'"));
    CHECK(!holds(missing.out, "Balances"));

    const Finished noNumber = with("0.25", "float('nan')");
    CHECK(noNumber.exitCode == 1);
    CHECK(holds(noNumber.error,
                "RuntimeError: For object connected to port 'Level': in ICapeRealParameter::Value of "
                "parameter 'Level' of information stream 'Level': nan is no amount"));
    CHECK(holds(with("unit.ports['Level'].value", "heating.work").error,
                "cannot set input energy stream values"));
}

TEST_CASE("Streams that do not fit the unit are refused with the line") {
    struct Row {
        const char* text;
        int line;
        const char* message;
    };
    const Row rows[] = {
        {"[energy.Heatin]\nwork = 1\n", 5, "the unit has no energy port 'Heatin', did you mean 'Heating'?"},
        {"[streams.Heating]\n", 5, "port 'Heating' carries energy; write [energy.Heating]"},
        {"[energy.Heating]\n", 5, "[energy.Heating] has no 'work' [W]"},
        {"[energy.Losses]\nwork = 1\n", 5, "port 'Losses' is a product"},
        {"[information.Set]\n", 5, "[information.Set] has no 'value'"},
        {"[information.Level]\nvalue = 1\n", 5, "port 'Level' is a product"},
        {"[information.Set]\nvalue = 1\ndimension = \"Pa\"\n", 5,
         "port 'Set' does not take the parameter 'Setpoint' in Pa of [information.Set]: object does not contain suitable "
         "real parameter with equal dimensionality"},
        {"[energy.Heating]\nwork = 1\n[energy.heating]\nwork = 1\n", 7,
         "port 'Heating' has a stream already"},
    };
    const TestFolder folder;
    folder.write("unit.py", script);
    for (const Row& row : rows) {
        CAPTURE(row.text);
        const auto file = folder.write("case.toml", head + row.text);
        const Finished run = command({"run", file});
        CHECK(run.exitCode == 2);
        CHECK_MESSAGE(holds(run.error, file + ":" + std::to_string(row.line) + ": " + row.message),
                      run.error);
    }
    CHECK(holds(command({"run", folder.write("case.toml", head)}).error, "Port 'Heating' is not connected"));
}

TEST_CASE("A stream of the host refuses what is no value of it") {
    using namespace COBIA;
    const double none = std::numeric_limits<double>::quiet_NaN();
    const auto stream = makeObject<ParameterStream>(
        "Out", "energy", false, std::vector<StreamParameter::Definition>{{"T", {0, 0, 0, 0, 1}, 0, none}});
    const auto feed = makeObject<ParameterStream>(
        "In", "energy", true, std::vector<StreamParameter::Definition>{{"work", {2, 1, -3}, none, 5}});
    const auto put = [](const Ref<ParameterStream>& of, const char* name, double value) -> std::string {
        try {
            const auto item = obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(
                of->as<ICapeCollection>(), StringObject(name).in());
            call<&ICapeRealParameter::Table::putValue>(query<ICapeRealParameter>(item), value);
            return "";
        }
        catch (const cape_open_error& error) {
            return error.directText();
        }
    };
    CHECK(put(stream, "t", 300) == "");
    CHECK(put(stream, "T", -1) == "-1 is below 0, the least value");
    CHECK(put(stream, "T", none) == "nan is no amount");
    CHECK(put(stream, "work", 1) == "No such item");
    CHECK(stream->value(0) == 300);
    CHECK(put(feed, "work", 1) == "it is that of a feed, which the case gives");
    CHECK(feed->value(0) == 5);
}
