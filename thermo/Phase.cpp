#include "thermo/Phase.h"

#include "engine/ScriptType.h"
#include "thermo/Composition.h"
#include "thermo/PropertyRequest.h"
#include "thermo/ThermoTypes.h"

namespace orvane {

Phase::Phase(PhaseType type, const EquilibriumPhase& phase)
    : type_(std::move(type)),
      t_(phase.temperature),
      p_(phase.pressure),
      phaseFraction_(phase.fraction),
      x_(toPython(phase.x)) {}

void Phase::setT(PyObject* temperature) { t_ = toDouble(temperature); }

void Phase::setP(PyObject* pressure) { p_ = toDouble(pressure); }

PyRef Phase::x() const { return PyRef::share(x_ ? x_.get() : Py_None); }

void Phase::setX(PyObject* composition) { x_ = PyRef::share(composition); }

void Phase::setPhaseFraction(PyObject* fraction) { phaseFraction_ = toDouble(fraction); }

void Phase::set(PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"t", "p", "x", nullptr};
    PyObject *temperature = nullptr, *pressure = nullptr, *composition = nullptr;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "|OOO", names, &temperature, &pressure,
                                     &composition))
        throw PythonErrorSet();
    const double t = temperature ? toDouble(temperature) : t_;
    const double p = pressure ? toDouble(pressure) : p_;
    t_ = t;
    p_ = p;
    if (composition) setX(composition);
}

std::vector<double> Phase::composition() const {
    return readComposition(x_.get(), shared()->material().compoundCount());
}

PyRef Phase::getProperty(PyObject* arguments, PyObject* keywords) {
    CapeMaterial& material = shared()->material();
    const PropertyRequest request = [&] {
        try {
            return PropertyRequest(arguments, keywords);
        }
        catch (const COBIA::StringException& error) {
            throw ArgumentTypeError(error.what());
        }
    }();
    PropertyValues values;
    const auto calculate = [&] {
        const std::vector<double> x = composition();
        material.phaseProperties(state(x), request.names(), values);
    };
    // A state at which the host cannot calculate counts as a wrong value.
    try {
        calculate();
    }
    catch (const COBIA::StringException& error) {
        throw RefusedValue(error.what());
    }
    catch (const COBIA::cape_open_error& error) {
        throw RefusedValue(error.what());
    }
    return request.entries(values);
}

namespace {

PyGetSetDef attributes[] = {
    readWrite("t", get<&Phase::t>, set<&Phase::setT>, "Temperature [K]."),
    readWrite("p", get<&Phase::p>, set<&Phase::setP>, "Pressure [Pa]."),
    readWrite("x", get<&Phase::x>, set<&Phase::setX>, "Mole fraction [mol/mol]."),
    readWrite("phase_fraction", get<&Phase::phaseFraction>, set<&Phase::setPhaseFraction>,
              "Phase fraction [mol/mol]."),
    readOnly("index", get<&Phase::index>, "Index in phase type list."),
    readOnly("name", get<&Phase::name>, "Phase name."),
    readOnly("state_of_aggregation", get<&Phase::stateOfAggregation>, "State of aggregation."),
    readOnly("key_compound", get<&Phase::keyCompound>, "Name of key compound, or empty."),
    readOnly("excluded_compound", get<&Phase::excludedCompound>, "Name of excluded compound, or empty."),
    readOnly("properties", get<&Phase::properties>, "Names of supported properties."),
    {},
};

PyMethodDef methods[] = {
    methodWithKeywords<&Phase::set>("set", "Set conditions.\n\nKeyword arguments:\nt -- temperature [K].\n"
                                           "p -- pressure [Pa].\nx -- composition [mol/mol]."),
    methodWithKeywords<&Phase::getProperty>("get_property", ORVANE_GET_PROPERTY_DOC "\n"),
    {},
};

}  // namespace

PyTypeObject phaseType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.Phase",
    .tp_basicsize = sizeof(PyObjectOf<Phase>),
    .tp_dealloc = destroy<Phase>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Mixture of one phase at a given temperature, pressure and composition.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = refuse<"A Phase type can be created from a Material, PhaseType or PhaseEquilibrium">,
};

}  // namespace orvane
