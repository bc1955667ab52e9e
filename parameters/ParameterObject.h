// The scripting type capeopen_unit.Parameter: a parameter as a script reads it, and writes it where it is an output.
// The object holds a counted reference, so a script that keeps one beyond the call keeps the parameter with it.
// Threads: with the interpreter lock held.
#pragma once

#include "parameters/Parameter.h"

namespace orvane {

class ParameterObject {
public:
    /// A null parameter makes a detached object, whose attributes all raise.
    explicit ParameterObject(COBIA::Ref<Parameter> parameter) noexcept : parameter_(std::move(parameter)) {}

    // The attributes of the scripting type.

    const std::string& name() const { return parameter().nameText(); }
    const std::string& description() const { return parameter().descriptionText(); }
    bool isInput() const { return parameter().isInput(); }
    int typeId() const { return static_cast<int>(parameter().typeCode()); }
    const char* typeName() const { return parameter().typeName(); }
    PyRef value() const { return parameter().scriptValue(); }
    void setValue(PyObject* value);

    void detach() noexcept { parameter_ = nullptr; }

private:
    Parameter& parameter() const;

    COBIA::Ref<Parameter> parameter_;
};

extern PyTypeObject parameterType;

/// A new object of the scripting type, as scripts find it in unit.parameters.
PyRef makeParameterObject(COBIA::Ref<Parameter> parameter);

}  // namespace orvane
