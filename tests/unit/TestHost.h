// A host for the tests of the unit operation: loads the module as a simulator does and drives it through the binary
// interface alone. Lends streams on a real property package.
#pragma once

#include "cobia/Call.h"
#include "host/MaterialObject.h"
#include "host/ModuleLoader.h"
#include "host/PersistStore.h"
#include "host/SimulationContext.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvane::test {

using namespace COBIA;

/// What an operation of the unit ended with.
struct Outcome {
    CapeResult code = noError;
    std::string text;  // of the last error, its chain included

    bool succeeded() const { return code == noError; }
};

class TestHost {
public:
    /// With the default script, or with a script of the test's.
    explicit TestHost(const std::optional<std::string>& script = std::nullopt)
        : TestHost(builtModule(), script) {}
    /// A unit of another file of the module.
    TestHost(const host::ModuleLoader& module, const std::optional<std::string>& script = std::nullopt);
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;
    ~TestHost();

    /// The stream connected to a port; made empty and connected on the first call. A feed is specified by feed().
    host::MaterialObject& stream(const std::string& port);
    /// Methane, ethane and propane at 300 K and 10 bar, 10 mol/s.
    void feed(const std::string& port = "Feed", double flow = 10, double temperature = 300,
              double pressure = 1e6);
    void connect(const std::string& port, ICapeInterface* object);
    void disconnect(const std::string& port);

    Verdict validate();
    Outcome calculate();
    /// Feed and Product connected, then calculated.
    Outcome calculateDefault();
    CapeValidationStatus status();
    std::string lastCalculation();

    Ref<ICapeCollection> ports();
    Ref<ICapeCollection> parameters();
    Ref<ICapeUnitPort> port(const std::string& name);
    template <class I> Ref<I> parameter(const std::string& name) {
        return query<I>(obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(parameters().get(),
                                                                                    StringObject(name).in()));
    }
    std::vector<std::string> names(const Ref<ICapeCollection>& collection);

    void load(const std::string& script);
    void load(host::PersistStore& store);
    Ref<host::PersistStore> save();
    std::vector<std::string> messages() const { return context_->messages(); }

    template <class I> Ref<I> as() { return query<I>(unit_); }

    /// Runs a body and tells how it ended.
    template <class Body> static Outcome outcome(Body&& body) {
        try {
            body();
            return {};
        }
        catch (const cape_open_error& error) {
            return {error.code(), error.what()};
        }
    }

private:
    static const host::ModuleLoader& builtModule();

    std::shared_ptr<const host::PropertyPackage> package_;
    Ref<host::SimulationContext> context_;
    Ref<ICapeInterface> unit_;
    std::vector<std::pair<std::string, Ref<host::MaterialObject>>> streams_;
};

}  // namespace orvane::test
