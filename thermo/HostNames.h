// The names that every material object knows, made once in the form in which they go to the host.
#pragma once

#include "cobia/Data.h"

namespace orvane {

struct HostNames {
    COBIA::StringObject noBasis;
    COBIA::StringObject mole{"mole"};
    COBIA::StringObject temperature{"temperature"};
    COBIA::StringObject pressure{"pressure"};
    COBIA::StringObject fraction{"fraction"};
    COBIA::StringObject phaseFraction{"phaseFraction"};
    COBIA::StringObject totalFlow{"totalFlow"};
    COBIA::StringObject enthalpy{"enthalpy"};
    COBIA::StringObject excludedCompound{"ExcludedCompoundId"};
    COBIA::StringObject solutionTypes[3] = {COBIA::StringObject("unspecified"), COBIA::StringObject("normal"),
                                            COBIA::StringObject("retrograde")};
};

/// The one instance; never destroyed, since wrappers may outlive static objects.
inline const HostNames& hostNames() {
    static const HostNames& names = *new HostNames;
    return names;
}

}  // namespace orvane
