// One adapter an interface: the record that a host holds, and the table that leads its slots to members of the class.
// A class offers an interface by deriving from CapeOpenObject (Object.h) with the adapter, and having the public members
// listed above it. Texts are UTF-8.
// Not here: what hosts alone offer (HostAdapters.h).
#pragma once

#include "cobia/Object.h"

namespace COBIA {

/// The record of one offered interface; the adapter adds the table.
template <class Object, class I, template <class> class Self> struct Adapter {
    using Offered = I;
    I offered{{{this, &Self<Object>::table}}};

    /// The object behind the `me` of a slot.
    static Object& object(void* me) noexcept { return *static_cast<Object*>(static_cast<Adapter*>(me)); }
};

/// std::string name() const; void setName(std::string); std::string description() const;
/// void setDescription(std::string)
template <class Object>
struct IdentificationAdapter : Adapter<Object, ICapeIdentification, IdentificationAdapter> {
    static constexpr ICapeIdentification::Table table = {
        .base = interfaceTable<IdentificationAdapter>,
        .getComponentName = slot<IdentificationAdapter, "ICapeIdentification::ComponentName", &Object::name>,
        .putComponentName =
            slot<IdentificationAdapter, "ICapeIdentification::ComponentName", &Object::setName>,
        .getComponentDescription =
            slot<IdentificationAdapter, "ICapeIdentification::ComponentDescription", &Object::description>,
        .putComponentDescription =
            slot<IdentificationAdapter, "ICapeIdentification::ComponentDescription", &Object::setDescription>,
    };
};

/// Ref<> itemByIndex(CapeInteger); Ref<> itemByName(std::string); CapeInteger count() const
template <class Object> struct CollectionAdapter : Adapter<Object, ICapeCollection, CollectionAdapter> {
    static constexpr ICapeCollection::Table table = {
        .base = interfaceTable<CollectionAdapter>,
        .ItemByIndex = slot<CollectionAdapter, "ICapeCollection::Item", &Object::itemByIndex>,
        .ItemByName = slot<CollectionAdapter, "ICapeCollection::Item", &Object::itemByName>,
        .getCount = slot<CollectionAdapter, "ICapeCollection::Count", &Object::count>,
    };
};

/// CapeValidationStatus validationStatus() const; CapeParamMode mode() const; CapeParamType type() const;
/// Verdict validate() ; void reset()
template <class Object> struct ParameterAdapter : Adapter<Object, ICapeParameter, ParameterAdapter> {
    static constexpr ICapeParameter::Table table = {
        .base = interfaceTable<ParameterAdapter>,
        .getValStatus = slot<ParameterAdapter, "ICapeParameter::ValStatus", &Object::validationStatus>,
        .getMode = slot<ParameterAdapter, "ICapeParameter::Mode", &Object::mode>,
        .getType = slot<ParameterAdapter, "ICapeParameter::Type", &Object::type>,
        .Validate = slot<ParameterAdapter, "ICapeParameter::Validate", &Object::validate>,
        .Reset = slot<ParameterAdapter, "ICapeParameter::Reset", &Object::reset>,
    };
};

/// CapeParamType type() const
template <class Object>
struct ParameterSpecificationAdapter
    : Adapter<Object, ICapeParameterSpecification, ParameterSpecificationAdapter> {
    static constexpr ICapeParameterSpecification::Table table = {
        .base = interfaceTable<ParameterSpecificationAdapter>,
        .getType = slot<ParameterSpecificationAdapter, "ICapeParameter::Type", &Object::type>,
    };
};

/// double value() const; void setValue(double); double defaultValue() const; double lowerBound() const;
/// double upperBound() const; a vector or span of double dimensionality() const; Verdict validateValue(double) const
template <class Object>
struct RealParameterAdapter : Adapter<Object, ICapeRealParameter, RealParameterAdapter> {
    static constexpr ICapeRealParameter::Table table = {
        .base = interfaceTable<RealParameterAdapter>,
        .getValue = slot<RealParameterAdapter, "ICapeRealParameter::Value", &Object::value>,
        .putValue = slot<RealParameterAdapter, "ICapeRealParameter::Value", &Object::setValue>,
        .getDefaultValue =
            slot<RealParameterAdapter, "ICapeRealParameter::DefaultValue", &Object::defaultValue>,
        .getLowerBound = slot<RealParameterAdapter, "ICapeRealParameter::LowerBound", &Object::lowerBound>,
        .getUpperBound = slot<RealParameterAdapter, "ICapeRealParameter::UpperBound", &Object::upperBound>,
        .getDimensionality =
            slot<RealParameterAdapter, "ICapeRealParameter::Dimensionality", &Object::dimensionality>,
        .Validate = slot<RealParameterAdapter, "ICapeRealParameter::Validate", &Object::validateValue>,
    };
};

/// As RealParameterAdapter, without the value.
template <class Object>
struct RealParameterSpecificationAdapter
    : Adapter<Object, ICapeRealParameterSpecification, RealParameterSpecificationAdapter> {
    static constexpr ICapeRealParameterSpecification::Table table = {
        .base = interfaceTable<RealParameterSpecificationAdapter>,
        .getDefaultValue = slot<RealParameterSpecificationAdapter,
                                "ICapeRealParameterSpecification::DefaultValue", &Object::defaultValue>,
        .getLowerBound = slot<RealParameterSpecificationAdapter,
                              "ICapeRealParameterSpecification::LowerBound", &Object::lowerBound>,
        .getUpperBound = slot<RealParameterSpecificationAdapter,
                              "ICapeRealParameterSpecification::UpperBound", &Object::upperBound>,
        .getDimensionality = slot<RealParameterSpecificationAdapter,
                                  "ICapeRealParameterSpecification::Dimensionality", &Object::dimensionality>,
        .Validate = slot<RealParameterSpecificationAdapter, "ICapeRealParameterSpecification::Validate",
                         &Object::validateValue>,
    };
};

/// As RealParameterAdapter with CapeInteger, and without the dimensionality.
template <class Object>
struct IntegerParameterAdapter : Adapter<Object, ICapeIntegerParameter, IntegerParameterAdapter> {
    static constexpr ICapeIntegerParameter::Table table = {
        .base = interfaceTable<IntegerParameterAdapter>,
        .getValue = slot<IntegerParameterAdapter, "ICapeIntegerParameter::Value", &Object::value>,
        .putValue = slot<IntegerParameterAdapter, "ICapeIntegerParameter::Value", &Object::setValue>,
        .getDefaultValue =
            slot<IntegerParameterAdapter, "ICapeIntegerParameter::DefaultValue", &Object::defaultValue>,
        .getLowerBound =
            slot<IntegerParameterAdapter, "ICapeIntegerParameter::LowerBound", &Object::lowerBound>,
        .getUpperBound =
            slot<IntegerParameterAdapter, "ICapeIntegerParameter::UpperBound", &Object::upperBound>,
        .Validate = slot<IntegerParameterAdapter, "ICapeIntegerParameter::Validate", &Object::validateValue>,
    };
};

/// As IntegerParameterAdapter, without the value.
template <class Object>
struct IntegerParameterSpecificationAdapter
    : Adapter<Object, ICapeIntegerParameterSpecification, IntegerParameterSpecificationAdapter> {
    static constexpr ICapeIntegerParameterSpecification::Table table = {
        .base = interfaceTable<IntegerParameterSpecificationAdapter>,
        .getDefaultValue = slot<IntegerParameterSpecificationAdapter,
                                "ICapeIntegerParameterSpecification::DefaultValue", &Object::defaultValue>,
        .getLowerBound = slot<IntegerParameterSpecificationAdapter,
                              "ICapeIntegerParameterSpecification::LowerBound", &Object::lowerBound>,
        .getUpperBound = slot<IntegerParameterSpecificationAdapter,
                              "ICapeIntegerParameterSpecification::UpperBound", &Object::upperBound>,
        .Validate = slot<IntegerParameterSpecificationAdapter, "ICapeIntegerParameterSpecification::Validate",
                         &Object::validateValue>,
    };
};

/// std::string value() const; void setValue(const std::string&); std::string defaultValue() const;
/// std::vector<std::string> optionList() const; bool restrictedToList() const;
/// Verdict validateValue(const std::string&) const
template <class Object>
struct StringParameterAdapter : Adapter<Object, ICapeStringParameter, StringParameterAdapter> {
    static constexpr ICapeStringParameter::Table table = {
        .base = interfaceTable<StringParameterAdapter>,
        .getValue = slot<StringParameterAdapter, "ICapeStringParameter::Value", &Object::value>,
        .putValue = slot<StringParameterAdapter, "ICapeStringParameter::Value", &Object::setValue>,
        .getDefaultValue =
            slot<StringParameterAdapter, "ICapeStringParameter::DefaultValue", &Object::defaultValue>,
        .getOptionList =
            slot<StringParameterAdapter, "ICapeStringParameter::OptionList", &Object::optionList>,
        .getRestrictedToList =
            slot<StringParameterAdapter, "ICapeStringParameter::RestrictedToList", &Object::restrictedToList>,
        .Validate = slot<StringParameterAdapter, "ICapeStringParameter::Validate", &Object::validateValue>,
    };
};

/// As StringParameterAdapter, without the value.
template <class Object>
struct StringParameterSpecificationAdapter
    : Adapter<Object, ICapeStringParameterSpecification, StringParameterSpecificationAdapter> {
    static constexpr ICapeStringParameterSpecification::Table table = {
        .base = interfaceTable<StringParameterSpecificationAdapter>,
        .getDefaultValue = slot<StringParameterSpecificationAdapter,
                                "ICapeStringParameterSpecification::DefaultValue", &Object::defaultValue>,
        .getOptionList = slot<StringParameterSpecificationAdapter,
                              "ICapeStringParameterSpecification::OptionList", &Object::optionList>,
        .getRestrictedToList =
            slot<StringParameterSpecificationAdapter, "ICapeStringParameterSpecification::RestrictedToList",
                 &Object::restrictedToList>,
        .Validate = slot<StringParameterSpecificationAdapter, "ICapeStringParameterSpecification::Validate",
                         &Object::validateValue>,
    };
};

/// bool value() const; void setValue(bool); bool defaultValue() const; Verdict validateValue(bool) const
template <class Object>
struct BooleanParameterAdapter : Adapter<Object, ICapeBooleanParameter, BooleanParameterAdapter> {
    static constexpr ICapeBooleanParameter::Table table = {
        .base = interfaceTable<BooleanParameterAdapter>,
        .getValue = slot<BooleanParameterAdapter, "ICapeBooleanParameter::Value", &Object::value>,
        .putValue = slot<BooleanParameterAdapter, "ICapeBooleanParameter::Value", &Object::setValue>,
        .getDefaultValue =
            slot<BooleanParameterAdapter, "ICapeBooleanParameter::DefaultValue", &Object::defaultValue>,
        .Validate = slot<BooleanParameterAdapter, "ICapeBooleanParameter::Validate", &Object::validateValue>,
    };
};

/// As BooleanParameterAdapter, without the value.
template <class Object>
struct BooleanParameterSpecificationAdapter
    : Adapter<Object, ICapeBooleanParameterSpecification, BooleanParameterSpecificationAdapter> {
    static constexpr ICapeBooleanParameterSpecification::Table table = {
        .base = interfaceTable<BooleanParameterSpecificationAdapter>,
        .getDefaultValue = slot<BooleanParameterSpecificationAdapter,
                                "ICapeBooleanParameterSpecification::DefaultValue", &Object::defaultValue>,
        .Validate = slot<BooleanParameterSpecificationAdapter, "ICapeBooleanParameterSpecification::Validate",
                         &Object::validateValue>,
    };
};

/// CapeInteger numDimensions() const; std::vector<CapeInteger> size() const
template <class Object>
struct ArrayParameterAdapter : Adapter<Object, ICapeArrayParameter, ArrayParameterAdapter> {
    static constexpr ICapeArrayParameter::Table table = {
        .base = interfaceTable<ArrayParameterAdapter>,
        .getNumDimensions =
            slot<ArrayParameterAdapter, "ICapeArrayParameter::NumDimensions", &Object::numDimensions>,
        .getSize = slot<ArrayParameterAdapter, "ICapeArrayParameter::Size", &Object::size>,
    };
};

/// As ArrayParameterAdapter.
template <class Object>
struct ArrayParameterSpecificationAdapter
    : Adapter<Object, ICapeArrayParameterSpecification, ArrayParameterSpecificationAdapter> {
    static constexpr ICapeArrayParameterSpecification::Table table = {
        .base = interfaceTable<ArrayParameterSpecificationAdapter>,
        .getNumDimensions = slot<ArrayParameterSpecificationAdapter,
                                 "ICapeArrayParameterSpecification::NumDimensions", &Object::numDimensions>,
        .getSize =
            slot<ArrayParameterSpecificationAdapter, "ICapeArrayParameterSpecification::Size", &Object::size>,
    };
};

/// The value is a span of double; double elementValue(position) const; void setElementValue(position, double);
/// Verdict validateElement(position, double) const, the position a span of CapeInteger with one index a dimension.
/// Default and bounds are those of an element.
template <class Object>
struct ArrayRealParameterAdapter : Adapter<Object, ICapeArrayRealParameter, ArrayRealParameterAdapter> {
    static constexpr ICapeArrayRealParameter::Table table = {
        .base = interfaceTable<ArrayRealParameterAdapter>,
        .getValue = slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::Value", &Object::value>,
        .putValue = slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::Value", &Object::setValue>,
        .GetElementValue = slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::GetElementValue",
                                &Object::elementValue>,
        .SetElementValue = slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::SetElementValue",
                                &Object::setElementValue>,
        .getDefaultValue =
            slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::DefaultValue", &Object::defaultValue>,
        .getLowerBound =
            slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::LowerBound", &Object::lowerBound>,
        .getUpperBound =
            slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::UpperBound", &Object::upperBound>,
        .getDimensionality = slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::Dimensionality",
                                  &Object::dimensionality>,
        .ValidateElement = slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::ValidateElement",
                                &Object::validateElement>,
        .Validate =
            slot<ArrayRealParameterAdapter, "ICapeArrayRealParameter::Validate", &Object::validateValue>,
    };
};

/// As ArrayRealParameterAdapter, without the value and its elements.
template <class Object>
struct ArrayRealParameterSpecificationAdapter
    : Adapter<Object, ICapeArrayRealParameterSpecification, ArrayRealParameterSpecificationAdapter> {
    static constexpr ICapeArrayRealParameterSpecification::Table table = {
        .base = interfaceTable<ArrayRealParameterSpecificationAdapter>,
        .getDefaultValue = slot<ArrayRealParameterSpecificationAdapter,
                                "ICapeArrayRealParameterSpecification::DefaultValue", &Object::defaultValue>,
        .getLowerBound = slot<ArrayRealParameterSpecificationAdapter,
                              "ICapeArrayRealParameterSpecification::LowerBound", &Object::lowerBound>,
        .getUpperBound = slot<ArrayRealParameterSpecificationAdapter,
                              "ICapeArrayRealParameterSpecification::UpperBound", &Object::upperBound>,
        .getDimensionality =
            slot<ArrayRealParameterSpecificationAdapter,
                 "ICapeArrayRealParameterSpecification::Dimensionality", &Object::dimensionality>,
        .ValidateElement =
            slot<ArrayRealParameterSpecificationAdapter,
                 "ICapeArrayRealParameterSpecification::ValidateElement", &Object::validateElement>,
        .Validate = slot<ArrayRealParameterSpecificationAdapter,
                         "ICapeArrayRealParameterSpecification::Validate", &Object::validateValue>,
    };
};

/// Ref<> parameterCollection(); void setSimulationContext(ICapeSimulationContext*); void initialize(); void terminate();
/// CapeEditResult edit(CapeWindowId)
template <class Object> struct UtilitiesAdapter : Adapter<Object, ICapeUtilities, UtilitiesAdapter> {
    static constexpr ICapeUtilities::Table table = {
        .base = interfaceTable<UtilitiesAdapter>,
        .getParameters = slot<UtilitiesAdapter, "ICapeUtilities::Parameters", &Object::parameterCollection>,
        .putSimulationContext =
            slot<UtilitiesAdapter, "ICapeUtilities::SimulationContext", &Object::setSimulationContext>,
        .Initialize = slot<UtilitiesAdapter, "ICapeUtilities::Initialize", &Object::initialize>,
        .Terminate = slot<UtilitiesAdapter, "ICapeUtilities::Terminate", &Object::terminate>,
        .Edit = slot<UtilitiesAdapter, "ICapeUtilities::Edit", &Object::edit>,
    };
};

/// Ref<> portCollection(); CapeValidationStatus validationStatus() const; void calculate(); Verdict validate()
template <class Object> struct UnitAdapter : Adapter<Object, ICapeUnit, UnitAdapter> {
    static constexpr ICapeUnit::Table table = {
        .base = interfaceTable<UnitAdapter>,
        .ports = slot<UnitAdapter, "ICapeUnit::ports", &Object::portCollection>,
        .getValStatus = slot<UnitAdapter, "ICapeUnit::ValStatus", &Object::validationStatus>,
        .Calculate = slot<UnitAdapter, "ICapeUnit::Calculate", &Object::calculate>,
        .Validate = slot<UnitAdapter, "ICapeUnit::Validate", &Object::validate>,
    };
};

/// CapePortType portType() const; CapePortDirection portDirection() const; Ref<> connectedObject();
/// void connect(ICapeInterface*); void disconnect()
template <class Object> struct UnitPortAdapter : Adapter<Object, ICapeUnitPort, UnitPortAdapter> {
    static constexpr ICapeUnitPort::Table table = {
        .base = interfaceTable<UnitPortAdapter>,
        .getPortType = slot<UnitPortAdapter, "ICapeUnitPort::PortType", &Object::portType>,
        .getDirection = slot<UnitPortAdapter, "ICapeUnitPort::Direction", &Object::portDirection>,
        .getConnectedObject =
            slot<UnitPortAdapter, "ICapeUnitPort::ConnectedObject", &Object::connectedObject>,
        .Connect = slot<UnitPortAdapter, "ICapeUnitPort::Connect", &Object::connect>,
        .Disconnect = slot<UnitPortAdapter, "ICapeUnitPort::Disconnect", &Object::disconnect>,
    };
};

/// void save(ICapePersistWriter*, bool clearDirty); void load(ICapePersistReader*); bool isDirty() const
template <class Object> struct PersistAdapter : Adapter<Object, ICapePersist, PersistAdapter> {
    static constexpr ICapePersist::Table table = {
        .base = interfaceTable<PersistAdapter>,
        .Save = slot<PersistAdapter, "ICapePersist::Save", &Object::save>,
        .Load = slot<PersistAdapter, "ICapePersist::Load", &Object::load>,
        .getIsDirty = slot<PersistAdapter, "ICapePersist::IsDirty", &Object::isDirty>,
    };
};

/// void reportNames(TextsOut); std::vector<std::string> reportTypes(name), reportLocales(name, type);
/// bool checkReportSpec(name, type, locale); std::string generateReport(name, type, locale);
/// void generateReportFile(name, type, locale, fileName), each text a std::string
template <class Object> struct ReportAdapter : Adapter<Object, ICapeReport, ReportAdapter> {
    static constexpr ICapeReport::Table table = {
        .base = interfaceTable<ReportAdapter>,
        .getReportNames = slot<ReportAdapter, "ICapeReport::ReportNames", &Object::reportNames>,
        .ReportTypes = slot<ReportAdapter, "ICapeReport::ReportTypes", &Object::reportTypes>,
        .ReportLocales = slot<ReportAdapter, "ICapeReport::ReportLocales", &Object::reportLocales>,
        .CheckReportSpec = slot<ReportAdapter, "ICapeReport::CheckReportSpec", &Object::checkReportSpec>,
        .GenerateReport = slot<ReportAdapter, "ICapeReport::GenerateReport", &Object::generateReport>,
        .GenerateReportFile =
            slot<ReportAdapter, "ICapeReport::GenerateReportFile", &Object::generateReportFile>,
    };
};

}  // namespace COBIA
