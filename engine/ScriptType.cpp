#include "engine/ScriptType.h"

namespace orvane {

int refuseWrite(PyObject*, PyObject*, void* name) noexcept {
    if (name)
        PyErr_Format(PyExc_RuntimeError, "The property '%s' is read-only", static_cast<const char*>(name));
    else
        PyErr_SetString(PyExc_RuntimeError, "The property is read-only");
    return -1;
}

void addConstant(PyTypeObject& type, const char* name, const PyRef& value) {
    const PyRef dictionary = PyRef::steal(PyType_GetDict(&type));
    check(PyDict_SetItemString(dictionary.get(), name, value.get()));
    PyType_Modified(&type);
}

}  // namespace orvane
