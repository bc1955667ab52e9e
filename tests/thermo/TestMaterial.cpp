#include "tests/thermo/TestMaterial.h"

#include <algorithm>

namespace orvane::test {

using namespace COBIA;

namespace {

/// The basis on which each property exists, and no other.
const char* basisOf(const std::string& property) {
    for (const char* name : {"temperature", "pressure", "fugacityCoefficient", "kvalue", "oddity", "shape"})
        if (property == name) return "";
    return "mole";
}

void requireBasis(const std::string& property, CapeTextView basis) {
    if (toUtf8(basis) != basisOf(property))
        throw StringException() << "no " << property << " on basis '" << toUtf8(basis) << "'";
}

}  // namespace

ICapeInterface* TestMaterial::find(const CapeUUID& uuid) noexcept {
    const bool hidden = std::ranges::find(package_.missing, uuid) != package_.missing.end();
    return hidden ? nullptr : Offering::find(uuid);
}

void TestMaterial::note(const std::string& call) {
    package_.calls.push_back(tag_ + " " + call);
    for (const auto& [beginning, code] : package_.failures) {
        if (!call.starts_with(beginning)) continue;
        if (code == capeOpenError) throw StringException() << call << " failed";
        throw cape_open_error(code);
    }
}

std::vector<double> TestMaterial::answer(const std::string& call, const std::vector<double>& truth) const {
    const auto instead = package_.answers.find(call);
    return instead == package_.answers.end() ? truth : instead->second;
}

void TestMaterial::setStream(double flow, const std::vector<double>& z, const TestPackage::Split& split,
                             double pressure) {
    overall_["totalFlow"] = {flow};
    overall_["fraction"] = z;
    setSplit(split, pressure);
}

void TestMaterial::setSplit(const TestPackage::Split& split, double pressure) {
    overall_["temperature"] = {split.temperature};
    overall_["pressure"] = {pressure};
    present_.clear();
    values_.clear();
    // On a boundary both phases are there, one of them with nothing in it; a phase whose fractions do not add
    // up is not.
    double liquidSum = 0, vaporSum = 0;
    for (const double x : split.liquid) liquidSum += x;
    for (const double y : split.vapor) vaporSum += y;
    const auto add = [&](const char* label, double fraction, const std::vector<double>& x, double sum) {
        if (fraction == 0 && std::abs(sum - 1) > 1e-9) return;
        present_.push_back(label);
        values_[label] = {{"phaseFraction", {fraction}},
                          {"temperature", {split.temperature}},
                          {"pressure", {pressure}},
                          {"fraction", x}};
    };
    add("Gas", split.vaporFraction, split.vapor, vaporSum);
    add("Oil", 1 - split.vaporFraction, split.liquid, liquidSum);
}

Ref<ICapeThermoMaterial> TestMaterial::createMaterial() {
    note("CreateMaterial");
    return Ref<ICapeThermoMaterial>::share(
        makeObject<TestMaterial>(package_, "copy")->as<ICapeThermoMaterial>());
}

void TestMaterial::overallProp(CapeTextView property, CapeTextView basis, RealsOut values) {
    const std::string name = toUtf8(property);
    note("GetOverallProp " + name);
    requireBasis(name, basis);
    const auto found = overall_.find(name);
    if (found == overall_.end()) throw StringException() << name << " is not set";
    values.assign(answer("GetOverallProp " + name, found->second));
}

void TestMaterial::overallTPFraction(double& temperature, double& pressure, RealsOut x) {
    note("GetOverallTPFraction");
    temperature = overall_.at("temperature").at(0);
    pressure = overall_.at("pressure").at(0);
    x.assign(overall_.at("fraction"));
}

void TestMaterial::presentPhases(TextsOut labels, EnumerationsOut status) {
    note("GetPresentPhases");
    labels.assign(present_);
    status.assign(std::vector<CapeEnumeration>(present_.size(), 1));
}

void TestMaterial::singlePhaseProp(CapeTextView property, CapeTextView phase, CapeTextView basis,
                                   RealsOut values) {
    const std::string name = toUtf8(property);
    note("GetSinglePhaseProp " + name);
    requireBasis(name, basis);
    const auto found = values_[toUtf8(phase)].find(name);
    if (found == values_[toUtf8(phase)].end()) throw StringException() << name << " is not set";
    values.assign(answer("GetSinglePhaseProp " + name, found->second));
}

void TestMaterial::twoPhaseProp(CapeTextView property, TextsView phases, CapeTextView basis,
                                RealsOut values) {
    note("GetTwoPhaseProp " + toUtf8(property));
    requireBasis(toUtf8(property), basis);
    values.assign(values_[toUtf8(phases[0]) + toUtf8(phases[1])].at(toUtf8(property)));
}

void TestMaterial::setOverallProp(CapeTextView property, CapeTextView basis, std::span<const double> values) {
    const std::string name = toUtf8(property);
    note("SetOverallProp " + name);
    requireBasis(name, basis);
    overall_[name] = {values.begin(), values.end()};
}

void TestMaterial::setPresentPhases(TextsView labels, std::span<const CapeEnumeration> status) {
    if (status.size() != labels.size()) throw StringException("labels and status differ in length");
    note("SetPresentPhases");
    present_.clear();
    for (std::size_t i = 0; i < labels.size(); ++i) present_.push_back(toUtf8(labels[i]));
}

void TestMaterial::setSinglePhaseProp(CapeTextView property, CapeTextView phase, CapeTextView basis,
                                      std::span<const double> values) {
    const std::string name = toUtf8(property), label = toUtf8(phase);
    note("SetSinglePhaseProp " + name);
    requireBasis(name, basis);
    if (std::ranges::find(present_, label) == present_.end())
        throw StringException() << label << " is not present";
    values_[label][name] = {values.begin(), values.end()};
}

void TestMaterial::compoundConstants(TextsView properties, TextsView compounds, CapeBoolean& missing,
                                     ValuesOut values) {
    const std::string name = toUtf8(properties[0]);
    note("GetCompoundConstant " + name + " " + toUtf8(compounds[0]));
    missing = name == "unavailable";
    using Content = ValueObject::Content;
    const std::map<std::string, std::vector<Content>> known = {
        {"acentricFactor", {0.25}},
        {"structure", {std::string("ring")}},
        {"carbonAtoms", {CapeInteger(6)}},
        {"isAromatic", {true}},
        {"empty", {std::monostate()}},
        {"unavailable", {std::monostate()}},
        {"tooMany", {Content(1.0), Content(2.0)}},
        {"none", {}},
    };
    values.assign(known.at(name));
}

void TestMaterial::compoundList(TextsOut ids, TextsOut formulae, TextsOut names, RealsOut boiling,
                                RealsOut weights, TextsOut casNumbers) {
    note("GetCompoundList");
    ids.assign(package_.compounds);
    formulae.assign(package_.formulae);
    std::vector<std::string> longNames;
    for (const std::string& id : package_.compounds) longNames.push_back("the compound " + id);
    names.assign(longNames);
    boiling.assign(std::vector<double>(package_.compounds.size(), 350));
    weights.assign(package_.molecularWeights);
    casNumbers.assign(std::vector<std::string>{});
}

CapeInteger TestMaterial::compoundCount() {
    note("GetNumCompounds");
    return static_cast<CapeInteger>(package_.compounds.size());
}

void TestMaterial::temperatureDependentProperties(TextsView properties, double temperature, TextsView,
                                                  CapeBoolean& missing, RealsOut values) {
    note("GetTDependentProperty " + toUtf8(properties[0]));
    missing = toUtf8(properties[0]) == "unavailable";
    std::vector<double> results;
    for (std::size_t i = 0; i < properties.size(); ++i)
        results.push_back(temperature * static_cast<double>(i + 1));
    values.assign(answer("GetTDependentProperty " + toUtf8(properties[0]), results));
}

ValueObject::Content TestMaterial::phaseInfo(CapeTextView phase, CapeTextView attribute) {
    note("GetPhaseInfo " + toUtf8(attribute));
    for (const PhaseRow& row : package_.phases)
        if (row.label == toUtf8(phase) && !row.excluded.empty()) return row.excluded;
    return std::monostate();
}

void TestMaterial::phaseList(TextsOut labels, TextsOut states, TextsOut keys) {
    note("GetPhaseList");
    const auto column = [&](std::string PhaseRow::*member) {
        std::vector<std::string> texts;
        for (const PhaseRow& row : package_.phases) texts.push_back(row.*member);
        return texts;
    };
    labels.assign(column(&PhaseRow::label));
    states.assign(column(&PhaseRow::state));
    keys.assign(column(&PhaseRow::key));
}

void TestMaterial::calcSinglePhaseProp(TextsView properties, CapeTextView phase) {
    const std::string label = toUtf8(phase);
    Values& values = values_[label];
    const bool vapor = label == "Gas";
    for (std::size_t i = 0; i < properties.size(); ++i) {
        const std::string name = toUtf8(properties[i]);
        note("CalcSinglePhaseProp " + name);
        const double temperature = values.at("temperature").at(0);
        if (name == "enthalpy")
            values[name] = {package_.enthalpy(vapor, temperature, values.at("fraction"))};
        else if (name == "oddity" || lowerCase(name) == "volatility")
            values[name] = {vapor ? 3.0 : 5.0};
        else if (name == "shape")
            values[name] = std::vector<double>(vapor ? 2 : 3, 1.0);
        else if (name == "fugacityCoefficient") {
            values[name].clear();
            for (std::size_t c = 0; c < package_.compounds.size(); ++c)
                values[name].push_back(vapor ? 1
                                             : package_.kValue(c, temperature, values.at("pressure").at(0)));
        } else
            throw StringException() << "cannot calculate " << name;
    }
}

void TestMaterial::calcTwoPhaseProp(TextsView properties, TextsView phases) {
    note("CalcTwoPhaseProp " + toUtf8(properties[0]));
    // Each phase has its own temperature: the value tells the two apart.
    values_[toUtf8(phases[0]) + toUtf8(phases[1])][toUtf8(properties[0])] = {
        phaseValue(toUtf8(phases[0]), "temperature"), phaseValue(toUtf8(phases[1]), "temperature")};
}

void TestMaterial::calcEquilibrium(TextsView first, TextsView second, CapeTextView solutionType) {
    note("CalcEquilibrium " + toUtf8(first[0]) + "+" + toUtf8(second[0]) + " " + toUtf8(solutionType));
    if (present_.size() != package_.phases.size())
        throw StringException("not all phases are declared present");
    const auto value = [&](TextsView specification) {
        const std::string property = toUtf8(specification[0]), phase = toUtf8(specification[2]);
        requireBasis(property, specification[1]);
        return phase == "overall" ? overall_.at(property).at(0) : values_.at(phase).at(property).at(0);
    };
    if (toUtf8(first[0]) != "pressure") std::swap(first, second);
    if (toUtf8(first[0]) != "pressure") throw StringException("the test package flashes at a pressure");
    const double pressure = value(first), other = value(second);
    const std::vector<double> z = overall_.at("fraction");
    const std::string property = toUtf8(second[0]);
    setSplit(property == "temperature" ? package_.atTemperature(z, other, pressure)
             : property == "enthalpy"  ? package_.atEnthalpy(z, other, pressure)
                                       : package_.atVaporFraction(z, other, pressure),
             pressure);
}

}  // namespace orvane::test
