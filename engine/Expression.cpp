#include "engine/Expression.h"

#include "engine/Conversion.h"
#include "engine/PythonEntry.h"
#include "engine/PythonGuard.h"
#include "engine/ScriptSource.h"
#include "engine/Traceback.h"

#include <algorithm>
#include <limits>

namespace orvane {
namespace {

/// Python shows some numbers by words that it does not read. As names they are read wherever they stand free, and are
/// left alone within texts.
PyRef namesOfNumbers() {
    const PyRef names = PyRef::steal(PyDict_New());
    check(PyDict_SetItemString(names.get(), "nan", toPython(std::numeric_limits<double>::quiet_NaN()).get()));
    check(PyDict_SetItemString(names.get(), "inf", toPython(std::numeric_limits<double>::infinity()).get()));
    return names;
}

}  // namespace

CallTexts evaluateExpression(const std::string& text, const std::function<void(PyObject*)>& receive) {
    PythonEntry entry;
    try {
        const std::size_t start = std::min(text.find_first_not_of(" \t"), text.size());
        const std::string expression = text.substr(start);
        const ShownSource shown(sourceOf(expression));
        const int status = pythonGuard([&] {
            const PyRef names = namesOfNumbers();
            const PyRef value = runText(expression, Py_eval_input, names.get());
            if (!value) throw PythonErrorSet();
            receive(value.get());
            return 0;
        });
        if (status < 0) printError();
    }
    catch (const PythonErrorSet&) {
        printError();
    }
    CallTexts texts{entry.takeOutput(), entry.takeErrors()};
    rewriteTraceback(texts.errors);
    return texts;
}

ValueTexts valuesToText(std::size_t count, const std::function<PyRef(std::size_t)>& valueAt) {
    ValueTexts result;
    if (count == 0) return result;
    result.texts.resize(count);
    PythonEntry entry;
    for (std::size_t i = 0; i < count; ++i) {
        const int status = pythonGuard([&] {
            const PyRef value = valueAt(i);
            result.texts[i] = toText(PyRef::steal(PyObject_Repr(value.get())).get());
            return 0;
        });
        if (status < 0) printError();
    }
    result.errors = entry.takeErrors();
    rewriteTraceback(result.errors);
    return result;
}

}  // namespace orvane
