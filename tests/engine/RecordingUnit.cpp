#include "tests/engine/RecordingUnit.h"

#include "engine/Enumerations.h"
#include "engine/OutputRedirector.h"
#include "engine/PythonEntry.h"
#include "engine/UnitObject.h"
#include "platform/Files.h"
#include "platform/Identifier.h"
#include "platform/TemporaryFile.h"

#include <sstream>

namespace orvane {

void startTestEngine() {
    static const ScriptingType types[] = {
        {&outputRedirectorType, nullptr, nullptr},
        {&portTypeType, addPortTypes, "PortType"},
        {&parameterTypeType, addParameterTypes, "ParameterType"},
        {&portDirectionType, addPortDirections, "PortDirection"},
        {&parameterModeType, addParameterModes, "ParameterMode"},
        {&unitType, nullptr, nullptr},
    };
    setScriptingTypes(types);
    scriptEngine();
}

RecordingUnit::RecordingUnit(const std::string& script) : module("unit" + randomIdentifier()) {
    startTestEngine();
    const TemporaryFile file;
    writeFile(file.path(), script);
    loadErrors = module.load(file.path());
    const InterpreterLock lock;
    object = createObject<UnitObject>(unitType, static_cast<ScriptedUnit&>(*this));
}

RecordingUnit::~RecordingUnit() {
    const InterpreterLock lock;
    contentOf<UnitObject>(object.get()).disown();
    object = PyRef();
    module.release();
}

CallTexts RecordingUnit::calculate(const std::string& body) {
    std::string script = "def Calculate(unit):\n";
    std::istringstream lines(body);
    for (std::string line; std::getline(lines, line);) script += "    " + line + "\n";
    RecordingUnit unit(script);
    CallTexts texts = unit.call(FunctionKind::calculate);
    texts.errors.insert(0, unit.loadErrors);
    return texts;
}

const std::vector<double>* RecordingUnit::exponents(PyObject* dimension) const {
    // A float stands for a dimension here: dimensions themselves belong to another folder.
    static const std::vector<double> watt = {2, 1, -3};
    return PyFloat_Check(dimension) ? &watt : nullptr;
}

PyRef RecordingUnit::callArguments() const { return PyRef::steal(PyTuple_Pack(1, object.get())); }

void RecordingUnit::fillPorts(PyObject*) {
    if (onFillPorts) onFillPorts();
}

void RecordingUnit::warn(const std::string& text) {
    scriptEngine().outputText() += "Warning: " + text + "\n";
    warnings.push_back(text);
}

}  // namespace orvane
