// The conditions of a flash, two of which determine a phase equilibrium: the words that scripts use for them,
// and what the host is told. And the kind of solution that is wanted where there is more than one.
// Not here: the rules by which a product port takes conditions (ProductSpecification).
#pragma once

#include "cobia/Data.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// Values are in K, Pa, mol/mol, J/mol, J/mol/K and m3/mol.
enum class ConditionCode {
    temperature = 0,
    pressure = 1,
    vaporFraction = 2,
    enthalpy = 3,
    enthalpyF = 4,
    entropy = 5,
    entropyF = 6,
    volume = 7,
};

struct FlashCondition {
    ConditionCode code;
    double value;  // NaN: not specified
};

/// The code of a script's word, in any letter case; none when the word is no condition.
std::optional<ConditionCode> findCondition(std::string_view word);

/// As findCondition, but throws StringException that names a word which is no condition.
ConditionCode conditionNamed(std::string_view word);

/// How messages name a condition.
const char* conditionName(ConditionCode code);

/// How the host is told: property, basis and phase. The vapour fraction names no phase, since its label is
/// the package's.
struct ConditionSpecification {
    COBIA::StringObject property, basis, phase;
};
const ConditionSpecification& specificationOf(ConditionCode code);

enum class SolutionType { unspecified = 0, normal = 1, retrograde = 2 };

/// None when the text is not one of the three words.
std::optional<SolutionType> findSolutionType(std::string_view text);

/// "unspecified", "normal" or "retrograde". Throws StringException for any other code.
const char* solutionTypeName(SolutionType type);

/// What a flash is to find.
struct FlashSpecification {
    std::vector<double> x;  // overall mole fractions, in the package's order of compounds
    std::array<FlashCondition, 2> conditions;
    SolutionType solutionType = SolutionType::unspecified;
};

}  // namespace orvane
