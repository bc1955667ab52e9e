#include "host/UnitSession.h"

#include "host/Path.h"
#include "host/PersistStore.h"

namespace orvane::host {

using namespace COBIA;

namespace {

/// Runs what comes first to need the interpreter: one that did not start is a module that cannot be used.
template <class Body> auto needingInterpreter(Body&& body) {
    try {
        return body();
    }
    catch (const cape_open_error& error) {
        const std::string text = error.directText();
        if (!text.starts_with("Failed to initialize Python")) throw;
        throw ModuleError(text + ". " + std::string(pythonAdvice()));
    }
}

}  // namespace

UnitPort::UnitPort(Ref<ICapeInterface> item) : port_(query<ICapeUnitPort>(item)) {
    name_ = text<&ICapeIdentification::Table::getComponentName>(query<ICapeIdentification>(item).get());
    call<&ICapeUnitPort::Table::getPortType>(port_, &type_);
    call<&ICapeUnitPort::Table::getDirection>(port_, &direction_);
}

UnitSession::UnitSession(const ModuleLoader& module, Ref<SimulationContext> context)
    : context_(std::move(context)),
      object_(module.createUnit()),
      unit_(query<ICapeUnit>(object_)),
      utilities_(query<ICapeUtilities>(object_)) {
    if (!unit_ || !utilities_) {
        throw ModuleError("what the module '" + textOf(module.file()) +
                          "' creates is no unit operation of CAPE-OPEN 1.2");
    }
    call<&ICapeUtilities::Table::putSimulationContext>(utilities_, context_->as<ICapeSimulationContext>());
    call<&ICapeUtilities::Table::Initialize>(utilities_);
}

UnitSession::~UnitSession() {
    const auto quietly = [](auto&& step) noexcept {
        try {
            step();
        }
        catch (const std::exception&) {
            // The results are out already, and nobody could act on it.
        }
    };
    for (const auto& port : connected_) {
        quietly([&] { call<&ICapeUnitPort::Table::Disconnect>(port); });
    }
    connected_.clear();
    quietly([&] { call<&ICapeUtilities::Table::Terminate>(utilities_); });
}

void UnitSession::setName(const std::string& name) {
    call<&ICapeIdentification::Table::putComponentName>(query<ICapeIdentification>(object_),
                                                        StringObject(name).in());
}

void UnitSession::loadScript(const std::string& script) {
    const auto store = makeObject<PersistStore>();
    store->addString("python", script);
    for (const char* empty : {"lastOutput", "runReportHeader", "runReportFooter"})
        store->addString(empty, "");
    store->addTexts("parameterNames", {});
    store->addIntegers("parameterTypes", {});
    const auto persistence = query<ICapePersist>(object_);
    if (!persistence) throw cape_open_error("the unit takes no script: it does not offer ICapePersist");
    needingInterpreter(
        [&] { call<&ICapePersist::Table::Load>(persistence, store->as<ICapePersistReader>()); });
}

template <class Item> std::vector<Item> UnitSession::items(const Ref<ICapeCollection>& collection) {
    CapeInteger count = 0;
    call<&ICapeCollection::Table::getCount>(collection, &count);
    std::vector<Item> result;
    for (CapeInteger i = 0; i < count; ++i) {
        result.emplace_back(
            obtain<ICapeInterface, &ICapeCollection::Table::ItemByIndex>(collection.get(), i));
    }
    return result;
}

std::vector<UnitPort> UnitSession::ports() {
    return needingInterpreter(
        [&] { return items<UnitPort>(obtain<ICapeCollection, &ICapeUnit::Table::ports>(unit_.get())); });
}

std::vector<UnitParameter> UnitSession::parameters() {
    return items<UnitParameter>(
        obtain<ICapeCollection, &ICapeUtilities::Table::getParameters>(utilities_.get()));
}

void UnitSession::connect(const UnitPort& port, ICapeInterface* stream) {
    call<&ICapeUnitPort::Table::Connect>(port.port(), stream);
    connected_.push_back(port.port());
}

Verdict UnitSession::validate() {
    StringObject message;
    CapeBoolean valid = 0;
    call<&ICapeUnit::Table::Validate>(unit_, message.out(), &valid);
    return {valid != 0, message.utf8()};
}

void UnitSession::calculate() { call<&ICapeUnit::Table::Calculate>(unit_); }

std::optional<std::string> UnitSession::lastCalculation() {
    const auto report = query<ICapeReport>(object_);
    if (!report) return std::nullopt;
    const StringObject name("Last Calculation"), type("text/plain"), locale("eng");
    StringObject content;
    call<&ICapeReport::Table::GenerateReport>(report, name.in(), type.in(), locale.in(), content.out());
    return content.utf8();
}

}  // namespace orvane::host
