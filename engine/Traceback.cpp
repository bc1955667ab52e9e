#include "engine/Traceback.h"

#include "engine/Conversion.h"
#include "engine/OutputRedirector.h"
#include "engine/ScriptEngine.h"

#include <algorithm>
#include <string_view>

namespace orvane {
namespace {

/// What is left to say of an error that does not print itself, for instance a text with a lone surrogate.
std::string plainText(PyObject* error) {
    std::string text = Py_TYPE(error)->tp_name;
    const PyRef message = PyRef::stealMaybe(PyObject_ASCII(error));
    if (message)
        text += ": " + toText(message.get());
    else
        PyErr_Clear();
    return text + "\n";
}

bool isModuleCharacter(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); }

}  // namespace

void printError() {
    const PyRef error = PyRef::stealMaybe(PyErr_GetRaisedException());
    if (!error) return;
    ScriptEngine& engine = scriptEngine();
    std::string& capture = engine.errorText();
    const std::size_t before = capture.size();
    engine.captureErrors();
    PyErr_DisplayException(error.get());
    PyErr_Clear();
    if (capture.size() == before) capture += plainText(error.get());
}

void rewriteTraceback(std::string& text) {
    static constexpr std::string_view file = "File \"<string>\", line";
    for (std::size_t at = text.find(file); at != std::string::npos; at = text.find(file, at))
        text.replace(at, file.size(), "Line");

    static constexpr std::string_view module = "module 'unit";
    for (std::size_t at = text.find(module); at != std::string::npos; at = text.find(module, at + 1)) {
        std::size_t end = at + module.size();
        while (end < text.size() && isModuleCharacter(text[end])) ++end;
        if (end == at + module.size() || end == text.size() || text[end] != '\'') continue;
        const std::size_t name = at + std::string_view("module '").size();
        text.replace(name, end - name, "user_defined_unit");
    }
}

std::string extractFailingLine(const std::string& text) {
    static constexpr std::string_view line = "Line ";
    static constexpr std::string_view in = ", in ";
    for (std::size_t at = text.find(line); at != std::string::npos; at = text.find(line, at + 1)) {
        std::size_t digits = at + line.size();
        while (digits < text.size() && text[digits] >= '0' && text[digits] <= '9') ++digits;
        if (digits == at + line.size() || text.compare(digits, in.size(), in) != 0) continue;
        const std::size_t name = digits + in.size();
        const std::size_t nameEnd = text.find('\n', name);
        if (nameEnd == std::string::npos || nameEnd == name) continue;
        const std::size_t sourceEnd = text.find('\n', nameEnd + 1);
        if (sourceEnd == std::string::npos || sourceEnd == nameEnd + 1) continue;
        return text.substr(nameEnd + 1, sourceEnd - nameEnd - 1);
    }
    std::string result;
    for (const char c : std::string_view(text).substr(std::min(text.find_first_not_of(' '), text.size()))) {
        if (c == '\n')
            result += "; ";
        else if (c != '\r')
            result += c;
    }
    return result;
}

}  // namespace orvane
