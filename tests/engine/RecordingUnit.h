// A unit for the tests of the engine: runs a script from a text and records what it declares. Rules of registration are
// the real unit's and do not stand here.
#pragma once

#include "engine/ScriptCalls.h"
#include "engine/ScriptedUnit.h"

#include <functional>
#include <string>
#include <vector>

namespace orvane {

/// Starts the engine with the types of its folder, where that is still to do.
void startTestEngine();

class RecordingUnit : public ScriptedUnit {
public:
    /// Loads the script; loadErrors says what went wrong.
    explicit RecordingUnit(const std::string& script);
    ~RecordingUnit() override;

    CallTexts call(FunctionKind kind, bool required = true) {
        return callScriptFunction(*this, module, kind, required);
    }
    /// The output of Calculate, whose body is one line after another.
    static CallTexts calculate(const std::string& body);

    void addPort(const PortDeclaration& port) override { ports.push_back(port); }
    void addParameter(const ParameterDeclaration& parameter) override { parameters.push_back(parameter); }
    void addReport(const std::string& name) override { reportsDeclared.push_back(name); }
    void addImage(const std::string& name, const std::string& function) override {
        images.emplace_back(name, function);
    }
    void defineFrom(PyRef) override {}
    void setAllowInconsistentCompounds(bool allow) override { allowInconsistent = allow; }
    bool allowsInconsistentCompounds() const override { return allowInconsistent; }
    const std::vector<double>* exponents(PyObject* dimension) const override;
    PyRef functionModule() const override { return module.module(); }
    PyRef unitObject() const override { return object; }
    PyRef callArguments() const override;
    void fillPorts(PyObject* dictionary) override;
    void fillParameters(PyObject*) override {}
    std::vector<std::string> declaredReports() const override { return reportsDeclared; }
    void setReports(std::vector<std::pair<std::string, std::string>> texts) override {
        reports = std::move(texts);
    }
    void beginCall() override { ++openCalls; }
    void endCall() noexcept override { --openCalls, ++endedCalls; }
    void warn(const std::string& text) override;

    std::string loadErrors;
    std::vector<PortDeclaration> ports;
    std::vector<ParameterDeclaration> parameters;
    std::vector<std::string> reportsDeclared;
    std::vector<std::pair<std::string, std::string>> images, reports;
    std::vector<std::string> warnings;
    bool allowInconsistent = false;
    int openCalls = 0, endedCalls = 0;
    std::function<void()> onFillPorts;  // what a host does while the unit looks at its ports
    ScriptModule module;
    PyRef object;
};

}  // namespace orvane
