// The scoped ways into the interpreter, through which everything reaches Python.
// Order of locks, everywhere: the engine lock, then the interpreter lock.
#pragma once

#include "engine/ScriptEngine.h"

#include <mutex>
#include <string>

namespace orvane {

/// The interpreter lock alone, for dropping references and reading objects. The interpreter has started.
class InterpreterLock {
public:
    InterpreterLock() noexcept : state_(PyGILState_Ensure()) {}
    InterpreterLock(const InterpreterLock&) = delete;
    InterpreterLock& operator=(const InterpreterLock&) = delete;
    ~InterpreterLock() { PyGILState_Release(state_); }

private:
    PyGILState_STATE state_;
};

/// Script work of one unit: both locks, and captures of its own. Work inside work, by a host that calls back into a unit
/// on the same thread, keeps what the outer one printed aside and gives it back.
class ScriptSession {
public:
    /// Throws StringException with the engine's text when the interpreter did not start.
    ScriptSession();
    ScriptSession(const ScriptSession&) = delete;
    ScriptSession& operator=(const ScriptSession&) = delete;
    ~ScriptSession();

    ScriptEngine& engine() noexcept { return engine_; }
    /// What was printed since, taken out of the captures.
    std::string takeOutput() noexcept { return std::exchange(engine_.outputText(), {}); }
    std::string takeErrors() noexcept { return std::exchange(engine_.errorText(), {}); }

private:
    std::unique_lock<std::recursive_mutex> engineLock_;
    ScriptEngine& engine_;
    InterpreterLock interpreterLock_;
    std::string outerOutput_, outerErrors_;
};

/// A session in which sys.stdout and sys.stderr are the captures, and that starts and ends without a pending error.
class PythonEntry : public ScriptSession {
public:
    PythonEntry();
    ~PythonEntry();

private:
    PyRef stdout_, stderr_;
};

}  // namespace orvane
