// What a script has asked of a product stream, and the rules by which it may: composition, flow rate, and
// either two equilibrium conditions or the copied state of another equilibrium.
// Not here: carrying it out (CapeMaterial). Nothing here knows Python or the host.
#pragma once

#include "thermo/FlashCondition.h"

#include <cmath>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace orvane {

/// The state that a product is to match; NaN: not taken. The vapour fraction is given on a vapour phase
/// boundary only.
struct CopiedState {
    static constexpr double none = std::numeric_limits<double>::quiet_NaN();

    double vaporFraction = none;  // mol/mol
    double temperature = none;    // K
    double pressure = none;       // Pa
    double enthalpy = none;       // J/mol
};

class ProductSpecification {
public:
    /// Forgets composition, flow, conditions and solution type. The copied state stays.
    void reset();
    void clearCopy() { copied_ = {}; }

    /// Mole fractions, checked by the caller (readComposition).
    void setX(std::vector<double> x);
    /// The flow rate stands on the host's object.
    void markFlowRate() { flowRateSpecified_ = true; }
    void setSolutionType(SolutionType type) { solutionType_ = type; }

    /// Adds a condition or replaces the value of the one with the same code. Throws StringException, which
    /// names the port where that helps, when a copy was recorded, when the value cannot be, and when two
    /// others are specified.
    void setCondition(const std::string& port, FlashCondition condition);

    /// Records a copy. Throws StringException when conditions are specified.
    void recordCopy(const std::string& port, const CopiedState& state);

    bool xSpecified() const { return xSpecified_; }
    bool flowRateSpecified() const { return flowRateSpecified_; }
    const std::vector<double>& x() const { return x_; }
    std::span<const FlashCondition> conditions() const { return conditions_; }
    /// Null when there is no such condition.
    const FlashCondition* findCondition(ConditionCode code) const;
    SolutionType solutionType() const { return solutionType_; }
    const CopiedState& copied() const { return copied_; }
    /// A copy counts by its pressure.
    bool isCopied() const { return !std::isnan(copied_.pressure); }

    /// Tells `report` of everything that is missing or contradictory, in a line each.
    void checkComplete(const std::string& port, const std::function<void(const std::string&)>& report) const;

private:
    bool xSpecified_ = false;
    bool flowRateSpecified_ = false;
    SolutionType solutionType_ = SolutionType::unspecified;
    std::vector<double> x_;
    std::vector<FlashCondition> conditions_;  // at most two, in the order in which they were given
    CopiedState copied_;
};

}  // namespace orvane
