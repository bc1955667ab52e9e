#include "engine/OutputRedirector.h"

namespace orvane {
namespace {

PyObject* create(PyTypeObject* type, PyObject*, PyObject*) noexcept {
    return pythonGuard([&] { return createObject<OutputRedirector>(*type).detach(); });
}

PyObject* write(PyObject* self, PyObject* arguments) noexcept {
    return invokeMethod<&OutputRedirector::write>(self, arguments);
}

PyMethodDef methods[] = {
    {"write", write, METH_VARARGS, nullptr},
    {},
};

}  // namespace

PyTypeObject outputRedirectorType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.OutputRedirector",
    .tp_basicsize = sizeof(PyObjectOf<OutputRedirector>),
    .tp_dealloc = destroy<OutputRedirector>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Captures standard output for unit operation actions.",
    .tp_methods = methods,
    .tp_new = create,
};

PyRef OutputRedirector::write(PyObject* arguments) {
    PyObject* written = nullptr;
    if (!PyArg_ParseTuple(arguments, "U:write", &written)) throw PythonErrorSet();
    text += toText(written);
    return PyRef::share(Py_None);
}

}  // namespace orvane
