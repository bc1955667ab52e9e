// Viscosity and thermal conductivity of a phase: which correlation is taken for which phase.
// Not here: the correlation of dense fluids (DenseFluid), the volume of liquids (LiquidVolume).
#pragma once

#include "package/Compound.h"
#include "package/Equilibrium.h"
#include "package/PhaseProperties.h"

#include <span>

namespace orvane::package {

/// Both phases have the viscosity of DenseFluid: the vapour at the density of its model, the liquid at that of
/// liquidMixtureVolume(). The vapour has the thermal conductivity of DenseFluid too. That of the liquid is
///     lambda^-2 = sum w_i lambda_i^-2
/// over the mass fractions w_i, with the lambda_i of DenseFluid at the compounds' own liquid volumes, without its polar
/// terms, which were fitted to gases and double the conductivity of polar liquids. Compounds that form hydrogen bonds
/// have instead
///     lambda_i = 1.11 / sqrt(M_i) (3 + 20 (1 - Tr)^(2/3)) / (3 + 20 (1 - Tbr)^(2/3)),
/// as at the critical temperature above it. docs/package.md states how near all this comes. Throw PackageError as
/// DenseFluid does.
/// Sources: K. Sato, L. Riedel, after R. C. Reid, J. M. Prausnitz, T. K. Sherwood, The Properties of Gases and
/// Liquids, 3rd ed. (1977), chapter 10; power law: V. Vredeveld, after the 4th ed. (1987), chapter 10.
double viscosity(std::span<const Compound> compounds, PhaseKind kind,
                 const PhaseProperties& phase);  ///< Pa s
double thermalConductivity(std::span<const Compound> compounds, PhaseKind kind,
                           const PhaseProperties& phase);  ///< W/m/K

}  // namespace orvane::package
