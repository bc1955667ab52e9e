// A case: which package, which script, which parameters and which feeds. Pure data, each item with the line
// of the file that it came from, for messages about what only the unit can judge.
// Not here: the TOML form (CaseReader).
#pragma once

#include "host/Path.h"
#include "host/PropertyPackage.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace orvane::host {

/// A wrong case file, or a wrong value given on the command line. The message is ready to show: "FILE:LINE:
/// what".
class CaseError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    CaseError(const std::filesystem::path& file, int line, const std::string& what)
        : std::runtime_error(textOf(file) + ":" + std::to_string(line) + ": " + what) {}
};

/// A value as the command line gives it, to be understood by the type of the parameter.
struct RawText {
    std::string text;
};

using CaseValue = std::variant<std::string, bool, std::int64_t, double, std::vector<double>, RawText>;

struct CaseParameter {
    std::string name;
    CaseValue value;
    std::string place;  ///< where it was given: "FILE:LINE", or "--set"
};

/// The state and amount of a stream.
struct CaseState {
    Condition first;
    Condition second;
    double flowRate = 0;              ///< mol/s
    std::vector<double> composition;  ///< mole fractions in the order of the package's compounds, sum 1
};

struct CaseStream {
    std::string port;
    int line = 0;
    std::optional<CaseState> state;  ///< empty for an entry that says nothing, as a product's may be
};

/// An energy stream; what is not given is empty.
struct CaseEnergy {
    std::string port;
    int line = 0;
    std::optional<double> work;                             ///< W
    std::optional<double> temperatureLow, temperatureHigh;  ///< K, both or none
    std::optional<double> axisFrequency;                    ///< 1/s

    bool isGiven() const { return work || temperatureLow || temperatureHigh || axisFrequency; }
};

/// An information stream, with one parameter. A name or dimension that is not given is the one that the port looks for.
struct CaseInformation {
    std::string port;
    int line = 0;
    std::optional<double> value;
    std::optional<std::string> name;
    std::optional<std::vector<double>> dimensionality;
};

struct CaseFile {
    std::filesystem::path file;
    std::shared_ptr<const PropertyPackage> package;
    std::optional<std::string> script;  ///< its text; without it the unit keeps its built-in one
    std::optional<std::string> unitName;
    std::vector<CaseParameter> parameters;
    std::vector<CaseStream> streams;
    std::vector<CaseEnergy> energies;
    std::vector<CaseInformation> informations;
};

}  // namespace orvane::host
