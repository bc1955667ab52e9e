#include "engine/ScriptSource.h"

#include "engine/ScriptEngine.h"

namespace orvane {
namespace {

/// What the interpreter calls code that was compiled from a text.
constexpr const char* sourceName = "<string>";

}  // namespace

PyRef runText(const std::string& text, int start, PyObject* names) {
    // The interpreter would take the first of them for the end.
    if (text.find('\0') != std::string::npos) {
        PyErr_SetString(PyExc_SyntaxError, "source code string cannot contain null bytes");
        return {};
    }
    PyCompilerFlags flags = {.cf_flags = 0, .cf_feature_version = 14};
    return PyRef::stealMaybe(PyRun_StringFlags(text.c_str(), start, names, names, &flags));
}

ShownSource::ShownSource(const PyRef& source) {
    if (!source) return;
    PyObject* cache = scriptEngine().lineCache();
    PyObject* previous = nullptr;
    check(PyDict_GetItemStringRef(cache, sourceName, &previous));
    previous_ = PyRef::stealMaybe(previous);
    check(PyDict_SetItemString(cache, sourceName, source.get()));
    replaced_ = true;
}

ShownSource::~ShownSource() {
    if (!replaced_) return;
    PyObject* cache = scriptEngine().lineCache();
    const int status = previous_ ? PyDict_SetItemString(cache, sourceName, previous_.get())
                                 : PyDict_PopString(cache, sourceName, nullptr);
    if (status < 0) PyErr_Clear();
}

PyRef sourceOf(const std::string& text) {
    const PyRef decoded =
        PyRef::steal(PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "replace"));
    const PyRef lines = PyRef::steal(PyObject_CallMethod(decoded.get(), "splitlines", "O", Py_True));
    // An entry without a modification time is one that linecache does not check against a file.
    return PyRef::steal(
        Py_BuildValue("nOOs", PyList_GET_SIZE(lines.get()), Py_None, lines.get(), sourceName));
}

}  // namespace orvane
