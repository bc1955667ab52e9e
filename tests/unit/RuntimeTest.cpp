// The unit with a COBIA runtime that is installed, with one that is too old, and with none.
#include "tests/system/Environment.h"
#include "tests/system/InstalledRuntime.h"
#include "tests/unit/EditorFolder.h"
#include "tests/unit/ListedMaterial.h"
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <string>

using namespace orvane::test;
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
        const InstalledRuntime runtime(row.registered);
        setVariable("COBIA_FIXTURE_VERSION", row.version);

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
