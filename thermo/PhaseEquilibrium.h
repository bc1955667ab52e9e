// The phases at equilibrium for two conditions, as scripts see them. The flash runs when something is first
// read.
#pragma once

#include "thermo/EvaluatedEquilibrium.h"

namespace orvane {

class PhaseEquilibrium {
public:
    PhaseEquilibrium(SharedDataRef shared, FlashSpecification specification)
        : shared_(std::move(shared)), specification_(std::move(specification)) {}

    PyRef phases() { return evaluated().phases(); }
    /// A list: the same one each time.
    PyRef x();
    double t() { return evaluated().temperature(); }
    double p() { return evaluated().pressure(); }
    double vaporFraction() { return evaluated().vaporFraction(); }
    std::vector<std::string> properties() const { return shared_->phaseProperties(); }
    PyRef getProperty(PyObject* arguments, PyObject* keywords);

    /// A flash that failed is tried again at the next call.
    const EvaluatedEquilibrium& evaluated();

private:
    SharedDataRef shared_;
    FlashSpecification specification_;
    std::optional<EvaluatedEquilibrium> evaluated_;
    PyRef x_;  // a list, once it is needed
};

}  // namespace orvane
