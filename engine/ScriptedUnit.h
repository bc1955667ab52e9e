// What the engine needs from a unit operation: where declarations go, what a script call is given, and who hears of
// warnings. The unit operation implements it; nothing else of the unit is known here.
// Threads: with the engine lock and the interpreter lock held.
#pragma once

#include "engine/PyRef.h"

#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace orvane {

/// The codes of unit.PortType, in the order of the CAPE-OPEN port kinds.
enum class PortTypeCode { material = 0, energy = 1, information = 2 };

/// The codes of unit.ParameterType; not those of CAPE-OPEN.
enum class ParameterTypeCode { real = 0, integer = 1, string = 2, boolean = 3, arrayReal = 4 };

/// What an energy port carries besides work.
enum class EnergyKind { plain = 0, thermal = 1, axle = 2 };

struct PortDeclaration {
    std::string name;
    PortTypeCode type = PortTypeCode::material;
    bool isFeed = false;
    bool optional = false;
    EnergyKind energyKind = EnergyKind::plain;  // energy ports
    std::string dataName;                       // information ports: the preferred parameter
    std::vector<double> dimensionality;         // information ports
};

struct RealValues {
    double standard, initial, min, max;  // NaN: not specified, no bound
};
struct IntegerValues {
    int standard, initial, min, max;
};
struct StringValues {
    std::string standard, initial;  // empty: not specified
    std::vector<std::string> options;
};
struct BooleanValues {
    bool standard, initial;
};
struct RealArrayValues {
    double elementStandard;  // NaN: not specified
    std::vector<double> initial;
    double min, max;  // of an element; NaN: no bound
    int length;       // below 1: any
};

/// `standard` is what scripts call the default.
struct ParameterDeclaration {
    std::string name;
    std::string description;
    bool isInput = true;
    bool optional = false;
    std::vector<double> dimensionality;  // real ones
    std::variant<RealValues, IntegerValues, StringValues, BooleanValues, RealArrayValues> values;
};

class ScriptedUnit {
public:
    virtual ~ScriptedUnit() = default;

    // Declarations. Each checks the rules of registration first and throws StringException with the broken one; a
    // declaration that fails leaves nothing behind.

    virtual void addPort(const PortDeclaration& port) = 0;
    virtual void addParameter(const ParameterDeclaration& parameter) = 0;
    virtual void addReport(const std::string& name) = 0;
    virtual void addImage(const std::string& name, const std::string& function) = 0;
    /// The module's functions stand for the script's from now on.
    virtual void defineFrom(PyRef module) = 0;
    virtual void setAllowInconsistentCompounds(bool allow) = 0;
    virtual bool allowsInconsistentCompounds() const = 0;
    /// The exponents of a Dimension object; null when the object is none.
    virtual const std::vector<double>* exponents(PyObject* dimension) const = 0;

    // Calls.

    /// Where a script function is looked up; empty before the first load.
    virtual PyRef functionModule() const = 0;
    /// The object `unit` of the script.
    virtual PyRef unitObject() const = 0;
    /// The arguments of Configure, Validate and Calculate: a tuple of unitObject().
    virtual PyRef callArguments() const = 0;

    /// Each connected port adds its object under its name.
    virtual void fillPorts(PyObject* dictionary) = 0;
    virtual void fillParameters(PyObject* dictionary) = 0;
    virtual std::vector<std::string> declaredReports() const = 0;
    /// Takes what a calculation printed into its reports, by report name; earlier texts go.
    virtual void setReports(std::vector<std::pair<std::string, std::string>> reports) = 0;
    /// A call starts; within another one, when the host calls back into the unit on the same thread.
    virtual void beginCall() = 0;
    /// The call that began last ends: every hold on objects of the host that came up since is dropped.
    virtual void endCall() noexcept = 0;

    /// A warning for the user: into the captured output, and to the host.
    virtual void warn(const std::string& text) = 0;
};

}  // namespace orvane
