// The object `unit` that a script receives: its dictionaries, and the methods that declare ports, parameters, reports and
// images.
// Not here: the rules of each method's arguments (PortArguments, ParameterArguments), those of registration (the unit).
#pragma once

#include "engine/ScriptedUnit.h"
#include "engine/ScriptType.h"

namespace orvane {

class UnitObject {
public:
    explicit UnitObject(ScriptedUnit& owner);

    void addPort(PyObject* arguments, PyObject* keywords);
    void addParameter(PyObject* arguments, PyObject* keywords);
    void addReport(PyObject* arguments);
    void addImage(PyObject* arguments, PyObject* keywords);
    void defineFrom(PyObject* module);
    bool allowInconsistentCompounds() const;
    void setAllowInconsistentCompounds(PyObject* allow);

    /// The unit operation goes away; a script that kept the object gets an error.
    void disown() noexcept { owner_ = nullptr; }

    PyRef ports, parameters, reports, validationData, privateData, volatileData;

private:
    ScriptedUnit& owner() const;

    ScriptedUnit* owner_;
};

extern PyTypeObject unitType;

}  // namespace orvane
