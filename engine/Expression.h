// Values as users type and read them: one-line Python expressions, and the texts that read back as the same values.
#pragma once

#include "engine/PyRef.h"
#include "engine/ScriptCalls.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace orvane {

/// Evaluates an expression in a namespace of its own and hands the result to `receive`, which throws what it refuses
/// the value with. The words nan and inf are the floats. Gives what was printed, and what went wrong, empty
/// when all is well. Throws only when the interpreter did not start.
CallTexts evaluateExpression(const std::string& text, const std::function<void(PyObject*)>& receive);

/// The texts of values, by their order; that of a value which has none is empty, and `errors` says why.
struct ValueTexts {
    std::vector<std::string> texts;
    std::string errors;
};

/// `repr` of each of `count` values; valueAt gives a value as a Python object. Throws only when the interpreter did not
/// start.
ValueTexts valuesToText(std::size_t count, const std::function<PyRef(std::size_t)>& valueAt);

}  // namespace orvane
