// The script editor: how it is found, and what its work leaves for the host.
#include "tests/unit/Editor.h"

#include <doctest/doctest.h>

#include <filesystem>

using namespace orvane::test;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST_CASE(
    "An editor library that is absent or no editor is an error that names it, and nothing else happens") {
    struct Row {
        const char* library;
        const char* reason;
    };
    const std::string noLibrary = std::string(ORVANE_SOURCE) + "/tests/CMakeLists.txt";
    for (const Row& row : {Row{"", "Cannot load '"},
                           {noLibrary.c_str(), "Cannot load '"},
                           {ORVANE_RUNTIME_FIXTURE_FILE, "does not export orvaneEditor"}}) {
        CAPTURE(row.library);
        const EditorFolder folder(row.library);
        TestHost host(folder.module());
        const Edited edited = edit(host);
        CHECK(edited.outcome.code == capeOpenError);
        CHECK(edited.result == CapeEditResult{7});
        CHECK(edited.outcome.text.starts_with(
            "in ICapeUtilities::Edit of CAPE-OPEN Unit Operation using python script "
            "for calculations: The script editor cannot be opened: "));
        CHECK(contains(edited.outcome.text, row.reason));
        CHECK(contains(edited.outcome.text, (folder.path() / orvane::host::companionFileName()).string()));
        CHECK(contains(edited.outcome.text, (folder.path() / orvane::host::moduleFileName()).string()));
        CHECK(host.calculateDefault().succeeded());
    }
}

TEST_CASE("An editor library that is installed later is found at the next attempt") {
    EditorFolder folder("");
    TestHost host(folder.module());
    CHECK(edit(host).outcome.code == capeOpenError);
    folder.addLibrary(ORVANE_EDITOR_FIXTURE);
    folder.edit([](void*, EditingUnit*) { return true; });
    CHECK(edit(host).outcome.succeeded());
}

TEST_CASE("The editor gets the window and a table, and its answer becomes the result") {
    EditorFolder folder;
    TestHost host(folder.module());
    int window = 0;
    void* parent = nullptr;
    for (const bool answer : {true, false}) {
        folder.edit([&](void* given, EditingUnit* unit) {
            parent = given;
            return answer && unit;
        });
        const Edited edited = edit(host, &window);
        CHECK(edited.outcome.succeeded());
        CHECK(parent == &window);
        CHECK(edited.result == (answer ? CapeEditResult::modified : CapeEditResult::notModified));
    }
    bool opened = false;
    folder.edit([&](void*, EditingUnit*) { return opened = true; });
    const auto utilities = host.as<ICapeUtilities>();
    CHECK(static_cast<const ICapeUtilities::Table*>(utilities->vTbl)->Edit(utilities->me, nullptr, nullptr) ==
          nullPointer);
    CHECK_FALSE(opened);
}

TEST_CASE("An editor that fails leaves the unit whole, and one unit has one editor") {
    EditorFolder folder;
    TestHost host(folder.module());
    folder.edit([&](void*, EditingUnit* unit) -> bool {
        Editor{unit}.write("def Configure(unit):\n    unit.add_report('R')\n");
        Editor{unit}.configure();
        const Outcome again = edit(host).outcome;
        throw std::runtime_error(again.text);
    });
    const Outcome outcome = edit(host).outcome;
    CHECK(outcome.code == capeOpenError);
    CHECK(outcome.text.ends_with("The script editor of this unit operation is open already"));
    CHECK(host.names(host.ports()).empty());
    folder.edit([&](void*, EditingUnit*) -> bool { throw 7; });
    CHECK(edit(host).outcome.code == unknownFailure);
    folder.edit([&](void*, EditingUnit*) { return true; });
    CHECK(edit(host).outcome.succeeded());
}

TEST_CASE(
    "The host's collections follow the script when the editor has closed, connections and values included") {
    EditorFolder folder;
    TestHost host(folder.module());
    host.feed();
    host.stream("Product");
    call<&ICapeRealParameter::Table::putValue>(host.parameter<ICapeRealParameter>("Heat Duty"), 3.0);
    const auto feed = host.port("Feed");
    REQUIRE(host.calculate().succeeded());
    REQUIRE(host.status() == CapeValidationStatus::valid);

    const std::string head =
        "def Configure(unit):\n"
        "    M, F, P = unit.PortType.MATERIAL, unit.PortDirection.FEED, unit.PortDirection.PRODUCT\n";
    const std::string withFeed =
        head + "    print('hello')\n"
               "    unit.add_port('FEED', M, F)\n"
               "    unit.add_port('Side', M, P, optional=True)\n"
               "    unit.add_port('Heat', unit.PortType.ENERGY, P, optional=True)\n"
               "    unit.add_port('Level', unit.PortType.INFORMATION, F, optional=True)\n"
               "    unit.add_parameter('Heat Duty', unit.ParameterType.REAL, unit.ParameterMode.INPUT, "
               "default=1, dimension=unit.Dimension.KILOGRAM*unit.Dimension.METER**2/"
               "unit.Dimension.SECOND**3)\n"
               "    unit.add_report('R')\n    unit.add_image('I', 'draw')\n"
               "def Calculate(unit):\n    print('flow', unit.ports['FEED'].flow_rate)\n";
    folder.edit([&](void*, EditingUnit* unit) {
        const Editor editor{unit};
        CHECK(editor.ports() == Texts{"Feed, material, inlet", "Product, material, outlet"});
        CHECK(editor.parameters() == Texts{"Heat Duty, input, input"});
        // A slip on the way costs nothing of what is connected.
        editor.write(head);
        CHECK(host.status() == CapeValidationStatus::notValidated);
        CHECK(editor.configure() == std::pair<std::string, std::string>("", ""));
        CHECK(editor.ports().empty());
        editor.write(head + "    raise ValueError('no')\n");
        CHECK(contains(editor.configure().second, "Line 3, in Configure"));
        CHECK(contains(editor.calculate().second, "Unit is not valid: Configure() failed: "));
        editor.write(withFeed);
        CHECK(editor.configure() == std::pair<std::string, std::string>("hello\n", ""));
        CHECK_MESSAGE(editor.configure().first == "hello\n", "without a change the texts stay");
        CHECK(editor.ports() == Texts{"FEED, material, inlet", "Side, material, outlet",
                                      "Heat, energy, outlet", "Level, information, inlet"});
        CHECK(editor.values(1) == Texts{"3.0"});
        // While the editor is open the host keeps what it has.
        CHECK(host.names(host.ports()).size() == 2);
        const auto [output, error] = editor.calculate();
        CHECK(error.empty());
        CHECK(contains(output, "flow 10.0"));
        CHECK(unit->lastOutput(unit) == output);
        return true;
    });
    REQUIRE(edit(host).outcome.succeeded());
    CHECK(host.names(host.ports()) == Texts{"FEED", "Side", "Heat", "Level"});
    CHECK(host.port("Feed") == feed);
    CHECK(contains(host.lastCalculation(), "flow 10.0"));
    CHECK(host.calculate().succeeded());
    StringArray reports;
    call<&ICapeReport::Table::getReportNames>(host.as<ICapeReport>(), reports.out());
    CHECK(reports.utf8() == Texts{"R", "Last Calculation", "I"});
    // The product left the unit, which the host may still hold.
    CHECK(TestHost::outcome([&] { host.disconnect("Product"); }).code == noSuchItem);
}

TEST_CASE("A script that the editor changed but did not configure takes effect at the next request") {
    EditorFolder folder;
    TestHost host(folder.module());
    folder.edit([&](void*, EditingUnit* unit) {
        Editor{unit}.write("def Configure(unit):\n    unit.add_report('R')\n");
        return true;
    });
    edit(host);
    CHECK(host.names(host.ports()).empty());
    folder.edit([&](void*, EditingUnit* unit) {
        CHECK(Editor{unit}.configure().second.empty());
        return true;
    });
    edit(host);
    StringArray reports;
    call<&ICapeReport::Table::getReportNames>(host.as<ICapeReport>(), reports.out());
    // Opening an editor loses nothing.
    CHECK(reports.utf8() == Texts{"R", "Last Calculation"});
}

TEST_CASE("Warnings while the editor is open go to the output and not to the host") {
    EditorFolder folder;
    TestHost host(folder.module(),
                  "import warnings\n"
                  "def Configure(unit):\n"
                  "    unit.add_parameter('o', unit.ParameterType.REAL, unit.ParameterMode.OUTPUT)\n"
                  "def Calculate(unit):\n    warnings.warn('look')\n");
    folder.edit([&](void*, EditingUnit* unit) {
        const std::string output = Editor{unit}.calculate().first;
        CHECK(contains(output, "Warning: look\n"));
        CHECK(contains(output, "Warning: Ouput parameter 'o' was never specified\n"));
        return true;
    });
    edit(host);
    CHECK(host.messages().empty());
    REQUIRE(host.calculate().succeeded());
    CHECK(host.messages() == Texts{"Orvane Operation warning: look",
                                   "Orvane Operation warning: Ouput parameter 'o' was never specified"});
}

TEST_CASE("Saved values come back under the script that the editor mends") {
    EditorFolder folder;
    TestHost first(folder.module(), fiveTypes);
    call<&ICapeRealParameter::Table::putValue>(first.parameter<ICapeRealParameter>("r"), 4.5);
    const auto saved = first.save();
    saved->addString("python", "def Configure(unit):\n    raise ValueError('not on this machine')\n");
    TestHost host(folder.module());
    host.load(*saved);
    folder.edit([&](void*, EditingUnit* unit) {
        const Editor editor{unit};
        editor.write(std::string(fiveTypes) + "\n# mended\n");
        CHECK(editor.configure().second.empty());
        CHECK(editor.values(1) == Texts{"4.5"});
        CHECK(editor.set(0, "5.5") == "");
        return true;
    });
    edit(host);
    double value = 0;
    call<&ICapeRealParameter::Table::getValue>(host.parameter<ICapeRealParameter>("r"), &value);
    CHECK_MESSAGE(value == 5.5, "what the user typed is not overwritten by what was saved");
    CHECK(host.messages().empty());
}
