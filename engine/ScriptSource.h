// The text of a script or an expression: running it, and showing its lines in tracebacks. All such code is compiled under
// the one name "<string>", so what tracebacks find under it is the text at work.
// Threads: with the engine lock and the interpreter lock held.
#pragma once

#include "engine/PyRef.h"

#include <string>

namespace orvane {

/// Compiles and runs a text in a namespace and gives its value; empty, with the Python error set, when that fails.
/// start: Py_file_input or Py_eval_input.
PyRef runText(const std::string& text, int start, PyObject* names);

/// Lets tracebacks show the lines of one text for as long as the object lives; then those of the text before.
class ShownSource {
public:
    /// What sourceOf gave; an empty handle shows nothing new.
    explicit ShownSource(const PyRef& source);
    ShownSource(const ShownSource&) = delete;
    ShownSource& operator=(const ShownSource&) = delete;
    ~ShownSource();

private:
    bool replaced_ = false;
    PyRef previous_;  // empty when there was none
};

/// The lines of a text, prepared for tracebacks.
PyRef sourceOf(const std::string& text);

}  // namespace orvane
