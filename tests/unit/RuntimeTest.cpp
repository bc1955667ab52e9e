// The unit with a COBIA runtime that is installed, with one that is too old, and with none.
#include "tests/unit/EditorFolder.h"
#include "tests/unit/ListedMaterial.h"
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <fstream>

using namespace orvane::test;
namespace fs = std::filesystem;

namespace {

/// An environment variable for the length of a test.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        setenv(name, value.c_str(), 1);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() {
        if (before_)
            setenv(name_, before_->c_str(), 1);
        else
            unsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> before_;
};

}  // namespace

TEST_CASE("A unit works with, without and despite a runtime, and describes bare codes accordingly") {
    struct Row {
        const char* registered;
        const char* version;
        const char* description;
    };
    for (const Row& row : {Row{ORVANE_RUNTIME_FIXTURE, "1.2.1", "fixture text of 108"},
                           {ORVANE_RUNTIME_FIXTURE, "1.2", "Not implemented"},
                           {"/no/such/folder", "1.2.1", "Not implemented"},
                           {"", "1.2.1", "Not implemented"}}) {
        CAPTURE(row.registered);
        CAPTURE(row.version);
        const EditorFolder folder("");  // a module of its own looks for its runtime anew
        fs::create_directory(folder.path() / "cape-open");
        std::ofstream(folder.path() / "cape-open" / "registry.ini")
            << "[Software\\CAPE-OPEN Laboratories Network\\COBIA\\x64]\ndefault=" << row.registered
            << "\nversion=4000000000\n";
        const Variable config("XDG_CONFIG_HOME", folder.path().string());
        const Variable invoker("SUDO_UID", ""), other("PKEXEC_UID", "");
        const Variable version("COBIA_FIXTURE_VERSION", row.version);

        TestHost host(folder.module(),
                      "import warnings\n"
                      "def Configure(unit):\n"
                      "    unit.add_port('P', unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)\n"
                      "def Calculate(unit):\n"
                      "    try: unit.ports['P'].compounds\n"
                      "    except RuntimeError as e: print('told:', e)\n");
        ListedMaterial material({"x"});
        host.connect("P", material.material());
        REQUIRE(host.validate().valid);
        material.code = notImplemented;
        CHECK(host.calculate().succeeded());
        const std::string report = host.lastCalculation();
        CHECK_MESSAGE(report.find(std::string("told: ") + row.description + "\r\n") != std::string::npos,
                      report);
        host.disconnect("P");
    }
}
