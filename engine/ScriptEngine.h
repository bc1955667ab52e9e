// The one embedded interpreter of the process: its start, the scripting types and constants, the captures of what
// scripts print, and its end. Units share it; each has a script module of its own.
// Not here: entering it (PythonEntry), running scripts (ScriptCalls).
// Threads: started once, by whichever thread is first; afterwards every touch of Python goes through PythonEntry.
#pragma once

#include "engine/PyRef.h"
#include "engine/ScriptType.h"

#include <mutex>
#include <span>
#include <string>

namespace orvane {

class ScriptEngine {
public:
    explicit ScriptEngine(std::span<const ScriptingType> types) noexcept;
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    ~ScriptEngine();

    /// Empty when the start succeeded; otherwise the message that every entry fails with, for the life of the process.
    const std::string& startupError() const noexcept { return startupError_; }

    // What scripts printed, in UTF-8. With the interpreter lock held.

    std::string& outputText() const noexcept;
    std::string& errorText() const noexcept;
    /// Points sys.stdout and sys.stderr at the captures.
    void captureOutput() const noexcept;
    void captureErrors() const noexcept;

    PyObject* warnings() const noexcept { return warnings_.get(); }
    PyObject* pickle() const noexcept { return pickle_.get(); }
    /// The dictionary in which tracebacks look for source lines.
    PyObject* lineCache() const noexcept { return lineCache_.get(); }

private:
    void startInterpreter();
    void addTypes(std::span<const ScriptingType> types);
    void importModules();
    void addVirtualEnvironment();

    std::string startupError_;
    PyThreadState* savedThread_ = nullptr;  // when this engine started the interpreter
    bool interpreterActive_ = false;
    PyRef warnings_, pickle_, lineCache_;
    PyRef stdoutCapture_, stderrCapture_;
};

/// The process's engine, started on the first call with the types that setScriptingTypes named. Never fails: what went
/// wrong is its startupError.
ScriptEngine& scriptEngine();

/// Names the scripting types, in the order in which they are made ready. Before the first scriptEngine().
void setScriptingTypes(std::span<const ScriptingType> types) noexcept;

/// Held around all script work of all units, outside of the interpreter lock: a script that calls back into its unit
/// holds both. The same thread may take it again.
std::recursive_mutex& engineLock();

}  // namespace orvane
