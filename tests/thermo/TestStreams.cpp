#include "tests/thermo/TestStreams.h"

#include "engine/Conversion.h"
#include "thermo/ThermoTypes.h"

#include <doctest/doctest.h>

namespace orvane::test {

using namespace COBIA;

namespace {

struct Interpreter {
    Interpreter() {
        Py_InitializeEx(0);
        for (PyTypeObject* type :
             {&materialSharedDataType, &materialSharedCollectionsType, &materialType, &phaseTypeType,
              &phaseType, &phasePairType, &phaseEquilibriumType, &compoundType})
            check(PyType_Ready(type));
    }
    ~Interpreter() { Py_FinalizeEx(); }
};

std::string takeError() {
    const PyRef error = PyRef::steal(PyErr_GetRaisedException());
    return std::string(Py_TYPE(error.get())->tp_name) + ": " + describe(error.get());
}

}  // namespace

TestStreams::TestStreams()
    : feed(makeObject<TestMaterial>(package, "feed")), product(makeObject<TestMaterial>(package, "product")) {
    static Interpreter interpreter;
    names_ = PyRef::steal(PyDict_New());
    setFeed(package.atVaporFraction(composition, 0.5, pressure));
    feedPort = makeObject<MaterialPort>(static_cast<PortOwner&>(*this), "In", true, false);
    productPort = makeObject<MaterialPort>(static_cast<PortOwner&>(*this), "Out", false, false);
    feedPort->connect(feed->as<ICapeThermoMaterial>());
    productPort->connect(product->as<ICapeThermoMaterial>());
    begin();
}

TestStreams::~TestStreams() {
    names_ = {};
    release();
    feedPort->disconnect();
    productPort->disconnect();
    feed = nullptr;
    product = nullptr;
    CHECK(package.liveMaterials == 0);
}

void TestStreams::setFeed(const TestPackage::Split& split) {
    feed->setStream(2, composition, split, pressure);
}

void TestStreams::begin() {
    const auto start = [&](MaterialPort& port, const char* name) {
        port.prepare();
        check(PyDict_SetItemString(names_.get(), name, port.scriptObject().get()));
    };
    start(*feedPort, "feed");
    start(*productPort, "product");
}

void TestStreams::release() {
    while (!holders_.empty()) {
        HostObjectHolder* const holder = holders_.back();
        holders_.pop_back();
        holder->releaseHostObjects();
    }
}

std::string TestStreams::finish() {
    release();
    try {
        productPort->finish();
        return {};
    }
    catch (const std::exception& failure) {
        return failure.what();
    }
}

PyRef TestStreams::eval(const std::string& expression) {
    PyRef result =
        PyRef::stealMaybe(PyRun_String(expression.c_str(), Py_eval_input, names_.get(), names_.get()));
    if (!result) throw std::runtime_error(takeError());
    return result;
}

std::string TestStreams::repr(const std::string& expression) {
    try {
        return toText(PyRef::steal(PyObject_Repr(eval(expression).get())).get());
    }
    catch (const std::runtime_error& failure) {
        return failure.what();
    }
}

double TestStreams::number(const std::string& expression) { return toDouble(eval(expression).get()); }

std::string TestStreams::error(const std::string& statements) {
    const PyRef result =
        PyRef::stealMaybe(PyRun_String(statements.c_str(), Py_file_input, names_.get(), names_.get()));
    return result ? "" : takeError();
}

}  // namespace orvane::test
