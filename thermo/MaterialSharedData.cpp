#include "thermo/MaterialSharedData.h"

#include "cobia/Text.h"
#include "engine/ScriptType.h"
#include "thermo/ThermoTypes.h"

#include <algorithm>

namespace orvane {

CapeMaterial& MaterialSharedData::material() const {
    if (material_->isReleased()) throw COBIA::StringException("not initialized");
    return *material_;
}

const std::vector<std::string>& MaterialSharedData::read(Names& names,
                                                         std::vector<std::string> (CapeMaterial::*list)()) {
    CapeMaterial& from = material();
    if (!names) names = (from.*list)();
    return *names;
}

const std::vector<std::string>& MaterialSharedData::constantProperties() {
    return read(constants_, &CapeMaterial::constantProperties);
}

const std::vector<std::string>& MaterialSharedData::temperatureDependentProperties() {
    return read(temperatureDependent_, &CapeMaterial::temperatureDependentPropertyNames);
}

const std::vector<std::string>& MaterialSharedData::phaseProperties() {
    return read(phase_, &CapeMaterial::phasePropertyNames);
}

const std::vector<std::string>& MaterialSharedData::phasePairProperties() {
    return read(phasePair_, &CapeMaterial::phasePairPropertyNames);
}

const std::vector<std::string>& MaterialSharedData::phaseEquilibriumProperties() {
    CapeMaterial& from = material();
    if (!equilibrium_) {
        std::vector<std::string> names = {"temperature", "pressure"};
        if (from.phases().vapor() != PhaseList::none) names.push_back("vaporFraction");
        const auto& supported = phaseProperties();
        for (const char* name : {"enthalpy", "enthalpyF", "entropy", "entropyF", "volume"}) {
            const auto same = [&](const std::string& other) { return COBIA::equalIgnoringCase(name, other); };
            if (std::ranges::any_of(supported, same)) names.push_back(name);
        }
        equilibrium_ = std::move(names);
    }
    return *equilibrium_;
}

SharedDataRef::SharedDataRef(std::unique_ptr<CapeMaterial> material)
    : object_(createObject<MaterialSharedData>(materialSharedDataType, std::move(material))) {}

MaterialSharedData& SharedDataRef::operator*() const noexcept {
    return contentOf<MaterialSharedData>(object_.get());
}

PyTypeObject materialSharedDataType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.MaterialSharedData",
    .tp_basicsize = sizeof(PyObjectOf<MaterialSharedData>),
    .tp_dealloc = destroy<MaterialSharedData>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "What the objects of a material stream have in common.",
    .tp_new = refuse<"This type cannot be created">,
};

}  // namespace orvane
