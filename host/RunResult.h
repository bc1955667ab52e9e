// What a run of a case comes to: pure data, for tables and for machines.
// Not here: how it comes about (CaseRun), how it is shown (ResultTables, ResultJson).
#pragma once

#include "host/MaterialObject.h"
#include "host/UnitParameter.h"

#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace orvane::host {

inline constexpr double notKnown = std::numeric_limits<double>::quiet_NaN();

struct StreamPhase {
    std::string label;
    double fraction;                  ///< mol/mol
    std::vector<double> composition;  ///< mole fractions
};

/// A stream at the end of a run. NaN, and no phases, where the unit left something open.
struct StreamResult {
    std::string port;
    bool isFeed = false;
    double temperature = notKnown;    ///< K
    double pressure = notKnown;       ///< Pa
    double flowRate = notKnown;       ///< mol/s
    double vaporFraction = notKnown;  ///< mol/mol
    double enthalpy = notKnown;       ///< J/mol
    double entropy = notKnown;        ///< J/mol/K
    std::vector<double> composition;  ///< mole fractions, empty when not set
    std::vector<StreamPhase> phases;
};

/// What the user should know of the state of a stream: of its flash, and of constants used outside of their
/// range.
std::vector<std::string> streamWarnings(const std::string& port, const MaterialObject& material);

/// What a material object holds now. Energies are left NaN when the package cannot give them.
StreamResult streamResult(std::string port, bool isFeed, const MaterialObject& material);

/// An energy stream at the end of a run. NaN where it has no such value.
struct EnergyResult {
    std::string port;
    bool isFeed = false;
    double work = notKnown;             ///< W
    double temperatureLow = notKnown;   ///< K
    double temperatureHigh = notKnown;  ///< K
    double axisFrequency = notKnown;    ///< 1/s
};

/// An information stream at the end of a run.
struct InformationResult {
    std::string port;
    bool isFeed = false;
    std::string name;         ///< of the parameter
    std::string unit;         ///< "K", or empty
    double value = notKnown;  ///< SI units
};

struct ParameterResult {
    std::string name;
    std::string unit;
    bool isInput = false;
    bool isPower = false;
    ParameterValue value;
};

struct RunResult {
    std::string unitName;
    std::vector<std::string> compounds;
    std::optional<bool> valid;  ///< empty when it did not come to a validation
    std::string message;        ///< why it is not valid
    bool success = false;
    std::string error;   ///< why it failed; empty on success
    std::string output;  ///< what the script printed
    std::vector<std::string> warnings;
    std::vector<ParameterResult> parameters;
    std::vector<StreamResult> streams;  ///< in the order of the ports, as are the next two
    std::vector<EnergyResult> energies;
    std::vector<InformationResult> informations;
    std::vector<std::pair<std::string, std::string>> reports;  ///< those asked for: name, text
    double elapsedSeconds = notKnown;  ///< of one calculation, the mean where there were several
};

}  // namespace orvane::host
