#include "thermo/PhaseList.h"

#include <algorithm>
#include <functional>

namespace orvane {

using namespace COBIA;

namespace {

std::vector<ICapeString*> identifiersOf(const std::vector<PhaseDescription>& phases) {
    std::vector<ICapeString*> identifiers;
    for (const PhaseDescription& phase : phases) identifiers.push_back(phase.identifier.in());
    return identifiers;
}

}  // namespace

PhaseList::PhaseList(std::vector<PhaseDescription> phases)
    : phases_(std::move(phases)),
      vapor_(first("vapor")),
      labels_(identifiersOf(phases_)),
      labelsView_(labels_),
      unknownStatus_(std::vector(phases_.size(), static_cast<CapeEnumeration>(CapePhaseStatus::unknown))) {}

int PhaseList::first(std::string_view stateOfAggregation) const {
    const auto found = std::ranges::find(phases_, stateOfAggregation, &PhaseDescription::stateOfAggregation);
    return found == phases_.end() ? none : static_cast<int>(found - phases_.begin());
}

int PhaseList::find(CapeTextView label) const {
    const auto matching = [&](auto&& same) {
        const auto found = std::ranges::find_if(
            phases_, [&](const PhaseDescription& phase) { return same(phase.identifier.view(), label); });
        return found == phases_.end() ? none : static_cast<int>(found - phases_.begin());
    };
    const int exact = matching(std::equal_to<>());
    return exact == none ? matching(sameLabel) : exact;
}

bool sameLabel(CapeTextView a, CapeTextView b) { return a == b || equalIgnoringCase(toUtf8(a), toUtf8(b)); }

}  // namespace orvane
