// The editor as its author uses it: the callbacks that matter to tests, as C++ values.
#pragma once

#include "tests/unit/EditorFolder.h"
#include "tests/unit/TestHost.h"

#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace orvane::test {

struct Edited {
    Outcome outcome;
    CapeEditResult result = CapeEditResult{7};
};

inline Edited edit(TestHost& host, CapeWindowId parent = nullptr) {
    Edited edited;
    edited.outcome = TestHost::outcome(
        [&] { call<&ICapeUtilities::Table::Edit>(host.as<ICapeUtilities>(), parent, &edited.result); });
    return edited;
}

using Texts = std::vector<std::string>;

inline Texts texts(const char* const* list, int count) { return Texts(list, list + count); }

struct Editor {
    EditingUnit* unit;

    std::string scriptFile() const { return unit->scriptFile(unit); }
    void write(const std::string& script) const {
        std::ofstream(scriptFile(), std::ios::binary) << script;
        unit->scriptChanged(unit);
    }
    std::pair<std::string, std::string> configure() const {
        const char *output = nullptr, *error = nullptr;
        unit->configure(unit, &output, &error);
        return {output, error};
    }
    std::pair<std::string, std::string> calculate() const {
        const char *output = nullptr, *error = nullptr;
        unit->calculate(unit, &output, &error);
        return {output, error};
    }
    Texts ports() const {
        const char *const *names = nullptr, *const *kinds = nullptr, *const *directions = nullptr;
        const int count = unit->ports(unit, &names, &kinds, &directions);
        Texts result;
        for (int i = 0; i < count; ++i)
            result.push_back(std::string(names[i]) + ", " + kinds[i] + ", " + directions[i]);
        return result;
    }
    Texts parameters() const {
        const char *const *names = nullptr, *const *directions = nullptr;
        const int count = unit->parameters(unit, &names, &directions);
        Texts result;
        for (int i = 0; i < count; ++i) result.push_back(std::string(names[i]) + ", " + directions[i]);
        for (int i = 0; i < count; ++i) result[i] += unit->isInputParameter(unit, i) ? ", input" : ", output";
        return result;
    }
    Texts values(int count) const {
        Texts result;
        for (int i = 0; i < count; ++i) result.emplace_back(unit->parameterValue(unit, i));
        return result;
    }
    std::string set(int parameter, const char* expression) const {
        return unit->setParameter(unit, parameter, expression);
    }
};

/// A script with a parameter of each type, an output, and a text that is free.
inline constexpr const char* fiveTypes =
    "def Configure(unit):\n"
    "    t, m = unit.ParameterType, unit.ParameterMode\n"
    "    unit.add_parameter('r', t.REAL, m.INPUT, default=0.1, max=9, optional=True)\n"
    "    unit.add_parameter('i', t.INTEGER, m.INPUT, default=-2)\n"
    "    unit.add_parameter('s', t.STRING, m.INPUT, default='b', options=['a', 'b', '\u00e4\"'])\n"
    "    unit.add_parameter('b', t.BOOLEAN, m.INPUT)\n"
    "    unit.add_parameter('a', t.ARRAY_REAL, m.INPUT, initial=[1, float('nan')], optional=True)\n"
    "    unit.add_parameter('o', t.REAL, m.OUTPUT, default=5)\n"
    "    unit.add_parameter('f', t.STRING, m.INPUT, default='free')\n"
    "def Calculate(unit):\n"
    "    unit.parameters['o'].value = 7.5\n";

}  // namespace orvane::test
