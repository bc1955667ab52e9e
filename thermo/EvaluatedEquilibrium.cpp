#include "thermo/EvaluatedEquilibrium.h"

#include "engine/ScriptType.h"
#include "thermo/Phase.h"
#include "thermo/ThermoTypes.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace orvane {

using COBIA::StringException;

EvaluatedEquilibrium::EvaluatedEquilibrium(SharedDataRef shared, const Equilibrium& equilibrium)
    : shared_(std::move(shared)),
      phases_(PyRef::steal(PyList_New(static_cast<Py_ssize_t>(equilibrium.phases.size())))),
      vaporFraction_(equilibrium.vaporFraction),
      temperature_(equilibrium.phases.at(0).temperature),
      pressure_(equilibrium.phases.at(0).pressure) {
    Py_ssize_t i = 0;
    for (const EquilibriumPhase& phase : equilibrium.phases) {
        PyRef object = createObject<Phase>(phaseType, PhaseType(shared_, phase.phase), phase);
        PyList_SET_ITEM(phases_.get(), i++, object.detach());
    }
}

template <class Take> void EvaluatedEquilibrium::forEachPhase(Take&& take) const {
    // By index, since converting a phase's composition may run code that changes the list.
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(phases_.get()); ++i) {
        const PyRef item = PyRef::stealMaybe(PyList_GetItemRef(phases_.get(), i));
        if (!item) {
            PyErr_Clear();
            throw StringException("error while iterating over phases");
        }
        const Phase* const phase = contentIf<Phase>(item.get(), phaseType);
        if (!phase) throw StringException("phase list contains non-Phase objects");
        take(*phase);
    }
}

PropertyValues EvaluatedEquilibrium::overallProperties(PropertyNames names) const {
    CapeMaterial& material = shared_->material();
    PropertyValues sum, values;
    forEachPhase([&](const Phase& phase) {
        const auto require = [](double value, const char* what) {
            if (std::isnan(value))
                throw StringException() << "Equilibrium contains a phase with undefined " << what;
        };
        const double fraction = phase.phaseFraction();
        require(fraction, "phase_fraction");
        require(phase.t(), "t");
        require(phase.p(), "p");
        const std::vector<double> x = phase.composition();
        material.equilibriumPhaseProperties(phase.state(x), names, values);
        // A phase of which there is nothing adds nothing, even where its value is infinite.
        for (double& value : values.all()) value = fraction == 0 ? 0 : fraction * value;
        if (sum.size() == 0) {
            std::swap(sum, values);
        } else {
            if (!sum.sameShape(values))
                throw StringException("Material Object returned invalid property results");
            std::ranges::transform(sum.all(), values.all(), sum.all().begin(), std::plus<>());
        }
    });
    if (sum.size() == 0) throw StringException("No equilibrium phases on Material Object");
    return sum;
}

double EvaluatedEquilibrium::enthalpy() const {
    const PropertyName* const name = &PropertyName::of("enthalpy");
    const PropertyValues values = overallProperties({&name, 1});
    if (values.all().size() != 1) throw StringException("Material Object returned invalid property results");
    return values.all()[0];
}

bool EvaluatedEquilibrium::isOnVaporBoundary() const {
    const int vaporPhase = shared_->material().phases().vapor();
    bool hasVapor = false;
    double vapor = 0, others = 0;
    std::size_t count = 0;
    forEachPhase([&](const Phase& phase) {
        ++count;
        if (phase.index() == vaporPhase) hasVapor = true;
        (phase.index() == vaporPhase ? vapor : others) += phase.phaseFraction();
    });
    return hasVapor && count >= 2 && (vapor == 0 || others == 0);
}

}  // namespace orvane
