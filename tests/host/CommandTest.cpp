// The orvane command from outside: results, bad input, stops. Scripts and cases are written by each test.
#include "tests/host/CommandProcess.h"

#include <chrono>
#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <thread>

using namespace orvane::host;
using nlohmann::json;

namespace {

const std::string heater = ORVANE_SOURCE "/examples/heater/heater.toml";

const std::string package = "[package]\ncompounds = [\"methane\", \"propane\", \"n-pentane\"]\n";

/// A feed of gas, liquid or both, by its temperature at 20 bar.
std::string feed(const std::string& temperature = "300") {
    return "[streams.Feed]\ntemperature = " + temperature +
           "\npressure = 20e5\nflow_rate = 10\ncomposition = [0.4, 0.3, 0.3]\n";
}

const std::string configure = R"(
def Configure(unit):
    unit.add_port('Feed', unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port('Product', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
)";
const std::string passThrough =
    "    feed = unit.ports['Feed']\n"
    "    unit.ports['Product'].set(x=feed.x, p=feed.p, t=feed.t, flow_rate=feed.flow_rate)\n";

/// A case whose script does `body`, indented by four, in Calculate after passing the feed on.
std::string scripted(const TestFolder& folder, const std::string& body) {
    folder.write("script.py", configure + "def Calculate(unit):\n" + passThrough + body);
    return folder.write("case.toml", package + "[unit]\nscript = \"script.py\"\n" + feed());
}

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

void checkFailure(const Finished& run, int exitCode, const std::string& text) {
    CHECK(run.exitCode == exitCode);
    CHECK_MESSAGE(holds(run.error, text), run.error);
}

}  // namespace

TEST_CASE("The heater closes its energy balance for gas, liquid and both") {
    const TestFolder folder;
    for (const char* temperature : {"450", "300", "200"}) {
        CAPTURE(temperature);
        const auto file = folder.write("case.toml", package + "[unit.parameters]\n\"heat duty\" = 2e4\n" +
                                                        feed(temperature));
        const Finished run = command({"run", file, "--json", folder.file("result.json").string()});
        REQUIRE_MESSAGE(run.exitCode == 0, run.error);
        const json result = json::parse(folder.read("result.json"));
        const auto& in = result["streams"]["Feed"];
        const auto& out = result["streams"]["Product"];
        const double gained = 10 * (out["enthalpy"].get<double>() - in["enthalpy"].get<double>());
        CHECK(gained == doctest::Approx(2e4).epsilon(1e-6));
        CHECK(out["flow_rate"] == 10.0);
        CHECK(out["pressure"] == in["pressure"]);
        CHECK(out["temperature"].get<double>() > in["temperature"].get<double>());
        CHECK(run.error == "");
    }
}

TEST_CASE("The example shows streams, parameters and balances") {
    const Finished run = command({"run", heater});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    for (const char* part :
         {"Feed", "Product", "Temperature [K]", "carbon-dioxide", "Heat Duty [W]", "energy [W]"}) {
        CHECK_MESSAGE(holds(run.out, part), part);
    }
    CHECK(run.error == "");

    const Finished more = command({"run", heater, "--set", "Heat Duty=1e5", "--repeat", "3"});
    CHECK(holds(more.out, "100000"));
    CHECK(holds(more.out, "3 calculations"));
}

TEST_CASE("Wrong usage and wrong cases end with exit code 2 and say where and what") {
    const TestFolder folder;
    const auto file = [&](const std::string& text) { return folder.write("case.toml", text); };
    const std::string name = folder.file("case.toml").string();

    checkFailure(command({}), 2, "Usage");
    checkFailure(command({"rnu", heater}), 2, "rnu");
    checkFailure(command({"run", heater, "--repeat", "0"}), 2, "--repeat");
    checkFailure(command({"run", "no.toml"}), 2, "no.toml: the case file cannot be read: No such file");
    checkFailure(command({"run", file("[package\n")}), 2, name + ":1: ");
    checkFailure(command({"run", file(package + "[strems]\n")}), 2,
                 name + ":3: unknown key 'strems', did you mean 'streams'?");
    checkFailure(command({"run", file("[package]\ncompounds = [\"metane\"]\n")}), 2, "methane");
    checkFailure(command({"run", file(package + "[streams.Fed]\n")}), 2,
                 name + ":3: the unit has no material port 'Fed', did you mean 'Feed'?");
    checkFailure(
        command({"run", file(package + "[streams.Product]\ntemperature = 3\npressure = 3\nflow_rate = 1\n"
                                       "composition = [1, 0, 0]\n")}),
        2, "port 'Product' is a product");
    checkFailure(command({"run", file(package + "[unit.parameters]\n\"Heat Duti\" = 1\n" + feed())}), 2,
                 name + ":4: the unit has no parameter 'Heat Duti', did you mean 'Heat Duty'?");
    checkFailure(command({"run", file(package + "[unit.parameters]\n\"Heat Duty\" = \"much\"\n" + feed())}),
                 2, "parameter 'Heat Duty' = \"much\": it takes a number [W]");
    checkFailure(command({"run", heater, "--set", "Heat Duty"}), 2, "NAME=VALUE");
    checkFailure(command({"run", heater, "--set", "Heat=1"}), 2, "--set: the unit has no parameter 'Heat'");
    checkFailure(command({"run", heater, "--set", "Heat Duty=nan"}), 2, "Heat Duty");
}

TEST_CASE("An invalid unit and a failing script end with exit code 1 and the unit's words") {
    const TestFolder folder;
    checkFailure(command({"run", folder.write("case.toml", package)}), 1, "Port 'Feed' is not connected");
    checkFailure(command({"validate", folder.file("case.toml").string()}), 1, "Port 'Feed' is not connected");
    CHECK(command({"validate", heater}).exitCode == 0);

    const Finished raised =
        command({"run", scripted(folder, "    print('before')\n    raise ValueError('too hot')\n")});
    checkFailure(raised, 1, "ValueError: too hot");
    CHECK(holds(raised.error, "raise ValueError('too hot')"));  // its line is shown
    CHECK(holds(raised.out, "before"));
    CHECK(!holds(raised.out, "too hot"));

    folder.write("script.py", "def Configure(unit)\n    pass\n");
    const Finished syntax = command({"run", folder.file("case.toml").string()});
    checkFailure(syntax, 1, "SyntaxError");
    CHECK(holds(syntax.error, "def Configure(unit)"));

    checkFailure(command({"run", scripted(folder, "    return 5\n")}), 1,
                 "'Calculate' should not return a value");
}

TEST_CASE("What a run comes to is written whole, also when it failed") {
    const TestFolder folder;
    const auto file = scripted(folder, "    raise ValueError('too hot')\n");
    const std::string old = folder.write("result.json", "old");
    CHECK(command({"run", file, "--json", old}).exitCode == 1);
    const json result = json::parse(folder.read("result.json"));
    CHECK(result["success"] == false);
    CHECK(result["valid"] == true);
    CHECK(holds(result["error"], "too hot"));
    CHECK(result["streams"]["Feed"]["temperature"] == 300.0);
    CHECK(result["streams"]["Product"]["temperature"].is_null());
    CHECK(folder.names().size() == 3);  // no temporary file stays

    CHECK(command({"run", "no.toml", "--json", old}).exitCode == 2);
    CHECK(holds(json::parse(folder.read("result.json"))["error"], "no.toml"));
    checkFailure(command({"run", heater, "--json", folder.file("no/folder.json").string()}), 2,
                 "cannot be written");
}

TEST_CASE("JSON on standard output is alone there, whatever the script writes to the descriptor") {
    const TestFolder folder;
    const auto file =
        scripted(folder, "    import os\n    os.write(1, b'from below')\n    print('from above')\n");
    const Finished run = command({"run", file, "--json", "-"});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    const json result = json::parse(run.out);
    CHECK(result["success"] == true);
    CHECK(holds(result["output"], "from above"));
    CHECK(holds(run.error, "from below"));
}

TEST_CASE("A product that does not carry what came in is a warning, not a failure") {
    const TestFolder folder;
    const auto file = scripted(folder, "    unit.ports['Product'].flow_rate = 11\n");
    const Finished run = command({"run", file});
    checkFailure(run, 0, "warning: methane does not close: in 4, out 4.4");
}

TEST_CASE("A module that is missing, or is none, ends with exit code 3") {
    const TestFolder folder;
    const std::string none = folder.file("none.so").string();
    checkFailure(command({"run", heater, "--module", none}), 3,
                 "there is no module '" + none + "' (named by --module)");
    checkFailure(command({"run", heater}, {"ORVANE_MODULE=" + none}), 3, "ORVANE_MODULE");
    const std::string text = folder.write("text.so", "no module");
    checkFailure(command({"run", heater, "--module", text}), 3,
                 "'" + text + "' (named by --module) could not be loaded: ");
}

TEST_CASE("A run that takes too long is stopped with exit code 124") {
    const TestFolder folder;
    SUBCASE("in order, where the script can be interrupted") {
        const auto file = scripted(folder, "    print('started')\n    import time\n    time.sleep(50)\n");
        const Finished run = command({"run", file, "--timeout", "0.5", "--json", folder.file("r").string()});
        checkFailure(run, 124, "timed out after 0.5 s");
        CHECK(holds(run.out, "started"));
        CHECK(run.seconds < 10);
    }
    SUBCASE("by force, where it swallows the interruption") {
        const auto file = scripted(folder, "    while True:\n        try:\n            while True: pass\n"
                                           "        except BaseException: pass\n");
        const Finished run = command({"run", file, "--timeout", "0.5", "--json", folder.file("r").string()});
        checkFailure(run, 124, "timed out after 0.5 s");
        CHECK(run.seconds < 10);
    }
    const json result = json::parse(folder.read("r"));
    CHECK(result["success"] == false);
    CHECK(holds(result["error"], "timed out after 0.5 s"));
}

TEST_CASE("Ctrl-C interrupts the script and ends with exit code 130, the second one at once") {
    const TestFolder folder;
    const std::string started = folder.file("started").generic_string();
    const auto whenStarted = [&](const std::function<void(orvane::test::Process&)>& then) {
        return [&, then](orvane::test::Process& process) {
            for (int i = 0; i < 1000 && !std::filesystem::exists(started); ++i) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
            then(process);
        };
    };
    const std::string begin = "    open('" + started + "', 'w').close()\n";
    SUBCASE("the script ends") {
        const auto file = scripted(folder, begin + "    import time\n    time.sleep(50)\n");
        const Finished run = command({"run", file, "--json", folder.file("r").string()}, {},
                                     whenStarted([](auto& process) { process.interrupt(); }));
        checkFailure(run, 130, "KeyboardInterrupt");
        CHECK(holds(json::parse(folder.read("r"))["error"], "interrupted"));
    }
    SUBCASE("the script goes on") {
        const auto file = scripted(folder, begin +
                                               "    while True:\n        try:\n            while True: pass\n"
                                               "        except BaseException: open('" +
                                               started + "2', 'w').close()\n");
        const Finished run =
            command({"run", file}, {}, whenStarted([&](auto& process) {
                        process.interrupt();
                        for (int i = 0; i < 1000 && !std::filesystem::exists(started + "2"); ++i) {
                            std::this_thread::sleep_for(std::chrono::milliseconds(10));
                        }
                        process.interrupt();
                    }));
        CHECK(run.exitCode == 130);
    }
}

TEST_CASE("The compounds that a case can name are listed") {
    const Finished all = command({"compounds"});
    CHECK(all.exitCode == 0);
    CHECK(holds(all.out, "carbon-dioxide"));
    const Finished some = command({"compounds", "PENTANE"});
    CHECK(holds(some.out, "n-pentane"));
    CHECK(!holds(some.out, "methane"));
    checkFailure(command({"compounds", "watr"}), 2, "'water'");
    CHECK(command({"--version"}).out.starts_with("orvane "));
}
