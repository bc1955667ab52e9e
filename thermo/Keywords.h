// The keywords of a call whose names are not known beforehand.
#pragma once

#include "cobia/Error.h"
#include "engine/Conversion.h"

#include <string>
#include <utility>

namespace orvane {

/// Calls `take(name, value)` for each keyword, in the order given. Throws StringException for a name that is
/// no text.
template <class Take> void forEachKeyword(PyObject* keywords, Take&& take) {
    if (!keywords) return;
    Py_ssize_t position = 0;
    PyObject *key = nullptr, *value = nullptr;
    while (PyDict_Next(keywords, &position, &key, &value)) {
        const PyRef heldKey = PyRef::share(key), heldValue = PyRef::share(value);
        if (!PyUnicode_Check(key))
            throw COBIA::StringException("keyword list contains argument names that are not a string");
        take(toText(key), value);
    }
}

}  // namespace orvane
