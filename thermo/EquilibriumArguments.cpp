#include "thermo/EquilibriumArguments.h"

#include "thermo/Composition.h"
#include "thermo/Keywords.h"

#include <algorithm>
#include <cmath>

namespace orvane {

using COBIA::StringException;

namespace {

/// What was given, before it is looked at as a whole.
struct Given {
    PyRef x;
    std::vector<FlashCondition> conditions;
    std::optional<std::string> solutionType;

    void setX(PyObject* value) {
        if (x) throw StringException("too many specifications of x");
        x = PyRef::share(value);
    }
    void addCondition(ConditionCode code, PyObject* value) {
        if (conditions.size() == 2) throw StringException("too many flash conditions specified");
        conditions.push_back({code, toDouble(value)});
    }
    void setSolutionType(PyObject* value) {
        if (solutionType) throw StringException("too many solution types specified");
        if (!PyUnicode_Check(value)) throw StringException("solution type must be a string value");
        solutionType = toText(value);
    }
};

[[noreturn]] void refuseKeyword(const std::string& key) {
    throw StringException() << "unknown/invalid argument '" << key << "'";
}

ConditionCode conditionArgument(PyObject* name, int number) {
    if (!PyUnicode_Check(name))
        throw StringException() << "flash condition " << number << " must be a string value";
    return conditionNamed(toText(name));
}

/// x, condition 1, value 1, condition 2, value 2, and perhaps the solution type, which may come as a keyword
/// instead.
Given readPositions(PyObject* arguments, PyObject* keywords) {
    const Py_ssize_t count = PyTuple_GET_SIZE(arguments);
    if (count != 5 && count != 6) {
        throw StringException()
            << "create_phase_equilibrium with positional arguments requires 5 or 6 positional "
               "arguments; "
            << count << " where specified";
    }
    const auto argument = [&](Py_ssize_t i) { return PyTuple_GET_ITEM(arguments, i); };
    Given given;
    given.setX(argument(0));
    const ConditionCode first = conditionArgument(argument(1), 1);
    const ConditionCode second = conditionArgument(argument(3), 2);
    given.addCondition(first, argument(2));
    given.addCondition(second, argument(4));
    if (count == 6) given.setSolutionType(argument(5));
    forEachKeyword(keywords, [&](const std::string& key, PyObject* value) {
        if (key != "solution_type") refuseKeyword(key);
        given.setSolutionType(value);
    });
    return given;
}

Given readKeywords(PyObject* keywords) {
    Given given;
    forEachKeyword(keywords, [&](const std::string& key, PyObject* value) {
        if (const auto code = findCondition(key))
            given.addCondition(*code, value);
        else if (key == "t")
            given.addCondition(ConditionCode::temperature, value);
        else if (key == "p")
            given.addCondition(ConditionCode::pressure, value);
        else if (key == "vapor_fraction")
            given.addCondition(ConditionCode::vaporFraction, value);
        else if (key == "x")
            given.setX(value);
        else if (key == "solution_type")
            given.setSolutionType(value);
        // An equilibrium has no flow; the keyword is taken so that the arguments of set can be passed on as
        // they are.
        else if (key == "flow_rate")
            toDouble(value);
        else
            refuseKeyword(key);
    });
    if (!given.x) throw StringException("composition not specified");
    if (given.conditions.size() < 2) throw StringException("less than 2 flash conditions specified");
    return given;
}

SolutionType checkSolutionType(const std::string& text, std::span<const FlashCondition> conditions) {
    const bool selectable = std::ranges::any_of(conditions, [](const FlashCondition& condition) {
        return condition.code == ConditionCode::vaporFraction;
    });
    const auto type = findSolutionType(text);
    if (!type || (*type != SolutionType::unspecified && !selectable))
        throw StringException() << "Invalid solution_type '" << text << "' for selected flash conditions";
    return *type;
}

}  // namespace

FlashSpecification readEquilibriumArguments(PyObject* arguments, PyObject* keywords, std::size_t compounds) {
    const Given given =
        PyTuple_GET_SIZE(arguments) > 0 ? readPositions(arguments, keywords) : readKeywords(keywords);
    FlashSpecification specification{.x = readComposition(given.x.get(), compounds),
                                     .conditions = {given.conditions[0], given.conditions[1]}};
    for (const FlashCondition& condition : given.conditions) {
        if (std::isnan(condition.value)) {
            throw StringException() << "Value for " << conditionName(condition.code)
                                    << " not specified (not a number)";
        }
    }
    if (given.solutionType)
        specification.solutionType = checkSolutionType(*given.solutionType, given.conditions);
    return specification;
}

}  // namespace orvane
