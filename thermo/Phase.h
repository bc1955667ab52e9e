// A mixture in one phase at a temperature, pressure and composition, as scripts see it. Alone, or part of an
// equilibrium.
#pragma once

#include "thermo/PhaseType.h"

#include <limits>

namespace orvane {

class Phase {
public:
    /// At no state yet.
    explicit Phase(PhaseType type) : type_(std::move(type)) {}
    /// As it is part of an equilibrium.
    Phase(PhaseType type, const EquilibriumPhase& phase);

    double t() const { return t_; }
    void setT(PyObject* temperature);
    double p() const { return p_; }
    void setP(PyObject* pressure);
    /// What the script gave, or None.
    PyRef x() const;
    void setX(PyObject* composition);
    double phaseFraction() const { return phaseFraction_; }
    void setPhaseFraction(PyObject* fraction);

    int index() const { return type_.index(); }
    std::string name() const { return type_.name(); }
    std::string stateOfAggregation() const { return type_.stateOfAggregation(); }
    std::string keyCompound() const { return type_.keyCompound(); }
    std::string excludedCompound() const { return type_.excludedCompound(); }
    std::vector<std::string> properties() const { return type_.properties(); }

    /// t, p and x, each optional. A value that does not convert leaves all as they were.
    void set(PyObject* arguments, PyObject* keywords);
    PyRef getProperty(PyObject* arguments, PyObject* keywords);

    const SharedDataRef& shared() const { return type_.shared(); }
    /// The composition, checked. Throws StringException.
    std::vector<double> composition() const;
    PhaseState state(std::span<const double> x) const { return {index(), t_, p_, x}; }

private:
    static constexpr double unset = std::numeric_limits<double>::quiet_NaN();

    PhaseType type_;
    double t_ = unset;              // K
    double p_ = unset;              // Pa
    double phaseFraction_ = unset;  // mol/mol
    PyRef x_;                       // whatever the script gave, checked when it is used; empty: not given
};

}  // namespace orvane
