#include "thermo/FlashCondition.h"

#include "cobia/Error.h"

namespace orvane {

using COBIA::StringException;
using COBIA::StringObject;

namespace {

struct ConditionRow {
    const char* word;  // lower case
    const char* name;
    ConditionSpecification specification;
};

ConditionRow row(const char* word, const char* name, const char* property, const char* basis,
                 const char* phase) {
    return {word, name, {StringObject(property), StringObject(basis), StringObject(phase)}};
}

/// In the order of the codes.
const std::array<ConditionRow, 8>& conditionRows() {
    static const std::array<ConditionRow, 8> rows = {
        row("temperature", "temperature", "temperature", "", "overall"),
        row("pressure", "pressure", "pressure", "", "overall"),
        row("vaporfraction", "vapor_fraction", "phaseFraction", "mole", ""),
        row("enthalpy", "enthalpy", "enthalpy", "mole", "overall"),
        row("enthalpyf", "enthalpyF", "enthalpyF", "mole", "overall"),
        row("entropy", "entropy", "entropy", "mole", "overall"),
        row("entropyf", "entropyF", "entropyF", "mole", "overall"),
        row("volume", "volume", "volume", "mole", "overall"),
    };
    return rows;
}

const ConditionRow& rowOf(ConditionCode code) { return conditionRows().at(static_cast<std::size_t>(code)); }

constexpr std::array<const char*, 3> solutionTypeNames = {"unspecified", "normal", "retrograde"};

}  // namespace

std::optional<ConditionCode> findCondition(std::string_view word) {
    const std::string lower = COBIA::lowerCase(word);
    const auto& rows = conditionRows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (lower == rows[i].word) return static_cast<ConditionCode>(i);
    return std::nullopt;
}

ConditionCode conditionNamed(std::string_view word) {
    if (const auto code = findCondition(word)) return *code;
    throw StringException() << "Unknown flash condition: " << word;
}

const char* conditionName(ConditionCode code) { return rowOf(code).name; }

const ConditionSpecification& specificationOf(ConditionCode code) { return rowOf(code).specification; }

std::optional<SolutionType> findSolutionType(std::string_view text) {
    for (std::size_t i = 0; i < solutionTypeNames.size(); ++i)
        if (text == solutionTypeNames[i]) return static_cast<SolutionType>(i);
    return std::nullopt;
}

const char* solutionTypeName(SolutionType type) {
    const auto code = static_cast<std::size_t>(type);
    if (code >= solutionTypeNames.size()) throw StringException("invalid solution type");
    return solutionTypeNames[code];
}

}  // namespace orvane
