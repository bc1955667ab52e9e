// The editor's library, which stands beside the module and is loaded when somebody wants to edit.
#pragma once

#include "unit/EditingUnit.h"

namespace orvane {

/// The function that shows the editor. The first call that succeeds loads the library; until then each call tries anew, so
/// that a library which is installed later is found. Throws COBIA::StringException with what was looked for, where, and
/// the system's reason. Any thread.
OrvaneEditor* findEditor();

}  // namespace orvane
