#include "engine/PythonEntry.h"

#include "cobia/Error.h"

namespace orvane {
namespace {

int depth = 0;  // of sessions within sessions; under the engine lock

/// A thread that holds the interpreter lock, as one of another component may, lets go of it while it waits: whoever holds
/// the engine lock may need it.
std::unique_lock<std::recursive_mutex> lockEngine() {
    std::unique_lock<std::recursive_mutex> lock(engineLock(), std::try_to_lock);
    if (lock) return lock;
    PyThreadState* const holding = Py_IsInitialized() && PyGILState_Check() ? PyEval_SaveThread() : nullptr;
    lock.lock();
    if (holding) PyEval_RestoreThread(holding);
    return lock;
}

ScriptEngine& startedEngine() {
    ScriptEngine& engine = scriptEngine();
    if (!engine.startupError().empty()) throw COBIA::StringException(engine.startupError());
    return engine;
}

void restore(const char* name, const PyRef& kept) noexcept {
    if (PySys_SetObject(name, kept.get()) < 0) PyErr_Clear();
}

}  // namespace

ScriptSession::ScriptSession() : engineLock_(lockEngine()), engine_(startedEngine()) {
    outerOutput_ = takeOutput();
    outerErrors_ = takeErrors();
    ++depth;
}

ScriptSession::~ScriptSession() {
    // Outside of all sessions there is nobody to give texts back to.
    if (--depth == 0) outerOutput_.clear(), outerErrors_.clear();
    engine_.outputText() = std::move(outerOutput_);
    engine_.errorText() = std::move(outerErrors_);
}

PythonEntry::PythonEntry() {
    PyErr_Clear();
    stdout_ = PyRef::share(PySys_GetObject("stdout"));
    stderr_ = PyRef::share(PySys_GetObject("stderr"));
    engine().captureOutput();
}

PythonEntry::~PythonEntry() {
    PyErr_Clear();
    restore("stdout", stdout_);
    restore("stderr", stderr_);
}

}  // namespace orvane
