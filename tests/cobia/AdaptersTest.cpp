// Every slot that a unit and its parts offer leads to the member of its name, with its arguments in their
// places.
#include "cobia/Adapters.h"

#include "tests/cobia/Recorder.h"

#include <vector>

using namespace COBIA;

namespace {

using Texts = std::vector<std::string>;

class Parts : public Recorder<Parts, IdentificationAdapter, CollectionAdapter, ParameterAdapter,
                              ParameterSpecificationAdapter, ArrayParameterAdapter,
                              ArrayParameterSpecificationAdapter, UtilitiesAdapter, UnitAdapter,
                              UnitPortAdapter, PersistAdapter, ReportAdapter> {
public:
    std::string name() const { return note("name"), "Größe"; }
    void setName(const std::string& text) { note("setName", text); }
    std::string description() const { return note("description"), "a unit"; }
    void setDescription(const std::string& text) { note("setDescription", text); }

    Ref<ICapeInterface> itemByIndex(CapeInteger index) { return note("itemByIndex", index), itself(); }
    Ref<ICapeInterface> itemByName(const std::string& text) { return note("itemByName", text), itself(); }
    CapeInteger count() const { return note("count"), 12; }

    CapeValidationStatus validationStatus() const {
        return note("validationStatus"), CapeValidationStatus::invalid;
    }
    CapeParamMode mode() const { return note("mode"), CapeParamMode::output; }
    CapeParamType type() const { return note("type"), CapeParamType::arrayBoolean; }
    Verdict validate() { return note("validate"), Verdict{false, "not connected"}; }
    void reset() { note("reset"); }

    CapeInteger numDimensions() const { return note("numDimensions"), 2; }
    std::vector<CapeInteger> size() const { return note("size"), std::vector<CapeInteger>{3, 4}; }

    Ref<ICapeCollection> parameterCollection() { return note("parameterCollection"), collection(); }
    void setSimulationContext(ICapeSimulationContext* context) { note("setSimulationContext", context); }
    void initialize() { note("initialize"); }
    void terminate() { note("terminate"); }
    CapeEditResult edit(CapeWindowId window) { return note("edit", window), CapeEditResult::notModified; }

    Ref<ICapeCollection> portCollection() { return note("portCollection"), collection(); }
    void calculate() { note("calculate"); }

    CapePortType portType() const { return note("portType"), CapePortType::information; }
    CapePortDirection portDirection() const { return note("portDirection"), CapePortDirection::outlet; }
    Ref<ICapeInterface> connectedObject() { return note("connectedObject"), itself(); }
    void connect(ICapeInterface* object) { note("connect", object); }
    void disconnect() { note("disconnect"); }

    void save(ICapePersistWriter* writer, bool clearDirty) { note("save", writer, clearDirty); }
    void load(ICapePersistReader* reader) { note("load", reader); }
    bool isDirty() const { return note("isDirty"), true; }

    Texts reportNames() { return note("reportNames"), Texts{"Summary", "Last Calculation"}; }
    Texts reportTypes(const std::string& report) { return note("reportTypes", report), Texts{"text/plain"}; }
    Texts reportLocales(const std::string& report, const std::string& type) {
        return note("reportLocales", report, type), Texts{"en"};
    }
    bool checkReportSpec(const std::string& report, const std::string& type, const std::string& locale) {
        return note("checkReportSpec", report, type, locale), true;
    }
    std::string generateReport(const std::string& report, const std::string& type,
                               const std::string& locale) {
        return note("generateReport", report, type, locale), "Größe";
    }
    void generateReportFile(const std::string& report, const std::string& type, const std::string& locale,
                            const std::string& file) {
        note("generateReportFile", report, type, locale, file);
    }

private:
    Ref<ICapeInterface> itself() { return Ref<ICapeInterface>::share(as<ICapeInterface>()); }
    Ref<ICapeCollection> collection() { return Ref<ICapeCollection>::share(as<ICapeCollection>()); }
};

/// The value parameters, which share the names of their members.
template <class Given, template <class> class Value, template <class> class Specification>
class ValueParameter : public Recorder<ValueParameter<Given, Value, Specification>, Value, Specification> {
public:
    explicit ValueParameter(std::vector<Given> answers) : answers_(std::move(answers)) {}

    Given value() const { return this->note("value"), answers_[0]; }
    void setValue(const Given& value) { this->note("setValue", value); }
    Given defaultValue() const { return this->note("defaultValue"), answers_[1]; }
    Given lowerBound() const { return this->note("lowerBound"), answers_[2]; }
    Given upperBound() const { return this->note("upperBound"), answers_[3]; }
    std::vector<double> dimensionality() const { return this->note("dimensionality"), std::vector{1.0, 0.5}; }
    Texts optionList() const { return this->note("optionList"), Texts{"one", "zwö"}; }
    bool restrictedToList() const { return this->note("restrictedToList"), true; }
    Verdict validateValue(const Given& value) const {
        return this->note("validateValue", value), Verdict{true, "fine"};
    }

private:
    std::vector<Given> answers_;
};

class ArrayParameterOfReals : public Recorder<ArrayParameterOfReals, ArrayRealParameterAdapter,
                                              ArrayRealParameterSpecificationAdapter> {
public:
    using Reals = std::span<const double>;
    using Position = std::span<const CapeInteger>;

    std::vector<double> value() const { return note("value"), std::vector{1.5, 2.5}; }
    void setValue(Reals values) { note("setValue", values); }
    double elementValue(Position at) const { return note("elementValue", at), 3.5; }
    void setElementValue(Position at, double value) { note("setElementValue", at, value); }
    double defaultValue() const { return note("defaultValue"), 4.5; }
    double lowerBound() const { return note("lowerBound"), 5.5; }
    double upperBound() const { return note("upperBound"), 6.5; }
    std::vector<double> dimensionality() const { return note("dimensionality"), std::vector{1.0, 0.5}; }
    Verdict validateElement(Position at, double value) const {
        return note("validateElement", at, value), Verdict{true, "fine"};
    }
    Verdict validateValue(Reals values) const {
        return note("validateValue", values), Verdict{false, "too low"};
    }
};

/// Asks a slot that gives one number.
template <class Result> Result given(ICapeInterface* object, int number) {
    Result result{};
    CHECK(callSlot(object, number, &result) == noError);
    return result;
}

std::string givenText(ICapeInterface* object, int number) {
    StringObject text;
    CHECK(callSlot(object, number, text.out()) == noError);
    return text.utf8();
}

template <class Handed> Ref<Handed> handedOut(ICapeInterface* object, int number) {
    Ref<Handed> result;
    CHECK(callSlot(object, number, result.receive()) == noError);
    return result;
}

}  // namespace

TEST_CASE("ICapeIdentification leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeIdentification>();
    CHECK(givenText(it, 0) == "Größe");
    CHECK(parts->seen() == "name");
    CHECK(callSlot(it, 1, StringObject("Höhe").in()) == noError);
    CHECK(parts->seen() == "setName Höhe");
    CHECK(givenText(it, 2) == "a unit");
    CHECK(parts->seen() == "description");
    CHECK(callSlot(it, 3, StringObject("text").in()) == noError);
    CHECK(parts->seen() == "setDescription text");
}

TEST_CASE("ICapeCollection leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeCollection>();
    auto* const item = parts->as<ICapeInterface>();
    Ref<ICapeInterface> found;
    CHECK(callSlot(it, 0, CapeInteger{3}, found.receive()) == noError);
    CHECK(found.get() == item);
    CHECK(parts->seen() == "itemByIndex 3");
    CHECK(callSlot(it, 1, StringObject("Feed").in(), found.receive()) == noError);
    CHECK(found.get() == item);
    CHECK(parts->seen() == "itemByName Feed");
    CHECK(given<CapeInteger>(it, 2) == 12);
    CHECK(parts->seen() == "count");
}

TEST_CASE("ICapeParameter and its specification lead to their members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeParameter>();
    CHECK(given<CapeValidationStatus>(it, 0) == CapeValidationStatus::invalid);
    CHECK(parts->seen() == "validationStatus");
    CHECK(given<CapeParamMode>(it, 1) == CapeParamMode::output);
    CHECK(parts->seen() == "mode");
    CHECK(given<CapeParamType>(it, 2) == CapeParamType::arrayBoolean);
    CHECK(parts->seen() == "type");
    StringObject message;
    CapeBoolean valid = 7;
    CHECK(callSlot(it, 3, message.out(), &valid) == noError);
    CHECK(message.utf8() == "not connected");
    CHECK(valid == 0);
    CHECK(parts->seen() == "validate");
    CHECK(callSlot(it, 4) == noError);
    CHECK(parts->seen() == "reset");

    CHECK(given<CapeParamType>(parts->as<ICapeParameterSpecification>(), 0) == CapeParamType::arrayBoolean);
    CHECK(parts->seen() == "type");
}

TEST_CASE("ICapeArrayParameter and its specification lead to their members") {
    const auto parts = makeObject<Parts>();
    ICapeInterface* const both[] = {parts->as<ICapeArrayParameter>(),
                                    parts->as<ICapeArrayParameterSpecification>()};
    for (ICapeInterface* const it : both) {
        CHECK(given<CapeInteger>(it, 0) == 2);
        CHECK(parts->seen() == "numDimensions");
        IntegerArray size;
        CHECK(callSlot(it, 1, size.out()) == noError);
        CHECK(std::ranges::equal(size.view(), std::vector{3, 4}));
        CHECK(parts->seen() == "size");
    }
}

TEST_CASE("ICapeUtilities leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeUtilities>();
    CHECK(handedOut<ICapeCollection>(it, 0).get() == parts->as<ICapeCollection>());
    CHECK(parts->seen() == "parameterCollection");
    ICapeSimulationContext context{};
    CHECK(callSlot(it, 1, &context) == noError);
    CHECK(parts->seen() == "setSimulationContext object");
    CHECK(callSlot(it, 1, static_cast<ICapeSimulationContext*>(nullptr)) == noError);
    CHECK(parts->seen() == "setSimulationContext null");
    CHECK(callSlot(it, 2) == noError);
    CHECK(parts->seen() == "initialize");
    CHECK(callSlot(it, 3) == noError);
    CHECK(parts->seen() == "terminate");
    for (const CapeWindowId window : {CapeWindowId{&context}, CapeWindowId{nullptr}}) {
        auto result = CapeEditResult::modified;
        CHECK(callSlot(it, 4, window, &result) == noError);
        CHECK(result == CapeEditResult::notModified);
        CHECK(parts->seen() == (window ? "edit object" : "edit null"));
    }
}

TEST_CASE("ICapeUnit leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeUnit>();
    CHECK(handedOut<ICapeCollection>(it, 0).get() == parts->as<ICapeCollection>());
    CHECK(parts->seen() == "portCollection");
    CHECK(given<CapeValidationStatus>(it, 1) == CapeValidationStatus::invalid);
    CHECK(parts->seen() == "validationStatus");
    CHECK(callSlot(it, 2) == noError);
    CHECK(parts->seen() == "calculate");
    StringObject message;
    CapeBoolean valid = 7;
    CHECK(callSlot(it, 3, message.out(), &valid) == noError);
    CHECK(message.utf8() == "not connected");
    CHECK(valid == 0);
    CHECK(parts->seen() == "validate");
}

TEST_CASE("ICapeUnitPort leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeUnitPort>();
    CHECK(given<CapePortType>(it, 0) == CapePortType::information);
    CHECK(parts->seen() == "portType");
    CHECK(given<CapePortDirection>(it, 1) == CapePortDirection::outlet);
    CHECK(parts->seen() == "portDirection");
    CHECK(handedOut<ICapeInterface>(it, 2).get() == parts->as<ICapeInterface>());
    CHECK(parts->seen() == "connectedObject");
    CHECK(callSlot(it, 3, parts->as<ICapeInterface>()) == noError);
    CHECK(parts->seen() == "connect object");
    CHECK(callSlot(it, 3, static_cast<ICapeInterface*>(nullptr)) == noError);
    CHECK(parts->seen() == "connect null");
    CHECK(callSlot(it, 4) == noError);
    CHECK(parts->seen() == "disconnect");
}

TEST_CASE("ICapePersist leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapePersist>();
    ICapePersistWriter writer{};
    CHECK(callSlot(it, 0, &writer, CapeBoolean{1}) == noError);
    CHECK(parts->seen() == "save object true");
    CHECK(callSlot(it, 0, &writer, CapeBoolean{0}) == noError);
    CHECK(parts->seen() == "save object false");
    ICapePersistReader reader{};
    CHECK(callSlot(it, 1, &reader) == noError);
    CHECK(parts->seen() == "load object");
    CHECK(given<CapeBoolean>(it, 2) == 1);
    CHECK(parts->seen() == "isDirty");
}

TEST_CASE("ICapeReport leads to its members") {
    const auto parts = makeObject<Parts>();
    auto* const it = parts->as<ICapeReport>();
    const StringObject report("Summary"), type("text/plain"), locale("en"), file("summary.txt");
    StringArray texts;
    CHECK(callSlot(it, 0, texts.out()) == noError);
    CHECK(texts.utf8() == Texts{"Summary", "Last Calculation"});
    CHECK(parts->seen() == "reportNames");
    CHECK(callSlot(it, 1, report.in(), texts.out()) == noError);
    CHECK(texts.utf8() == Texts{"text/plain"});
    CHECK(parts->seen() == "reportTypes Summary");
    CHECK(callSlot(it, 2, report.in(), type.in(), texts.out()) == noError);
    CHECK(texts.utf8() == Texts{"en"});
    CHECK(parts->seen() == "reportLocales Summary text/plain");
    CapeBoolean available = 0;
    CHECK(callSlot(it, 3, report.in(), type.in(), locale.in(), &available) == noError);
    CHECK(available == 1);
    CHECK(parts->seen() == "checkReportSpec Summary text/plain en");
    StringObject content;
    CHECK(callSlot(it, 4, report.in(), type.in(), locale.in(), content.out()) == noError);
    CHECK(content.utf8() == "Größe");
    CHECK(parts->seen() == "generateReport Summary text/plain en");
    CHECK(callSlot(it, 5, report.in(), type.in(), locale.in(), file.in()) == noError);
    CHECK(parts->seen() == "generateReportFile Summary text/plain en summary.txt");
}

TEST_CASE("ICapeRealParameter and its specification lead to their members") {
    using Parameter = ValueParameter<double, RealParameterAdapter, RealParameterSpecificationAdapter>;
    const auto parameter = makeObject<Parameter>(std::vector{1.5, 2.5, -3.5, 4.5});
    auto* const it = parameter->as<ICapeRealParameter>();
    CHECK(given<CapeReal>(it, 0) == 1.5);
    CHECK(parameter->seen() == "value");
    CHECK(callSlot(it, 1, 7.25) == noError);
    CHECK(parameter->seen() == "setValue 7.25");

    const std::pair<ICapeInterface*, int> both[] = {{it, 2},
                                                    {parameter->as<ICapeRealParameterSpecification>(), 0}};
    for (const auto& [object, first] : both) {
        CHECK(given<CapeReal>(object, first) == 2.5);
        CHECK(parameter->seen() == "defaultValue");
        CHECK(given<CapeReal>(object, first + 1) == -3.5);
        CHECK(parameter->seen() == "lowerBound");
        CHECK(given<CapeReal>(object, first + 2) == 4.5);
        CHECK(parameter->seen() == "upperBound");
        RealArray dimensionality;
        CHECK(callSlot(object, first + 3, dimensionality.out()) == noError);
        CHECK(std::ranges::equal(dimensionality.view(), std::vector{1.0, 0.5}));
        CHECK(parameter->seen() == "dimensionality");
        StringObject message;
        CapeBoolean valid = 0;
        CHECK(callSlot(object, first + 4, 8.5, message.out(), &valid) == noError);
        CHECK(message.utf8() == "fine");
        CHECK(valid == 1);
        CHECK(parameter->seen() == "validateValue 8.5");
    }
}

TEST_CASE("ICapeIntegerParameter and its specification lead to their members") {
    using Parameter =
        ValueParameter<CapeInteger, IntegerParameterAdapter, IntegerParameterSpecificationAdapter>;
    const auto parameter = makeObject<Parameter>(std::vector{1, 2, -3, 4});
    auto* const it = parameter->as<ICapeIntegerParameter>();
    CHECK(given<CapeInteger>(it, 0) == 1);
    CHECK(parameter->seen() == "value");
    CHECK(callSlot(it, 1, CapeInteger{7}) == noError);
    CHECK(parameter->seen() == "setValue 7");

    const std::pair<ICapeInterface*, int> both[] = {{it, 2},
                                                    {parameter->as<ICapeIntegerParameterSpecification>(), 0}};
    for (const auto& [object, first] : both) {
        CHECK(given<CapeInteger>(object, first) == 2);
        CHECK(parameter->seen() == "defaultValue");
        CHECK(given<CapeInteger>(object, first + 1) == -3);
        CHECK(parameter->seen() == "lowerBound");
        CHECK(given<CapeInteger>(object, first + 2) == 4);
        CHECK(parameter->seen() == "upperBound");
        StringObject message;
        CapeBoolean valid = 0;
        CHECK(callSlot(object, first + 3, CapeInteger{8}, message.out(), &valid) == noError);
        CHECK(message.utf8() == "fine");
        CHECK(valid == 1);
        CHECK(parameter->seen() == "validateValue 8");
    }
}

TEST_CASE("ICapeStringParameter and its specification lead to their members") {
    using Parameter =
        ValueParameter<std::string, StringParameterAdapter, StringParameterSpecificationAdapter>;
    const auto parameter = makeObject<Parameter>(Texts{"värde", "default", "", ""});
    auto* const it = parameter->as<ICapeStringParameter>();
    CHECK(givenText(it, 0) == "värde");
    CHECK(parameter->seen() == "value");
    CHECK(callSlot(it, 1, StringObject("neu").in()) == noError);
    CHECK(parameter->seen() == "setValue neu");

    const std::pair<ICapeInterface*, int> both[] = {{it, 2},
                                                    {parameter->as<ICapeStringParameterSpecification>(), 0}};
    for (const auto& [object, first] : both) {
        CHECK(givenText(object, first) == "default");
        CHECK(parameter->seen() == "defaultValue");
        StringArray options;
        CHECK(callSlot(object, first + 1, options.out()) == noError);
        CHECK(options.utf8() == Texts{"one", "zwö"});
        CHECK(parameter->seen() == "optionList");
        CHECK(given<CapeBoolean>(object, first + 2) == 1);
        CHECK(parameter->seen() == "restrictedToList");
        StringObject message;
        CapeBoolean valid = 0;
        CHECK(callSlot(object, first + 3, StringObject("x").in(), message.out(), &valid) == noError);
        CHECK(message.utf8() == "fine");
        CHECK(valid == 1);
        CHECK(parameter->seen() == "validateValue x");
    }
}

TEST_CASE("ICapeBooleanParameter and its specification lead to their members") {
    using Parameter = ValueParameter<bool, BooleanParameterAdapter, BooleanParameterSpecificationAdapter>;
    const auto parameter = makeObject<Parameter>(std::vector{true, false, false, false});
    auto* const it = parameter->as<ICapeBooleanParameter>();
    CHECK(given<CapeBoolean>(it, 0) == 1);
    CHECK(parameter->seen() == "value");
    CHECK(callSlot(it, 1, CapeBoolean{2}) == noError);  // anything but 0 is true
    CHECK(parameter->seen() == "setValue true");
    CHECK(callSlot(it, 1, CapeBoolean{0}) == noError);
    CHECK(parameter->seen() == "setValue false");

    const std::pair<ICapeInterface*, int> both[] = {{it, 2},
                                                    {parameter->as<ICapeBooleanParameterSpecification>(), 0}};
    for (const auto& [object, first] : both) {
        CHECK(given<CapeBoolean>(object, first) == 0);
        CHECK(parameter->seen() == "defaultValue");
        StringObject message;
        CapeBoolean valid = 0;
        CHECK(callSlot(object, first + 1, CapeBoolean{1}, message.out(), &valid) == noError);
        CHECK(message.utf8() == "fine");
        CHECK(valid == 1);
        CHECK(parameter->seen() == "validateValue true");
    }
}

TEST_CASE("ICapeArrayRealParameter and its specification lead to their members") {
    const auto parameter = makeObject<ArrayParameterOfReals>();
    auto* const it = parameter->as<ICapeArrayRealParameter>();
    const RealArray values({7.5, 8.5});
    const IntegerArray position({2, 1});

    RealArray result;
    CHECK(callSlot(it, 0, result.out()) == noError);
    CHECK(std::ranges::equal(result.view(), std::vector{1.5, 2.5}));
    CHECK(parameter->seen() == "value");
    CHECK(callSlot(it, 1, values.in()) == noError);
    CHECK(parameter->seen() == "setValue [7.5 8.5]");
    CapeReal element = 0;
    CHECK(callSlot(it, 2, position.in(), &element) == noError);
    CHECK(element == 3.5);
    CHECK(parameter->seen() == "elementValue [2 1]");
    CHECK(callSlot(it, 3, position.in(), 9.5) == noError);
    CHECK(parameter->seen() == "setElementValue [2 1] 9.5");

    const std::pair<ICapeInterface*, int> both[] = {
        {it, 4}, {parameter->as<ICapeArrayRealParameterSpecification>(), 0}};
    for (const auto& [object, first] : both) {
        CHECK(given<CapeReal>(object, first) == 4.5);
        CHECK(parameter->seen() == "defaultValue");
        CHECK(given<CapeReal>(object, first + 1) == 5.5);
        CHECK(parameter->seen() == "lowerBound");
        CHECK(given<CapeReal>(object, first + 2) == 6.5);
        CHECK(parameter->seen() == "upperBound");
        CHECK(callSlot(object, first + 3, result.out()) == noError);
        CHECK(std::ranges::equal(result.view(), std::vector{1.0, 0.5}));
        CHECK(parameter->seen() == "dimensionality");
        StringObject message;
        CapeBoolean valid = 0;
        CHECK(callSlot(object, first + 4, position.in(), 9.5, message.out(), &valid) == noError);
        CHECK(message.utf8() == "fine");
        CHECK(valid == 1);
        CHECK(parameter->seen() == "validateElement [2 1] 9.5");
        CHECK(callSlot(object, first + 5, values.in(), message.out(), &valid) == noError);
        CHECK(message.utf8() == "too low");
        CHECK(valid == 0);
        CHECK(parameter->seen() == "validateValue [7.5 8.5]");
    }
}

TEST_CASE("A failure of a unit, a port or a collection is told under the scope of its operation") {
    const auto parts = makeObject<Parts>();
    StringObject text;
    StringArray texts;
    CapeBoolean yes = 0;
    Ref<ICapeInterface> item;
    Ref<ICapeCollection> collection;

    auto* const unit = parts->as<ICapeUnit>();
    CHECK(parts->scopeOf(unit, 0, collection.receive()) == "ICapeUnit::ports");
    CHECK(parts->scopeOf(unit, 2) == "ICapeUnit::Calculate");
    CHECK(parts->scopeOf(unit, 3, text.out(), &yes) == "ICapeUnit::Validate");

    auto* const utilities = parts->as<ICapeUtilities>();
    auto edited = CapeEditResult::modified;
    CHECK(parts->scopeOf(utilities, 0, collection.receive()) == "ICapeUtilities::Parameters");
    CHECK(parts->scopeOf(utilities, 1, static_cast<ICapeSimulationContext*>(nullptr)) ==
          "ICapeUtilities::SimulationContext");
    CHECK(parts->scopeOf(utilities, 3) == "ICapeUtilities::Terminate");
    CHECK(parts->scopeOf(utilities, 4, CapeWindowId{}, &edited) == "ICapeUtilities::Edit");

    auto* const identification = parts->as<ICapeIdentification>();
    CHECK(parts->scopeOf(identification, 0, text.out()) == "ICapeIdentification::ComponentName");
    CHECK(parts->scopeOf(identification, 1, text.in()) == "ICapeIdentification::ComponentName");
    CHECK(parts->scopeOf(identification, 2, text.out()) == "ICapeIdentification::ComponentDescription");
    CHECK(parts->scopeOf(identification, 3, text.in()) == "ICapeIdentification::ComponentDescription");

    auto* const persist = parts->as<ICapePersist>();
    CHECK(parts->scopeOf(persist, 0, static_cast<ICapePersistWriter*>(nullptr), CapeBoolean{1}) ==
          "ICapePersist::Save");
    CHECK(parts->scopeOf(persist, 1, static_cast<ICapePersistReader*>(nullptr)) == "ICapePersist::Load");

    auto* const report = parts->as<ICapeReport>();
    CHECK(parts->scopeOf(report, 0, texts.out()) == "ICapeReport::ReportNames");
    CHECK(parts->scopeOf(report, 1, text.in(), texts.out()) == "ICapeReport::ReportTypes");
    CHECK(parts->scopeOf(report, 2, text.in(), text.in(), texts.out()) == "ICapeReport::ReportLocales");
    CHECK(parts->scopeOf(report, 3, text.in(), text.in(), text.in(), &yes) == "ICapeReport::CheckReportSpec");
    CHECK(parts->scopeOf(report, 4, text.in(), text.in(), text.in(), text.out()) ==
          "ICapeReport::GenerateReport");
    CHECK(parts->scopeOf(report, 5, text.in(), text.in(), text.in(), text.in()) ==
          "ICapeReport::GenerateReportFile");

    auto* const port = parts->as<ICapeUnitPort>();
    auto type = CapePortType::any;
    CHECK(parts->scopeOf(port, 0, &type) == "ICapeUnitPort::PortType");
    CHECK(parts->scopeOf(port, 2, item.receive()) == "ICapeUnitPort::ConnectedObject");
    CHECK(parts->scopeOf(port, 3, static_cast<ICapeInterface*>(nullptr)) == "ICapeUnitPort::Connect");
    CHECK(parts->scopeOf(port, 4) == "ICapeUnitPort::Disconnect");

    auto* const items = parts->as<ICapeCollection>();
    CHECK(parts->scopeOf(items, 0, CapeInteger{1}, item.receive()) == "ICapeCollection::Item");
    CHECK(parts->scopeOf(items, 1, text.in(), item.receive()) == "ICapeCollection::Item");
}

TEST_CASE("A failure of a parameter is told under the scope of its operation") {
    StringObject text;
    StringArray texts;
    CapeBoolean yes = 0;
    CapeReal real = 0;
    CapeInteger integer = 0;

    const auto parts = makeObject<Parts>();
    auto* const parameter = parts->as<ICapeParameter>();
    auto type = CapeParamType::real;
    CHECK(parts->scopeOf(parameter, 2, &type) == "ICapeParameter::Type");
    CHECK(parts->scopeOf(parameter, 3, text.out(), &yes) == "ICapeParameter::Validate");
    CHECK(parts->scopeOf(parameter, 4) == "ICapeParameter::Reset");
    IntegerArray size;
    CHECK(parts->scopeOf(parts->as<ICapeArrayParameter>(), 1, size.out()) == "ICapeArrayParameter::Size");

    RealArray reals;
    const auto ofReal =
        makeObject<ValueParameter<double, RealParameterAdapter, RealParameterSpecificationAdapter>>(
            std::vector(4, 1.0));
    auto* const realParameter = ofReal->as<ICapeRealParameter>();
    CHECK(ofReal->scopeOf(realParameter, 0, &real) == "ICapeRealParameter::Value");
    CHECK(ofReal->scopeOf(realParameter, 1, real) == "ICapeRealParameter::Value");
    CHECK(ofReal->scopeOf(realParameter, 5, reals.out()) == "ICapeRealParameter::Dimensionality");
    CHECK(ofReal->scopeOf(realParameter, 6, real, text.out(), &yes) == "ICapeRealParameter::Validate");
    auto* const specification = ofReal->as<ICapeRealParameterSpecification>();
    CHECK(ofReal->scopeOf(specification, 0, &real) == "ICapeRealParameterSpecification::DefaultValue");
    CHECK(ofReal->scopeOf(specification, 3, reals.out()) ==
          "ICapeRealParameterSpecification::Dimensionality");

    const auto ofInteger = makeObject<
        ValueParameter<CapeInteger, IntegerParameterAdapter, IntegerParameterSpecificationAdapter>>(
        std::vector(4, 1));
    auto* const integerParameter = ofInteger->as<ICapeIntegerParameter>();
    CHECK(ofInteger->scopeOf(integerParameter, 0, &integer) == "ICapeIntegerParameter::Value");
    CHECK(ofInteger->scopeOf(integerParameter, 1, integer) == "ICapeIntegerParameter::Value");
    CHECK(ofInteger->scopeOf(integerParameter, 5, integer, text.out(), &yes) ==
          "ICapeIntegerParameter::Validate");

    const auto ofBoolean =
        makeObject<ValueParameter<bool, BooleanParameterAdapter, BooleanParameterSpecificationAdapter>>(
            std::vector(4, true));
    auto* const booleanParameter = ofBoolean->as<ICapeBooleanParameter>();
    CHECK(ofBoolean->scopeOf(booleanParameter, 0, &yes) == "ICapeBooleanParameter::Value");
    CHECK(ofBoolean->scopeOf(booleanParameter, 1, yes) == "ICapeBooleanParameter::Value");

    const auto ofText =
        makeObject<ValueParameter<std::string, StringParameterAdapter, StringParameterSpecificationAdapter>>(
            Texts(4));
    auto* const textParameter = ofText->as<ICapeStringParameter>();
    CHECK(ofText->scopeOf(textParameter, 0, text.out()) == "ICapeStringParameter::Value");
    CHECK(ofText->scopeOf(textParameter, 1, text.in()) == "ICapeStringParameter::Value");
    CHECK(ofText->scopeOf(textParameter, 2, text.out()) == "ICapeStringParameter::DefaultValue");
    CHECK(ofText->scopeOf(textParameter, 3, texts.out()) == "ICapeStringParameter::OptionList");
    CHECK(ofText->scopeOf(textParameter, 5, text.in(), text.out(), &yes) == "ICapeStringParameter::Validate");

    const auto ofArray = makeObject<ArrayParameterOfReals>();
    auto* const array = ofArray->as<ICapeArrayRealParameter>();
    CHECK(ofArray->scopeOf(array, 0, reals.out()) == "ICapeArrayRealParameter::Value");
    CHECK(ofArray->scopeOf(array, 1, reals.in()) == "ICapeArrayRealParameter::Value");
    CHECK(ofArray->scopeOf(array, 2, size.in(), &real) == "ICapeArrayRealParameter::GetElementValue");
    CHECK(ofArray->scopeOf(array, 3, size.in(), real) == "ICapeArrayRealParameter::SetElementValue");
    CHECK(ofArray->scopeOf(array, 7, reals.out()) == "ICapeArrayRealParameter::Dimensionality");
    CHECK(ofArray->scopeOf(array, 8, size.in(), real, text.out(), &yes) ==
          "ICapeArrayRealParameter::ValidateElement");
    CHECK(ofArray->scopeOf(array, 9, reals.in(), text.out(), &yes) == "ICapeArrayRealParameter::Validate");
}
