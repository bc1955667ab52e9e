// Reports and images: what each slot of the report interface answers, and what is left in files.
#include "tests/TemporaryFolder.h"
#include "tests/unit/TestHost.h"

#include "cobia/HostAdapters.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

using namespace orvane::test;
namespace fs = std::filesystem;

namespace {

using Table = ICapeReport::Table;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string generate(TestHost& host, const std::string& name, const std::string& type = "text/plain",
                     const std::string& locale = "eng") {
    return text<&Table::GenerateReport>(host.as<ICapeReport>().get(), StringObject(name).in(),
                                        StringObject(type).in(), StringObject(locale).in());
}

Outcome toFile(TestHost& host, const std::string& name, const std::string& type, const fs::path& file,
               const std::string& locale = "eng") {
    return TestHost::outcome([&] {
        call<&Table::GenerateReportFile>(host.as<ICapeReport>(), StringObject(name).in(),
                                         StringObject(type).in(), StringObject(locale).in(),
                                         StringObject(file.string()).in());
    });
}

template <auto slot, class... Names> std::vector<std::string> list(TestHost& host, const Names&... names) {
    StringArray result;
    call<slot>(host.as<ICapeReport>(), StringObject(names).in()..., result.out());
    return result.utf8();
}

using Texts = std::vector<std::string>;

constexpr const char* reporting =
    "def Configure(unit):\n"
    "    unit.add_report('Größe'); unit.add_report('Same')\n"
    "    unit.add_image('Pic', 'draw')\n"
    "def Calculate(unit):\n"
    "    print('a\\r\\nb\\nπ', file=unit.reports['Größe'])\n"
    "    print('printed\\n\\r\\nend')\n"
    "def draw(unit, path, width, height):\n"
    "    open(path, 'wb').write(b'\\x89PNG\\r\\n\\x1a\\n%dx%d' % (width, height))\n";

/// A simulation environment that gives named values.
class NamedValues final : public CapeOpenObject<NamedValues, SimulationContextAdapter, COSEUtilitiesAdapter> {
public:
    ValueObject::Content width, height;

    std::vector<std::string> namedValueList() const { return {"ImageWidth", "ImageHeight"}; }
    ValueObject::Content namedValue(std::string name) const {
        const ValueObject::Content& value = name == "ImageWidth" ? width : height;
        if (std::holds_alternative<std::monostate>(value)) throw cape_open_error(noSuchItem);
        return value;
    }

protected:
    std::string errorSource() const override { return "named values"; }
};

}  // namespace

TEST_CASE("A unit lists the calculation report between its reports and its images") {
    TestHost plain("def Configure(unit): pass\n");
    CHECK(list<&Table::getReportNames>(plain) == Texts{"Last Calculation"});
    CHECK(generate(plain, "Last Calculation") == "");
    TestHost host(reporting);
    CHECK(list<&Table::getReportNames>(host) == Texts{"Größe", "Same", "Last Calculation", "Pic"});
    for (const auto& row : {std::pair{"GRÖßE", "text/plain"},
                            {"last calculation", "text/plain"},
                            {"LAST CALCULATION", "text/plain"},
                            {"pIC", "image/png"}}) {
        const char *const name = row.first, *const type = row.second;
        CAPTURE(name);
        CHECK(list<&Table::ReportTypes>(host, name) == Texts{type});
        CHECK(list<&Table::ReportLocales>(host, name, COBIA::upperCase(type)) == Texts{"eng"});
    }
    for (const char* name : {"", "Last Calculation ", "Last Calc", "Pi"}) {
        CAPTURE(name);
        CHECK(TestHost::outcome([&] { list<&Table::ReportTypes>(host, name); }).code == noSuchItem);
    }
    CHECK(TestHost::outcome([&] { list<&Table::ReportLocales>(host, "Pic", "text/plain"); }).code ==
          noSuchItem);
}

TEST_CASE("A report is available under its name, type and locale together") {
    TestHost host(reporting);
    struct Row {
        const char *name, *type, *locale;
        bool available;
    };
    for (const Row& row : {Row{"same", "Text/Plain", "ENG", true}, Row{"Pic", "IMAGE/png", "eng", true},
                           Row{"Last Calculation", "text/plain", "eng", true},
                           Row{"Same", "image/png", "eng", false}, Row{"Pic", "text/plain", "eng", false},
                           Row{"Same", "text/plain", "deu", false}, Row{"No", "text/plain", "eng", false}}) {
        CAPTURE(row.name);
        CAPTURE(row.type);
        CapeBoolean available = 7;
        call<&Table::CheckReportSpec>(host.as<ICapeReport>(), StringObject(row.name).in(),
                                      StringObject(row.type).in(), StringObject(row.locale).in(), &available);
        CHECK(available == (row.available ? 1u : 0u));
    }
}

TEST_CASE("Text reports are the same in a string and in a file, each with its own line ends") {
    const TemporaryFolder folder;
    TestHost host(reporting);
    CHECK(generate(host, "größe") == "");
    REQUIRE(host.calculate().succeeded());
    CHECK(generate(host, "größe") == "a\r\nb\nπ\n");
    const std::string calculation = generate(host, "Last Calculation");
    CHECK(contains(calculation, "\r\n\r\nprinted\r\n\r\nend\r\n\r\n\r\nCalculation took "));
    for (const char* name : {"Größe", "Last Calculation"}) {
        REQUIRE(toFile(host, name, "text/plain", folder.file("report.txt")).succeeded());
        CHECK(folder.read("report.txt") == generate(host, name));
    }
    CHECK(toFile(host, "Größe", "text/plain", folder.file("other"), "deu").code == noSuchItem);
    CHECK(toFile(host, "Größe", "image/png", folder.file("other")).code == noSuchItem);
    CHECK(toFile(host, "No", "text/plain", folder.file("other")).code == noSuchItem);
    const Outcome nowhere = toFile(host, "Größe", "text/plain", folder.file("none") / "r.txt");
    CHECK(contains(nowhere.text, "in ICapeReport::GenerateReportFile of "));
    CHECK(contains(nowhere.text, "r.txt': "));
    CHECK(folder.count() == 1);
}

TEST_CASE("An image takes its size from the simulation environment, where that gives whole numbers") {
    const TemporaryFolder folder;
    TestHost host(reporting);
    const auto values = makeObject<NamedValues>();
    call<&ICapeUtilities::Table::putSimulationContext>(host.as<ICapeUtilities>(),
                                                       values->as<ICapeSimulationContext>());
    struct Row {
        ValueObject::Content width, height;
        const char* size;
    };
    for (const Row& row :
         {Row{{}, {}, "1024x640"}, Row{{}, CapeInteger{300}, "1024x300"},
          Row{CapeInteger{200}, std::string("300"), "200x640"}, Row{2.0, CapeInteger{1}, "1024x1"}}) {
        values->width = row.width;
        values->height = row.height;
        REQUIRE(toFile(host, "Pic", "image/png", folder.file("pic.png")).succeeded());
        CHECK(folder.read("pic.png") == std::string("\x89PNG\r\n\x1a\n") + row.size);
    }
    values->width = CapeInteger{0};
    CHECK(contains(toFile(host, "Pic", "image/png", folder.file("pic.png")).text,
                   "asks for images of ImageWidth 0, which is not positive"));
    CHECK(toFile(host, "Pic", "text/plain", folder.file("pic.png")).code == invalidArgument);
    CHECK(toFile(host, "Pic", "image/png", folder.file("pic.png"), "deu").code == noSuchItem);
}

TEST_CASE("An image function that does not draw is named, and the file there stays as it was") {
    struct Row {
        const char* body;
        const char* error;
    };
    const Row rows[] = {
        {"raise ValueError('no data')", "ValueError: no data"},
        {"unit.volatile_data['x'].y = 1", "Line 4, in draw"},
        {"pass", "function 'draw' wrote nothing to the image file"},
        {"open(path, 'w').write('GIF89a')", "function 'draw' wrote a file that is no PNG image"},
        {"open(path, 'wb').write(b'\\x89PNG')", "function 'draw' wrote a file that is no PNG image"},
        {"import os; os.remove(path)", "function 'draw' left no image file"},
        {"return b'\\x89PNG\\r\\n\\x1a\\n'", "Function 'draw' should not return a value"},
        {"import sys; sys.exit()", "SystemExit"},
        {"unit.add_report('late')", "add_report can only be called from Configure()"},
    };
    const TemporaryFolder folder;
    folder.write("pic.png", "before");
    for (const Row& row : rows) {
        CAPTURE(row.body);
        TestHost host(std::string("def Configure(unit):\n    unit.add_image('Pic', 'draw')\n") +
                      "def draw(unit, path, width, height):\n    " + row.body + "\n");
        const Outcome outcome = toFile(host, "Pic", "image/png", folder.file("pic.png"));
        CHECK(outcome.code == capeOpenError);
        CHECK_MESSAGE(contains(outcome.text, row.error), outcome.text);
        CHECK(folder.read("pic.png") == "before");
        CHECK(folder.count() == 1);
    }
    TestHost without("def Configure(unit):\n    unit.add_image('Pic', 'draw')\n");
    CHECK(contains(toFile(without, "Pic", "image/png", folder.file("pic.png")).text,
                   "Cannot find function 'draw'"));
}

TEST_CASE("A null output is refused by each slot before anything runs") {
    TestHost host("raise RuntimeError('ran')\n");
    const auto report = host.as<ICapeReport>();
    const StringObject any("x");
    const auto codeOf = [](auto&& body) { return TestHost::outcome(body).code; };
    CHECK(codeOf([&] { call<&Table::getReportNames>(report, nullptr); }) == nullPointer);
    CHECK(codeOf([&] { call<&Table::ReportTypes>(report, any.in(), nullptr); }) == nullPointer);
    CHECK(codeOf([&] { call<&Table::ReportLocales>(report, any.in(), any.in(), nullptr); }) == nullPointer);
    CHECK(codeOf([&] { call<&Table::CheckReportSpec>(report, any.in(), any.in(), any.in(), nullptr); }) ==
          nullPointer);
    CHECK(codeOf([&] { call<&Table::GenerateReport>(report, any.in(), any.in(), any.in(), nullptr); }) ==
          nullPointer);
    CHECK(codeOf([&] { call<&Table::GenerateReportFile>(report, any.in(), any.in(), any.in(), nullptr); }) ==
          nullPointer);
}
