// A material stream as scripts see it. Of a feed it shows the state; of a product it takes what the stream is
// to be.
// Not here: the rules of a product's specification (ProductSpecification), calculating (CapeMaterial), the
// arguments of create_phase_equilibrium (EquilibriumArguments).
#pragma once

#include "thermo/EvaluatedEquilibrium.h"
#include "thermo/MaterialPort.h"

namespace orvane {

class Material {
public:
    /// Of a feed, reads temperature, pressure and composition.
    Material(std::unique_ptr<CapeMaterial> material, bool isFeed);

    // Attributes; SI units, molar. Each throws "not initialized" once the unit has let go of the stream.

    std::string name() const { return material().name(); }
    std::vector<std::string> constantCompoundProperties() const { return shared_->constantProperties(); }
    std::vector<std::string> temperatureDependentCompoundProperties() const {
        return shared_->temperatureDependentProperties();
    }
    std::vector<std::string> phaseProperties() const { return shared_->phaseProperties(); }
    std::vector<std::string> phasePairProperties() const { return shared_->phasePairProperties(); }
    std::vector<std::string> phaseEquilibriumProperties() const {
        return shared_->phaseEquilibriumProperties();
    }
    PyRef compounds() const;
    PyRef phaseTypes() const;
    double flowRate() const { return material().totalFlow(); }
    void setFlowRate(PyObject* flow);
    PyRef phases();
    double t() const;
    void setT(PyObject* temperature);
    double p() const;
    void setP(PyObject* pressure);
    PyRef x() const;
    void setX(PyObject* composition);
    double vaporFraction();
    void setVaporFraction(PyObject* fraction);
    std::string solutionType() const;
    void setSolutionType(PyObject* type);

    // Methods

    PyRef getProperty(PyObject* arguments, PyObject* keywords);
    PyRef createVaporPhase(PyObject* arguments, PyObject* keywords) {
        return createPhase("vapor", arguments, keywords);
    }
    PyRef createLiquidPhase(PyObject* arguments, PyObject* keywords) {
        return createPhase("liquid", arguments, keywords);
    }
    PyRef createSolidPhase(PyObject* arguments, PyObject* keywords) {
        return createPhase("solid", arguments, keywords);
    }
    PyRef createPhasePair(PyObject* arguments, PyObject* keywords);
    PyRef createPhaseEquilibrium(PyObject* arguments, PyObject* keywords);
    void set(PyObject* arguments, PyObject* keywords);
    void copyFrom(PyObject* arguments, PyObject* keywords);

private:
    CapeMaterial& material() const { return shared_->material(); }
    MaterialPort& port() const { return material().port(); }
    /// Throws the message when the stream is a feed.
    void requireProduct(const char* message) const;
    /// Of a product, the value that was specified; throws when there is none.
    double specified(ConditionCode code) const;
    void setCondition(ConditionCode code, PyObject* value, const char* refusal);
    void setKeyword(const std::string& key, PyObject* value);
    /// Of a feed, read from the host on the first need.
    const EvaluatedEquilibrium& evaluated();
    PyRef createPhase(const char* stateOfAggregation, PyObject* arguments, PyObject* keywords);

    bool isFeed_;
    SharedDataRef shared_;
    PyRef collections_;  // a MaterialSharedCollections

    // Of a feed
    double temperature_ = 0, pressure_ = 0;
    PyRef x_;  // a list
    std::optional<EvaluatedEquilibrium> evaluated_;
};

/// The object that a script finds under a material port's name.
PyRef makeMaterialObject(std::unique_ptr<CapeMaterial> material, bool isFeed);

}  // namespace orvane
