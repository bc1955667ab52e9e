// The module that a unit's script lives in: made anew on each load, known to the interpreter under a name that no other
// unit has. While it lives it stands in sys.modules, where dataclasses and pickles look for it.
#pragma once

#include "engine/PyRef.h"

#include <string>

namespace orvane {

class ScriptModule {
public:
    explicit ScriptModule(std::string name) : name_(std::move(name)) {}
    ScriptModule(const ScriptModule&) = delete;
    ScriptModule& operator=(const ScriptModule&) = delete;

    /// Runs the script file in a fresh module and gives what went wrong as text, empty when all is well. What the
    /// script prints on the way is dropped. Throws when the interpreter did not start.
    std::string load(const std::string& file);

    /// Drops the module. With the interpreter lock held.
    void release() noexcept;

    /// Lets go of the module without touching it, when the interpreter has gone.
    void abandon() noexcept;

    const std::string& name() const noexcept { return name_; }
    PyRef module() const { return module_; }
    /// The script's lines, as ShownSource takes them; empty before the first load.
    const PyRef& source() const noexcept { return source_; }

private:
    void create();

    std::string name_;
    PyRef key_;  // in sys.modules
    PyRef module_;
    PyRef source_;
};

}  // namespace orvane
