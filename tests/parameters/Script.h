// A Python interpreter for these tests, started once, with the scripting types of this folder ready; and statements run
// in a namespace of their own.
#pragma once

#include "engine/Conversion.h"

#include <string>

namespace orvane {

class Script {
public:
    /// Knows the name Dimension.
    Script();

    void put(const char* name, const PyRef& value);
    /// Throws std::runtime_error with the Python error.
    PyRef eval(const std::string& expression);
    /// What `eval` gives, as repr.
    std::string repr(const std::string& expression);
    /// Runs statements: "ValueError: Value must be specified", or empty when nothing was raised.
    std::string error(const std::string& statements);

private:
    PyRef names_;
};

}  // namespace orvane
