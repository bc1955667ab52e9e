// Units with random declarations and values: what is saved of them comes back the same.
#include "tests/unit/TestHost.h"

#include <doctest/doctest.h>

#include <bit>
#include <cstdint>
#include <random>

using namespace orvane::test;
using orvane::host::PersistStore;

namespace {

/// Random declarations, and a script that makes them.
class RandomUnit {
public:
    explicit RandomUnit(unsigned seed) : random_(seed) {
        script_ = "def Configure(unit):\n    T, M = unit.ParameterType, unit.ParameterMode\n    pass\n";
        const int count = below(12);
        for (int i = 0; i < count; ++i) addParameter(i);
        for (int i = below(3); i > 0; --i) script_ += "    unit.add_report(" + text(i) + ")\n";
        for (int i = below(3); i > 0; --i) script_ += "    unit.add_image(" + text(100 + i) + ", 'draw')\n";
        script_ += "def Calculate(unit):\n    unit.private_data['x'] = " + real() + "\n" +
                   "    for k, f in unit.reports.items(): print(k, " + text(0) + ", file=f)\n" +
                   "    print(" + text(1) + ")\n" + outputs_;
    }
    const std::string& script() const { return script_; }

private:
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    /// A Python literal of a text that begins with the number, so that names differ.
    std::string text(int number) {
        static const char* const pieces[] = {"a",    "\\'",     "\\\\",        "\\n", "\\u00e4",
                                             "\\t ", "\\u03c0", "\\U0001f680", "%s"};
        std::string result = "'" + std::to_string(number) + "_";
        for (int i = below(6); i > 0; --i) result += pieces[below(9)];
        return result + "'";
    }
    std::string real() {
        switch (below(5)) {
        case 0: return "-0.0";
        case 1: return "5e-324";
        case 2: return "1.7976931348623157e308";
        default:
            return "float.fromhex('" + std::string(below(2) ? "-" : "") + "0x1." +
                   std::to_string(random_() % 1000000) + "p" + std::to_string(below(200) - 100) + "')";
        }
    }
    std::string reals(int count) {
        std::string result;
        for (int i = 0; i < count; ++i) result += real() + ", ";
        return "[" + result + "]";
    }
    std::string value(int type) {
        switch (type) {
        case 0: return real();
        case 1: return std::to_string(static_cast<std::int32_t>(random_() | 1u));
        case 2: return text(2);
        case 3: return below(2) ? "True" : "False";
        default: return reals(1 + below(4));
        }
    }
    void addParameter(int number) {
        static const char* const types[] = {"REAL", "INTEGER", "STRING", "BOOLEAN", "ARRAY_REAL"};
        const int type = below(5);
        const bool output = below(2);
        const std::string name = text(number);
        script_ +=
            "    unit.add_parameter(" + name + ", T." + types[type] + ", M." + (output ? "OUTPUT" : "INPUT");
        if (below(2) && type != 4) script_ += ", default=" + value(type);
        if (type != 3 && below(2)) script_ += ", initial=" + value(type);
        script_ += ")\n";
        if (output) outputs_ += "    unit.parameters[" + name + "].value = " + value(type) + "\n";
    }

    std::mt19937 random_;
    std::string script_, outputs_;
};

std::string shown(const std::vector<double>& values) {
    std::string result;
    for (const double value : values) result += std::to_string(std::bit_cast<std::uint64_t>(value)) + " ";
    return result;
}

/// Every item of a state with its value, reals by their bits.
std::vector<std::string> itemsOf(const PersistStore& store) {
    std::vector<std::string> result;
    for (const std::string& item : store.valueNames()) {
        std::string value;
        switch (store.valueType(item)) {
        case CapePersistedDataType::real: value = shown({store.real(item)}); break;
        case CapePersistedDataType::integer: value = std::to_string(store.integer(item)); break;
        case CapePersistedDataType::boolean: value = store.boolean(item) ? "true" : "false"; break;
        case CapePersistedDataType::string: value = store.string(item); break;
        case CapePersistedDataType::arrayReal: value = shown(store.reals(item)); break;
        case CapePersistedDataType::arrayInteger:
            for (const CapeInteger code : store.integers(item)) value += std::to_string(code) + " ";
            break;
        case CapePersistedDataType::arrayString:
            for (const std::string& text : store.strings(item)) value += text + "|";
            break;
        case CapePersistedDataType::arrayByte:
            for (const CapeByte byte : store.bytes(item)) value += std::to_string(byte) + " ";
            break;
        default: FAIL("unexpected kind of ", item);
        }
        result.push_back(item + " = " + value);
    }
    return result;
}

}  // namespace

TEST_CASE("Whatever a script declares and sets comes back the same after save and load") {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        CAPTURE(seed);
        const RandomUnit random(seed);
        CAPTURE(random.script());
        TestHost first(random.script());
        // Parameters without a value are invalid, and then nothing is calculated: that is saved too.
        first.calculate();
        const auto saved = first.save();
        REQUIRE(first.names(first.parameters()) == saved->strings("parameterNames"));
        TestHost second;
        second.load(*saved);
        CHECK(itemsOf(*second.save()) == itemsOf(*saved));
        CHECK(second.messages().empty());
    }
}
