#include "package/DenseFluid.h"

#include "package/MixtureParameters.h"
#include "package/PackageError.h"

#include <fmt/format.h>

#include <cmath>

namespace orvane::package {
namespace {

// What one fluid of the mixture's own constants has: in the units of the source, Å, K, g/mol, debye, cm3/mol.
struct OneFluid {
    double sigmaCubed = 0, energy = 0, molarMass = 0, omega = 0, association = 0;
    double criticalVolume = 0, criticalTemperature = 0;
    double reducedDipoleToFourth = 0;

    OneFluid(std::span<const Compound> compounds, std::span<const double> x) {
        double mass = 0, dipole = 0;
        for (std::size_t i = 0; i < x.size(); ++i) {
            if (x[i] == 0) continue;
            for (std::size_t j = 0; j < x.size(); ++j) {
                if (x[j] == 0) continue;
                const auto &a = compounds[i], &b = compounds[j];
                const double xx = x[i] * x[j];
                const double sigma = std::sqrt(diameter(a) * diameter(b)), cubed = sigma * sigma * sigma;
                const double pairEnergy =
                    std::sqrt(a.criticalTemperature * b.criticalTemperature) / energyPerTc;
                const double pairMass =
                    2 * a.molecularWeight * b.molecularWeight / (a.molecularWeight + b.molecularWeight);
                sigmaCubed += xx * cubed;
                energy += xx * pairEnergy * cubed;
                mass += xx * pairEnergy * sigma * sigma * std::sqrt(pairMass);
                omega += xx * 0.5 * (a.acentricFactor + b.acentricFactor) * cubed;
                dipole += xx * a.dipoleMoment * a.dipoleMoment * b.dipoleMoment * b.dipoleMoment / cubed;
                association += xx * std::sqrt(a.association * b.association);
            }
        }
        energy /= sigmaCubed;
        omega /= sigmaCubed;
        molarMass = std::pow(mass / (energy * std::cbrt(sigmaCubed * sigmaCubed)), 2);
        criticalVolume = sigmaCubed / std::pow(diameterPerVolume, 3);
        criticalTemperature = energyPerTc * energy;
        const double perState = 131.3 * 131.3 / (criticalVolume * criticalTemperature);
        reducedDipoleToFourth = perState * perState * dipole * sigmaCubed;
    }

private:
    static constexpr double energyPerTc = 1.2593, diameterPerVolume = 0.809;

    static double diameter(const Compound& compound) {
        if (!(compound.criticalVolume > 0))
            throw PackageError(fmt::format(
                "viscosity and thermal conductivity need the critical volume of {}", compound.id));
        return diameterPerVolume * std::cbrt(compound.criticalVolume * 1e6);
    }
};

// Coefficients: constant, by acentric factor, by reduced dipole to the fourth, by association.
struct Row {
    double constant, byOmega, byDipole, byAssociation;

    double of(const OneFluid& fluid) const {
        return constant + byOmega * fluid.omega + byDipole * fluid.reducedDipoleToFourth +
               byAssociation * fluid.association;
    }
};

constexpr Row viscosityRows[] = {
    {6.324, 50.412, -51.680, 1189.0},   {1.210e-3, -1.154e-3, -6.257e-3, 0.03728},
    {5.283, 254.209, -168.48, 3898.0},  {6.623, 38.096, -8.464, 31.42},
    {19.745, 7.630, -14.354, 31.53},    {-1.900, -12.537, 4.985, -18.15},
    {24.275, 3.450, -11.291, 69.35},    {0.7972, 1.117, 0.01235, -4.117},
    {-0.2382, 0.06770, -0.8163, 4.025}, {0.06863, 0.3479, 0.5926, -0.727},
};

constexpr Row conductivityRows[] = {
    {2.4166, 0.74824, -0.91858, 121.72},  {-0.50924, -1.5094, -49.991, 69.983},
    {6.6107, 5.6207, 64.760, 27.039},     {14.543, -8.9139, -5.6379, 74.344},
    {0.79274, 0.82019, -0.69369, 6.3173}, {-5.8634, 12.801, 9.5893, 65.529},
    {91.089, 128.11, -54.217, 523.81},
};

// Both correlations share the form of their dense part, G2 of the source.
double dense(const double* E, double y, double G1) {
    const double first = y > 0 ? -E[0] * std::expm1(-E[3] * y) / y : E[0] * E[3];
    return (first + E[1] * G1 * std::exp(E[4] * y) + E[2] * G1) / (E[0] * E[3] + E[1] + E[2]);
}

// Collision integral of the Lennard-Jones potential.
// Source: P. D. Neufeld, A. R. Janzen, R. A. Aziz, J. Chem. Phys. 57 (1972) 1100.
double collisionIntegral(double t) {
    return 1.16145 * std::pow(t, -0.14874) + 0.52487 * std::exp(-0.77320 * t) +
           2.16178 * std::exp(-2.43787 * t);
}

}  // namespace

DenseFluid::DenseFluid(std::span<const Compound> compounds, std::span<const double> x, double T,
                       double density, double idealHeatCapacity) {
    const OneFluid fluid(compounds, x);
    const double Tc = fluid.criticalTemperature, Vc = fluid.criticalVolume, M = fluid.molarMass;
    const double y = density * 1e-6 * Vc / 6;
    const double G1 = (1 - 0.5 * y) / std::pow(1 - y, 3);
    const double reduced = T / fluid.energy;
    const double shape =
        1 - 0.2756 * fluid.omega + 0.059035 * fluid.reducedDipoleToFourth + fluid.association;
    const double thin = std::sqrt(reduced) / collisionIntegral(reduced) * shape;

    double E[10];
    for (std::size_t i = 0; i < 10; ++i) E[i] = viscosityRows[i].of(fluid);
    const double G2 = dense(E, y, G1);
    const double reducedViscosity =
        thin * (1 / G2 + E[5] * y) + E[6] * y * y * G2 * std::exp(E[7] + (E[8] + E[9] / reduced) / reduced);
    const double unit = 36.344e-7 * std::sqrt(M * Tc) / std::cbrt(Vc * Vc);  // Pa s
    viscosity_ = reducedViscosity * unit;

    double B[7];
    for (std::size_t i = 0; i < 7; ++i) B[i] = conductivityRows[i].of(fluid);
    const double H2 = dense(B, y, G1);
    const double alpha = idealHeatCapacity / gasConstant - 1.5;
    const double beta = 0.7862 - 0.7109 * fluid.omega + 1.3168 * fluid.omega * fluid.omega;
    const double Z = 2 + 10.5 * (T / Tc) * (T / Tc);
    const double psi = 1 + alpha * (0.215 + 0.28288 * alpha - 1.061 * beta + 0.26665 * Z) /
                               (0.6366 + beta * Z + 1.061 * alpha * beta);
    const double kilograms = M * 1e-3;
    const double q = 3.586e-3 * std::sqrt(Tc / kilograms) / std::cbrt(Vc * Vc);
    thermalConductivity_ = 31.2 * thin * unit * psi / kilograms * (1 / H2 + B[5] * y) +
                           q * B[6] * y * y * std::sqrt(T / Tc) * H2;

    if (!(y < 1) || !(viscosity_ > 0) || !(thermalConductivity_ > 0) || !std::isfinite(viscosity_) ||
        !std::isfinite(thermalConductivity_))
        throw PackageError(fmt::format(
            "no viscosity and thermal conductivity at T = {} K and a density of {} mol/m3: the correlation gives "
            "{} Pa s and {} W/m/K",
            T, density, viscosity_, thermalConductivity_));
}

}  // namespace orvane::package
