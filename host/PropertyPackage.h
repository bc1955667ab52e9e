// The property package as the streams of a case share it: compounds and model, with what material objects ask for
// at every call made ready once.
// Not here: the thermodynamics (package/), the state of a stream (MaterialObject).
#pragma once

#include "package/Interaction.h"
#include "package/Model.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::host {

/// A quantity that a flash can be specified by.
enum class ConditionKind {
    temperature,
    pressure,
    vaporFraction,
    enthalpy,
    enthalpyF,
    entropy,
    entropyF,
    volume
};

/// SI units and a mole basis: K, Pa, mol/mol, J/mol, J/mol/K, m3/mol.
struct Condition {
    ConditionKind kind;
    double value;
};

/// As messages and case files write it: "vapor_fraction".
std::string_view conditionName(ConditionKind kind);

/// Immutable, so threads and materials may share one.
class PropertyPackage {
public:
    /// model: one of package::modelNames(), letter case aside. Throws package::PackageError as package::makeModel()
    /// does.
    PropertyPackage(std::vector<package::Compound> compounds,
                    const std::vector<package::Interaction>& overrides,
                    std::string_view model = package::modelNames().front());

    std::size_t size() const { return model_->size(); }
    const std::vector<package::Compound>& compounds() const { return model_->compounds(); }
    const package::Model& model() const { return *model_; }

    /// One a compound, in order.
    const std::vector<std::string>& ids() const { return ids_; }
    std::span<const double> molarMasses() const { return molarMasses_; }  ///< kg/mol

    /// What enthalpyF and entropyF of a mixture have above enthalpy and entropy: formation from the elements
    /// at 298.15 K [J/mol] and absolute entropy [J/mol/K].
    double formationEnthalpy(std::span<const double> moleFractions) const;
    double referenceEntropy(std::span<const double> moleFractions) const;

    /// Whether equilibrium() takes this pair, in either order: temperature and pressure together, and either of them
    /// with one of the others.
    static bool supports(ConditionKind first, ConditionKind second);
    /// Throws package::PackageError, with the pairs that there are, for one that supports() refuses.
    static void requireSupport(ConditionKind first, ConditionKind second);

    /// The equilibrium of one mole. Throws package::PackageError as requireSupport() does, for conditions out
    /// of range, and for a flash that does not converge.
    /// solution: where two states have the vapour fraction, and of no meaning for other conditions.
    package::Equilibrium equilibrium(Condition first, Condition second, std::span<const double> moleFractions,
                                     package::Solution solution = package::Solution::normal) const;

private:
    std::unique_ptr<const package::Model> model_;
    std::vector<std::string> ids_;
    std::vector<double> molarMasses_;
    std::vector<double> formationEnthalpies_;
    std::vector<double> referenceEntropies_;
};

}  // namespace orvane::host
