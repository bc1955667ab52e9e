#include "engine/Conversion.h"

#include "cobia/Error.h"
#include "cobia/Text.h"

namespace orvane {

using COBIA::StringException;

PyRef toPython(double value) { return PyRef::steal(PyFloat_FromDouble(value)); }

PyRef toPython(int value) { return PyRef::steal(PyLong_FromLong(value)); }

PyRef toPython(bool value) { return PyRef::share(value ? Py_True : Py_False); }

PyRef toPython(std::string_view utf8) {
    return PyRef::steal(PyUnicode_DecodeUTF8(utf8.data(), static_cast<Py_ssize_t>(utf8.size()), "replace"));
}

PyRef toPython(std::span<const double> values) {
    PyRef list = PyRef::steal(PyList_New(static_cast<Py_ssize_t>(values.size())));
    for (std::size_t i = 0; i < values.size(); ++i)
        PyList_SET_ITEM(list.get(), static_cast<Py_ssize_t>(i), toPython(values[i]).detach());
    return list;
}

PyRef toPython(const std::vector<double>& values) { return toPython(std::span(values)); }

PyRef toPython(const std::vector<std::string>& texts) {
    PyRef list = PyRef::steal(PyList_New(static_cast<Py_ssize_t>(texts.size())));
    for (std::size_t i = 0; i < texts.size(); ++i)
        PyList_SET_ITEM(list.get(), static_cast<Py_ssize_t>(i), toPython(texts[i]).detach());
    return list;
}

double toDouble(PyObject* value) {
    if (PyFloat_CheckExact(value)) return PyFloat_AS_DOUBLE(value);
    const double result = PyFloat_AsDouble(value);
    if (result == -1.0 && PyErr_Occurred()) throw PythonErrorSet();
    return result;
}

bool toBool(PyObject* value) {
    const int truth = PyObject_IsTrue(value);
    check(truth);
    return truth != 0;
}

std::string toText(PyObject* text) {
    if (!PyUnicode_Check(text)) {
        PyErr_Format(PyExc_TypeError, "expected a string, not %.200s", Py_TYPE(text)->tp_name);
        throw PythonErrorSet();
    }
    Py_ssize_t size = 0;
    if (const char* utf8 = PyUnicode_AsUTF8AndSize(text, &size))
        return std::string(utf8, static_cast<std::size_t>(size));
    // A lone surrogate has no UTF-8; pass it as its three bytes, which then count as ill-formed.
    PyErr_Clear();
    const PyRef bytes = PyRef::steal(PyUnicode_AsEncodedString(text, "utf-8", "surrogatepass"));
    const std::string raw(PyBytes_AS_STRING(bytes.get()),
                          static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.get())));
    return COBIA::wellFormed(raw);
}

std::string describe(PyObject* value) {
    const PyRef text = PyRef::stealMaybe(PyObject_Str(value));
    if (!text) {
        PyErr_Clear();
        return {};
    }
    return toText(text.get());
}

namespace {

/// Calls `take` with each element. False, with the error cleared, when the value cannot be iterated at all; throws
/// PythonErrorSet when `take` does or the iteration itself fails.
template <class Take> bool forEach(PyObject* value, Take&& take) {
    const PyRef iterator = PyRef::stealMaybe(PyObject_GetIter(value));
    if (!iterator) {
        PyErr_Clear();
        return false;
    }
    while (const PyRef element = PyRef::stealMaybe(PyIter_Next(iterator.get()))) take(element.get());
    if (PyErr_Occurred()) throw PythonErrorSet();
    return true;
}

[[noreturn]] void refuse(std::string_view argument, const char* text) {
    PyErr_Clear();
    throw StringException() << "'" << argument << text;
}

}  // namespace

StringList readStringList(std::string_view argument, PyObject* value) {
    if (PyUnicode_Check(value)) return {{toText(value)}, true};
    StringList result;
    bool iterable = false;
    try {
        iterable = forEach(value, [&](PyObject* element) { result.texts.push_back(toText(element)); });
    }
    catch (const PythonErrorSet&) {
        refuse(argument,
               "' must be either string or collection of strings; given argument is a collection but not "
               "all elements are strings");
    }
    if (!iterable) refuse(argument, "' must be either string or collection of strings");
    return result;
}

std::vector<double> readRealList(std::string_view argument, PyObject* value) {
    std::vector<double> result;
    bool iterable = false;
    try {
        iterable = forEach(value, [&](PyObject* element) { result.push_back(toDouble(element)); });
    }
    catch (const PythonErrorSet&) {
        refuse(argument,
               "' must be iterable of real items; given argument is iterable but not all elements are real "
               "numbers");
    }
    if (!iterable) refuse(argument, "' must be iterable of real items");
    return result;
}

}  // namespace orvane
