// The access to the material object that the host has connected to a port: what it is made of, the properties
// and the equilibria that it calculates. Nothing else of the unit calls the host's thermodynamics, and
// nothing here knows Python.
// SI units; amounts are molar. Every operation throws cape_open_error with the host's own error when a call
// on it fails, and StringException with a message of ours.
// Threads: the calculating thread only; what takes property names needs the interpreter lock, which guards
// their table.
#pragma once

#include "streams/Port.h"
#include "thermo/CompoundList.h"
#include "thermo/FlashCondition.h"
#include "thermo/PhaseList.h"
#include "thermo/PropertyName.h"
#include "thermo/PropertyValues.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace orvane {

class MaterialPort;

/// A phase, and the state at which it is to be looked at. NaN: not specified.
struct PhaseState {
    int phase;  // in the list of phases
    double temperature, pressure;
    std::span<const double> x;
};

/// A phase of an equilibrium, as the host gives it.
struct EquilibriumPhase {
    int phase;
    double fraction, temperature, pressure;
    std::vector<double> x;
};

struct Equilibrium {
    std::vector<EquilibriumPhase> phases;
    double vaporFraction;  // 0 when no vapour is present
};

struct OverallState {
    double temperature, pressure;
    std::vector<double> x;
};

class CapeMaterial {
public:
    virtual ~CapeMaterial() = default;

    virtual std::string name() = 0;
    /// Throws "No data" when the package has none.
    virtual COBIA::ValueObject::Content compoundConstant(const std::string& constant,
                                                         std::size_t compound) = 0;
    /// One value for each property.
    virtual std::vector<double> temperatureDependentProperties(std::span<const std::string> properties,
                                                               std::size_t compound, double temperature) = 0;
    /// `values` gets one entry for each name.
    virtual void phaseProperties(const PhaseState& state, PropertyNames names, PropertyValues& values) = 0;
    /// The same for a phase of an equilibrium, whose values are to be added up: throws unless each name has
    /// values.
    virtual void equilibriumPhaseProperties(const PhaseState& state, PropertyNames names,
                                            PropertyValues& values) = 0;
    /// The properties of two phases together.
    virtual void phasePairProperties(const PhaseState& first, const PhaseState& second, PropertyNames names,
                                     PropertyValues& values) = 0;
    /// Read once.
    virtual std::size_t compoundCount() = 0;
    /// Read once.
    virtual const PhaseList& phases() = 0;
    virtual std::vector<std::string> constantProperties() = 0;
    virtual std::vector<std::string> temperatureDependentPropertyNames() = 0;
    virtual std::vector<std::string> phasePropertyNames() = 0;
    virtual std::vector<std::string> phasePairPropertyNames() = 0;
    /// Calculates an equilibrium and reads it. The object of a feed is not touched: a scratch copy of it is.
    virtual Equilibrium flash(const FlashSpecification& specification) = 0;
    /// The equilibrium on the port's own object.
    virtual Equilibrium equilibrium() = 0;
    /// Temperature, pressure and composition of the port's own object.
    virtual OverallState overallState() = 0;
    /// mol/s, of the port's own object.
    virtual double totalFlow() = 0;
    /// Writes the flow of a product to the host's object [mol/s], and marks it as specified once the host has
    /// taken it. Throws for a feed, for NaN and for a negative value.
    virtual void setTotalFlow(double flow) = 0;
    /// Brings the port's object to what the port's specification asks for; without a composition, or with a
    /// number of conditions other than two, nothing is calculated.
    virtual void flashProduct() = 0;
    /// Read once.
    virtual const CompoundList& compounds() = 0;

    /// True once the unit has made the wrapper let go of the host's objects; from then on nothing works.
    virtual bool isReleased() const noexcept = 0;
    /// The port; throws "not initialized" after the release.
    virtual MaterialPort& port() = 0;
};

/// A wrapper of the object that is connected to the port. Throws StringException for a version other than 1.2
/// and for an object that is no material.
std::unique_ptr<CapeMaterial> makeMaterial(CapeOpenVersion version, MaterialPort& port, PortOwner& owner,
                                           COBIA::ICapeInterface* object);

}  // namespace orvane
