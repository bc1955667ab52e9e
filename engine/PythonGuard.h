// The border between our exceptions and Python's: the one place that turns the former into the latter.
#pragma once

#include "engine/PyRef.h"

#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace orvane {

/// An argument of the wrong type: TypeError.
class ArgumentTypeError : public std::runtime_error {
    using runtime_error::runtime_error;
};

/// A value that is refused: ValueError.
class RefusedValue : public std::runtime_error {
    using runtime_error::runtime_error;
};

/// A name that is missing: AttributeError.
class MissingName : public std::runtime_error {
    using runtime_error::runtime_error;
};

/// Runs the body of a function that the interpreter calls. Every other exception, those of the host included, becomes
/// RuntimeError with its text. A body that gives an object gives null on failure, one that gives a status -1.
template <class Body> auto pythonGuard(Body&& body) noexcept -> decltype(body()) {
    try {
        return body();
    }
    catch (const PythonErrorSet&) {
    }
    catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    }
    catch (const ArgumentTypeError& error) {
        PyErr_SetString(PyExc_TypeError, error.what());
    }
    catch (const RefusedValue& error) {
        PyErr_SetString(PyExc_ValueError, error.what());
    }
    catch (const MissingName& error) {
        PyErr_SetString(PyExc_AttributeError, error.what());
    }
    catch (const std::exception& error) {
        PyErr_SetString(PyExc_RuntimeError, error.what());
    }
    catch (...) {
        PyErr_SetString(PyExc_SystemError, "unknown failure");
    }
    if constexpr (std::is_pointer_v<decltype(body())>)
        return nullptr;
    else
        return -1;
}

}  // namespace orvane
