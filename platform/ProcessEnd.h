// The end of the process, as a library meets it that a host has loaded.
#pragma once

namespace orvane {

/// Sees to it that the function is called before the process ends, where the destructors of this library's static objects
/// come too late: on Windows they run when all other threads are gone, whatever these held. It is called once at most, and
/// not when the process ends without telling its C runtime. This library then stays loaded until the end.
void beforeProcessEnds(void (*function)());

/// Whether the process is ending and its other threads are gone: what they held stays locked.
bool otherThreadsAreGone() noexcept;

}  // namespace orvane
