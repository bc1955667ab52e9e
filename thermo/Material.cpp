#include "thermo/Material.h"

#include "engine/ScriptType.h"
#include "thermo/Composition.h"
#include "thermo/EquilibriumArguments.h"
#include "thermo/Keywords.h"
#include "thermo/MaterialSharedCollections.h"
#include "thermo/PhaseEquilibrium.h"
#include "thermo/PhasePair.h"
#include "thermo/ThermoTypes.h"

namespace orvane {

using COBIA::StringException;

Material::Material(std::unique_ptr<CapeMaterial> material, bool isFeed)
    : isFeed_(isFeed),
      shared_(std::move(material)),
      collections_(createObject<MaterialSharedCollections>(materialSharedCollectionsType, shared_)) {
    if (!isFeed) return;
    const OverallState state = shared_->material().overallState();
    temperature_ = state.temperature;
    pressure_ = state.pressure;
    x_ = toPython(state.x);
}

PyRef makeMaterialObject(std::unique_ptr<CapeMaterial> material, bool isFeed) {
    return createObject<Material>(materialType, std::move(material), isFeed);
}

// Attributes

PyRef Material::compounds() const {
    return contentOf<MaterialSharedCollections>(collections_.get()).compounds();
}

PyRef Material::phaseTypes() const {
    return contentOf<MaterialSharedCollections>(collections_.get()).phaseTypes();
}

void Material::requireProduct(const char* message) const {
    if (isFeed_) throw StringException(message);
}

const EvaluatedEquilibrium& Material::evaluated() {
    CapeMaterial& from = material();
    if (!evaluated_) evaluated_.emplace(shared_, from.equilibrium());
    return *evaluated_;
}

double Material::specified(ConditionCode code) const {
    const FlashCondition* const condition = port().specification().findCondition(code);
    if (!condition) throw StringException("value not specified");
    return condition->value;
}

void Material::setCondition(ConditionCode code, PyObject* value, const char* refusal) {
    requireProduct(refusal);
    const double number = toDouble(value);
    port().specification().setCondition(port().name(), {code, number});
}

void Material::setFlowRate(PyObject* flow) {
    requireProduct("The property flow_rate is read-only for inlet ports");
    const double number = toDouble(flow);
    material().setTotalFlow(number);
}

PyRef Material::phases() {
    if (!isFeed_) throw StringException("phases can only be obtained for feed materials");
    return evaluated().phases();
}

double Material::t() const {
    material();  // what a script has kept past its call answers with an error, even where the value is known
    return isFeed_ ? temperature_ : specified(ConditionCode::temperature);
}

void Material::setT(PyObject* temperature) {
    setCondition(ConditionCode::temperature, temperature,
                 "cannot set t on material object connected to feed port");
}

double Material::p() const {
    material();
    return isFeed_ ? pressure_ : specified(ConditionCode::pressure);
}

void Material::setP(PyObject* pressure) {
    setCondition(ConditionCode::pressure, pressure, "cannot set p on material object connected to feed port");
}

PyRef Material::x() const {
    material();
    if (isFeed_) return x_;
    const ProductSpecification& product = port().specification();
    if (!product.xSpecified()) throw StringException("value not specified");
    return toPython(product.x());
}

void Material::setX(PyObject* composition) {
    requireProduct("cannot set x on material object connected to feed port");
    std::vector<double> x = readComposition(composition, material().compoundCount());
    port().specification().setX(std::move(x));
}

double Material::vaporFraction() {
    return isFeed_ ? evaluated().vaporFraction() : specified(ConditionCode::vaporFraction);
}

void Material::setVaporFraction(PyObject* fraction) {
    setCondition(ConditionCode::vaporFraction, fraction,
                 "cannot set vapor_fraction on material object connected to feed port");
}

std::string Material::solutionType() const {
    requireProduct("solution_type not available for material object connected to feed port");
    return solutionTypeName(port().specification().solutionType());
}

void Material::setSolutionType(PyObject* type) {
    requireProduct("cannot set solution_type on object connected to feed port");
    if (!PyUnicode_Check(type))
        throw StringException("solution type must be a string, 'unspecified', 'normal' or 'retrograde'");
    const std::string text = toText(type);
    const auto found = findSolutionType(text);
    if (!found) {
        throw StringException() << "Invalid solution_type '" << text
                                << "': must be 'unspecified', 'normal' or 'retrograde'";
    }
    port().specification().setSolutionType(*found);
}

// Methods

PyRef Material::getProperty(PyObject* arguments, PyObject* keywords) {
    if (!isFeed_) throw StringException("get_property can only be used for feed materials");
    const PropertyRequest request(arguments, keywords);
    return request.flat(evaluated().overallProperties(request.names()));
}

PyRef Material::createPhase(const char* stateOfAggregation, PyObject* arguments, PyObject* keywords) {
    const int phase = material().phases().first(stateOfAggregation);
    if (phase == PhaseList::none)
        throw StringException() << "Material Object does not define " << stateOfAggregation << " phase";
    return PhaseType(shared_, phase).createPhase(arguments, keywords);
}

PyRef Material::createPhasePair(PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"phase1", "phase2", nullptr};
    PyObject *first = nullptr, *second = nullptr;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "OO:create_phase_pair", names, &first, &second))
        throw PythonErrorSet();
    material();
    if (!contentIf<Phase>(first, phaseType)) throw StringException("phase1 must be Phase");
    if (!contentIf<Phase>(second, phaseType)) throw StringException("phase2 must be Phase");
    return makePhasePair(first, second);
}

PyRef Material::createPhaseEquilibrium(PyObject* arguments, PyObject* keywords) {
    FlashSpecification specification =
        readEquilibriumArguments(arguments, keywords, material().compoundCount());
    return createObject<PhaseEquilibrium>(phaseEquilibriumType, shared_, std::move(specification));
}

void Material::set(PyObject* arguments, PyObject* keywords) {
    requireProduct("cannot invoke set on material object connected to feed port");
    if (PyTuple_GET_SIZE(arguments) > 0) throw StringException("set does not accept positional arguments");
    if (!keywords || PyDict_GET_SIZE(keywords) == 0) throw StringException("no arguments specified for set");
    forEachKeyword(keywords, [&](const std::string& key, PyObject* value) { setKeyword(key, value); });
}

void Material::setKeyword(const std::string& key, PyObject* value) {
    if (const auto code = findCondition(key))
        setCondition(*code, value, "");
    else if (key == "t")
        setT(value);
    else if (key == "p")
        setP(value);
    else if (key == "x")
        setX(value);
    else if (key == "flow_rate")
        setFlowRate(value);
    else if (key == "vapor_fraction")
        setVaporFraction(value);
    else if (key == "solution_type")
        setSolutionType(value);
    else
        throw StringException() << "unknown/invalid argument '" << key << "'";
}

void Material::copyFrom(PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"source", nullptr};
    PyObject* source = nullptr;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "O:copy_from", names, &source))
        throw PythonErrorSet();
    requireProduct("copy_from can only be used for product materials");

    const auto copy = [&](auto& from) {
        const EvaluatedEquilibrium& equilibrium = from.evaluated();
        std::vector<double> x = readComposition(from.x().get(), material().compoundCount());
        const CopiedState state{
            .vaporFraction =
                equilibrium.isOnVaporBoundary() ? equilibrium.vaporFraction() : CopiedState::none,
            .temperature = from.t(),
            .pressure = from.p(),
            .enthalpy = equilibrium.enthalpy(),
        };
        ProductSpecification& product = port().specification();
        product.recordCopy(port().name(), state);
        product.setX(std::move(x));
    };
    if (auto* const feed = contentIf<Material>(source, materialType)) {
        if (!feed->isFeed_) throw StringException("copy_from cannot copy from a product stream.");
        const double flow = feed->flowRate();
        copy(*feed);
        material().setTotalFlow(flow);
    } else if (auto* const equilibrium = contentIf<PhaseEquilibrium>(source, phaseEquilibriumType)) {
        copy(*equilibrium);
    } else {
        throw StringException("argument to copy_from must be PhaseEquilibrium or material feed stream.");
    }
}

}  // namespace orvane
