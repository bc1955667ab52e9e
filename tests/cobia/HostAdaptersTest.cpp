// Every slot that a simulation environment offers leads to the member of its name, with its arguments in
// their places.
#include "cobia/HostAdapters.h"

#include "tests/cobia/Recorder.h"

#include <vector>

using namespace COBIA;

namespace {

using Texts = std::vector<std::string>;
using Text = CapeTextView;
using Reals = std::span<const double>;

class Environment : public Recorder<Environment, DiagnosticAdapter, SimulationContextAdapter> {
public:
    void popUpMessage(const std::string& message) { note("popUpMessage", message); }
    void logMessage(const std::string& message) { note("logMessage", message); }
};

/// A material object; where there are more results than one, they are numbered from the left.
class Material : public Recorder<Material, ThermoMaterialAdapter, ThermoCompoundsAdapter, ThermoPhasesAdapter,
                                 ThermoPropertyRoutineAdapter, ThermoEquilibriumRoutineAdapter> {
public:
    void clearAllProps() { note("clearAllProps"); }
    void copyFromMaterial(ICapeThermoMaterial* source) { note("copyFromMaterial", source); }
    Ref<ICapeThermoMaterial> createMaterial() {
        return note("createMaterial"), Ref<ICapeThermoMaterial>::share(as<ICapeThermoMaterial>());
    }
    void overallProp(Text property, Text basis, RealsOut out) const {
        fill(out, 1), note("overallProp", property, basis);
    }
    void overallTPFraction(double& temperature, double& pressure, RealsOut composition) const {
        temperature = 1, pressure = 2, fill(composition, 3), note("overallTPFraction");
    }
    void presentPhases(TextsOut labels, EnumerationsOut status) const {
        fill(labels, 1), status.assign(std::vector<CapeEnumeration>{2}), note("presentPhases");
    }
    void singlePhaseProp(Text property, Text phase, Text basis, RealsOut out) const {
        fill(out, 1), note("singlePhaseProp", property, phase, basis);
    }
    void tpFraction(Text phase, double& temperature, double& pressure, RealsOut composition) const {
        temperature = 1, pressure = 2, fill(composition, 3), note("tpFraction", phase);
    }
    void twoPhaseProp(Text property, TextsView phases, Text basis, RealsOut out) const {
        fill(out, 1), note("twoPhaseProp", property, phases, basis);
    }
    void setOverallProp(Text property, Text basis, Reals values) {
        note("setOverallProp", property, basis, values);
    }
    void setPresentPhases(TextsView labels, std::span<const CapeEnumeration> status) {
        note("setPresentPhases", labels, status);
    }
    void setSinglePhaseProp(Text property, Text phase, Text basis, Reals values) {
        note("setSinglePhaseProp", property, phase, basis, values);
    }
    void setTwoPhaseProp(Text property, TextsView phases, Text basis, Reals values) {
        note("setTwoPhaseProp", property, phases, basis, values);
    }

    void compoundConstants(TextsView properties, TextsView compounds, CapeBoolean& missing,
                           ValuesOut out) const {
        missing = 1, out.assign(std::vector<ValueObject::Content>{2.5, std::string("C2H6")});
        note("compoundConstants", properties, compounds);
    }
    void compoundList(TextsOut ids, TextsOut formulae, TextsOut names, RealsOut boilingTemperatures,
                      RealsOut molecularWeights, TextsOut casNumbers) const {
        fill(ids, 1), fill(formulae, 2), fill(names, 3), fill(boilingTemperatures, 4),
            fill(molecularWeights, 5);
        fill(casNumbers, 6), note("compoundList");
    }
    Texts constantProperties() const { return note("constantProperties"), Texts{"constant"}; }
    CapeInteger compoundCount() const { return note("compoundCount"), 5; }
    void pressureDependentProperties(TextsView properties, double pressure, TextsView compounds,
                                     CapeBoolean& missing, RealsOut out) const {
        missing = 1, fill(out, 2), note("pressureDependentProperties", properties, pressure, compounds);
    }
    Texts pressureDependentPropertyNames() const {
        return note("pressureDependentPropertyNames"), Texts{"of pressure"};
    }
    void temperatureDependentProperties(TextsView properties, double temperature, TextsView compounds,
                                        CapeBoolean& missing, RealsOut out) const {
        missing = 1, fill(out, 2), note("temperatureDependentProperties", properties, temperature, compounds);
    }
    Texts temperatureDependentPropertyNames() const {
        return note("temperatureDependentPropertyNames"), Texts{"of temperature"};
    }

    CapeInteger phaseCount() const { return note("phaseCount"), 2; }
    ValueObject::Content phaseInfo(Text phase, Text attribute) const {
        return note("phaseInfo", phase, attribute), 1.5;
    }
    void phaseList(TextsOut labels, TextsOut states, TextsOut keys) const {
        fill(labels, 1), fill(states, 2), fill(keys, 3), note("phaseList");
    }

    void calcAndGetLnPhi(Text phase, double temperature, double pressure, Reals fractions, CapeInteger flags,
                         RealsOut lnPhi, RealsOut byTemperature, RealsOut byPressure, RealsOut byAmount) {
        fill(lnPhi, 1), fill(byTemperature, 2), fill(byPressure, 3), fill(byAmount, 4);
        note("calcAndGetLnPhi", phase, temperature, pressure, fractions, flags);
    }
    void calcSinglePhaseProp(TextsView properties, Text phase) {
        note("calcSinglePhaseProp", properties, phase);
    }
    void calcTwoPhaseProp(TextsView properties, TextsView phases) {
        note("calcTwoPhaseProp", properties, phases);
    }
    bool checkSinglePhasePropSpec(Text property, Text phase) const {
        return note("checkSinglePhasePropSpec", property, phase), true;
    }
    bool checkTwoPhasePropSpec(Text property, TextsView phases) const {
        return note("checkTwoPhasePropSpec", property, phases), true;
    }
    Texts singlePhasePropList() const { return note("singlePhasePropList"), Texts{"single"}; }
    Texts twoPhasePropList() const { return note("twoPhasePropList"), Texts{"two"}; }

    void calcEquilibrium(TextsView first, TextsView second, Text solution) {
        note("calcEquilibrium", first, second, solution);
    }
    bool checkEquilibriumSpec(TextsView first, TextsView second, Text solution) const {
        return note("checkEquilibriumSpec", first, second, solution), true;
    }

private:
    static void fill(RealsOut out, double value) { out.assign(std::vector{value}); }
    static void fill(TextsOut out, int value) { out.assign(Texts{std::to_string(value)}); }
};

class Writer : public Recorder<Writer, PersistWriterAdapter> {
public:
    void addReal(const std::string& name, double value) { note("addReal", name, value); }
    void addInteger(const std::string& name, CapeInteger value) { note("addInteger", name, value); }
    void addBoolean(const std::string& name, bool value) { note("addBoolean", name, value); }
    void addString(const std::string& name, const std::string& value) { note("addString", name, value); }
    void addEnumeration(const std::string& name, CapeEnumeration value) {
        note("addEnumeration", name, value);
    }
    void addValue(const std::string& name, const ValueObject::Content& value) {
        note("addValue", name, value);
    }
    void addReals(const std::string& name, Reals values) { note("addReals", name, values); }
    void addIntegers(const std::string& name, std::span<const CapeInteger> values) {
        note("addIntegers", name, values);
    }
    void addBooleans(const std::string& name, std::span<const CapeBoolean> values) {
        note("addBooleans", name, values);
    }
    void addStrings(const std::string& name, TextsView values) { note("addStrings", name, values); }
    void addEnumerations(const std::string& name, std::span<const CapeEnumeration> values) {
        note("addEnumerations", name, values);
    }
    void addValues(const std::string& name, ValuesView values) { note("addValues", name, values); }
    void addBytes(const std::string& name, std::span<const CapeByte> values) {
        note("addBytes", name, values);
    }
    Ref<ICapePersistWriter> addNode(const std::string& name) {
        return note("addNode", name), Ref<ICapePersistWriter>::share(as<ICapePersistWriter>());
    }
};

class Reader : public Recorder<Reader, PersistReaderAdapter> {
public:
    Texts valueNames() const { return note("valueNames"), Texts{"a", "b"}; }
    CapePersistedDataType valueType(const std::string& name) const {
        return note("valueType", name), CapePersistedDataType::arrayByte;
    }
    double real(const std::string& name) const { return note("real", name), 1.5; }
    CapeInteger integer(const std::string& name) const { return note("integer", name), 2; }
    bool boolean(const std::string& name) const { return note("boolean", name), true; }
    std::string string(const std::string& name) const { return note("string", name), "Größe"; }
    CapeEnumeration enumeration(const std::string& name) const { return note("enumeration", name), 3; }
    ValueObject::Content value(const std::string& name) const { return note("value", name), 4.5; }
    std::vector<double> reals(const std::string& name) const {
        return note("reals", name), std::vector{1.5, 2.5};
    }
    std::vector<CapeInteger> integers(const std::string& name) const {
        return note("integers", name), std::vector<CapeInteger>{3};
    }
    std::vector<CapeBoolean> booleans(const std::string& name) const {
        return note("booleans", name), std::vector<CapeBoolean>{1, 0};
    }
    Texts strings(const std::string& name) const { return note("strings", name), Texts{"x", "y"}; }
    std::vector<CapeEnumeration> enumerations(const std::string& name) const {
        return note("enumerations", name), std::vector<CapeEnumeration>{5};
    }
    std::vector<ValueObject::Content> values(const std::string& name) const {
        return note("values", name), std::vector<ValueObject::Content>{true};
    }
    std::vector<CapeByte> bytes(const std::string& name) const {
        return note("bytes", name), std::vector<CapeByte>{255, 0};
    }
    Texts nodeNames() const { return note("nodeNames"), Texts{"node"}; }
    Ref<ICapePersistReader> node(const std::string& name) const {
        return note("node", name),
               Ref<ICapePersistReader>::share(const_cast<Reader*>(this)->as<ICapePersistReader>());
    }
};

/// One text, as an argument.
class Argument {
public:
    explicit Argument(const char* text) : text_(text) {}
    ICapeString* operator*() const { return text_.in(); }

private:
    StringObject text_;
};

const Argument density("density"), vapor("Vapor"), mole("mole"), name("name");
const StringArray phases({"Vapor", "Liquid"}), properties({"p1", "p2"}), compounds({"Water"});
const RealArray values({1.5, 2.5});

using Contents = std::vector<ValueObject::Content>;

Contents contentsOf(const ValueArray& array) {
    Contents result;
    for (std::size_t i = 0; i < array.size(); ++i) result.push_back(array[i].content());
    return result;
}

Texts givenTexts(ICapeInterface* object, int number) {
    StringArray texts;
    CHECK(callSlot(object, number, texts.out()) == noError);
    return texts.utf8();
}

double only(const RealArray& reals) {
    REQUIRE(reals.view().size() == 1);
    return reals.view()[0];
}

}  // namespace

TEST_CASE("ICapeDiagnostic leads to its members, and the simulation context to it") {
    const auto environment = makeObject<Environment>();
    const auto it = query<ICapeDiagnostic>(environment->as<ICapeSimulationContext>());
    REQUIRE(it);
    CHECK(callSlot(it.get(), 0, *Argument("Größe")) == noError);
    CHECK(environment->seen() == "popUpMessage Größe");
    CHECK(callSlot(it.get(), 1, *Argument("hello")) == noError);
    CHECK(environment->seen() == "logMessage hello");
}

TEST_CASE("ICapeThermoMaterial leads to its members") {
    const auto material = makeObject<Material>();
    auto* const it = material->as<ICapeThermoMaterial>();
    CapeReal temperature = 0, pressure = 0;
    RealArray reals;

    CHECK(callSlot(it, 0) == noError);
    CHECK(material->seen() == "clearAllProps");
    CHECK(callSlot(it, 1, it) == noError);
    CHECK(material->seen() == "copyFromMaterial object");
    Ref<ICapeThermoMaterial> created;
    CHECK(callSlot(it, 2, created.receive()) == noError);
    CHECK(created.get() == it);
    CHECK(material->seen() == "createMaterial");
    CHECK(callSlot(it, 3, *density, *mole, reals.out()) == noError);
    CHECK(only(reals) == 1);
    CHECK(material->seen() == "overallProp density mole");
    CHECK(callSlot(it, 4, &temperature, &pressure, reals.out()) == noError);
    CHECK(temperature == 1);
    CHECK(pressure == 2);
    CHECK(only(reals) == 3);
    CHECK(material->seen() == "overallTPFraction");
    StringArray labels;
    EnumerationArray status;
    CHECK(callSlot(it, 5, labels.out(), status.out()) == noError);
    CHECK(labels.utf8() == Texts{"1"});
    CHECK(std::ranges::equal(status.view(), std::vector{2}));
    CHECK(material->seen() == "presentPhases");
    CHECK(callSlot(it, 6, *density, *vapor, *mole, reals.out()) == noError);
    CHECK(only(reals) == 1);
    CHECK(material->seen() == "singlePhaseProp density Vapor mole");
    temperature = pressure = 0;
    CHECK(callSlot(it, 7, *vapor, &temperature, &pressure, reals.out()) == noError);
    CHECK(temperature == 1);
    CHECK(pressure == 2);
    CHECK(only(reals) == 3);
    CHECK(material->seen() == "tpFraction Vapor");
    CHECK(callSlot(it, 8, *density, phases.in(), *mole, reals.out()) == noError);
    CHECK(only(reals) == 1);
    CHECK(material->seen() == "twoPhaseProp density [Vapor Liquid] mole");
    CHECK(callSlot(it, 9, *density, *mole, values.in()) == noError);
    CHECK(material->seen() == "setOverallProp density mole [1.5 2.5]");
    const EnumerationArray atEquilibrium({1, 0});
    CHECK(callSlot(it, 10, phases.in(), atEquilibrium.in()) == noError);
    CHECK(material->seen() == "setPresentPhases [Vapor Liquid] [1 0]");
    CHECK(callSlot(it, 11, *density, *vapor, *mole, values.in()) == noError);
    CHECK(material->seen() == "setSinglePhaseProp density Vapor mole [1.5 2.5]");
    CHECK(callSlot(it, 12, *density, phases.in(), *mole, values.in()) == noError);
    CHECK(material->seen() == "setTwoPhaseProp density [Vapor Liquid] mole [1.5 2.5]");
}

TEST_CASE("ICapeThermoCompounds leads to its members") {
    const auto material = makeObject<Material>();
    auto* const it = material->as<ICapeThermoCompounds>();
    CapeBoolean missing = 0;
    RealArray reals;

    ValueArray constants;
    CHECK(callSlot(it, 0, properties.in(), compounds.in(), &missing, constants.out()) == noError);
    CHECK(missing == 1);
    CHECK(contentsOf(constants) == Contents{2.5, std::string("C2H6")});
    CHECK(material->seen() == "compoundConstants [p1 p2] [Water]");

    StringArray ids, formulae, names, casNumbers;
    RealArray boilingTemperatures, weights;
    CHECK(callSlot(it, 1, ids.out(), formulae.out(), names.out(), boilingTemperatures.out(), weights.out(),
                   casNumbers.out()) == noError);
    CHECK(ids.utf8() == Texts{"1"});
    CHECK(formulae.utf8() == Texts{"2"});
    CHECK(names.utf8() == Texts{"3"});
    CHECK(only(boilingTemperatures) == 4);
    CHECK(only(weights) == 5);
    CHECK(casNumbers.utf8() == Texts{"6"});
    CHECK(material->seen() == "compoundList");
    CHECK(givenTexts(it, 2) == Texts{"constant"});
    CHECK(material->seen() == "constantProperties");
    CapeInteger count = 0;
    CHECK(callSlot(it, 3, &count) == noError);
    CHECK(count == 5);
    CHECK(material->seen() == "compoundCount");
    missing = 0;
    CHECK(callSlot(it, 4, properties.in(), 1e5, compounds.in(), &missing, reals.out()) == noError);
    CHECK(missing == 1);
    CHECK(only(reals) == 2);
    CHECK(material->seen() == "pressureDependentProperties [p1 p2] 100000 [Water]");
    CHECK(givenTexts(it, 5) == Texts{"of pressure"});
    CHECK(material->seen() == "pressureDependentPropertyNames");
    missing = 0;
    CHECK(callSlot(it, 6, properties.in(), 300.0, compounds.in(), &missing, reals.out()) == noError);
    CHECK(missing == 1);
    CHECK(only(reals) == 2);
    CHECK(material->seen() == "temperatureDependentProperties [p1 p2] 300 [Water]");
    CHECK(givenTexts(it, 7) == Texts{"of temperature"});
    CHECK(material->seen() == "temperatureDependentPropertyNames");
}

TEST_CASE("ICapeThermoPhases leads to its members") {
    const auto material = makeObject<Material>();
    auto* const it = material->as<ICapeThermoPhases>();
    CapeInteger count = 0;
    CHECK(callSlot(it, 0, &count) == noError);
    CHECK(count == 2);
    CHECK(material->seen() == "phaseCount");
    ValueObject info;
    CHECK(callSlot(it, 1, *vapor, *density, info.out()) == noError);
    CHECK(info.content() == ValueObject::Content(1.5));
    CHECK(material->seen() == "phaseInfo Vapor density");
    StringArray labels, states, keys;
    CHECK(callSlot(it, 2, labels.out(), states.out(), keys.out()) == noError);
    CHECK(labels.utf8() == Texts{"1"});
    CHECK(states.utf8() == Texts{"2"});
    CHECK(keys.utf8() == Texts{"3"});
    CHECK(material->seen() == "phaseList");
}

TEST_CASE("ICapeThermoPropertyRoutine leads to its members") {
    const auto material = makeObject<Material>();
    auto* const it = material->as<ICapeThermoPropertyRoutine>();
    RealArray lnPhi, byTemperature, byPressure, byAmount;
    CHECK(callSlot(it, 0, *vapor, 300.0, 1e5, values.in(), CapeInteger{15}, lnPhi.out(), byTemperature.out(),
                   byPressure.out(), byAmount.out()) == noError);
    CHECK(only(lnPhi) == 1);
    CHECK(only(byTemperature) == 2);
    CHECK(only(byPressure) == 3);
    CHECK(only(byAmount) == 4);
    CHECK(material->seen() == "calcAndGetLnPhi Vapor 300 100000 [1.5 2.5] 15");
    CHECK(callSlot(it, 1, properties.in(), *vapor) == noError);
    CHECK(material->seen() == "calcSinglePhaseProp [p1 p2] Vapor");
    CHECK(callSlot(it, 2, properties.in(), phases.in()) == noError);
    CHECK(material->seen() == "calcTwoPhaseProp [p1 p2] [Vapor Liquid]");
    CapeBoolean valid = 0;
    CHECK(callSlot(it, 3, *density, *vapor, &valid) == noError);
    CHECK(valid == 1);
    CHECK(material->seen() == "checkSinglePhasePropSpec density Vapor");
    valid = 0;
    CHECK(callSlot(it, 4, *density, phases.in(), &valid) == noError);
    CHECK(valid == 1);
    CHECK(material->seen() == "checkTwoPhasePropSpec density [Vapor Liquid]");
    CHECK(givenTexts(it, 5) == Texts{"single"});
    CHECK(material->seen() == "singlePhasePropList");
    CHECK(givenTexts(it, 6) == Texts{"two"});
    CHECK(material->seen() == "twoPhasePropList");
}

TEST_CASE("ICapeThermoEquilibriumRoutine leads to its members") {
    const auto material = makeObject<Material>();
    auto* const it = material->as<ICapeThermoEquilibriumRoutine>();
    CHECK(callSlot(it, 0, properties.in(), phases.in(), *mole) == noError);
    CHECK(material->seen() == "calcEquilibrium [p1 p2] [Vapor Liquid] mole");
    CapeBoolean supported = 0;
    CHECK(callSlot(it, 1, properties.in(), phases.in(), *mole, &supported) == noError);
    CHECK(supported == 1);
    CHECK(material->seen() == "checkEquilibriumSpec [p1 p2] [Vapor Liquid] mole");
}

TEST_CASE("ICapePersistWriter leads to its members") {
    const auto writer = makeObject<Writer>();
    auto* const it = writer->as<ICapePersistWriter>();
    CHECK(callSlot(it, 0, *name, 1.5) == noError);
    CHECK(writer->seen() == "addReal name 1.5");
    CHECK(callSlot(it, 1, *name, CapeInteger{-2}) == noError);
    CHECK(writer->seen() == "addInteger name -2");
    CHECK(callSlot(it, 2, *name, CapeBoolean{5}) == noError);
    CHECK(writer->seen() == "addBoolean name true");
    CHECK(callSlot(it, 3, *name, *vapor) == noError);
    CHECK(writer->seen() == "addString name Vapor");
    CHECK(callSlot(it, 4, *name, CapeEnumeration{3}) == noError);
    CHECK(writer->seen() == "addEnumeration name 3");
    ValueObject value;
    write(value.out(), CapeInteger{9});
    CHECK(callSlot(it, 5, *name, value.out()) == noError);
    CHECK(writer->seen() == "addValue name 9");
    CHECK(callSlot(it, 6, *name, values.in()) == noError);
    CHECK(writer->seen() == "addReals name [1.5 2.5]");
    CHECK(callSlot(it, 7, *name, IntegerArray({1, 2}).in()) == noError);
    CHECK(writer->seen() == "addIntegers name [1 2]");
    CHECK(callSlot(it, 8, *name, BooleanArray({1, 0}).in()) == noError);
    CHECK(writer->seen() == "addBooleans name [1 0]");
    CHECK(callSlot(it, 9, *name, phases.in()) == noError);
    CHECK(writer->seen() == "addStrings name [Vapor Liquid]");
    CHECK(callSlot(it, 10, *name, EnumerationArray({7}).in()) == noError);
    CHECK(writer->seen() == "addEnumerations name [7]");
    ValueArray several;
    ValuesOut(several.out()).assign(Contents{CapeInteger{9}, std::string("ten")});
    CHECK(callSlot(it, 11, *name, several.out()) == noError);
    CHECK(writer->seen() == "addValues name [9 ten]");
    CHECK(callSlot(it, 12, *name, ByteArray({0, 255}).in()) == noError);
    CHECK(writer->seen() == "addBytes name [0 255]");
    Ref<ICapePersistWriter> node;
    CHECK(callSlot(it, 13, *name, node.receive()) == noError);
    CHECK(node.get() == it);
    CHECK(writer->seen() == "addNode name");
}

TEST_CASE("ICapePersistReader leads to its members") {
    const auto reader = makeObject<Reader>();
    auto* const it = reader->as<ICapePersistReader>();
    CHECK(givenTexts(it, 0) == Texts{"a", "b"});
    CHECK(reader->seen() == "valueNames");
    auto type = CapePersistedDataType::real;
    CHECK(callSlot(it, 1, *name, &type) == noError);
    CHECK(type == CapePersistedDataType::arrayByte);
    CHECK(reader->seen() == "valueType name");
    CapeReal real = 0;
    CHECK(callSlot(it, 2, *name, &real) == noError);
    CHECK(real == 1.5);
    CHECK(reader->seen() == "real name");
    CapeInteger integer = 0;
    CHECK(callSlot(it, 3, *name, &integer) == noError);
    CHECK(integer == 2);
    CHECK(reader->seen() == "integer name");
    CapeBoolean boolean = 0;
    CHECK(callSlot(it, 4, *name, &boolean) == noError);
    CHECK(boolean == 1);
    CHECK(reader->seen() == "boolean name");
    StringObject text;
    CHECK(callSlot(it, 5, *name, text.out()) == noError);
    CHECK(text.utf8() == "Größe");
    CHECK(reader->seen() == "string name");
    CapeEnumeration enumeration = 0;
    CHECK(callSlot(it, 6, *name, &enumeration) == noError);
    CHECK(enumeration == 3);
    CHECK(reader->seen() == "enumeration name");
    ValueObject value;
    CHECK(callSlot(it, 7, *name, value.out()) == noError);
    CHECK(value.content() == ValueObject::Content(4.5));
    CHECK(reader->seen() == "value name");

    RealArray reals;
    CHECK(callSlot(it, 8, *name, reals.out()) == noError);
    CHECK(std::ranges::equal(reals.view(), std::vector{1.5, 2.5}));
    CHECK(reader->seen() == "reals name");
    IntegerArray integers;
    CHECK(callSlot(it, 9, *name, integers.out()) == noError);
    CHECK(std::ranges::equal(integers.view(), std::vector{3}));
    CHECK(reader->seen() == "integers name");
    BooleanArray booleans;
    CHECK(callSlot(it, 10, *name, booleans.out()) == noError);
    CHECK(std::ranges::equal(booleans.view(), std::vector<CapeBoolean>{1, 0}));
    CHECK(reader->seen() == "booleans name");
    StringArray strings;
    CHECK(callSlot(it, 11, *name, strings.out()) == noError);
    CHECK(strings.utf8() == Texts{"x", "y"});
    CHECK(reader->seen() == "strings name");
    EnumerationArray enumerations;
    CHECK(callSlot(it, 12, *name, enumerations.out()) == noError);
    CHECK(std::ranges::equal(enumerations.view(), std::vector{5}));
    CHECK(reader->seen() == "enumerations name");
    ValueArray several;
    CHECK(callSlot(it, 13, *name, several.out()) == noError);
    CHECK(contentsOf(several) == Contents{true});
    CHECK(reader->seen() == "values name");
    ByteArray bytes;
    CHECK(callSlot(it, 14, *name, bytes.out()) == noError);
    CHECK(std::ranges::equal(bytes.view(), std::vector<CapeByte>{255, 0}));
    CHECK(reader->seen() == "bytes name");
    CHECK(givenTexts(it, 15) == Texts{"node"});
    CHECK(reader->seen() == "nodeNames");
    Ref<ICapePersistReader> node;
    CHECK(callSlot(it, 16, *name, node.receive()) == noError);
    CHECK(node.get() == it);
    CHECK(reader->seen() == "node name");
}
