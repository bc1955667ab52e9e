#include "engine/ScriptCalls.h"

#include "engine/Conversion.h"
#include "engine/OutputRedirector.h"
#include "engine/PythonEntry.h"
#include "engine/ScriptSource.h"
#include "engine/Traceback.h"
#include "engine/UnitObject.h"

#include <functional>
#include <vector>

namespace orvane {
namespace {

/// A call to be made.
struct Call {
    FunctionKind kind;
    std::string function;
    bool required;
    std::function<PyRef()> arguments;
};

const char* nameOf(FunctionKind kind) {
    switch (kind) {
    case FunctionKind::configure: return "Configure";
    case FunctionKind::validate: return "Validate";
    default: return "Calculate";
    }
}

/// The warnings of a call, recorded by the interpreter's own means. Without them the call goes on all the same.
class WarningRecorder {
public:
    WarningRecorder() {
        context_ = PyRef::stealMaybe(startContext());
        if (context_) records_ = PyRef::stealMaybe(PyObject_CallMethod(context_.get(), "__enter__", nullptr));
        if (!records_) PyErr_Clear();
    }
    WarningRecorder(const WarningRecorder&) = delete;
    WarningRecorder& operator=(const WarningRecorder&) = delete;
    ~WarningRecorder() {
        const KeptError kept;
        if (records_ && !PyRef::stealMaybe(PyObject_CallMethod(context_.get(), "__exit__", "OOO", Py_None,
                                                               Py_None, Py_None)))
            PyErr_Clear();
    }

    /// Hands each recorded warning to the unit.
    void tell(ScriptedUnit& unit) const {
        if (!records_) return;
        for (Py_ssize_t i = 0; i < PyList_GET_SIZE(records_.get()); ++i) {
            const PyRef record = PyRef::share(PyList_GET_ITEM(records_.get(), i));
            const PyRef message = PyRef::stealMaybe(PyObject_GetAttrString(record.get(), "message"));
            if (message)
                unit.warn(describe(message.get()));
            else
                PyErr_Clear();
        }
    }

private:
    static PyObject* startContext() {
        const PyRef type =
            PyRef::stealMaybe(PyObject_GetAttrString(scriptEngine().warnings(), "catch_warnings"));
        const PyRef none = PyRef::stealMaybe(PyTuple_New(0));
        const PyRef record = PyRef::stealMaybe(Py_BuildValue("{sO}", "record", Py_True));
        return type && none && record ? PyObject_Call(type.get(), none.get(), record.get()) : nullptr;
    }

    PyRef context_;
    PyRef records_;  // a list
};

/// What a call puts into the dictionaries of `unit`, for as long as it lasts. What an outer call of the same unit had put
/// there stands aside meanwhile.
class CallDictionaries {
public:
    CallDictionaries(ScriptedUnit& unit, FunctionKind kind)
        : unit_(unit),
          object_(unit.unitObject()),
          content_(contentOf<UnitObject>(object_.get())),
          kind_(kind) {
        if (kind_ == FunctionKind::configure) return;
        for (Dictionary& dictionary : dictionaries_) {
            if (PyDict_GET_SIZE(dictionary.object.get()) == 0) continue;
            dictionary.outer = PyRef::steal(PyDict_Copy(dictionary.object.get()));
            PyDict_Clear(dictionary.object.get());
        }
        unit_.beginCall();
    }
    CallDictionaries(const CallDictionaries&) = delete;
    CallDictionaries& operator=(const CallDictionaries&) = delete;
    ~CallDictionaries() {
        if (kind_ == FunctionKind::configure) return;
        const KeptError kept;
        for (const Dictionary& dictionary : dictionaries_) {
            PyDict_Clear(dictionary.object.get());
            if (dictionary.outer && PyDict_Update(dictionary.object.get(), dictionary.outer.get()) < 0)
                PyErr_Clear();
        }
        unit_.endCall();
    }

    void fill() {
        if (kind_ == FunctionKind::validate) PyDict_Clear(content_.validationData.get());
        if (kind_ == FunctionKind::configure) return;
        unit_.fillPorts(content_.ports.get());
        unit_.fillParameters(content_.parameters.get());
        for (const std::string& name : unit_.declaredReports()) {
            const PyRef file = createObject<OutputRedirector>(outputRedirectorType);
            check(PyDict_SetItem(content_.reports.get(), toPython(name).get(), file.get()));
            reports_.emplace_back(name, file);
        }
    }

    /// After Calculate: what was printed into the reports.
    void collect() {
        if (kind_ != FunctionKind::calculate) return;
        std::vector<std::pair<std::string, std::string>> texts;
        for (const auto& [name, file] : reports_)
            texts.emplace_back(name, contentOf<OutputRedirector>(file.get()).text);
        unit_.setReports(std::move(texts));
    }

private:
    struct Dictionary {
        PyRef object;
        PyRef outer;  // a copy of what an outer call had put there; empty when that was nothing
    };

    ScriptedUnit& unit_;
    PyRef object_;
    UnitObject& content_;
    Dictionary dictionaries_[3] = {{content_.ports, {}}, {content_.parameters, {}}, {content_.reports, {}}};
    FunctionKind kind_;
    std::vector<std::pair<std::string, PyRef>> reports_;
};

void makeCall(ScriptedUnit& unit, const Call& call, PyObject* function, std::string& errors) {
    CallDictionaries dictionaries(unit, call.kind);
    dictionaries.fill();
    {
        const WarningRecorder warnings;
        const PyRef result = PyRef::stealMaybe(PyObject_CallObject(function, call.arguments().get()));
        if (!result)
            printError();
        else if (result.get() != Py_None)
            errors += "\nFunction '" + call.function + "' should not return a value";
        warnings.tell(unit);
    }
    dictionaries.collect();
}

/// The function, or nothing when there is none to call; the reason then stands in `errors`.
PyRef findFunction(const ScriptedUnit& unit, const Call& call, std::string& errors) {
    PyRef function;
    if (const PyRef module = unit.functionModule()) {
        PyObject* found = nullptr;
        const int status = PyObject_GetOptionalAttrString(module.get(), call.function.c_str(), &found);
        function = PyRef::stealMaybe(found);
        if (status < 0) {
            // The module's own __getattr__ failed.
            if (call.required)
                printError();
            else
                PyErr_Clear();
            return {};
        }
    }
    if (function && PyCallable_Check(function.get())) return function;
    if (call.required) errors += "\nCannot find function '" + call.function + "'";
    return {};
}

CallTexts run(ScriptedUnit& unit, const ScriptModule& script, const Call& call) {
    PythonEntry entry;
    std::string& errors = entry.engine().errorText();
    try {
        const ShownSource shown(script.source());
        if (const PyRef function = findFunction(unit, call, errors))
            makeCall(unit, call, function.get(), errors);
    }
    catch (const PythonErrorSet&) {
        printError();
    }
    catch (const std::exception& error) {
        errors += std::string("\nUnhandled exception: ") + error.what();
    }
    catch (...) {
        errors += "\nUnhandled exception";
    }
    CallTexts texts{entry.takeOutput(), entry.takeErrors()};
    rewriteTraceback(texts.errors);
    return texts;
}

}  // namespace

CallTexts callScriptFunction(ScriptedUnit& unit, const ScriptModule& script, FunctionKind kind,
                             bool required) {
    return run(unit, script, {kind, nameOf(kind), required, [&] { return unit.callArguments(); }});
}

CallTexts callImageFunction(ScriptedUnit& unit, const ScriptModule& script, const ImageCall& image) {
    const auto arguments = [&] {
        return PyRef::steal(Py_BuildValue("(ONii)", unit.unitObject().get(), toPython(image.path).detach(),
                                          image.width, image.height));
    };
    return run(unit, script, {FunctionKind::named, image.function, true, arguments});
}

}  // namespace orvane
