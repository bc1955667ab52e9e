#include "thermo/Compound.h"

#include "engine/ScriptType.h"
#include "thermo/ThermoTypes.h"

#include <limits>

namespace orvane {

using COBIA::StringException;
using COBIA::ValueObject;

namespace {

struct ToPython {
    PyRef operator()(std::monostate) const { throw StringException("No data"); }
    template <class T> PyRef operator()(const T& value) const { return toPython(value); }
};

}  // namespace

Compound::Compound(SharedDataRef shared, std::size_t index) : shared_(std::move(shared)), index_(index) {
    const auto& weights = shared_->material().compounds().molecularWeights;
    molecularWeight_ = index < weights.size() ? weights[index] : std::numeric_limits<double>::quiet_NaN();
}

std::string Compound::entry(const std::vector<std::string> CompoundList::*list) const {
    const auto& entries = shared_->material().compounds().*list;
    if (index_ >= entries.size() || entries[index_].empty()) throw StringException("No data");
    return entries[index_];
}

std::string Compound::name() const { return entry(&CompoundList::names); }

std::string Compound::formula() const { return entry(&CompoundList::formulae); }

std::string Compound::casRegistryNumber() const { return entry(&CompoundList::casNumbers); }

PyRef Compound::getConstant(PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"name", nullptr};
    PyObject* name = nullptr;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "U:get_constant", names, &name))
        throw PythonErrorSet();
    return std::visit(ToPython(), shared_->material().compoundConstant(toText(name), index_));
}

PyRef Compound::getTemperatureDependentProperty(PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"properties", "t", nullptr};
    PyObject* properties = nullptr;
    double temperature = 0;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "Od:get_temperature_dependent_property", names,
                                     &properties, &temperature))
        throw PythonErrorSet();
    const StringList requested = readStringList("properties", properties);
    const auto values =
        shared_->material().temperatureDependentProperties(requested.texts, index_, temperature);
    return requested.single ? toPython(values[0]) : toPython(values);
}

namespace {

PyGetSetDef attributes[] = {
    readOnly("molecular_weight", get<&Compound::molecularWeight>, "Relative molecular mass."),
    readOnly("index", get<&Compound::index>, "Index in compound list."),
    readOnly("name", get<&Compound::name>, "Compound name."),
    readOnly("constant_properties", get<&Compound::constantProperties>, "Names of supported constants."),
    readOnly("temperature_dependent_properties", get<&Compound::temperatureDependentProperties>,
             "Names of supported temperature dependent properties."),
    readOnly("formula", get<&Compound::formula>, "Chemical formula."),
    readOnly("cas_registry_number", get<&Compound::casRegistryNumber>, "Chemical Abstracts registry number."),
    {},
};

PyMethodDef methods[] = {
    methodWithKeywords<&Compound::getConstant>(
        "get_constant",
        "Get the value of a compound constant.\n\nRequired arguments:\nname -- name of the constant.\n\n"
        "Valid names are listed in the constant_properties member."),
    methodWithKeywords<&Compound::getTemperatureDependentProperty>(
        "get_temperature_dependent_property",
        "Calculate one or more temperature dependent properties by name.\n\nRequired arguments:\n"
        "properties -- specify one or more property names as string or list of strings.\nt -- temperature "
        "[K].\n\n"
        "Valid property names are listed in the temperature_dependent_properties member."),
    {},
};

}  // namespace

PyTypeObject compoundType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.Compound",
    .tp_basicsize = sizeof(PyObjectOf<Compound>),
    .tp_dealloc = destroy<Compound>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Compound.\n\nThe compounds of a package are listed in the compounds member of a Material.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = refuse<"A compound should be created by a package">,
};

}  // namespace orvane
