// The unit's own things: its script file, its script module, its place among other units.
#include "tests/unit/EditorFolder.h"
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>
#include <set>

using namespace orvane::test;
namespace fs = std::filesystem;

namespace {

const char* const naming =
    "def Configure(unit):\n    pass\ndef Calculate(unit):\n    print('<' + __name__ + '>')\n";

/// The name of the module that the unit's script runs in.
std::string moduleName(TestHost& host) {
    REQUIRE(host.calculate().succeeded());
    const std::string report = host.lastCalculation();
    const std::size_t start = report.find('<') + 1;
    return report.substr(start, report.find('>') - start);
}

}  // namespace

TEST_CASE("Each unit has a script module of a name of its own, which it keeps") {
    std::set<std::string> names;
    for (int i = 0; i < 5; ++i) {
        TestHost host{std::string(naming)};
        const std::string name = moduleName(host);
        CHECK(name.size() == 36);
        CHECK(name.starts_with("unit"));
        CHECK(std::all_of(name.begin() + 4, name.end(),
                          [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); }));
        host.load(std::string(naming) + "# again\n");
        CHECK(moduleName(host) == name);
        names.insert(name);
    }
    CHECK(names.size() == 5);
}

TEST_CASE("The default script is written to the unit's file byte for byte, and the file goes with the unit") {
    EditorFolder folder;
    fs::path file;
    std::string script;
    folder.edit([&](void*, EditingUnit* unit) {
        file = unit->scriptFile(unit);
        std::ifstream stream(file, std::ios::binary);
        script.assign(std::istreambuf_iterator<char>(stream), {});
        return true;
    });
    {
        TestHost host(folder.module());
        CapeEditResult result{};
        call<&ICapeUtilities::Table::Edit>(host.as<ICapeUtilities>(), nullptr, &result);
        CHECK(file.filename().string().starts_with("ORV"));
        CHECK(script.starts_with("\r\n#Orvane Operation script\r\n\r\ndef Configure(unit):\r\n"));
        CHECK(std::count(script.begin(), script.end(), '\r') ==
              std::count(script.begin(), script.end(), '\n'));
    }
    CHECK_FALSE(fs::exists(file));
}

TEST_CASE(
    "A script file that somebody removed is an error for who needs it, and none for the end of the unit") {
    EditorFolder folder;
    TestHost host(folder.module());
    fs::path file;
    folder.edit([&](void*, EditingUnit* unit) {
        file = unit->scriptFile(unit);
        fs::remove(file);
        unit->scriptChanged(unit);
        const char* error = "";
        unit->configure(unit, nullptr, &error);
        CHECK(std::string(error).starts_with("Could not open file: "));
        return true;
    });
    CapeEditResult result{};
    call<&ICapeUtilities::Table::Edit>(host.as<ICapeUtilities>(), nullptr, &result);
    CHECK(host.validate().message.starts_with("Configure() failed: Could not open file: "));
    CHECK(host.validate().message.find(file.string()) != std::string::npos);
    CHECK_FALSE(TestHost::outcome([&] { host.save(); }).succeeded());
}

TEST_CASE("A module given by define_from goes when the script changes, and its functions with it") {
    TestHost host("import types\nother = types.ModuleType('other')\n"
                  "exec('def Calculate(unit): print(\"of the module\")', other.__dict__)\n"
                  "def Configure(unit):\n    unit.define_from(other)\n");
    REQUIRE(host.calculate().succeeded());
    CHECK(host.lastCalculation().find("of the module\r\n") != std::string::npos);
    host.load("def Configure(unit)\n");
    CHECK_FALSE(host.validate().valid);
    host.load("def Configure(unit):\n    pass\ndef Calculate(unit):\n    print('of the script')\n");
    REQUIRE(host.calculate().succeeded());
    CHECK(host.lastCalculation().find("of the script\r\n") != std::string::npos);
}
