// The exit codes of the orvane command.
#pragma once

namespace orvane::host {

enum ExitCode : int {
    exitSuccess = 0,
    exitUnitFailed = 1,  ///< the unit is invalid, or its calculation failed
    exitWrongUse = 2,    ///< wrong usage, or a wrong case file
    exitNotLoaded = 3,   ///< the module or the interpreter could not be loaded
    exitTimedOut = 124,
    exitInterrupted = 130,
};

}  // namespace orvane::host
