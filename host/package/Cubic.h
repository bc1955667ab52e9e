// The density roots of the Peng-Robinson cubic.
// Not here: where its two parameters come from and which root is wanted (CubicPhase).
#pragma once

namespace orvane::package {

/// The extreme roots of the Peng-Robinson cubic in u = Z - B, the compressibility factor less that of the
/// covolume. In u every physical root is positive and the small roots of a cold liquid keep their digits.
struct CubicRoots {
    double smallest = 0;
    double largest = 0;  ///< the same as smallest where there is one root
    bool three = false;

    /// A = a P / (R T)^2, not negative; B = b P / (R T), positive. Both roots are exact to rounding: a closed
    /// interval that holds the root, shrunk by Halley's steps and, where these do not help, by halves. Throws
    /// PackageError when A or B is not finite.
    CubicRoots(double A, double B);
};

}  // namespace orvane::package
