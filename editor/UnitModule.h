// The unit operation's module, which stands beside this library.
#pragma once

#include "cobia/Ref.h"

namespace orvane {

/// A new unit operation. The first call loads the module, and the library of CPython that it needs; until that succeeds
/// each call tries anew, so that a Python which is installed later is found. Throws COBIA::StringException with what was
/// looked for, where, and what is wrong there; COBIA::cape_open_error when the module refuses. Any thread.
COBIA::Ref<COBIA::ICapeInterface> createUnit();

}  // namespace orvane
