// The configure step of the unit operation: loading the script, running Configure, and what becomes of the ports, parameters
// and values that were there before.
#include "engine/PythonEntry.h"
#include "unit/OrvaneOperation.h"

#include <unordered_map>
#include <unordered_set>

namespace orvane {

using namespace COBIA;

void OrvaneOperation::ensureConfigured() {
    // A script that calls back into the unit through the host finds it as it is.
    if (runState_ != RunState::idle || (configured_ && !needsConfigure_)) return;
    configure();
    configured_ = true;
}

void OrvaneOperation::configure() {
    if (!needsConfigure_) return;
    if (!scriptFile_) throw StringException(scriptFileError_);
    const RunStateScope configuring(*this, RunState::configuring);
    configureOutput_.clear();
    configureError_.clear();
    scriptError_.clear();
    if (needsReload_) {
        configureError_ = scriptError_ = script_.load(scriptFile_->path());
        if (!configureError_.empty()) return;
        needsReload_ = false;
        validationStatus_ = CapeValidationStatus::notValidated;
    }
    CallTexts texts = runConfigure();
    configureOutput_ = std::move(texts.output);
    configureError_ = std::move(texts.errors);
    needsConfigure_ = false;
    if (!configureError_.empty()) return;
    adoptDeclarations();
    restoreSavedValues();
}

CallTexts OrvaneOperation::runConfigure() {
    const ScriptSession session;
    declaring_ = {};
    declared_.module = PyRef();
    CallTexts texts = callScriptFunction(*this, script_, FunctionKind::configure);
    if (!texts.errors.empty() || !declaring_.module) return texts;
    declared_.module = declaring_.module;
    declaring_.startModule();
    CallTexts ofModule = callScriptFunction(*this, script_, FunctionKind::configure, false);
    return {texts.output + ofModule.output, std::move(ofModule.errors)};
}

namespace {

template <class Item> using Items = std::vector<Ref<Item>>;

/// Those of the new items, or in their place the one that was there before under the same name and of the same kind, with
/// the new definition. `known`: what the host has in its collection, and an editor may bring back.
template <class Item>
Items<Item> merge(const Items<Item>& current, const Items<Item>& known, Items<Item> declared) {
    const auto byName = [](const Items<Item>& items) {
        std::unordered_map<std::string, Ref<Item>> result;
        for (const Ref<Item>& item : items) result.emplace(lowerCase(item->name()), item);
        return result;
    };
    const auto ofCurrent = byName(current), ofKnown = byName(known);
    for (Ref<Item>& item : declared) {
        const std::string name = lowerCase(item->name());
        for (const auto* before : {&ofCurrent, &ofKnown}) {
            const auto same = before->find(name);
            if (same == before->end() || !same->second->sameKind(*item)) continue;
            same->second->takeOver(*item);
            item->disown();
            item = same->second;
            break;
        }
    }
    return declared;
}

/// The unit lets go of the items that are in none of the lists that it goes on with.
template <class Item>
void disownOthers(const Items<Item>& before, const Items<Item>& kept, const Items<Item>& keptToo) {
    std::unordered_set<const Item*> staying;
    for (const Items<Item>* items : {&kept, &keptToo})
        for (const Ref<Item>& item : *items) staying.insert(item.get());
    for (const Ref<Item>& item : before)
        if (!staying.contains(item.get())) item->disown();
}

}  // namespace

void OrvaneOperation::adoptDeclarations() {
    Snapshot now{
        merge(currentPorts(), ports_->items(), std::move(declaring_.ports)),
        merge(currentParameters(), parameters_->items(), std::move(declaring_.parameters)),
    };
    declaring_.ports.clear();
    declaring_.parameters.clear();
    if (editing_) {
        disownOthers(editing_->ports, now.ports, ports_->items());
        disownOthers(editing_->parameters, now.parameters, parameters_->items());
        editing_ = std::move(now);
    } else {
        replaceCollections(std::move(now));
    }

    const InterpreterLock lock;
    declared_ = std::exchange(declaring_, {});

    // A report that is declared anew keeps the text that it had.
    std::map<std::string, std::string> reports;
    for (const std::string& report : declared_.reports) {
        const std::string key = upperCase(report);
        reports[key] = std::move(reports_[key]);
    }
    reports_ = std::move(reports);
}

void OrvaneOperation::replaceCollections(Snapshot now) {
    disownOthers(ports_->items(), now.ports, {});
    disownOthers(parameters_->items(), now.parameters, {});
    ports_->replace(std::move(now.ports));
    parameters_->replace(std::move(now.parameters));
}

void OrvaneOperation::restoreSavedValues() {
    if (savedValues_.empty()) return;
    const auto saved = std::exchange(savedValues_, {});
    std::unordered_map<std::string, const StoredValue*> byName;
    for (const auto& [name, value] : saved) byName.emplace(name, &value);
    const bool modified = modified_;
    // All values first: a host that does not take the warning of one keeps none of the others from coming back.
    std::vector<std::string> warnings;
    for (const Ref<Parameter>& parameter : currentParameters()) {
        const std::string name = parameter->name();
        const auto found = byName.find(name);
        if (found == byName.end()) {
            warnings.push_back("Value for '" + name + "' was not loaded");
            continue;
        }
        try {
            parameter->restore(*found->second);
        }
        catch (const std::exception& error) {
            warnings.push_back("Value for '" + name + "' was not restored: " + error.what());
        }
    }
    modified_ = modified;  // what comes back is what was saved

    ScriptSession session;
    for (const std::string& warning : warnings) warn(warning);
    configureOutput_ += session.takeOutput();
}

}  // namespace orvane
