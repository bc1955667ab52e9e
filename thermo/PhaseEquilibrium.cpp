#include "thermo/PhaseEquilibrium.h"

#include "engine/ScriptType.h"
#include "thermo/ThermoTypes.h"

namespace orvane {

const EvaluatedEquilibrium& PhaseEquilibrium::evaluated() {
    CapeMaterial& material = shared_->material();
    if (!evaluated_) evaluated_.emplace(shared_, material.flash(specification_));
    return *evaluated_;
}

PyRef PhaseEquilibrium::x() {
    evaluated();
    if (!x_) x_ = toPython(specification_.x);
    return x_;
}

PyRef PhaseEquilibrium::getProperty(PyObject* arguments, PyObject* keywords) {
    const PropertyRequest request(arguments, keywords);
    return request.flat(evaluated().overallProperties(request.names()));
}

namespace {

PyGetSetDef attributes[] = {
    readOnly("phases", get<&PhaseEquilibrium::phases>,
             "Phases coexisting at thermodynamic phase equilibrium."),
    readOnly("x", get<&PhaseEquilibrium::x>, "Overall composition [mol/mol]."),
    readOnly("t", get<&PhaseEquilibrium::t>, "Temperature [K]."),
    readOnly("p", get<&PhaseEquilibrium::p>, "Pressure [Pa]."),
    readOnly("vapor_fraction", get<&PhaseEquilibrium::vaporFraction>,
             "Fraction [mol/mol] of vapor phase, or 0 if vapor is not present."),
    readOnly("properties", get<&PhaseEquilibrium::properties>, "Names of supported properties."),
    {},
};

PyMethodDef methods[] = {
    methodWithKeywords<&PhaseEquilibrium::getProperty>("get_property", ORVANE_GET_PROPERTY_DOC),
    {},
};

}  // namespace

PyTypeObject phaseEquilibriumType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.PhaseEquilibrium",
    .tp_basicsize = sizeof(PyObjectOf<PhaseEquilibrium>),
    .tp_dealloc = destroy<PhaseEquilibrium>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Phase equilibrium.\n\nCreated by create_phase_equilibrium of a Material; calculated when it "
              "is first read.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = refuse<"A PhaseEquilibrium should be created by a Material">,
};

}  // namespace orvane
