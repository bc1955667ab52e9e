#include "platform/ProcessEnd.h"

namespace orvane {

// Threads run on while static objects are destroyed, so their destructors do.

void beforeProcessEnds(void (*)()) {}

bool otherThreadsAreGone() noexcept { return false; }

}  // namespace orvane
