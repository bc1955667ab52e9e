#include "thermo/PropertyRequest.h"

#include "engine/Conversion.h"
#include "engine/PythonGuard.h"

namespace orvane {
namespace {

PyObject* onlyArgument(PyObject* arguments, PyObject* keywords) {
    // The usual call by position, without the parser.
    if (!keywords && PyTuple_GET_SIZE(arguments) == 1) return PyTuple_GET_ITEM(arguments, 0);
    static const char* const names[] = {"properties", nullptr};
    PyObject* properties = nullptr;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "O:get_property", names, &properties))
        throw PythonErrorSet();
    return properties;
}

PyRef entry(std::span<const double> values) {
    return values.size() == 1 ? toPython(values[0]) : toPython(values);
}

}  // namespace

bool PropertyRequest::addText(PyObject* text) {
    if (!PyUnicode_Check(text)) return false;
    Py_ssize_t size = 0;
    const char* const utf8 = PyUnicode_AsUTF8AndSize(text, &size);  // kept by the string itself
    if (!utf8) {
        PyErr_Clear();
        return false;
    }
    names_.push_back(&PropertyName::of({utf8, static_cast<std::size_t>(size)}));
    return true;
}

PropertyRequest::PropertyRequest(PyObject* arguments, PyObject* keywords) {
    PyObject* const properties = onlyArgument(arguments, keywords);
    bool read = false;
    if (PyUnicode_Check(properties)) {
        single_ = true;
        read = PyUnicode_GET_LENGTH(properties) == 0 || addText(properties);
    } else if (PyList_CheckExact(properties) || PyTuple_CheckExact(properties)) {
        // Adding a text runs no code of the script, so that the list stays as it is.
        const Py_ssize_t size = PySequence_Fast_GET_SIZE(properties);
        Py_ssize_t i = 0;
        while (i < size && addText(PySequence_Fast_GET_ITEM(properties, i))) ++i;
        read = i == size;
    }
    if (!read) {
        names_.clear();
        for (const std::string& text : readStringList("properties", properties).texts)
            names_.push_back(&PropertyName::of(text));
    }
    if (names_.empty()) throw MissingName("property name(s) not specified");
}

PyRef PropertyRequest::entries(const PropertyValues& values) const {
    if (single_) return entry(values[0]);
    PyRef list = PyRef::steal(PyList_New(static_cast<Py_ssize_t>(values.size())));
    for (std::size_t i = 0; i < values.size(); ++i)
        PyList_SET_ITEM(list.get(), static_cast<Py_ssize_t>(i), entry(values[i]).detach());
    return list;
}

PyRef PropertyRequest::flat(const PropertyValues& values) const {
    return single_ ? entry(values.all()) : toPython(values.all());
}

}  // namespace orvane
