// Which of the parameters of an information object a port uses.
#pragma once

#include "cobia/Call.h"
#include "parameters/ParameterSpecification.h"

#include <string>

namespace orvane {

/// The name of the real parameter with the wanted one's dimension that bears its name, letter case aside, and without such
/// a one of the first that has the dimension. Throws cape_open_error: when there is none, with code 115 when the number of
/// items changes meanwhile, and with the host's own error.
std::string chooseParameter(const COBIA::Ref<COBIA::ICapeCollection>& collection,
                            const ParameterSpecification& wanted);

}  // namespace orvane
