// The property package as the streams of a case share it: compounds, equation of state and flash, with what
// material objects ask for at every call made ready once.
// Not here: the thermodynamics (package/), the state of a stream (MaterialObject).
#pragma once

#include "package/Flash.h"

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
    /// Throws package::PackageError as PengRobinson does.
    PropertyPackage(std::vector<package::Compound> compounds,
                    const std::vector<package::Interaction>& overrides);

    std::size_t size() const { return equation().size(); }
    const std::vector<package::Compound>& compounds() const { return equation().compounds(); }
    const package::PengRobinson& equation() const { return flash_.equation(); }

    /// One a compound, in order.
    const std::vector<std::string>& ids() const { return ids_; }
    std::span<const double> molarMasses() const { return molarMasses_; }  ///< kg/mol

    /// What enthalpyF and entropyF of a mixture have above enthalpy and entropy: formation from the elements
    /// at 298.15 K [J/mol] and absolute entropy [J/mol/K].
    double formationEnthalpy(std::span<const double> moleFractions) const;
    double referenceEntropy(std::span<const double> moleFractions) const;

    /// Whether equilibrium() takes this pair, in either order.
    static bool supports(ConditionKind first, ConditionKind second);
    /// Throws package::PackageError, with the pairs that there are, for one that supports() refuses.
    static void requireSupport(ConditionKind first, ConditionKind second);

    /// The equilibrium of one mole. Throws package::PackageError as requireSupport() does, for conditions out
    /// of range, and for a flash that does not converge.
    package::Equilibrium equilibrium(Condition first, Condition second,
                                     std::span<const double> moleFractions) const;

private:
    package::Flash flash_;
    std::vector<std::string> ids_;
    std::vector<double> molarMasses_;
    std::vector<double> formationEnthalpies_;
    std::vector<double> referenceEntropies_;
};

}  // namespace orvane::host
