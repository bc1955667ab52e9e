// The handle that holds every reference to a Python object. Outside of it nobody writes Py_INCREF or Py_DECREF.
// Threads: with the interpreter lock held, destruction included.
#pragma once

#include <Python.h>

#include <exception>
#include <utility>

namespace orvane {

/// The interpreter already holds the error; whoever catches this leaves it there, prints it or clears it.
class PythonErrorSet : public std::exception {
public:
    const char* what() const noexcept override { return "a Python error is set"; }
};

/// Owns one reference, or none.
class PyRef {
public:
    PyRef() noexcept = default;
    PyRef(const PyRef& other) noexcept : object_(Py_XNewRef(other.object_)) {}
    PyRef(PyRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~PyRef() { Py_XDECREF(object_); }

    /// The old object dies last, when *this is whole again: its __del__ may come back and look at us.
    PyRef& operator=(PyRef other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes a new reference over. Null means that the call failed: throws PythonErrorSet.
    static PyRef steal(PyObject* fresh) {
        if (!fresh) throw PythonErrorSet();
        return stealMaybe(fresh);
    }
    /// As steal, but null gives an empty handle.
    static PyRef stealMaybe(PyObject* fresh) noexcept {
        PyRef result;
        result.object_ = fresh;
        return result;
    }
    /// Someone else's object, so takes a reference of our own.
    static PyRef share(PyObject* borrowed) noexcept { return stealMaybe(Py_XNewRef(borrowed)); }

    PyObject* get() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    /// Gives the reference away, as a C function returns it.
    PyObject* detach() noexcept { return std::exchange(object_, nullptr); }

private:
    PyObject* object_ = nullptr;
};

/// Puts the error that is set aside, if any, for work on the way out of a failure.
class KeptError {
public:
    KeptError() noexcept : error_(PyErr_GetRaisedException()) {}
    KeptError(const KeptError&) = delete;
    KeptError& operator=(const KeptError&) = delete;
    ~KeptError() { PyErr_SetRaisedException(error_); }

private:
    PyObject* error_;
};

/// For calls that answer -1 and set an error: throws PythonErrorSet.
inline void check(int status) {
    if (status < 0) throw PythonErrorSet();
}

}  // namespace orvane
