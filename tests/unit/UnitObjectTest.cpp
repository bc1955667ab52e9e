// The unit operation as an object of the host: interfaces, identification, collections, saved state, reports, and what
// outlives it.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace orvane::test;

namespace {

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// A temporary folder of the test's own, since other tests make their script files at the same time.
class OwnTemporaryFolder {
public:
    OwnTemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / ("orvane-test-" + std::to_string(getpid()))) {
        std::filesystem::create_directory(path_);
        setenv("TMPDIR", path_.c_str(), 1);
    }
    OwnTemporaryFolder(const OwnTemporaryFolder&) = delete;
    OwnTemporaryFolder& operator=(const OwnTemporaryFolder&) = delete;
    ~OwnTemporaryFolder() {
        unsetenv("TMPDIR");
        std::filesystem::remove_all(path_);
    }

    std::ptrdiff_t files() const {
        return std::distance(std::filesystem::directory_iterator(path_),
                             std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path path_;
};

}  // namespace

TEST_CASE("The unit answers for its five interfaces and for no other") {
    TestHost host;
    CHECK(host.as<ICapeIdentification>());
    CHECK(host.as<ICapeUnit>());
    CHECK(host.as<ICapePersist>());
    CHECK(host.as<ICapeUtilities>());
    CHECK(host.as<ICapeReport>());
    CHECK(host.as<ICapeInterface>());
    CHECK_FALSE(host.as<ICapeThermoMaterial>());
    // All of them are one object.
    CHECK(host.as<ICapeInterface>() == query<ICapeInterface>(host.as<ICapeReport>()));
    const auto unit = host.as<ICapeUnit>();
    const auto* table = static_cast<const ICapeUnit::Table*>(unit->vTbl);
    CHECK(table->ports(unit->me, nullptr) == nullPointer);
    CHECK(table->getValStatus(unit->me, nullptr) == nullPointer);
    ICapeError* error = nullptr;
    CHECK(table->base.getLastError(unit->me, &error) == noSuchItem);
}

TEST_CASE("Name and description are the host's to change") {
    TestHost host;
    const auto identification = host.as<ICapeIdentification>();
    CHECK(text<&ICapeIdentification::Table::getComponentName>(identification.get()) == "Orvane Operation");
    CHECK(text<&ICapeIdentification::Table::getComponentDescription>(identification.get()) ==
          "CAPE-OPEN Unit Operation using python script for calculations");
    call<&ICapeIdentification::Table::putComponentName>(identification, StringObject("H-1 \u00e4").in());
    CHECK(text<&ICapeIdentification::Table::getComponentName>(identification.get()) == "H-1 \u00e4");
}

TEST_CASE("Collections find items by index and by name without regard to case") {
    TestHost host;
    const auto ports = host.ports();
    for (const CapeInteger index : {-1, 2})
        CHECK(TestHost::outcome([&] {
                  obtain<ICapeInterface, &ICapeCollection::Table::ItemByIndex>(ports.get(), index);
              }).code == noSuchItem);
    CHECK(TestHost::outcome([&] { host.port("FEED"); }).succeeded());
    CHECK(TestHost::outcome([&] { host.port("Fee"); }).code == noSuchItem);
    CHECK(text<&ICapeIdentification::Table::getComponentName>(query<ICapeIdentification>(ports).get()) ==
          "Port collection");
    CapePortDirection direction{};
    call<&ICapeUnitPort::Table::getDirection>(host.port("Product"), &direction);
    CHECK(direction == CapePortDirection::outlet);
}

TEST_CASE("Two units in a process do not meet") {
    TestHost first(
        "value = 'first'\ndef Configure(unit):\n    pass\ndef Calculate(unit):\n    print(value)\n");
    TestHost second(
        "value = 'second'\ndef Configure(unit):\n    pass\ndef Calculate(unit):\n    print(value)\n");
    REQUIRE(first.calculate().succeeded());
    REQUIRE(second.calculate().succeeded());
    CHECK(contains(first.lastCalculation(), "first\r\n"));
    CHECK(contains(second.lastCalculation(), "second\r\n"));
}

TEST_CASE("Ports and parameters may outlive the unit, and its script file does not") {
    const OwnTemporaryFolder folder;
    Ref<ICapeUnitPort> port;
    Ref<ICapeRealParameter> parameter;
    {
        TestHost host;
        port = host.port("Feed");
        parameter = host.parameter<ICapeRealParameter>("Heat Duty");
        CHECK(folder.files() == 1);
    }
    CHECK(folder.files() == 0);
    call<&ICapeRealParameter::Table::putValue>(parameter, 3.0);
    double value = 0;
    call<&ICapeRealParameter::Table::getValue>(parameter, &value);
    CHECK(value == 3);
    CHECK(TestHost::outcome([&] { call<&ICapeUnitPort::Table::Disconnect>(port); }).succeeded());
}

TEST_CASE("A saved unit comes back with its script, values, data and texts") {
    const char* script = "def Configure(unit):\n"
                         "    t, m = unit.ParameterType, unit.ParameterMode\n"
                         "    unit.add_parameter('r', t.REAL, m.INPUT, default=1.0)\n"
                         "    unit.add_parameter('i', t.INTEGER, m.INPUT, default=2)\n"
                         "    unit.add_parameter('s', t.STRING, m.INPUT, default='\u00e4')\n"
                         "    unit.add_parameter('b', t.BOOLEAN, m.INPUT)\n"
                         "    unit.add_parameter('a', t.ARRAY_REAL, m.INPUT, default=1, length=2)\n"
                         "    unit.add_parameter('o', t.REAL, m.OUTPUT)\n"
                         "    unit.add_report('Sum')\n"
                         "def Calculate(unit):\n"
                         "    unit.private_data['n'] = unit.private_data.get('n', 0) + 1\n"
                         "    unit.parameters['o'].value = 7.5\n"
                         "    print('n', unit.private_data['n'], file=unit.reports['Sum'])\n";
    TestHost first{std::string(script)};
    call<&ICapeRealParameter::Table::putValue>(first.parameter<ICapeRealParameter>("r"), 0.1);
    call<&ICapeBooleanParameter::Table::putValue>(first.parameter<ICapeBooleanParameter>("b"),
                                                  CapeBoolean{1});
    REQUIRE(first.calculate().succeeded());
    const auto saved = first.save();
    CHECK(saved->valueNames() ==
          std::vector<std::string>{"python", "lastOutput", "runReportHeader", "runReportFooter", "parameter0",
                                   "parameter1", "parameter2", "parameter3", "parameter4", "parameter5",
                                   "parameterNames", "parameterTypes", "reportNames", "reportValues",
                                   "imageNames", "imageFunctions", "privateData"});
    CHECK(saved->string("python") == script);
    CHECK(saved->integers("parameterTypes") == std::vector<CapeInteger>{0, 1, 2, 3, 4, 0});
    CHECK(saved->strings("reportNames") == std::vector<std::string>{"SUM"});

    TestHost second;
    second.load(*saved);
    CHECK(second.lastCalculation() == first.lastCalculation());
    const auto again = second.save();
    CHECK(again->real("parameter0") == 0.1);
    CHECK(again->real("parameter5") == 7.5);
    CHECK(again->boolean("parameter3"));
    CHECK(again->reals("parameter4") == std::vector<double>{1, 1});
    CHECK(again->strings("reportValues") == std::vector<std::string>{"n 1\n"});
    REQUIRE(second.calculate().succeeded());
    CHECK(second.save()->strings("reportValues") == std::vector<std::string>{"n 2\n"});
}

TEST_CASE("A state that cannot be read leaves the unit as it was; a value that cannot is a warning") {
    TestHost host;
    const auto damaged = makeObject<orvane::host::PersistStore>();
    damaged->addString("python", "raise SystemExit");
    CHECK(TestHost::outcome([&] { host.load(*damaged); }).code != noError);
    CHECK(host.names(host.ports()).size() == 2);

    const auto saved = host.save();
    saved->addString("parameter0", "not a number");
    host.load(*saved);
    host.ports();
    const auto messages = host.messages();
    REQUIRE(messages.size() == 1);
    CHECK(contains(messages[0], "Orvane Operation warning: Cannot load value for 'Heat Duty': "));
}

TEST_CASE("Reports are listed and made by name, type and locale") {
    TestHost host(
        "def Configure(unit):\n    unit.add_report('Sum'); unit.add_image('Pic', 'draw'); unit.add_image('Bad', 'bad')\n"
        "def Calculate(unit):\n    print('1 + 1', file=unit.reports['Sum'])\n"
        "def draw(unit, path, width, height):\n"
        "    open(path, 'wb').write(b'\\x89PNG\\r\\n\\x1a\\n%dx%d' % (width, height))\n"
        "def bad(unit, path, width, height):\n    pass\n");
    const auto reports = host.as<ICapeReport>();
    using Table = ICapeReport::Table;
    const StringObject plain("TEXT/plain"), png("image/png"), eng("ENG"), deu("deu");
    StringArray names;
    call<&Table::getReportNames>(reports, names.out());
    CHECK(names.utf8() == std::vector<std::string>{"Sum", "Last Calculation", "Pic", "Bad"});
    REQUIRE(host.calculate().succeeded());
    CHECK(text<&Table::GenerateReport>(reports.get(), StringObject("sUM").in(), plain.in(), eng.in()) ==
          "1 + 1\n");
    for (const auto& [name, type, locale] : {std::tuple{"Sum", &png, &eng},
                                             {"Sum", &plain, &deu},
                                             {"None", &plain, &eng},
                                             {"Pic", &plain, &eng}})
        CHECK(TestHost::outcome([&, &name = name, &type = type, &locale = locale] {
                  text<&Table::GenerateReport>(reports.get(), StringObject(name).in(), type->in(),
                                               locale->in());
              }).code == noSuchItem);

    const auto file = std::filesystem::temp_directory_path() / "orvane-test-picture.png";
    const StringObject fileName(file.string());
    call<&Table::GenerateReportFile>(reports, StringObject("pic").in(), png.in(), eng.in(), fileName.in());
    std::ifstream stream(file, std::ios::binary);
    CHECK(std::string(std::istreambuf_iterator<char>(stream), {}) == "\x89PNG\r\n\x1a\n1024x640");
    std::filesystem::remove(file);
    const Outcome outcome = TestHost::outcome([&] {
        call<&Table::GenerateReportFile>(reports, StringObject("Bad").in(), png.in(), eng.in(),
                                         fileName.in());
    });
    CHECK(contains(outcome.text, "function 'bad' wrote nothing to the image file"));
    CHECK_FALSE(std::filesystem::exists(file));
    CHECK(TestHost::outcome([&] {
              call<&Table::GenerateReportFile>(reports, StringObject("Pic").in(),
                                               StringObject("image/PNG").in(), eng.in(), fileName.in());
          }).code == invalidArgument);
}
