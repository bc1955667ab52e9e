#include "engine/ScriptModule.h"

#include "cobia/Error.h"
#include "engine/Conversion.h"
#include "engine/PythonEntry.h"
#include "engine/ScriptSource.h"
#include "engine/Traceback.h"
#include "platform/Files.h"

namespace orvane {

std::string ScriptModule::load(const std::string& file) {
    PythonEntry entry;
    try {
        const std::string script = readFile(file);
        create();
        source_ = sourceOf(script);
        const ShownSource shown(source_);
        if (!runText(script, Py_file_input, PyModule_GetDict(module_.get()))) printError();
    }
    catch (const PythonErrorSet&) {
        printError();
    }
    catch (const COBIA::StringException& unreadable) {
        entry.engine().errorText() += std::string("Could not open file: ") + unreadable.what();
    }
    std::string errors = entry.takeErrors();
    rewriteTraceback(errors);
    return errors;
}

void ScriptModule::create() {
    release();
    module_ = PyRef::steal(PyModule_New(name_.c_str()));
    check(PyModule_AddStringConstant(module_.get(), "__file__", ""));
    check(PyDict_SetItemString(PyModule_GetDict(module_.get()), "__builtins__", PyEval_GetBuiltins()));
    // A key made from a C string would be interned, and stay for good.
    key_ = toPython(name_);
    check(PyDict_SetItem(PyImport_GetModuleDict(), key_.get(), module_.get()));
}

void ScriptModule::release() noexcept {
    if (!module_) return;
    if (key_ && PyDict_Pop(PyImport_GetModuleDict(), key_.get(), nullptr) < 0) PyErr_Clear();
    key_ = PyRef();
    module_ = PyRef();
    source_ = PyRef();
}

void ScriptModule::abandon() noexcept {
    key_.detach();
    module_.detach();
    source_.detach();
}

}  // namespace orvane
