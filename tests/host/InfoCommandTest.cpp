// The commands that tell of a unit without a run, and the one that makes a case to start from.
#include "host/System.h"
#include "tests/host/CommandProcess.h"
#include "tests/system/Environment.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <nlohmann/json.hpp>

using namespace orvane::host;
using nlohmann::json;

namespace {

bool holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// The words of the line that begins with these.
std::string lineOf(const std::string& text, const std::string& begin) {
    const auto start = text.find("\n" + begin);
    if (start == std::string::npos) return "no line '" + begin + "' in:\n" + text;
    std::string line = text.substr(start + 1, text.find('\n', start + 1) - start - 1);
    line.erase(std::unique(line.begin(), line.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
               line.end());
    return line;
}

const std::string script = R"(
def Configure(unit):
    T, M = unit.ParameterType, unit.ParameterMode
    unit.add_port('In', unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port('Shaft', unit.PortType.ENERGY, unit.PortDirection.PRODUCT, axle=True)
    unit.add_port('Signal', unit.PortType.INFORMATION, unit.PortDirection.FEED)
    unit.add_parameter('Rise', T.REAL, M.INPUT, default=5, min=0, max=9.5, dimension=unit.Dimension.KELVIN,
                       difference=True, description='how much')
    unit.add_parameter('Stages', T.INTEGER, M.INPUT, default=3, min=1)
    unit.add_parameter('Mode', T.STRING, M.INPUT, default='fast', options=['fast', 'slow'])
    unit.add_parameter('Free', T.STRING, M.INPUT, optional=True)
    unit.add_parameter('Dry', T.BOOLEAN, M.INPUT, default=True)
    unit.add_parameter('Sizes', T.ARRAY_REAL, M.OUTPUT, length=2, min=0)
    unit.add_report('Sum')
    unit.add_image('Pic', 'draw')
)";

}  // namespace

TEST_CASE("What a script declares is shown with units, defaults, bounds and options") {
    const TestFolder folder;
    const auto file = folder.write("unit.py", script);
    const Finished run = command({"info", file});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    CHECK(run.error == "");
    CHECK(lineOf(run.out, "  In ") == " In material feed Orvane Operation Material Feed Port");
    CHECK(lineOf(run.out, "  Shaft") == " Shaft energy product Orvane Operation Axle Energy Product Port");
    CHECK(lineOf(run.out, "  Signal") == " Signal information feed Orvane Operation Information Feed Port");
    CHECK(lineOf(run.out, "  Rise") == " Rise [K] real input 5 0 9.5");
    CHECK(lineOf(run.out, "  Stages") == " Stages integer input 3 1 -");
    CHECK(lineOf(run.out, "  Mode") == " Mode string input fast - - one of fast, slow");
    CHECK(lineOf(run.out, "  Free") == " Free string input - - -");
    CHECK(lineOf(run.out, "  Dry") == " Dry boolean input true - -");
    CHECK(lineOf(run.out, "  Sizes") == " Sizes real array output - 0 -");
    CHECK(holds(run.out, "\nReports\n  Sum\n  Last Calculation\n\nImages\n  Pic\n"));

    folder.write("case.toml", "[package]\ncompounds = [\"methane\"]\n[unit]\nscript = \"unit.py\"\n");
    CHECK(command({"info", folder.file("case.toml").string()}).out == run.out);
    const json result = json::parse(command({"info", file, "--json"}).out);
    CHECK(result["ports"][1]["type"] == "energy");
    CHECK(result["parameters"][0]["maximum"] == 9.5);
    CHECK(result["parameters"][0]["minimum"] == 0.0);
    CHECK(result["parameters"][0]["description"] == "how much");
    CHECK(result["parameters"][1]["maximum"].is_null());
    CHECK(result["parameters"][2]["options"] == json({"fast", "slow"}));
    CHECK(result["reports"] == json({"Sum", "Last Calculation"}));
    CHECK(result["images"] == json({"Pic"}));
}

TEST_CASE("A script that cannot be looked at is told with the reason") {
    const TestFolder folder;
    const Finished none = command({"info", folder.file("none.py").string()});
    CHECK(none.exitCode == 2);
    CHECK(holds(none.error, "none.py: the script cannot be read: No such file"));
    const Finished latin = command({"info", folder.write("latin.py", "# \xe4\n")});
    CHECK(latin.exitCode == 2);
    CHECK(holds(latin.error, "it is not UTF-8 text; save it as UTF-8"));
    const Finished failing = command({"info", folder.write("bad.py", "def Configure(unit):\n    1/0\n")});
    CHECK(failing.exitCode == 1);
    CHECK(holds(failing.error, "Configure() failed: "));
    CHECK(holds(failing.error, "Line 2, in Configure"));
    CHECK(command({"info", folder.write("case.toml", "x = 1\n")}).exitCode == 2);
}

TEST_CASE("A new case runs as it stands, and does not write over anything") {
    const TestFolder folder;
    const std::string name = folder.file("a/b").string();
    const Finished made = command({"new", name});
    REQUIRE_MESSAGE(made.exitCode == 0, made.error);
    CHECK(holds(made.out, "orvane run " + (folder.file("a/b") / "case.toml").string()));
    const Finished run = command({"run", name + "/case.toml", "--report", "Summary"});
    CHECK_MESSAGE(run.exitCode == 0, run.error);
    CHECK(run.error == "");
    CHECK(holds(run.out, "20000 W heat the feed by "));
    CHECK(command({"validate", name + "/case.toml", "--set", "Pressure Drop=3e6"}).exitCode == 1);

    const std::string before = folder.read("a/b/unit.py");
    std::filesystem::remove(folder.file("a/b/case.toml"));
    folder.write("a/b/unit.py", "mine");
    const Finished again = command({"new", name});
    CHECK(again.exitCode == 2);
    CHECK(holds(again.error, "unit.py' is there already; name another folder"));
    CHECK(folder.read("a/b/unit.py") == "mine");
    CHECK(!std::filesystem::exists(folder.file("a/b/case.toml")));
    CHECK(!before.empty());
}

TEST_CASE("The doctor tells of the module, of Python, of the search path and its clashes") {
    const Finished run = command({"doctor"}, {"PYTHONPATH="});
    REQUIRE_MESSAGE(run.exitCode == 0, run.error);
    CHECK(holds(run.out, std::string(moduleFileName())));
    CHECK(lineOf("\n" + run.out, "Python library").find("python3") != std::string::npos);
    CHECK(lineOf("\n" + run.out, "Python version").starts_with("Python version 3.14."));

    const TestFolder folder;
    folder.write("random.py", "");
    folder.write("mine.py", "");
    folder.write("fast.cpython-39-x86_64-linux-gnu.so", "");
    const std::string path = folder.file("mine.py").parent_path().string();
    const std::string missing = std::filesystem::absolute("/no/such/folder").make_preferred().string();
    const Finished clashing =
        command({"doctor", "--json"},
                {"PYTHONPATH=" + path + "/" + orvane::test::listSeparator + missing, "VIRTUAL_ENV="});
    REQUIRE_MESSAGE(clashing.exitCode == 0, clashing.error);
    const json result = json::parse(clashing.out);
    const auto& entries = result["path"];
    const auto gone = std::find_if(entries.begin(), entries.end(),
                                   [&](const json& entry) { return entry["path"] == missing; });
    REQUIRE(gone != entries.end());
    CHECK((*gone)["origin"] == "PYTHONPATH");
    CHECK((*gone)["state"] == "missing");
    CHECK(entries[0]["origin"] == "installation");
    CHECK((*std::prev(gone))["origin"] == "PYTHONPATH");
    std::string all;
    for (const auto& clash : result["clashes"]) all += clash.get<std::string>() + "\n";
    CHECK(holds(all, "'" + missing + "' of PYTHONPATH does not exist"));
    CHECK(holds(all, "module 'random' in '" + path));
    CHECK(!holds(all, "'mine'"));
    CHECK(holds(all, "fast.cpython-39-x86_64-linux-gnu.so' was compiled for another version of Python"));

    folder.write("pyvenv.cfg", "version = 3.14.1\n");
    const std::string environment = "VIRTUAL_ENV=" + path;
    CHECK(holds(command({"doctor"}, {environment}).out,
                "VIRTUAL_ENV names '" + path + "', which is no virtual"));
    std::filesystem::create_directories(folder.file("lib/python3.14/site-packages"));
    const Finished joined = command({"doctor"}, {environment});
    const std::string modules = folder.file("lib/python3.14").make_preferred().string();
    CHECK(lineOf(joined.out, "  " + modules).ends_with("VIRTUAL_ENV"));
    CHECK(!holds(joined.out, "no virtual environment"));

    const Finished none = command({"doctor", "--module", folder.file("none.so").string()});
    CHECK(none.exitCode == 3);
    CHECK(holds(none.error, "there is no module"));
}
