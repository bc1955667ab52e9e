// The editor of the unit operation: opening it, what it does to the unit, and what the host sees afterwards.
#include "unit/EditorLibrary.h"
#include "unit/OrvaneOperation.h"

namespace orvane {

using namespace COBIA;

CapeEditResult OrvaneOperation::edit(CapeWindowId parent) {
    if (editing_) throw StringException("The script editor of this unit operation is open already");
    if (runState_ != RunState::idle)
        throw StringException("The unit operation cannot be edited while its script runs");
    OrvaneEditor* const editor = findEditor();
    ensureConfigured();
    editing_ = Snapshot{ports_->items(), parameters_->items()};
    const auto close = [&] {
        Snapshot left = std::move(*editing_);
        editing_.reset();
        replaceCollections(std::move(left));
    };
    bool modified = false;
    try {
        modified = editor(parent, editorTable_.get());
    }
    catch (...) {
        close();
        throw;
    }
    close();
    return modified ? CapeEditResult::modified : CapeEditResult::notModified;
}

std::string OrvaneOperation::scriptPath() const { return scriptFile_ ? scriptFile_->path() : std::string(); }

void OrvaneOperation::scriptChanged() {
    needsReload_ = needsConfigure_ = true;
    invalidate();
}

CallTexts OrvaneOperation::configureInEditor() {
    try {
        configure();
        return {configureOutput_, configureError_};
    }
    catch (const std::exception& error) {
        return {configureOutput_, error.what()};
    }
}

CallTexts OrvaneOperation::calculateInEditor() {
    try {
        run();
        return {lastOutput_, scriptError_};
    }
    catch (const std::exception& error) {
        return {lastOutput_, error.what()};
    }
}

void OrvaneOperation::setOutputOfLastRun(std::string text) {
    lastOutput_ = std::move(text);
    modified_ = true;
}

std::string OrvaneOperation::textOfReport(const std::string& name) const {
    const auto found = reports_.find(upperCase(name));
    return found == reports_.end() ? std::string() : found->second;
}

}  // namespace orvane
