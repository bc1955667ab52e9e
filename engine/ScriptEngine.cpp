#include "engine/ScriptEngine.h"

#include "cobia/Error.h"
#include "engine/OutputRedirector.h"
#include "engine/SearchPath.h"
#include "engine/UnitObject.h"
#include "platform/Environment.h"
#include "platform/ModuleLocation.h"

#include <filesystem>

namespace orvane {
namespace {

std::span<const ScriptingType> scriptingTypes;

/// A configuration of the interpreter, cleared on every way out.
class Configuration {
public:
    Configuration() {
        // File names decode only once the interpreter knows the encoding of the system.
        PyPreConfig early;
        PyPreConfig_InitPythonConfig(&early);
        require(Py_PreInitialize(&early));
        PyConfig_InitPythonConfig(&config_);
    }
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration() { PyConfig_Clear(&config_); }

    PyConfig* operator->() noexcept { return &config_; }
    PyConfig* get() noexcept { return &config_; }

    void set(wchar_t** field, const wchar_t* value) { require(PyConfig_SetString(&config_, field, value)); }

    /// Decodes as the interpreter does, so that any file name survives.
    void addSearchPath(const std::string& entry) {
        wchar_t* decoded = Py_DecodeLocale(entry.c_str(), nullptr);
        if (!decoded)
            throw COBIA::StringException() << "cannot decode the search path entry '" << entry << "'";
        const PyStatus status = PyWideStringList_Append(&config_.module_search_paths, decoded);
        PyMem_RawFree(decoded);
        require(status);
    }

    static void require(const PyStatus& status) {
        if (PyStatus_Exception(status))
            throw COBIA::StringException(status.err_msg ? status.err_msg : "Py_Initialize failed");
    }

private:
    PyConfig config_;
};

/// The python beside the library, which multiprocessing starts in place of the simulator; empty when there is none.
std::wstring pythonExecutable() {
    namespace fs = std::filesystem;
    try {
        const fs::path library = moduleFile(addressOf(&Py_Initialize));
        for (const fs::path& folder : {library.parent_path().parent_path() / "bin", library.parent_path(),
                                       library.parent_path().parent_path().parent_path() / "bin"}) {
            const fs::path python = folder / "python3.14";
            std::error_code failed;
            if (fs::exists(python, failed)) return python.wstring();
        }
    }
    catch (const std::exception&) {
        // Without its location there is no python to name either.
    }
    return {};
}

/// The interpreter that this process runs or would run. Where the host brings one of its own, that can be any.
void requireFittingVersion() {
    const std::string version = Py_GetVersion();
    if (!version.starts_with("3.14."))
        throw COBIA::StringException()
            << "this process already has Python " << version.substr(0, version.find(' '))
            << "; this unit operation needs Python 3.14";
}

/// The interpreter's end waits for threads that scripts left running, and the simulator would never close. They get a
/// moment to end in order; after that nobody waits for them.
void endThreads() noexcept {
    if (!PyDict_GetItemString(PyImport_GetModuleDict(), "threading")) return;
    if (PyRun_SimpleString("import threading\n"
                           "if threading.active_count() > 1:\n"
                           "    end = threading.Thread(target=threading._shutdown, daemon=True)\n"
                           "    end.start()\n"
                           "    end.join(1)\n"
                           "    threading._shutdown = lambda: None\n") < 0)
        PyErr_Clear();
}

}  // namespace

ScriptEngine::ScriptEngine(std::span<const ScriptingType> types) noexcept {
    PyGILState_STATE lock{};
    bool locked = false;
    try {
        requireFittingVersion();
        const bool foreign = Py_IsInitialized() != 0;
        if (foreign) {
            lock = PyGILState_Ensure();
            locked = true;
        } else {
            startInterpreter();
        }
        interpreterActive_ = Py_IsInitialized() != 0;
        if (!interpreterActive_) throw COBIA::StringException("Py_Initialize failed");
        addTypes(types);
        importModules();
        if (!foreign) addVirtualEnvironment();
        if (!foreign) savedThread_ = PyEval_SaveThread();
    }
    catch (const PythonErrorSet&) {
        const PyRef error = PyRef::stealMaybe(PyErr_GetRaisedException());
        startupError_ = "Failed to initialize Python: " + describe(error.get());
    }
    catch (const std::exception& error) {
        startupError_ = std::string("Failed to initialize Python: ") + error.what();
    }
    catch (...) {
        startupError_ = "Failed to initialize Python";
    }
    if (locked)
        PyGILState_Release(lock);
    else if (interpreterActive_ && !savedThread_)
        savedThread_ = PyEval_SaveThread();
}

void ScriptEngine::startInterpreter() {
    makeGlobal(addressOf(&Py_Initialize));
    Configuration configuration;
    if (const auto entries = searchPath()) {
        for (const std::string& entry : *entries) configuration.addSearchPath(entry);
        configuration->module_search_paths_set = 1;
    }
    configuration.set(&configuration->program_name, L"OrvaneOperation");
    if (const std::wstring python = pythonExecutable(); !python.empty()) {
        configuration.set(&configuration->executable, python.c_str());
        configuration.set(&configuration->base_executable, python.c_str());
    }
    configuration->user_site_directory = 0;
    // Windows of a plotting library would block the simulator.
    setDefaultEnvironmentVariable("MPLBACKEND", "agg");
    // Whether it came up is asked of the interpreter itself; a message of the status would take the place of ours.
    static_cast<void>(Py_InitializeFromConfig(configuration.get()));
}

void ScriptEngine::addTypes(std::span<const ScriptingType> types) {
    for (const ScriptingType& row : types)
        if (PyType_Ready(row.type) < 0) throw COBIA::StringException("type initialization failed");
    for (const ScriptingType& row : types)
        if (row.addConstants) row.addConstants();
    for (const ScriptingType& row : types)
        if (row.unitAttribute)
            addConstant(unitType, row.unitAttribute, PyRef::share(reinterpret_cast<PyObject*>(row.type)));
}

void ScriptEngine::importModules() {
    pickle_ = PyRef::steal(PyImport_ImportModule("pickle"));
    warnings_ = PyRef::steal(PyImport_ImportModule("warnings"));
    const PyRef linecache = PyRef::steal(PyImport_ImportModule("linecache"));
    lineCache_ = PyRef::steal(PyObject_GetAttrString(linecache.get(), "cache"));
    stdoutCapture_ = createObject<OutputRedirector>(outputRedirectorType);
    stderrCapture_ = createObject<OutputRedirector>(outputRedirectorType);
}

void ScriptEngine::addVirtualEnvironment() {
    const auto folder = environmentVariable("VIRTUAL_ENV");
    const auto modules = folder ? virtualEnvironmentPath(*folder) : std::nullopt;
    if (!modules) return;
    // The interpreter's own means, since such a folder may name further ones.
    const PyRef site = PyRef::steal(PyImport_ImportModule("site"));
    PyRef::steal(PyObject_CallMethod(site.get(), "addsitedir", "s", modules->c_str()));
}

ScriptEngine::~ScriptEngine() {
    // Another component that started the interpreter may have ended it already.
    if (!interpreterActive_ || !Py_IsInitialized()) {
        for (PyRef* reference : {&warnings_, &pickle_, &lineCache_, &stdoutCapture_, &stderrCapture_})
            reference->detach();
        return;
    }
    const PyGILState_STATE lock = PyGILState_Ensure();
    endThreads();
    for (PyRef* reference : {&warnings_, &stdoutCapture_, &stderrCapture_, &pickle_, &lineCache_})
        *reference = PyRef();
    PyGILState_Release(lock);
    // With the state of the thread that started the interpreter, whichever thread ends the process: the interpreter ends
    // with that state alone. Only its debug builds object.
    if (savedThread_)
        PyEval_RestoreThread(savedThread_);
    else
        PyGILState_Ensure();
    Py_FinalizeEx();
}

std::string& ScriptEngine::outputText() const noexcept {
    return contentOf<OutputRedirector>(stdoutCapture_.get()).text;
}

std::string& ScriptEngine::errorText() const noexcept {
    return contentOf<OutputRedirector>(stderrCapture_.get()).text;
}

void ScriptEngine::captureOutput() const noexcept {
    if (PySys_SetObject("stdout", stdoutCapture_.get()) < 0) PyErr_Clear();
    captureErrors();
}

void ScriptEngine::captureErrors() const noexcept {
    if (PySys_SetObject("stderr", stderrCapture_.get()) < 0) PyErr_Clear();
}

ScriptEngine& scriptEngine() {
    static ScriptEngine engine(scriptingTypes);
    return engine;
}

void setScriptingTypes(std::span<const ScriptingType> types) noexcept { scriptingTypes = types; }

std::recursive_mutex& engineLock() {
    static std::recursive_mutex mutex;
    return mutex;
}

}  // namespace orvane
