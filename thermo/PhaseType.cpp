#include "thermo/PhaseType.h"

#include "engine/ScriptType.h"
#include "thermo/Phase.h"
#include "thermo/ThermoTypes.h"

namespace orvane {

std::string PhaseType::compound(int index) const {
    if (index == PhaseDescription::none) return {};
    return shared_->material().compounds().identifiers.at(static_cast<std::size_t>(index));
}

PyRef PhaseType::createPhase(PyObject* arguments, PyObject* keywords) const {
    PyRef phase = createObject<Phase>(phaseType, *this);
    contentOf<Phase>(phase.get()).set(arguments, keywords);
    return phase;
}

namespace {

PyGetSetDef attributes[] = {
    readOnly("index", get<&PhaseType::index>, "Index in phase type list."),
    readOnly("name", get<&PhaseType::name>, "Phase type name."),
    readOnly("state_of_aggregation", get<&PhaseType::stateOfAggregation>,
             "State of aggregation, vapor, liquid or solid (empty if unknown)."),
    readOnly("key_compound", get<&PhaseType::keyCompound>, "Key compound, or empty."),
    readOnly("excluded_compound", get<&PhaseType::excludedCompound>, "Excluded compound, or empty."),
    readOnly("properties", get<&PhaseType::properties>, "Names of supported properties."),
    {},
};

PyMethodDef methods[] = {
    methodWithKeywords<&PhaseType::createPhase>(
        "create_phase",
        "Create a phase of this type.\n\nKeyword arguments:\nt -- temperature [K].\np -- pressure [Pa].\n"
        "x -- composition [mol/mol]."),
    {},
};

}  // namespace

PyTypeObject phaseTypeType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_thermo.PhaseType",
    .tp_basicsize = sizeof(PyObjectOf<PhaseType>),
    .tp_dealloc = destroy<PhaseType>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Phase type.\n\nThe phases that a package defines are listed in the phase_types member of a "
              "Material.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = refuse<"A phase type cannot be created directly. Use Material.phase_types instead.">,
};

}  // namespace orvane
