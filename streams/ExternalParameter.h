// The scripting type capeopen_unit.ExternalParameter: the parameter on an information port, as a script reads it, and
// writes it where the port is a product.
// Threads: with the interpreter lock held.
#pragma once

#include "engine/PyRef.h"
#include "streams/CapeExternalParameter.h"

#include <memory>
#include <string>

namespace orvane {

class ExternalParameter {
public:
    ExternalParameter(std::unique_ptr<CapeExternalParameter> parameter, bool isFeed) noexcept
        : parameter_(std::move(parameter)), isFeed_(isFeed) {}

    // The attributes of the scripting type.

    std::string name() const { return parameter_->name(); }
    double value() const { return parameter_->value(); }
    void setValue(PyObject* value);

private:
    std::unique_ptr<CapeExternalParameter> parameter_;
    bool isFeed_;
};

extern PyTypeObject externalParameterType;

/// A new object of the scripting type, as scripts find it in unit.ports.
PyRef makeExternalParameter(std::unique_ptr<CapeExternalParameter> parameter, bool isFeed);

}  // namespace orvane
