// What a script declares in one run of Configure, and the rules of registration that every declaration obeys.
// Not here: the rules of each method's arguments (engine), making the ports and parameters (OrvaneOperation).
#pragma once

#include "engine/PyRef.h"
#include "parameters/Parameter.h"
#include "streams/Port.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

struct Image {
    std::string name;
    std::string function;  // of the script, that draws it
};

class Declarations {
public:
    // Each throws StringException with the first rule that is broken; then nothing was added.

    void checkPort(std::string_view name, bool configuring) const;
    void checkParameter(std::string_view name, bool configuring) const;
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

    bool definedFrom_ = false;
    bool allowWasSet_ = false;
};

}  // namespace orvane
