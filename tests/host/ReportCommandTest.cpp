// What comes out of a unit besides results: reports, images, saved states.
#include "tests/host/CommandProcess.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <nlohmann/json.hpp>

using namespace orvane::host;
using nlohmann::json;

namespace {

const std::string heater = ORVANE_SOURCE "/examples/heater/heater.toml";
const std::string profile = ORVANE_SOURCE "/examples/profile/profile.toml";
const std::string heatingCurve = ORVANE_SOURCE "/examples/heating-curve/heating-curve.toml";

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

void checkFailure(const Finished& run, int exitCode, const std::string& text) {
    CHECK(run.exitCode == exitCode);
    CHECK_MESSAGE(holds(run.error, text), run.error);
}

/// Width or height of a PNG file.
unsigned sizeOf(const std::string& png, std::size_t at) {
    unsigned result = 0;
    for (std::size_t i = 0; i < 4; ++i) result = result << 8 | static_cast<unsigned char>(png.at(at + i));
    return result;
}

/// A case whose product depends on what the unit remembers.
std::string remembering(const TestFolder& folder) {
    folder.write("unit.py", R"(
def Configure(unit):
    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    watt = unit.Dimension.KILOGRAM*unit.Dimension.METER**2/unit.Dimension.SECOND**3
    unit.add_parameter('Duty', unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0, dimension=watt)
    unit.add_parameter('Runs', unit.ParameterType.INTEGER, unit.ParameterMode.OUTPUT)
    unit.add_report('Memory')
def Calculate(unit):
    runs = unit.private_data.setdefault('runs', 0) + 1
    unit.private_data['runs'] = unit.parameters['Runs'].value = runs
    feed = unit.ports['Feed']
    h = feed.get_property('enthalpy') + unit.parameters['Duty'].value / feed.flow_rate
    unit.ports['Product'].set(x=feed.x, p=feed.p, flow_rate=feed.flow_rate, enthalpy=h)
    print('run', runs, file=unit.reports['Memory'])
)");
    return folder.write("case.toml",
                        "[package]\ncompounds = [\"methane\", \"propane\"]\n[unit]\nscript = \"unit.py\"\n"
                        "[streams.Feed]\ntemperature = 230\npressure = 20e5\nflow_rate = 10\n"
                        "composition = [0.4, 0.6]\n");
}

}  // namespace

TEST_CASE("Reports come with the results, alone, and in JSON") {
    const TestFolder folder;
    const Finished run =
        command({"run", profile, "--report", "profile TABLE", "--report", "Last Calculation"});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    CHECK(holds(run.out, "\nReport 'Profile table'\n    0    300.000 K\n"));
    CHECK(holds(run.out, "\nReport 'Last Calculation'\nCalculation starts: "));
    CHECK(command({"report", profile, "Profile table"}).out.starts_with("    0    300.000 K\n"));
    CHECK(command({"report", profile}).out.starts_with("Calculation starts: Calculation at "));
    const Finished machine = command({"run", profile, "--report", "Profile table", "--json", "-"});
    CHECK(
        json::parse(machine.out)["reports"]["Profile table"].get<std::string>().starts_with("    0    300"));

    checkFailure(command({"report", profile, "Profile tabel"}), 2,
                 "the unit has no report 'Profile tabel', did you mean 'Profile table'?");
    checkFailure(command({"report", profile, "Profile"}), 2, "the unit has no report 'Profile'");
}

TEST_CASE("An example draws its profile with the standard library, in the size that was asked for") {
    const TestFolder folder;
    const std::string file = folder.file("pic=1.png").string();
    const Finished run = command({"run", profile, "--image", "profile=" + file});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    const std::string png = folder.read("pic=1.png");
    REQUIRE(png.starts_with("\x89PNG\r\n\x1a\n"));
    CHECK(sizeOf(png, 16) == 1024);
    CHECK(sizeOf(png, 20) == 640);
    CHECK(png.ends_with(std::string("IEND\xae\x42\x60\x82")));

    const Finished image = command({"image", profile, "Profile", file, "--image-size", "300", "200"});
    CHECK(image.exitCode == 0);
    CHECK(image.out == "");
    CHECK(sizeOf(folder.read("pic=1.png"), 16) == 300);
    CHECK(sizeOf(folder.read("pic=1.png"), 20) == 200);
    CHECK(folder.names().size() == 1);

    checkFailure(command({"image", profile, "Profil", file}), 2,
                 "the unit has no image 'Profil', did you mean 'Profile'?");
    checkFailure(command({"run", profile, "--image", "Profile"}), 2, "--image 'Profile' is not NAME=FILE");
    checkFailure(command({"image", profile, "Profile", folder.file("none/p.png").string()}), 1, "p.png': ");
    checkFailure(command({"image", profile, "Profile", file, "--image-size", "0", "200"}), 2, "--image-size");
}

TEST_CASE("An example whose image needs a package calculates without it, and says what is missing") {
    const TestFolder folder;
    REQUIRE(command({"run", heatingCurve}).exitCode == 0);
    const Finished image = command({"image", heatingCurve, "Heating curve", folder.file("c.png").string()});
    if (image.exitCode == 0)
        CHECK(folder.read("c.png").starts_with("\x89PNG"));
    else
        checkFailure(image, 1, "image 'Heating curve': ");
    if (image.exitCode != 0)
        CHECK(holds(image.error, "Install it for Python 3.14 and add its folder to PYTHONPATH"));
}

TEST_CASE("Run, save, load and run again gives the same products to the bit") {
    const TestFolder folder;
    const std::string file = remembering(folder);
    const std::string state = folder.file("s.json").string();
    const auto run = [&](std::vector<std::string> more) {
        std::vector<std::string> arguments{"run", file, "--json", "-"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Finished finished = command(arguments);
        REQUIRE_MESSAGE(finished.exitCode == 0, finished.error);
        CHECK(finished.error == "");
        return json::parse(finished.out);
    };
    const json first = run({"--set", "Duty=12345.678", "--save", state});
    const json second = run({"--load", state, "--save", state});
    CHECK(second["streams"] == first["streams"]);
    CHECK(second["streams"].dump() == first["streams"].dump());
    CHECK(second["parameters"]["Duty"] == 12345.678);
    CHECK(first["parameters"]["Runs"] == 1);
    CHECK(second["parameters"]["Runs"] == 2);
    CHECK(run({"--load", state})["parameters"]["Runs"] == 3);
    // The case and the command line come on top.
    CHECK(run({"--load", state, "--set", "Duty=1"})["parameters"]["Duty"] == 1.0);

    // The script travels with the state.
    folder.write("case.toml", "[package]\ncompounds = [\"methane\", \"propane\"]\n"
                              "[streams.Feed]\ntemperature = 230\npressure = 20e5\nflow_rate = 10\n"
                              "composition = [0.4, 0.6]\n");
    CHECK(run({"--load", state})["streams"].dump() == first["streams"].dump());
    CHECK(command({"report", file, "Memory", "--load", state}).out == "run 3\n");
}

TEST_CASE("A state that does not fit is told, and a run that fails leaves the file as it was") {
    const TestFolder folder;
    const std::string file = remembering(folder);
    const std::string state = folder.file("s.json").string();
    checkFailure(command({"run", file, "--load", state}), 2,
                 state + ": the state file cannot be read: No such file");
    checkFailure(command({"run", file, "--load", file}), 2, "this is no state file");
    folder.write("s.json", R"({"format": "orvane-state", "version": 1, "items": []})");
    checkFailure(command({"run", heater, "--load", state}), 2,
                 state + ": the unit does not take this state: item 'python': No such item");

    REQUIRE(command({"run", file, "--save", state, "--set", "Duty=2"}).exitCode == 0);
    const std::string saved = folder.read("s.json");
    CHECK(command({"run", file, "--save", state, "--set", "Duty=1e20"}).exitCode == 1);
    CHECK(folder.read("s.json") == saved);
    checkFailure(command({"run", file, "--save", folder.file("none/s.json").string()}), 2,
                 "cannot be written");

    // Values whose parameter is gone, or that it refuses, are warnings.
    std::string script = folder.read("unit.py");
    script.replace(script.find("default=0"), 9, "default=0, max=1");
    folder.write("unit.py", script);
    const Finished refused = command({"run", file, "--load", state});
    CHECK(refused.exitCode == 0);
    CHECK(holds(refused.error, "Value for 'Duty' was not restored: Value is above maximum value of 1"));
}
