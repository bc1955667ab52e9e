// Errors of scripts as the text that users read.
// Threads: with the engine lock and the interpreter lock held.
#pragma once

#include <string>

namespace orvane {

/// Prints the Python error that is set into the capture of sys.stderr, and clears it: as PyErr_Print does, but
/// SystemExit is an error like any other and ends no process, and a script that replaced sys.stderr or sys.excepthook
/// does not hide its failure. Nothing of the error stays behind in `sys`.
void printError();

/// Tidies an error text: lines of the script are named as "Line N", and its module as 'user_defined_unit'.
void rewriteTraceback(std::string& text);

/// The one line that best names a failure: the source line under the first "Line N, in ..." of a tidied text, and
/// without one the whole text made one line.
std::string extractFailingLine(const std::string& text);

}  // namespace orvane
