#include "tests/parameters/Script.h"

#include "parameters/Dimension.h"
#include "parameters/ParameterObject.h"

#include <stdexcept>

namespace orvane {
namespace {

struct Interpreter {
    Interpreter() {
        Py_InitializeEx(0);
        check(PyType_Ready(&dimensionType));
        check(PyType_Ready(&parameterType));
        addDimensionConstants();
    }
    ~Interpreter() { Py_FinalizeEx(); }
};

std::string takeError() {
    const PyRef error = PyRef::steal(PyErr_GetRaisedException());
    return std::string(Py_TYPE(error.get())->tp_name) + ": " + describe(error.get());
}

}  // namespace

Script::Script() {
    static Interpreter interpreter;
    names_ = PyRef::steal(PyDict_New());
    put("Dimension", PyRef::share(reinterpret_cast<PyObject*>(&dimensionType)));
}

void Script::put(const char* name, const PyRef& value) {
    check(PyDict_SetItemString(names_.get(), name, value.get()));
}

PyRef Script::eval(const std::string& expression) {
    PyRef result =
        PyRef::stealMaybe(PyRun_String(expression.c_str(), Py_eval_input, names_.get(), names_.get()));
    if (!result) throw std::runtime_error(takeError());
    return result;
}

std::string Script::repr(const std::string& expression) {
    return toText(PyRef::steal(PyObject_Repr(eval(expression).get())).get());
}

std::string Script::error(const std::string& statements) {
    const PyRef result =
        PyRef::stealMaybe(PyRun_String(statements.c_str(), Py_file_input, names_.get(), names_.get()));
    return result ? "" : takeError();
}

}  // namespace orvane
