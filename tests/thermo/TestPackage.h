// An ideal mixture of three compounds in vapour and liquid, as a host would offer it: what its material
// objects have in common, what they are asked for, and where they are told to fail.
#pragma once

#include "cobia/Types.h"

#include <map>
#include <string>
#include <vector>

namespace orvane::test {

struct PhaseRow {
    std::string label, state, key, excluded;
};

struct TestPackage {
    std::vector<std::string> compounds = {"Alpha", "Beta", "Gamma"};
    std::vector<std::string> formulae = {"A", "B2", ""};
    std::vector<double> molecularWeights = {20, 40};  // one short: nothing is known of Gamma
    std::vector<PhaseRow> phases = {{"Gas", "Vapor", "", ""}, {"Oil", "LIQUID", "", "gamma"}};

    /// Interfaces that no material object answers for.
    std::vector<COBIA::CapeUUID> missing;
    /// Codes by call, such as "CalcEquilibrium" or "GetSinglePhaseProp enthalpy".
    std::map<std::string, COBIA::CapeResult> failures;
    /// What a call answers in place of the truth.
    std::map<std::string, std::vector<double>> answers;

    /// Every call as the object, the operation and its main argument: "feed GetPresentPhases", "copy
    /// SetOverallProp fraction".
    std::vector<std::string> calls;
    int liveMaterials = 0;

    /// How many calls begin with the text.
    int count(const std::string& beginning) const;
    /// The arguments of the calls of CalcEquilibrium, in order: "pressure+temperature unspecified".
    std::vector<std::string> flashes() const;

    // The model: K, Pa, J/mol.

    double kValue(std::size_t compound, double temperature, double pressure) const;
    double enthalpy(bool vapor, double temperature, const std::vector<double>& x) const;

    /// At a vapour fraction of 0 or 1 the other phase's fractions add up to 1 on the boundary only.
    struct Split {
        double temperature, vaporFraction;
        std::vector<double> vapor, liquid;
    };
    Split atTemperature(const std::vector<double>& z, double temperature, double pressure) const;
    Split atVaporFraction(const std::vector<double>& z, double vaporFraction, double pressure) const;
    Split atEnthalpy(const std::vector<double>& z, double enthalpy, double pressure) const;
    double enthalpy(const Split& split) const;
};

}  // namespace orvane::test
