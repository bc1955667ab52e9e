// How a class becomes a scripting type: a table of attributes and methods whose functions are made from members.
// The Python object is the header and the C++ object behind it; a getter gives what toPython takes, a setter takes a
// PyObject*, a method gives a PyRef or nothing. Each runs inside pythonGuard.
// All scripting types are static types, made ready by ScriptEngine in the order it is handed.
#pragma once

#include "engine/Conversion.h"
#include "engine/PythonGuard.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

// A type names the fields that it uses and leaves the others out; only the files that define types see this header.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace orvane {

template <class Content> struct PyObjectOf { PyObject_HEAD Content content; };

/// The C++ object behind a Python object of the matching type.
template <class Content> Content& contentOf(PyObject* object) noexcept {
    return reinterpret_cast<PyObjectOf<Content>*>(object)->content;
}

/// Null when the object is of another type.
template <class Content> Content* contentIf(PyObject* object, PyTypeObject& type) noexcept {
    return PyObject_TypeCheck(object, &type) ? &contentOf<Content>(object) : nullptr;
}

/// A new object of a scripting type, past the constructor that refuses scripts.
template <class Content, class... Arguments>
PyRef createObject(PyTypeObject& type, Arguments&&... arguments) {
    auto* object = PyObject_New(PyObjectOf<Content>, &type);
    if (!object) throw PythonErrorSet();
    try {
        // In braces, which make aggregates too, with every compiler.
        ::new (static_cast<void*>(&object->content)) Content{std::forward<Arguments>(arguments)...};
    }
    catch (...) {
        PyObject_Free(object);
        throw;
    }
    return PyRef::steal(reinterpret_cast<PyObject*>(object));
}

// The functions of a type, made from members.

template <class Content> void destroy(PyObject* object) noexcept {
    std::destroy_at(&contentOf<Content>(object));
    Py_TYPE(object)->tp_free(object);
}

template <class Member> struct ClassOf;
template <class T, class Class> struct ClassOf<T Class::*> { using type = Class; };

template <auto member> PyObject* get(PyObject* self, void*) noexcept {
    using Content = typename ClassOf<decltype(member)>::type;
    return pythonGuard([&] { return toPython((contentOf<Content>(self).*member)()).detach(); });
}

template <auto member> int set(PyObject* self, PyObject* value, void* name) noexcept {
    using Content = typename ClassOf<decltype(member)>::type;
    return pythonGuard([&] {
        if (!value) {
            PyErr_Format(PyExc_AttributeError, "The property '%s' cannot be deleted",
                         static_cast<const char*>(name));
            throw PythonErrorSet();
        }
        (contentOf<Content>(self).*member)(value);
        return 0;
    });
}

/// A method with one argument (METH_O), or with positional and keyword arguments (METH_VARARGS | METH_KEYWORDS).
template <auto member, class... Arguments>
PyObject* invokeMethod(PyObject* self, Arguments*... arguments) noexcept {
    using Content = typename ClassOf<decltype(member)>::type;
    return pythonGuard([&]() -> PyObject* {
        auto& content = contentOf<Content>(self);
        if constexpr (std::is_void_v<decltype((content.*member)(arguments...))>) {
            (content.*member)(arguments...);
            return Py_NewRef(Py_None);
        } else {
            return toPython((content.*member)(arguments...)).detach();
        }
    });
}

/// Refuses to write a read-only attribute; the closure is its name.
int refuseWrite(PyObject* self, PyObject* value, void* name) noexcept;

// Rows of a type's tables.

constexpr PyGetSetDef readOnly(const char* name, getter get, const char* doc) {
    return {name, get, refuseWrite, doc, const_cast<char*>(name)};
}

constexpr PyGetSetDef readWrite(const char* name, getter get, setter set, const char* doc) {
    return {name, get, set, doc, const_cast<char*>(name)};
}

template <auto member> PyMethodDef methodWithKeywords(const char* name, const char* doc) {
    PyCFunctionWithKeywords function = [](PyObject* self, PyObject* arguments, PyObject* keywords) noexcept {
        return invokeMethod<member>(self, arguments, keywords);
    };
    return {name, reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function)),
            METH_VARARGS | METH_KEYWORDS, doc};
}

template <auto member> PyMethodDef methodWithArgument(const char* name, const char* doc) {
    PyCFunction function = [](PyObject* self, PyObject* argument) noexcept {
        return invokeMethod<member>(self, argument);
    };
    return {name, function, METH_O, doc};
}

template <std::size_t size> struct LiteralText {
    char text[size];
    consteval LiteralText(const char (&literal)[size]) { std::copy_n(literal, size, text); }
};

/// The constructor of a type that scripts cannot create.
template <LiteralText message> PyObject* refuse(PyTypeObject*, PyObject*, PyObject*) noexcept {
    PyErr_SetString(PyExc_RuntimeError, message.text);
    return nullptr;
}

/// How every static type begins, before it is made ready.
inline constexpr PyVarObject typeHead = {PyObject_HEAD_INIT(nullptr) 0};

/// One row of the ordered list of scripting types that the engine makes ready.
struct ScriptingType {
    PyTypeObject* type;
    /// Adds constants to the type's dictionary, once all types are ready; null when there are none.
    void (*addConstants)();
    /// The class attribute of `unit` under which scripts find the type; null when it has none.
    const char* unitAttribute;
};

/// Puts an object into the dictionary of a static type that is ready.
void addConstant(PyTypeObject& type, const char* name, const PyRef& value);

}  // namespace orvane
