// Values between Python and C++, and the texts that name an argument which does not convert.
// Threads: with the interpreter lock held.
#pragma once

#include "engine/PyRef.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// To Python: each gives a new object, or throws PythonErrorSet.

PyRef toPython(double value);
PyRef toPython(int value);
PyRef toPython(bool value);
/// Ill-formed UTF-8 becomes U+FFFD.
PyRef toPython(std::string_view utf8);
PyRef toPython(std::span<const double> values);
PyRef toPython(const std::vector<double>& values);
PyRef toPython(const std::vector<std::string>& texts);
inline PyRef toPython(const char* utf8) { return toPython(std::string_view(utf8)); }
inline PyRef toPython(const std::string& utf8) { return toPython(std::string_view(utf8)); }
inline PyRef toPython(PyRef object) { return object; }

// From Python: a value of another type throws PythonErrorSet with Python's own TypeError.

double toDouble(PyObject* value);
bool toBool(PyObject* value);
/// A str; lone surrogates become U+FFFD.
std::string toText(PyObject* text);
/// str(value); empty, with the error cleared, when that fails.
std::string describe(PyObject* value);

/// One string, or the strings of any iterable.
struct StringList {
    std::vector<std::string> texts;
    bool single = false;
};

/// Throws StringException that names the argument between single quotes.
StringList readStringList(std::string_view argument, PyObject* value);

/// Any iterable of numbers. Throws StringException that names the argument between single quotes.
std::vector<double> readRealList(std::string_view argument, PyObject* value);

}  // namespace orvane
