// The phases that a property package defines.
#pragma once

#include "cobia/Data.h"

#include <string>
#include <vector>

namespace orvane {

struct PhaseDescription {
    static constexpr int none = -1;

    std::string label;
    std::string stateOfAggregation;  // lower case; empty: unknown
    int keyCompound = none;          // in the list of compounds
    int excludedCompound = none;     // in the list of compounds
    COBIA::StringObject identifier;  // the label as it goes to the host
};

/// In the package's order, by which a phase is known elsewhere. Immutable once it is made.
class PhaseList {
public:
    static constexpr int none = PhaseDescription::none;

    explicit PhaseList(std::vector<PhaseDescription> phases);
    PhaseList(const PhaseList&) = delete;
    PhaseList& operator=(const PhaseList&) = delete;

    std::size_t size() const noexcept { return phases_.size(); }
    const PhaseDescription& operator[](int phase) const {
        return phases_.at(static_cast<std::size_t>(phase));
    }

    /// The first phase of a state of aggregation ("vapor", "liquid", "solid"), or none.
    int first(std::string_view stateOfAggregation) const;
    int vapor() const noexcept { return vapor_; }
    /// The phase with a label, as it came from the host, or none. A letter's case makes no difference.
    int find(COBIA::CapeTextView label) const;

    /// All labels, and for each that nothing is known of its being present.
    COBIA::ICapeArrayString* labels() const noexcept { return labelsView_.in(); }
    COBIA::ICapeArrayEnumeration* unknownStatus() const noexcept { return unknownStatus_.in(); }

private:
    std::vector<PhaseDescription> phases_;
    int vapor_;
    std::vector<COBIA::ICapeString*> labels_;
    COBIA::StringsView labelsView_;
    COBIA::EnumerationArray unknownStatus_;
};

/// True when two labels of the host name the same phase.
bool sameLabel(COBIA::CapeTextView a, COBIA::CapeTextView b);

}  // namespace orvane
