#include "thermo/PhasePair.h"

#include "engine/ScriptType.h"
#include "thermo/PropertyRequest.h"
#include "thermo/ThermoTypes.h"

namespace orvane {

using COBIA::StringException;

Phase& PhasePair::first() const { return contentOf<Phase>(first_.get()); }

Phase& PhasePair::second() const { return contentOf<Phase>(second_.get()); }

std::vector<std::string> PhasePair::properties() const { return first().shared()->phasePairProperties(); }

PyRef PhasePair::getProperty(PyObject* arguments, PyObject* keywords) {
    CapeMaterial& material = first().shared()->material();
    const PropertyRequest request(arguments, keywords);
    const std::vector<double> x1 = first().composition();
    const std::vector<double> x2 = second().composition();
    PropertyValues values;
    material.phasePairProperties(first().state(x1), second().state(x2), request.names(), values);
    return request.entries(values);
}

PyRef makePhasePair(PyObject* first, PyObject* second) {
    const Phase* const phase1 = contentIf<Phase>(first, phaseType);
    if (!phase1) throw StringException("phase1 must be a phase");
    const Phase* const phase2 = contentIf<Phase>(second, phaseType);
    if (!phase2) throw StringException("phase2 must be a phase");
    if (!(phase1->shared() == phase2->shared()))
        throw StringException("phase1 and phase2 must be from the material type");
    if (first == second) throw StringException("phase1 and phase2 cannot be the same phase");
    return createObject<PhasePair>(phasePairType, PyRef::share(first), PyRef::share(second));
}

namespace {

PyObject* create(PyTypeObject*, PyObject* arguments, PyObject* keywords) noexcept {
    return pythonGuard([&] {
        static const char* const names[] = {"phase1", "phase2", nullptr};
        PyObject *first = nullptr, *second = nullptr;
        if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "OO:PhasePair", names, &first, &second))
            throw PythonErrorSet();
        return makePhasePair(first, second).detach();
    });
}

PyGetSetDef attributes[] = {
    readOnly("phase1", get<&PhasePair::phase1>, "First phase."),
    readOnly("phase2", get<&PhasePair::phase2>, "Second phase."),
    readOnly("properties", get<&PhasePair::properties>, "Names of supported properties."),
    {},
};

PyMethodDef methods[] = {
    methodWithKeywords<&PhasePair::getProperty>("get_property", ORVANE_GET_PROPERTY_DOC),
    {},
};

}  // namespace

PyTypeObject phasePairType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_thermo.PhasePair",
    .tp_basicsize = sizeof(PyObjectOf<PhasePair>),
    .tp_dealloc = destroy<PhasePair>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Two phases of one material, for properties such as K-values and surface tension.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = create,
};

}  // namespace orvane
