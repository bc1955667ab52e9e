#include "host/UnitSession.h"

#include "host/Path.h"

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
    const auto identification = query<ICapeIdentification>(item);
    name_ = text<&ICapeIdentification::Table::getComponentName>(identification.get());
    description_ = text<&ICapeIdentification::Table::getComponentDescription>(identification.get());
    call<&ICapeUnitPort::Table::getPortType>(port_, &type_);
    call<&ICapeUnitPort::Table::getDirection>(port_, &direction_);
}

const char* UnitPort::typeName(CapePortType type) {
    switch (type) {
    case CapePortType::material: return "material";
    case CapePortType::energy: return "energy";
    case CapePortType::information: return "information";
    default: return "any";
    }
}

UnitPort::Wanted UnitPort::wanted() const {
    const auto collection = query<ICapeCollection>(port_);
    if (!collection) return {name_, {}};
    const auto item =
        obtain<ICapeInterface, &ICapeCollection::Table::ItemByIndex>(collection.get(), CapeInteger{0});
    RealArray dimensionality;
    call<&ICapeRealParameterSpecification::Table::getDimensionality>(
        query<ICapeRealParameterSpecification>(item), dimensionality.out());
    return {text<&ICapeIdentification::Table::getComponentName>(query<ICapeIdentification>(item).get()),
            {dimensionality.view().begin(), dimensionality.view().end()}};
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

Ref<ICapePersist> UnitSession::persistence() {
    auto result = query<ICapePersist>(object_);
    if (!result) throw cape_open_error("the unit keeps no state: it does not offer ICapePersist");
    return result;
}

void UnitSession::loadScript(const std::string& script) {
    const auto store = makeObject<PersistStore>();
    store->addString("python", script);
    for (const char* empty : {"lastOutput", "runReportHeader", "runReportFooter"})
        store->addString(empty, "");
    store->addTexts("parameterNames", {});
    store->addIntegers("parameterTypes", {});
    loadState(*store);
}

void UnitSession::loadState(PersistStore& state) {
    needingInterpreter(
        [&] { call<&ICapePersist::Table::Load>(persistence(), state.as<ICapePersistReader>()); });
}

Ref<PersistStore> UnitSession::saveState() {
    auto state = makeObject<PersistStore>();
    call<&ICapePersist::Table::Save>(persistence(), state->as<ICapePersistWriter>(), CapeBoolean{1});
    return state;
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

namespace {

constexpr const char* onlyLocale = "eng";

}  // namespace

std::vector<UnitReport> UnitSession::reports() {
    const auto report = query<ICapeReport>(object_);
    if (!report) return {};
    StringArray names;
    needingInterpreter([&] { call<&ICapeReport::Table::getReportNames>(report, names.out()); });
    std::vector<UnitReport> result;
    for (const std::string& name : names.utf8()) {
        StringArray types;
        call<&ICapeReport::Table::ReportTypes>(report, StringObject(name).in(), types.out());
        for (const std::string& type : types.utf8()) result.push_back({name, type});
    }
    return result;
}

std::string UnitSession::reportText(const std::string& name) {
    return text<&ICapeReport::Table::GenerateReport>(query<ICapeReport>(object_).get(),
                                                     StringObject(name).in(), StringObject("text/plain").in(),
                                                     StringObject(onlyLocale).in());
}

void UnitSession::drawImage(const std::string& name, const std::filesystem::path& file) {
    call<&ICapeReport::Table::GenerateReportFile>(
        query<ICapeReport>(object_), StringObject(name).in(), StringObject("image/png").in(),
        StringObject(onlyLocale).in(), StringObject(textOf(std::filesystem::absolute(file))).in());
}

std::optional<std::string> UnitSession::lastCalculation() {
    if (!query<ICapeReport>(object_)) return std::nullopt;
    return reportText("Last Calculation");
}

}  // namespace orvane::host
