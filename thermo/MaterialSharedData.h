// What a Material shares with the phases, equilibria and compounds that were made from it, and what they keep
// instead of it: the wrapper of the host's object, and the lists of property names, read once.
#pragma once

#include "engine/PyRef.h"
#include "thermo/CapeMaterial.h"

#include <memory>
#include <optional>

namespace orvane {

class MaterialSharedData {
public:
    explicit MaterialSharedData(std::unique_ptr<CapeMaterial> material) : material_(std::move(material)) {}

    /// Throws "not initialized" when the unit has made the wrapper let go.
    CapeMaterial& material() const;

    const std::vector<std::string>& constantProperties();
    const std::vector<std::string>& temperatureDependentProperties();
    const std::vector<std::string>& phaseProperties();
    const std::vector<std::string>& phasePairProperties();
    /// Those by which an equilibrium may be specified.
    const std::vector<std::string>& phaseEquilibriumProperties();

private:
    using Names = std::optional<std::vector<std::string>>;

    const std::vector<std::string>& read(Names& names, std::vector<std::string> (CapeMaterial::*list)());

    std::unique_ptr<CapeMaterial> material_;
    Names constants_, temperatureDependent_, phase_, phasePair_, equilibrium_;
};

/// A counted hold on the shared data, which is a Python object so that the interpreter counts it.
class SharedDataRef {
public:
    explicit SharedDataRef(std::unique_ptr<CapeMaterial> material);

    MaterialSharedData& operator*() const noexcept;
    MaterialSharedData* operator->() const noexcept { return &**this; }
    /// True for the same material's package.
    friend bool operator==(const SharedDataRef& a, const SharedDataRef& b) noexcept {
        return a.object_.get() == b.object_.get();
    }

private:
    PyRef object_;
};

}  // namespace orvane
