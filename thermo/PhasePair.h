// Two phases, for the properties that belong to both, as scripts see them.
#pragma once

#include "thermo/Phase.h"

namespace orvane {

class PhasePair {
public:
    PhasePair(PyRef first, PyRef second) : first_(std::move(first)), second_(std::move(second)) {}

    PyRef phase1() const { return first_; }
    PyRef phase2() const { return second_; }
    std::vector<std::string> properties() const;
    PyRef getProperty(PyObject* arguments, PyObject* keywords);

private:
    Phase& first() const;
    Phase& second() const;

    PyRef first_, second_;  // Phase objects
};

/// A new PhasePair. Throws StringException unless both are phases, different ones, of the same material.
PyRef makePhasePair(PyObject* first, PyObject* second);

}  // namespace orvane
