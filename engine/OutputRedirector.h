// The write-only text sink behind sys.stdout, sys.stderr and the report files of a call.
#pragma once

#include "engine/ScriptType.h"

#include <string>

namespace orvane {

/// Has `write` and nothing else of a file. What C libraries write to file descriptor 1 passes it by.
class OutputRedirector {
public:
    PyRef write(PyObject* arguments);

    /// UTF-8; whoever reads it may take it away.
    std::string text;
};

extern PyTypeObject outputRedirectorType;

}  // namespace orvane
