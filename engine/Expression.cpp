#include "engine/Expression.h"

#include "engine/Conversion.h"
#include "engine/PythonEntry.h"
#include "engine/PythonGuard.h"
#include "engine/ScriptSource.h"
#include "engine/Traceback.h"

#include <algorithm>
#include <string_view>

namespace orvane {
namespace {

/// Letters beyond ASCII count as letters by each of their bytes.
bool isLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c & 0x80);
}

/// Python writes and prints "nan", but has no such name.
std::string withNanSpelledOut(std::string_view text) {
    static constexpr std::string_view word = "nan";
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const bool here = text.substr(at, word.size()) == word;
        const char before = at == 0 ? ' ' : text[at - 1];
        const char after = at + word.size() < text.size() ? text[at + word.size()] : ' ';
        if (here && !isLetterOrDigit(before) && before != '.' && !isLetterOrDigit(after)) {
            result += "float(\"nan\")";
            at += word.size();
        } else {
            result += text[at++];
        }
    }
    return result;
}

}  // namespace

CallTexts evaluateExpression(const std::string& text, const std::function<void(PyObject*)>& receive) {
    PythonEntry entry;
    try {
        const std::size_t start = std::min(text.find_first_not_of(" \t"), text.size());
        const std::string expression = withNanSpelledOut(std::string_view(text).substr(start));
        const ShownSource shown(sourceOf(expression));
        const int status = pythonGuard([&] {
            const PyRef names = PyRef::steal(PyDict_New());
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
