#include "tests/streams/TestUnit.h"

#include "cobia/Call.h"
#include "engine/Conversion.h"
#include "streams/EnergyObject.h"
#include "streams/ExternalParameter.h"

#include <doctest/doctest.h>

namespace orvane::test {

using namespace COBIA;

namespace {

struct Interpreter {
    Interpreter() {
        Py_InitializeEx(0);
        check(PyType_Ready(&externalParameterType));
        check(PyType_Ready(&energyObjectType));
    }
    ~Interpreter() { Py_FinalizeEx(); }
};

std::string takeError() {
    const PyRef error = PyRef::steal(PyErr_GetRaisedException());
    return std::string(Py_TYPE(error.get())->tp_name) + ": " + describe(error.get());
}

}  // namespace

TestUnit::TestUnit() {
    static Interpreter interpreter;
    names_ = PyRef::steal(PyDict_New());
}

TestUnit::~TestUnit() {
    names_ = {};
    release();
    CHECK(liveObjects == 0);
}

std::string TestUnit::begin(Port& port) {
    port.prepare();
    try {
        const PyRef object = port.scriptObject();
        check(PyDict_SetItemString(names_.get(), "port", object ? object.get() : Py_None));
        return {};
    }
    catch (const std::exception& failure) {
        return failure.what();
    }
}

void TestUnit::release() {
    while (!holders_.empty()) {
        HostObjectHolder* const holder = holders_.back();
        holders_.pop_back();
        holder->releaseHostObjects();
    }
}

std::string TestUnit::error(const std::string& statements) {
    const PyRef result =
        PyRef::stealMaybe(PyRun_String(statements.c_str(), Py_file_input, names_.get(), names_.get()));
    return result ? "" : takeError();
}

std::string TestUnit::repr(const std::string& expression) {
    const PyRef result =
        PyRef::stealMaybe(PyRun_String(expression.c_str(), Py_eval_input, names_.get(), names_.get()));
    return result ? toText(PyRef::steal(PyObject_Repr(result.get())).get()) : takeError();
}

PyRef TestUnit::kept() { return PyRef::share(PyDict_GetItemString(names_.get(), "port")); }

std::string connect(Port& port, ICapeInterface* object) {
    try {
        call<&ICapeUnitPort::Table::Connect>(port.as<ICapeUnitPort>(), object);
        return {};
    }
    catch (const cape_open_error& error) {
        return error.code() == capeOpenError ? error.what() : "code " + std::to_string(error.code());
    }
}

}  // namespace orvane::test
