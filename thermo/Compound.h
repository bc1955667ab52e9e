// A compound of a property package, as scripts see it.
#pragma once

#include "thermo/MaterialSharedData.h"

namespace orvane {

class Compound {
public:
    Compound(SharedDataRef shared, std::size_t index);

    std::string name() const;
    std::vector<std::string> constantProperties() const { return shared_->constantProperties(); }
    std::vector<std::string> temperatureDependentProperties() const {
        return shared_->temperatureDependentProperties();
    }
    std::string formula() const;
    std::string casRegistryNumber() const;
    double molecularWeight() const { return molecularWeight_; }
    int index() const { return static_cast<int>(index_); }

    PyRef getConstant(PyObject* arguments, PyObject* keywords);
    PyRef getTemperatureDependentProperty(PyObject* arguments, PyObject* keywords);

private:
    /// The compound's entry in one of the package's lists; throws "No data" when there is none.
    std::string entry(const std::vector<std::string> CompoundList::*list) const;

    SharedDataRef shared_;
    std::size_t index_;
    double molecularWeight_;  // relative; NaN: unknown
};

}  // namespace orvane
