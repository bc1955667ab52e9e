#include "tests/unit/TestHost.h"

#include "package/CompoundTable.h"

namespace orvane::test {
namespace {

std::vector<package::Compound> compounds() {
    std::vector<package::Compound> result;
    for (const char* id : {"methane", "ethane", "propane"})
        result.push_back(package::CompoundTable::instance().at(id));
    return result;
}

}  // namespace

const host::ModuleLoader& TestHost::builtModule() {
    static const host::ModuleLoader loader(std::filesystem::path(ORVANE_BIN) / "Orvane3.14.so");
    return loader;
}

TestHost::TestHost(const host::ModuleLoader& module, const std::optional<std::string>& script)
    : package_(std::make_shared<host::PropertyPackage>(compounds(), std::vector<package::Interaction>())),
      context_(makeObject<host::SimulationContext>()),
      unit_(module.createUnit()) {
    call<&ICapeUtilities::Table::putSimulationContext>(as<ICapeUtilities>(),
                                                       context_->as<ICapeSimulationContext>());
    if (script) load(*script);
    call<&ICapeUtilities::Table::Initialize>(as<ICapeUtilities>());
}

TestHost::~TestHost() {
    for (const auto& [port, stream] : streams_) outcome([&, &name = port] { disconnect(name); });
    outcome([&] { call<&ICapeUtilities::Table::Terminate>(as<ICapeUtilities>()); });
}

host::MaterialObject& TestHost::stream(const std::string& port) {
    for (const auto& [name, stream] : streams_)
        if (name == port) return *stream;
    auto stream = makeObject<host::MaterialObject>(port, package_);
    connect(port, stream->as<ICapeThermoMaterial>());
    return *streams_.emplace_back(port, stream).second;
}

void TestHost::feed(const std::string& port, double flow, double temperature, double pressure) {
    const double x[] = {0.8, 0.15, 0.05};
    stream(port).specify(x, flow, {host::ConditionKind::temperature, temperature},
                         {host::ConditionKind::pressure, pressure});
}

void TestHost::connect(const std::string& name, ICapeInterface* object) {
    call<&ICapeUnitPort::Table::Connect>(port(name), object);
}

void TestHost::disconnect(const std::string& name) { call<&ICapeUnitPort::Table::Disconnect>(port(name)); }

Verdict TestHost::validate() {
    StringObject message;
    CapeBoolean valid = 0;
    call<&ICapeUnit::Table::Validate>(as<ICapeUnit>(), message.out(), &valid);
    return {valid != 0, message.utf8()};
}

Outcome TestHost::calculate() {
    return outcome([&] { call<&ICapeUnit::Table::Calculate>(as<ICapeUnit>()); });
}

Outcome TestHost::calculateDefault() {
    feed();
    stream("Product");
    return calculate();
}

CapeValidationStatus TestHost::status() {
    CapeValidationStatus result{};
    call<&ICapeUnit::Table::getValStatus>(as<ICapeUnit>(), &result);
    return result;
}

std::string TestHost::lastCalculation() {
    return text<&ICapeReport::Table::GenerateReport>(
        as<ICapeReport>().get(), StringObject("last calculation").in(), StringObject("text/plain").in(),
        StringObject("eng").in());
}

Ref<ICapeCollection> TestHost::ports() {
    return obtain<ICapeCollection, &ICapeUnit::Table::ports>(as<ICapeUnit>().get());
}

Ref<ICapeCollection> TestHost::parameters() {
    return obtain<ICapeCollection, &ICapeUtilities::Table::getParameters>(as<ICapeUtilities>().get());
}

Ref<ICapeUnitPort> TestHost::port(const std::string& name) {
    return query<ICapeUnitPort>(
        obtain<ICapeInterface, &ICapeCollection::Table::ItemByName>(ports().get(), StringObject(name).in()));
}

std::vector<std::string> TestHost::names(const Ref<ICapeCollection>& collection) {
    CapeInteger count = 0;
    call<&ICapeCollection::Table::getCount>(collection, &count);
    std::vector<std::string> result;
    for (CapeInteger i = 0; i < count; ++i) {
        const auto item = obtain<ICapeInterface, &ICapeCollection::Table::ItemByIndex>(collection.get(), i);
        result.push_back(
            text<&ICapeIdentification::Table::getComponentName>(query<ICapeIdentification>(item).get()));
    }
    return result;
}

void TestHost::load(const std::string& script) {
    const auto store = makeObject<host::PersistStore>();
    store->addString("python", script);
    for (const char* item : {"lastOutput", "runReportHeader", "runReportFooter"}) store->addString(item, "");
    store->addTexts("parameterNames", {});
    store->addIntegers("parameterTypes", {});
    load(*store);
}

void TestHost::load(host::PersistStore& store) {
    call<&ICapePersist::Table::Load>(as<ICapePersist>(), store.as<ICapePersistReader>());
}

Ref<host::PersistStore> TestHost::save() {
    auto store = makeObject<host::PersistStore>();
    call<&ICapePersist::Table::Save>(as<ICapePersist>(), store->as<ICapePersistWriter>(), CapeBoolean{0});
    return store;
}

}  // namespace orvane::test
