// The errors of the property package.
// Not here: what a host makes of them.
#pragma once

#include <stdexcept>
#include <string>

namespace orvane::package {

/// Something that the property package was asked for and cannot give. The message names what was asked for,
/// at which conditions, and for a solver how near it came after how many steps.
class PackageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The mixture splits into two liquids and no vapour, which a package of one vapour and one liquid cannot
/// express. The message gives both liquids.
class LiquidLiquidSplit : public PackageError {
public:
    using PackageError::PackageError;
};

}  // namespace orvane::package
