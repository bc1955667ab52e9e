// What a script declares in one run of Configure, and the rules of registration that every declaration obeys.
// Not here: the rules of each method's arguments (engine), making the ports and parameters (OrvaneOperation).
#pragma once

#include "engine/PyRef.h"
#include "parameters/Parameter.h"
#include "streams/Port.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace orvane {

struct Image {
    std::string name;
    std::string function;  // of the script, that draws it
};

class Declarations {
public:
    // Each throws StringException with the first rule that is broken; then nothing was added.

    /// make: gives the Ref<Port> or Ref<Parameter>, once the rules are met.
    template <class Make> void addPort(std::string_view name, bool configuring, Make&& make) {
        add(ports, portNames_, checkedPort(name, configuring), make);
    }
    template <class Make> void addParameter(std::string_view name, bool configuring, Make&& make) {
        add(parameters, parameterNames_, checkedParameter(name, configuring), make);
    }
    void addReport(const std::string& name, bool configuring);
    void addImage(const std::string& name, const std::string& function, bool configuring);
    void setAllowInconsistentCompounds(bool allow, bool configuring);
    /// The module's functions stand for the script's.
    void defineFrom(PyRef module, bool configuring);

    /// The module's own Configure comes next: it may declare as a script may, but not name a further module.
    void startModule() { definedFrom_ = false; }

    std::vector<COBIA::Ref<Port>> ports;
    std::vector<COBIA::Ref<Parameter>> parameters;
    std::vector<std::string> reports;
    std::vector<Image> images;
    bool allowInconsistentCompounds = false;
    PyRef module;  // of define_from; empty without

private:
    /// method: "add_port" and its like.
    void checkCall(const char* method, bool configuring) const;
    void checkNotDefined(const char* method) const;
    // The name without its letter case.
    std::string checkedPort(std::string_view name, bool configuring) const;
    std::string checkedParameter(std::string_view name, bool configuring) const;

    template <class Item, class Make>
    static void add(std::vector<Item>& items, std::unordered_set<std::string>& names, std::string name,
                    Make&& make) {
        items.push_back(make());
        names.insert(std::move(name));
    }

    std::unordered_set<std::string> portNames_, parameterNames_;
    bool definedFrom_ = false;
    bool allowWasSet_ = false;
};

}  // namespace orvane
