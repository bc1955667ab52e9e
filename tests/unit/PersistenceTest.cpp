// What Save writes comes back with Load; what damaged and foreign states do.
#include "tests/system/LineEnds.h"
#include "tests/unit/TestHost.h"

#include "cobia/HostAdapters.h"

#include <doctest/doctest.h>

#include <bit>
#include <cstdint>
#include <functional>
#include <limits>

using namespace orvane::test;
using orvane::host::PersistStore;

namespace {

using Bytes = std::vector<CapeByte>;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// What a unit with one real parameter "p" of value 7 saves.
struct SavedState {
    std::string script = "def Configure(unit):\n"
                         "    unit.add_parameter('p', unit.ParameterType.REAL, unit.ParameterMode.INPUT)\n"
                         "def Calculate(unit):\n"
                         "    print('data', unit.private_data, 'p', unit.parameters['p'].value)\n";
    std::vector<std::string> names{"p"};
    std::vector<CapeInteger> types{0};
    std::vector<std::string> reportNames, reportTexts, imageNames, imageFunctions;
    Bytes privateData;
    std::function<void(PersistStore&)> value = [](PersistStore& store) { store.addReal("parameter0", 7); };

    Ref<PersistStore> store(const std::string& without = {}) const {
        auto result = makeObject<PersistStore>();
        const auto add = [&](const std::string& item, auto&& put) {
            if (item != without) put(item);
        };
        add("python", [&](auto& item) { result->addString(item, script); });
        for (const char* text : {"lastOutput", "runReportHeader", "runReportFooter"})
            add(text, [&](auto& item) { result->addString(item, "old " + item); });
        value(*result);
        add("parameterNames", [&](auto& item) { result->addTexts(item, names); });
        add("parameterTypes", [&](auto& item) { result->addIntegers(item, types); });
        add("reportNames", [&](auto& item) { result->addTexts(item, reportNames); });
        add("reportValues", [&](auto& item) { result->addTexts(item, reportTexts); });
        add("imageNames", [&](auto& item) { result->addTexts(item, imageNames); });
        add("imageFunctions", [&](auto& item) { result->addTexts(item, imageFunctions); });
        if (!privateData.empty())
            add("privateData", [&](auto& item) { result->addBytes(item, privateData); });
        return result;
    }
};

Outcome load(TestHost& host, const Ref<PersistStore>& store) {
    return TestHost::outcome([&] { host.load(*store); });
}

/// What the unit has told the host, without its name.
std::vector<std::string> warnings(const TestHost& host) {
    std::vector<std::string> result;
    for (const std::string& message : host.messages())
        result.push_back(message.substr(std::string("Orvane Operation warning: ").size()));
    return result;
}

Bytes bytes(const std::string& text) { return {text.begin(), text.end()}; }

/// pickle.dumps({'a': [1, 2.5, 'x']}), in protocol 4.
const std::string pickled("\x80\x04\x95\x1b\0\0\0\0\0\0\0}\x94\x8c\x01"
                          "a\x94]\x94(K\x01G@\x04\0\0\0\0\0\0\x8c\x01x\x94"
                          "es.",
                          38);

/// Diagnostics of a host that cannot log.
class FailingContext final
    : public CapeOpenObject<FailingContext, SimulationContextAdapter, DiagnosticAdapter> {
public:
    void popUpMessage(std::string) {}
    void logMessage(std::string) { throw StringException("the log is full"); }

protected:
    std::string errorSource() const override { return "log"; }
};

}  // namespace

TEST_CASE("A state without one of its items, or with one of another kind, is refused and changes nothing") {
    TestHost host;
    const auto before = host.save();
    for (const char* item :
         {"python", "lastOutput", "runReportHeader", "runReportFooter", "parameterNames", "parameterTypes"}) {
        CAPTURE(item);
        CHECK(load(host, SavedState().store(item)).code == noSuchItem);
        const auto ofOtherKind = SavedState().store(item);
        ofOtherKind->addReal(item, 1);
        CHECK(load(host, ofOtherKind).code == 111);
    }
    SavedState uneven;
    uneven.names.push_back("q");
    CHECK(contains(load(host, uneven.store()).text,
                   "the saved state is damaged: \"parameterNames\" holds 2 items, \"parameterTypes\" 1"));
    SavedState foreign;
    foreign.types = {5};
    CHECK(contains(load(host, foreign.store()).text, ": unsupported data type"));
    CHECK(host.save()->string("python") == before->string("python"));
    CHECK(host.names(host.parameters()) == std::vector<std::string>{"Heat Duty"});
    CHECK(host.calculateDefault().succeeded());
}

TEST_CASE("Damage to reports, images and single values is a warning, and the rest is loaded") {
    struct Row {
        std::function<void(SavedState&)> damage;
        std::string warning;
        double p;
    };
    const double unset = std::numeric_limits<double>::quiet_NaN();
    const Row rows[] = {
        {[](SavedState& state) {
             state.reportNames = {"A", "B"};
         },
         "Reports were not loaded: the saved state is damaged: \"reportNames\" holds 2 items, \"reportValues\" 0",
         7},
        {[](SavedState& state) { state.imageFunctions = {"draw"}; },
         "Images were not loaded: the saved state is damaged: \"imageNames\" holds 0 items, \"imageFunctions\" 1",
         7},
        {[](SavedState& state) {
             state.value = [](PersistStore& store) { store.addString("parameter0", "7"); };
         },
         "Cannot load value for 'p': Unexpected data type", unset},
        {[](SavedState& state) { state.value = [](PersistStore&) {}; },
         "Cannot load value for 'p': No such item", unset},
        {[](SavedState& state) { state.names = {"P"}; }, "Value for 'p' was not loaded", unset},
        {[](SavedState& state) {
             state.types = {2};
             state.value = [](PersistStore& store) { store.addString("parameter0", "7"); };
         },
         "Value for 'p' was not restored: incorrect type", unset},
        {[](SavedState& state) { state.script.replace(state.script.find("INPUT"), 5, "INPUT, max=6"); },
         "Value for 'p' was not restored: Value is above maximum value of 6", unset},
    };
    for (const Row& row : rows) {
        CAPTURE(row.warning);
        SavedState state;
        row.damage(state);
        TestHost host;
        REQUIRE(load(host, state.store()).succeeded());
        const double p = host.save()->real("parameter0");
        CHECK(std::bit_cast<std::uint64_t>(p) == std::bit_cast<std::uint64_t>(row.p));
        CHECK(warnings(host) == std::vector<std::string>{row.warning});
    }
}

TEST_CASE("A host whose log fails at a warning loses no value") {
    SavedState state;
    state.script = "def Configure(unit):\n"
                   "    for name in 'apb':\n"
                   "        unit.add_parameter(name, unit.ParameterType.REAL, unit.ParameterMode.INPUT)\n";
    state.names = {"p", "b"};
    state.types = {0, 0};
    state.value = [](PersistStore& store) {
        store.addReal("parameter0", 7);
        store.addReal("parameter1", 8);
    };
    TestHost host;
    const auto context = makeObject<FailingContext>();
    call<&ICapeUtilities::Table::putSimulationContext>(host.as<ICapeUtilities>(),
                                                       context->as<ICapeSimulationContext>());
    REQUIRE(load(host, state.store()).succeeded());
    CHECK(contains(TestHost::outcome([&] { host.ports(); }).text, "the log is full"));
    const auto saved = host.save();
    CHECK(saved->real("parameter1") == 7);
    CHECK(saved->real("parameter2") == 8);
}

TEST_CASE("While Configure fails, what was loaded is saved as it came") {
    SavedState state;
    state.script = "import no_such_module\n";
    state.privateData = bytes("cno_such_module\nData\n.");
    TestHost host;
    REQUIRE(load(host, state.store()).succeeded());
    CHECK(warnings(host) ==
          std::vector<std::string>{"Error storing private_data: ModuleNotFoundError: No module "
                                   "named 'no_such_module'; "});
    CHECK(contains(host.validate().message, "Configure() failed: "));
    const auto saved = host.save();
    CHECK(saved->strings("parameterNames") == state.names);
    CHECK(saved->real("parameter0") == 7);
    CHECK(saved->bytes("privateData") == state.privateData);

    // Once the script can be configured again, everything is where it was.
    saved->addString("python", SavedState().script);
    TestHost other;
    REQUIRE(load(other, saved).succeeded());
    REQUIRE(other.calculate().succeeded());
    CHECK(contains(other.lastCalculation(), "data {} p 7.0"));
}

TEST_CASE(
    "Private data that cannot be unpickled is a warning, kept for the next save, and the unit runs on") {
    std::vector<std::string> damaged = {"no pickle", "csys\nexit\n(S'gone'\ntR.", "cbuiltins\nlen\n(I1\ntR.",
                                        "(lp0\ng7\n."};
    for (std::size_t length = 1; length < pickled.size(); length += 6)
        damaged.push_back(pickled.substr(0, length));
    for (const std::string& content : damaged) {
        CAPTURE(content);
        SavedState state;
        state.privateData = bytes(content);
        TestHost host;
        REQUIRE(load(host, state.store()).succeeded());
        REQUIRE(host.messages().size() == 1);
        CHECK(warnings(host)[0].starts_with("Error storing private_data: "));
        REQUIRE(host.calculate().succeeded());
        CHECK(contains(host.lastCalculation(), "data {} p 7.0"));
        CHECK(host.save()->bytes("privateData") == state.privateData);
    }
    SavedState state;
    state.privateData = bytes(pickled);
    TestHost host;
    REQUIRE(load(host, state.store()).succeeded());
    REQUIRE(host.calculate().succeeded());
    CHECK(contains(host.lastCalculation(), "data {'a': [1, 2.5, 'x']} p 7.0"));
    CHECK(host.messages().empty());
}

TEST_CASE("Private data that cannot be pickled is a warning, and nothing is stored") {
    TestHost host("def Configure(unit):\n    unit.private_data['f'] = lambda: 0\n");
    CHECK_FALSE(contains(host.save()->valueNames().back(), "privateData"));
    REQUIRE(host.messages().size() == 1);
    CHECK(warnings(host)[0].starts_with("Error storing private_data: "));
}

TEST_CASE("A script comes back as it was, however it is written") {
    const std::string pass = "def Configure(unit): pass\n";
    std::string large = pass;
    while (large.size() < 10'000'000) large += "# a comment that goes on and on, for as long as it takes\n";
    for (const std::string& script : {"\r\n" + pass, "# mac\r" + pass, "# \xf0\x9f\x9a\x80\n" + pass,
                                      std::string("\xef\xbb\xbf") + pass, large}) {
        CAPTURE(script.size());
        TestHost first(script);
        TestHost second;
        second.load(*first.save());
        const std::string saved = second.save()->string("python");
        CHECK(saved == withOwnLineEnds(script));
        CHECK(TestHost(saved).save()->string("python") == saved);
        CHECK(second.validate().valid);
        CHECK(second.messages().empty());
    }
    for (const std::string& script : {pass + std::string("\0x = 1\n", 7), std::string("def Configure(")}) {
        TestHost host(script);
        CHECK(contains(host.validate().message, "SyntaxError: "));
        CHECK(host.save()->string("python") == withOwnLineEnds(script));
    }
    // A lone surrogate has no UTF-8: U+FFFD stands in its place.
    TestHost host("# \xed\xa0\x80\n" + pass);
    CHECK(contains(host.save()->string("python"), "# \xef\xbf\xbd"));
    CHECK(host.validate().valid);
}

TEST_CASE("Saving twice gives the same, and loading marks nothing as changed") {
    TestHost host;
    REQUIRE(host.calculateDefault().succeeded());
    const auto dirty = [](TestHost& of) {
        CapeBoolean result = 7;
        call<&ICapePersist::Table::getIsDirty>(of.as<ICapePersist>(), &result);
        return result != 0;
    };
    const auto first = host.save();
    const auto second = host.save();
    CHECK(first->valueNames() == second->valueNames());
    CHECK(first->string("lastOutput") == second->string("lastOutput"));
    CHECK(dirty(host));
    TestHost other;
    other.load(*first);
    CHECK_FALSE(dirty(other));
    for (const auto& outcome :
         {TestHost::outcome([&] { call<&ICapePersist::Table::Save>(host.as<ICapePersist>(), nullptr, 0u); }),
          TestHost::outcome([&] { call<&ICapePersist::Table::Load>(host.as<ICapePersist>(), nullptr); })})
        CHECK(outcome.code == nullPointer);
}
