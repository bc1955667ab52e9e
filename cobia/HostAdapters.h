// The adapters for the interfaces that a simulation environment offers and the unit calls. Same pattern as Adapters.h.
// Texts that come with every property call pass as views, arrays as spans: nothing is copied on the hot road.
#pragma once

#include "cobia/Adapters.h"

namespace COBIA {

/// Values in the caller's storage.
class ValuesView {
public:
    explicit ValuesView(ICapeArrayValue* values) noexcept : values_(readArray(values)) {}
    std::size_t size() const noexcept { return values_.size(); }
    ValueObject::Content operator[](std::size_t i) const {
        return values_[i] ? readValue(values_[i]) : ValueObject::Content();
    }

private:
    std::span<ICapeValue* const> values_;
};

/// An array of values of the caller's to be filled.
class ValuesOut {
public:
    explicit ValuesOut(ICapeArrayValue* out) noexcept : out_(out) {}
    void assign(std::span<const ValueObject::Content> values) const {
        const auto elements = COBIA::resize(out_, values.size());
        for (std::size_t i = 0; i < values.size(); ++i) write(elements[i], values[i]);
    }

private:
    ICapeArrayValue* out_;
};

template <> struct In<ValuesView, ICapeArrayValue*> {
    static ValuesView read(ICapeArrayValue* values) noexcept { return ValuesView(values); }
};
template <> struct In<ValuesOut, ICapeArrayValue*> {
    static ValuesOut read(ICapeArrayValue* out) noexcept { return ValuesOut(out); }
};
template <> struct In<ValueObject::Content, ICapeValue*> {
    static ValueObject::Content read(ICapeValue* value) { return readValue(value); }
};
template <> struct Out<std::vector<ValueObject::Content>> {
    static void write(const std::vector<ValueObject::Content>& values, ICapeArrayValue* out) {
        ValuesOut(out).assign(values);
    }
};

/// Has no slots of its own.
template <class Object>
struct SimulationContextAdapter : Adapter<Object, ICapeSimulationContext, SimulationContextAdapter> {
    static constexpr ICapeSimulationContext::Table table = {
        .base = interfaceTable<SimulationContextAdapter>,
    };
};

/// void popUpMessage(std::string); void logMessage(std::string)
template <class Object> struct DiagnosticAdapter : Adapter<Object, ICapeDiagnostic, DiagnosticAdapter> {
    static constexpr ICapeDiagnostic::Table table = {
        .base = interfaceTable<DiagnosticAdapter>,
        .PopUpMessage = slot<DiagnosticAdapter, "ICapeDiagnostic::PopUpMessage", &Object::popUpMessage>,
        .LogMessage = slot<DiagnosticAdapter, "ICapeDiagnostic::LogMessage", &Object::logMessage>,
    };
};

/// std::vector<std::string> namedValueList() const; ValueObject::Content namedValue(std::string name) const
template <class Object>
struct COSEUtilitiesAdapter : Adapter<Object, ICapeCOSEUtilities, COSEUtilitiesAdapter> {
    static constexpr ICapeCOSEUtilities::Table table = {
        .base = interfaceTable<COSEUtilitiesAdapter>,
        .getNamedValueList =
            slot<COSEUtilitiesAdapter, "ICapeCOSEUtilities::NamedValueList", &Object::namedValueList>,
        .NamedValue = slot<COSEUtilitiesAdapter, "ICapeCOSEUtilities::NamedValue", &Object::namedValue>,
    };
};

/// void clearAllProps(); void copyFromMaterial(ICapeThermoMaterial*); Ref<> createMaterial();
/// void overallProp(CapeTextView property, CapeTextView basis, RealsOut);
/// void overallTPFraction(double& temperature, double& pressure, RealsOut composition);
/// void presentPhases(TextsOut labels, EnumerationsOut status);
/// void singlePhaseProp(CapeTextView property, CapeTextView phase, CapeTextView basis, RealsOut);
/// void tpFraction(CapeTextView phase, double& temperature, double& pressure, RealsOut composition);
/// void twoPhaseProp(CapeTextView property, TextsView phases, CapeTextView basis, RealsOut);
/// void setOverallProp(CapeTextView property, CapeTextView basis, std::span<const double>);
/// void setPresentPhases(TextsView labels, std::span<const CapeEnumeration> status);
/// void setSinglePhaseProp(CapeTextView property, CapeTextView phase, CapeTextView basis, std::span<const double>);
/// void setTwoPhaseProp(CapeTextView property, TextsView phases, CapeTextView basis, std::span<const double>)
template <class Object>
struct ThermoMaterialAdapter : Adapter<Object, ICapeThermoMaterial, ThermoMaterialAdapter> {
    static constexpr ICapeThermoMaterial::Table table = {
        .base = interfaceTable<ThermoMaterialAdapter>,
        .ClearAllProps =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::ClearAllProps", &Object::clearAllProps>,
        .CopyFromMaterial =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::CopyFromMaterial", &Object::copyFromMaterial>,
        .CreateMaterial =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::CreateMaterial", &Object::createMaterial>,
        .GetOverallProp =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::GetOverallProp", &Object::overallProp>,
        .GetOverallTPFraction = slot<ThermoMaterialAdapter, "ICapeThermoMaterial::GetOverallTPFraction",
                                     &Object::overallTPFraction>,
        .GetPresentPhases =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::GetPresentPhases", &Object::presentPhases>,
        .GetSinglePhaseProp =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::GetSinglePhaseProp", &Object::singlePhaseProp>,
        .GetTPFraction =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::GetTPFraction", &Object::tpFraction>,
        .GetTwoPhaseProp =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::GetTwoPhaseProp", &Object::twoPhaseProp>,
        .SetOverallProp =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::SetOverallProp", &Object::setOverallProp>,
        .SetPresentPhases =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::SetPresentPhases", &Object::setPresentPhases>,
        .SetSinglePhaseProp = slot<ThermoMaterialAdapter, "ICapeThermoMaterial::SetSinglePhaseProp",
                                   &Object::setSinglePhaseProp>,
        .SetTwoPhaseProp =
            slot<ThermoMaterialAdapter, "ICapeThermoMaterial::SetTwoPhaseProp", &Object::setTwoPhaseProp>,
    };
};

/// void compoundConstants(TextsView properties, TextsView compounds, CapeBoolean& missing, ValuesOut);
/// void compoundList(TextsOut ids, TextsOut formulae, TextsOut names, RealsOut boilingTemperatures,
/// RealsOut molecularWeights, TextsOut casNumbers); std::vector<std::string> constantProperties() const;
/// CapeInteger compoundCount() const; void pressureDependentProperties(TextsView properties, double pressure,
/// TextsView compounds, CapeBoolean& missing, RealsOut); std::vector<std::string> pressureDependentPropertyNames() const;
/// void temperatureDependentProperties(...) and temperatureDependentPropertyNames() likewise
template <class Object>
struct ThermoCompoundsAdapter : Adapter<Object, ICapeThermoCompounds, ThermoCompoundsAdapter> {
    static constexpr ICapeThermoCompounds::Table table = {
        .base = interfaceTable<ThermoCompoundsAdapter>,
        .GetCompoundConstant = slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetCompoundConstant",
                                    &Object::compoundConstants>,
        .GetCompoundList =
            slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetCompoundList", &Object::compoundList>,
        .getConstPropList = slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetConstPropList",
                                 &Object::constantProperties>,
        .getNumCompounds =
            slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetNumCompounds", &Object::compoundCount>,
        .GetPDependentProperty = slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetPDependentProperty",
                                      &Object::pressureDependentProperties>,
        .getPDependentPropList = slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetPDependentPropList",
                                      &Object::pressureDependentPropertyNames>,
        .GetTDependentProperty = slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetTDependentProperty",
                                      &Object::temperatureDependentProperties>,
        .getTDependentPropList = slot<ThermoCompoundsAdapter, "ICapeThermoCompounds::GetTDependentPropList",
                                      &Object::temperatureDependentPropertyNames>,
    };
};

/// CapeInteger phaseCount() const; ValueObject::Content phaseInfo(CapeTextView phase, CapeTextView attribute) const;
/// void phaseList(TextsOut labels, TextsOut statesOfAggregation, TextsOut keyCompounds) const
template <class Object> struct ThermoPhasesAdapter : Adapter<Object, ICapeThermoPhases, ThermoPhasesAdapter> {
    static constexpr ICapeThermoPhases::Table table = {
        .base = interfaceTable<ThermoPhasesAdapter>,
        .getNumPhases = slot<ThermoPhasesAdapter, "ICapeThermoPhases::GetNumPhases", &Object::phaseCount>,
        .GetPhaseInfo = slot<ThermoPhasesAdapter, "ICapeThermoPhases::GetPhaseInfo", &Object::phaseInfo>,
        .GetPhaseList = slot<ThermoPhasesAdapter, "ICapeThermoPhases::GetPhaseList", &Object::phaseList>,
    };
};

/// void calcAndGetLnPhi(CapeTextView phase, double temperature, double pressure, std::span<const double> fractions,
/// CapeInteger flags, RealsOut lnPhi, RealsOut byTemperature, RealsOut byPressure, RealsOut byAmount);
/// void calcSinglePhaseProp(TextsView properties, CapeTextView phase);
/// void calcTwoPhaseProp(TextsView properties, TextsView phases);
/// bool checkSinglePhasePropSpec(CapeTextView property, CapeTextView phase) const;
/// bool checkTwoPhasePropSpec(CapeTextView property, TextsView phases) const;
/// std::vector<std::string> singlePhasePropList() const; std::vector<std::string> twoPhasePropList() const
template <class Object>
struct ThermoPropertyRoutineAdapter
    : Adapter<Object, ICapeThermoPropertyRoutine, ThermoPropertyRoutineAdapter> {
    static constexpr ICapeThermoPropertyRoutine::Table table = {
        .base = interfaceTable<ThermoPropertyRoutineAdapter>,
        .CalcAndGetLnPhi = slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::CalcAndGetLnPhi",
                                &Object::calcAndGetLnPhi>,
        .CalcSinglePhaseProp =
            slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::CalcSinglePhaseProp",
                 &Object::calcSinglePhaseProp>,
        .CalcTwoPhaseProp = slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::CalcTwoPhaseProp",
                                 &Object::calcTwoPhaseProp>,
        .CheckSinglePhasePropSpec =
            slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::CheckSinglePhasePropSpec",
                 &Object::checkSinglePhasePropSpec>,
        .CheckTwoPhasePropSpec =
            slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::CheckTwoPhasePropSpec",
                 &Object::checkTwoPhasePropSpec>,
        .getSinglePhasePropList =
            slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::GetSinglePhasePropList",
                 &Object::singlePhasePropList>,
        .getTwoPhasePropList =
            slot<ThermoPropertyRoutineAdapter, "ICapeThermoPropertyRoutine::GetTwoPhasePropList",
                 &Object::twoPhasePropList>,
    };
};

/// void calcEquilibrium(TextsView specification1, TextsView specification2, CapeTextView solutionType);
/// bool checkEquilibriumSpec(TextsView specification1, TextsView specification2, CapeTextView solutionType) const
template <class Object>
struct ThermoEquilibriumRoutineAdapter
    : Adapter<Object, ICapeThermoEquilibriumRoutine, ThermoEquilibriumRoutineAdapter> {
    static constexpr ICapeThermoEquilibriumRoutine::Table table = {
        .base = interfaceTable<ThermoEquilibriumRoutineAdapter>,
        .CalcEquilibrium = slot<ThermoEquilibriumRoutineAdapter,
                                "ICapeThermoEquilibriumRoutine::CalcEquilibrium", &Object::calcEquilibrium>,
        .CheckEquilibriumSpec =
            slot<ThermoEquilibriumRoutineAdapter, "ICapeThermoEquilibriumRoutine::CheckEquilibriumSpec",
                 &Object::checkEquilibriumSpec>,
    };
};

/// One member a kind: void addReal(std::string name, double), addInteger(std::string, CapeInteger),
/// addBoolean(std::string, bool), addString(std::string, std::string), addEnumeration(std::string, CapeEnumeration),
/// addValue(std::string, ValueObject::Content), the arrays as spans (texts as TextsView, values as ValuesView), and
/// Ref<> addNode(std::string)
template <class Object>
struct PersistWriterAdapter : Adapter<Object, ICapePersistWriter, PersistWriterAdapter> {
    static constexpr ICapePersistWriter::Table table = {
        .base = interfaceTable<PersistWriterAdapter>,
        .AddReal = slot<PersistWriterAdapter, "ICapePersistWriter::AddReal", &Object::addReal>,
        .AddInteger = slot<PersistWriterAdapter, "ICapePersistWriter::AddInteger", &Object::addInteger>,
        .AddBoolean = slot<PersistWriterAdapter, "ICapePersistWriter::AddBoolean", &Object::addBoolean>,
        .AddString = slot<PersistWriterAdapter, "ICapePersistWriter::AddString", &Object::addString>,
        .AddEnumeration =
            slot<PersistWriterAdapter, "ICapePersistWriter::AddEnumeration", &Object::addEnumeration>,
        .AddValue = slot<PersistWriterAdapter, "ICapePersistWriter::AddValue", &Object::addValue>,
        .AddArrayReal = slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayReal", &Object::addReals>,
        .AddArrayInteger =
            slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayInteger", &Object::addIntegers>,
        .AddArrayBoolean =
            slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayBoolean", &Object::addBooleans>,
        .AddArrayString =
            slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayString", &Object::addStrings>,
        .AddArrayEnumeration =
            slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayEnumeration", &Object::addEnumerations>,
        .AddArrayValue = slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayValue", &Object::addValues>,
        .AddArrayByte = slot<PersistWriterAdapter, "ICapePersistWriter::AddArrayByte", &Object::addBytes>,
        .AddNode = slot<PersistWriterAdapter, "ICapePersistWriter::AddNode", &Object::addNode>,
    };
};

/// The counterparts of PersistWriterAdapter's members: real(std::string name) const and so on, the arrays as spans or
/// vectors; std::vector<std::string> valueNames() const; CapePersistedDataType valueType(std::string) const;
/// std::vector<std::string> nodeNames() const; Ref<> node(std::string) const
template <class Object>
struct PersistReaderAdapter : Adapter<Object, ICapePersistReader, PersistReaderAdapter> {
    static constexpr ICapePersistReader::Table table = {
        .base = interfaceTable<PersistReaderAdapter>,
        .getValueNames = slot<PersistReaderAdapter, "ICapePersistReader::GetValueNames", &Object::valueNames>,
        .GetValueType = slot<PersistReaderAdapter, "ICapePersistReader::GetValueType", &Object::valueType>,
        .GetReal = slot<PersistReaderAdapter, "ICapePersistReader::GetReal", &Object::real>,
        .GetInteger = slot<PersistReaderAdapter, "ICapePersistReader::GetInteger", &Object::integer>,
        .GetBoolean = slot<PersistReaderAdapter, "ICapePersistReader::GetBoolean", &Object::boolean>,
        .GetString = slot<PersistReaderAdapter, "ICapePersistReader::GetString", &Object::string>,
        .GetEnumeration =
            slot<PersistReaderAdapter, "ICapePersistReader::GetEnumeration", &Object::enumeration>,
        .GetValue = slot<PersistReaderAdapter, "ICapePersistReader::GetValue", &Object::value>,
        .GetArrayReal = slot<PersistReaderAdapter, "ICapePersistReader::GetArrayReal", &Object::reals>,
        .GetArrayInteger =
            slot<PersistReaderAdapter, "ICapePersistReader::GetArrayInteger", &Object::integers>,
        .GetArrayBoolean =
            slot<PersistReaderAdapter, "ICapePersistReader::GetArrayBoolean", &Object::booleans>,
        .GetArrayString = slot<PersistReaderAdapter, "ICapePersistReader::GetArrayString", &Object::strings>,
        .GetArrayEnumeration =
            slot<PersistReaderAdapter, "ICapePersistReader::GetArrayEnumeration", &Object::enumerations>,
        .GetArrayValue = slot<PersistReaderAdapter, "ICapePersistReader::GetArrayValue", &Object::values>,
        .GetArrayByte = slot<PersistReaderAdapter, "ICapePersistReader::GetArrayByte", &Object::bytes>,
        .getNodeNames = slot<PersistReaderAdapter, "ICapePersistReader::GetNodeNames", &Object::nodeNames>,
        .GetNode = slot<PersistReaderAdapter, "ICapePersistReader::GetNode", &Object::node>,
    };
};

}  // namespace COBIA
