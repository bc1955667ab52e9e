// Derivatives of the properties of one phase by temperature, pressure, mole numbers and mole fractions, analytic for
// every model.
// Not here: the properties themselves (PropertyCalculator), their names (Property).
#pragma once

#include "host/Property.h"
#include "package/Model.h"

#include <span>
#include <vector>

namespace orvane::host {

/// The derivatives that calculateDerivative() takes.
std::span<const Derivative> singlePhaseDerivatives();
bool isCalculated(Derivative derivative);

/// A derivative of a property of the phase `of` of the model, which is named `kind`; on a mole basis and in SI units.
/// At constant pressure or temperature and composition, or at constant temperature and pressure:
/// - By::moles of a molar property, with the amounts of the other compounds constant: of the total of one mole of the
///   phase, which is the partial molar property. Of fugacities and their coefficients: of the value of each compound,
///   in one mole of the phase [1/mol].
/// - By::molFraction: without regard to the sum of the fractions, so that only sums over changes that add up to 0 have
///   a meaning that does not hang on a convention. Ours takes the fractions for amounts of compounds, and x in a
///   fugacity, x phi P, for the fraction itself. So it is By::moles, but for the fugacity and its logarithm, where it
///   lacks what comes of the total amount, -f_i and -1.
///
/// One value for each compound that the property has values for, and by compounds as many for each of these: all those
/// by the first, then all by the second. What has a logarithm of the fraction (logFugacity, entropy, gibbsEnergy) is
/// infinite by a compound that is absent. Throws package::PackageError.
std::vector<double> calculateDerivative(const package::Model& model, package::PhaseKind kind,
                                        const package::PhaseProperties& of, Derivative derivative);

}  // namespace orvane::host
