// The vapour pressure of a pure compound by corresponding states.
// Not here: the saturation that an equation of state predicts (SaturationPoint).
#pragma once

namespace orvane::package {

/// ln of the vapour pressure [Pa] of a compound and its first and second derivative by temperature [1/K,
/// 1/K2], from its critical temperature and pressure and its acentric factor. Above the critical temperature,
/// where there is none, ln P goes on along its tangent over 1/T: what a dissolved gas contributes to an ideal
/// liquid.
/// Source: B. I. Lee, M. G. Kesler, AIChE J. 21 (1975) 510-527.
struct VaporPressure {
    double ln = 0;
    double byTemperature = 0;
    double byTemperatureTwice = 0;

    VaporPressure(double criticalTemperature, double criticalPressure, double acentricFactor,
                  double temperature);
};

}  // namespace orvane::package
