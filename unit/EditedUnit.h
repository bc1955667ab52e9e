// What an editor may ask of the unit operation that it edits, and change in it. The unit implements it; the callbacks in
// EditorTable turn it into plain C.
// Threads: as the unit, one at a time.
#pragma once

#include "engine/ScriptCalls.h"
#include "parameters/Parameter.h"
#include "streams/Port.h"
#include "unit/Declarations.h"

#include <string>
#include <vector>

namespace orvane {

class EditedUnit {
public:
    virtual std::string scriptPath() const = 0;
    /// The script file holds another script now.
    virtual void scriptChanged() = 0;

    // What was printed, and what went wrong; none of it is thrown.

    virtual CallTexts configureInEditor() = 0;
    virtual CallTexts calculateInEditor() = 0;

    /// As the last successful Configure left them.
    virtual const std::vector<COBIA::Ref<Port>>& currentPorts() const = 0;
    virtual const std::vector<COBIA::Ref<Parameter>>& currentParameters() const = 0;
    virtual const Declarations& declarations() const = 0;

    virtual const std::string& outputOfLastRun() const = 0;
    virtual void setOutputOfLastRun(std::string text) = 0;

    /// The text of a report that the script declared; empty before it has one.
    virtual std::string textOfReport(const std::string& name) const = 0;
    /// The bytes of a PNG file. Throws with the reason when the script draws none.
    virtual std::string drawImage(const Image& image) = 0;

protected:
    ~EditedUnit() = default;
};

}  // namespace orvane
