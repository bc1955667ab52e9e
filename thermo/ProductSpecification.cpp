#include "thermo/ProductSpecification.h"

#include "cobia/Error.h"

#include <algorithm>
#include <utility>

namespace orvane {

using COBIA::StringException;

namespace {

/// What rounding may add to a vapour fraction of 1: five units in the last place.
constexpr double greatestFraction = 1 + 5 * std::numeric_limits<double>::epsilon();

/// NaN passes: it is refused later, and only where it would be a new condition.
void checkValue(const FlashCondition& condition) {
    switch (condition.code) {
    case ConditionCode::temperature:
    case ConditionCode::pressure:
    case ConditionCode::volume:
        if (condition.value <= 0) throw StringException("value must be positive");
        return;
    case ConditionCode::vaporFraction:
        if (condition.value < 0 || condition.value > greatestFraction)
            throw StringException("value must be in [0,1] range");
        return;
    default: return;
    }
}

/// "temperature is already specified", or of two "temperature and pressure are already specified".
std::string alreadySpecified(std::span<const FlashCondition> conditions) {
    const std::string first = conditionName(conditions[0].code);
    if (conditions.size() == 1) return first + " is already specified";
    return first + " and " + conditionName(conditions[1].code) + " are already specified";
}

}  // namespace

void ProductSpecification::reset() {
    xSpecified_ = false;
    flowRateSpecified_ = false;
    solutionType_ = SolutionType::unspecified;
    conditions_.clear();
}

void ProductSpecification::setX(std::vector<double> x) {
    x_ = std::move(x);
    xSpecified_ = true;
}

void ProductSpecification::setCondition(const std::string& port, FlashCondition condition) {
    if (isCopied()) {
        throw StringException() << "cannot set equilibrium conditions for port '" << port
                                << "'; copy_from has been called already.";
    }
    checkValue(condition);
    const auto same = std::ranges::find(conditions_, condition.code, &FlashCondition::code);
    if (same != conditions_.end()) {
        same->value = condition.value;
        return;
    }
    if (conditions_.size() == 2) {
        throw StringException() << "exactly two equilibrium conditions must be specified for port '" << port
                                << "'; " << alreadySpecified(conditions_);
    }
    if (std::isnan(condition.value)) throw StringException("value cannot be missing");
    conditions_.push_back(condition);
}

void ProductSpecification::recordCopy(const std::string& port, const CopiedState& state) {
    if (!conditions_.empty()) {
        throw StringException() << "cannot call copy_fromm on port '" << port << "'; "
                                << alreadySpecified(conditions_);
    }
    copied_ = state;
}

const FlashCondition* ProductSpecification::findCondition(ConditionCode code) const {
    const auto found = std::ranges::find(conditions_, code, &FlashCondition::code);
    return found == conditions_.end() ? nullptr : &*found;
}

void ProductSpecification::checkComplete(const std::string& port,
                                         const std::function<void(const std::string&)>& report) const {
    if (!xSpecified_) report("x not specified for port '" + port + "'");
    if (!flowRateSpecified_) report("flow_rate not specified for port '" + port + "'");
    if (!isCopied() && conditions_.size() < 2) {
        report(std::string("missing phase equilibrium condition") + (conditions_.empty() ? "s" : "") +
               " for port '" + port + "'");
    }
    if (isCopied() && !conditions_.empty()) {
        report("cannot specify phase equilibrium conditions for port '" + port +
               "' if copy_from is used as well; not flashing product stream");
    }
}

}  // namespace orvane
