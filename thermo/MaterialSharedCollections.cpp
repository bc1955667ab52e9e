#include "thermo/MaterialSharedCollections.h"

#include "engine/ScriptType.h"
#include "thermo/Compound.h"
#include "thermo/PhaseType.h"
#include "thermo/ThermoTypes.h"

namespace orvane {
namespace {

template <class Make> PyRef listOf(std::size_t size, Make&& make) {
    PyRef list = PyRef::steal(PyList_New(static_cast<Py_ssize_t>(size)));
    for (std::size_t i = 0; i < size; ++i)
        PyList_SET_ITEM(list.get(), static_cast<Py_ssize_t>(i), make(i).detach());
    return list;
}

PyRef copyOf(const PyRef& list) {
    return PyRef::steal(PyList_GetSlice(list.get(), 0, PyList_GET_SIZE(list.get())));
}

}  // namespace

PyRef MaterialSharedCollections::compounds() {
    const CompoundList& known = shared_->material().compounds();
    if (!compounds_) {
        compounds_ = listOf(known.identifiers.size(),
                            [&](std::size_t i) { return createObject<Compound>(compoundType, shared_, i); });
    }
    return copyOf(compounds_);
}

PyRef MaterialSharedCollections::phaseTypes() {
    const PhaseList& known = shared_->material().phases();
    if (!phaseTypes_) {
        phaseTypes_ = listOf(known.size(), [&](std::size_t i) {
            return createObject<PhaseType>(phaseTypeType, shared_, static_cast<int>(i));
        });
    }
    return copyOf(phaseTypes_);
}

PyTypeObject materialSharedCollectionsType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.MaterialSharedCollections",
    .tp_basicsize = sizeof(PyObjectOf<MaterialSharedCollections>),
    .tp_dealloc = destroy<MaterialSharedCollections>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "The compounds and phase types of a material stream.",
    .tp_new = refuse<"This type cannot be created">,
};

}  // namespace orvane
