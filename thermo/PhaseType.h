// A phase that a property package defines, as scripts see it.
#pragma once

#include "thermo/MaterialSharedData.h"

namespace orvane {

class PhaseType {
public:
    PhaseType(SharedDataRef shared, int index) : shared_(std::move(shared)), index_(index) {}

    int index() const { return index_; }
    std::string name() const { return description().label; }
    /// "vapor", "liquid" or "solid"; empty: unknown.
    std::string stateOfAggregation() const { return description().stateOfAggregation; }
    /// Identifiers of compounds; empty: none.
    std::string keyCompound() const { return compound(description().keyCompound); }
    std::string excludedCompound() const { return compound(description().excludedCompound); }
    std::vector<std::string> properties() const { return shared_->phaseProperties(); }

    PyRef createPhase(PyObject* arguments, PyObject* keywords) const;

    const SharedDataRef& shared() const { return shared_; }

private:
    const PhaseDescription& description() const { return shared_->material().phases()[index_]; }
    std::string compound(int index) const;

    SharedDataRef shared_;
    int index_;
};

}  // namespace orvane
