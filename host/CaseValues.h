// Reads what a case file says of energy and information streams.
#pragma once

#include "host/CaseFile.h"
#include "host/CaseToml.h"

namespace orvane::host {

/// [energy.PORT]. Throws CaseError.
CaseEnergy readEnergy(const CaseToml& toml, const std::string& port, int line, const toml::table& in);

/// [information.PORT]. Throws CaseError.
CaseInformation readInformation(const CaseToml& toml, const std::string& port, int line,
                                const toml::table& in);

}  // namespace orvane::host
