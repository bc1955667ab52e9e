// The interfaces of the CAPE-OPEN 1.2 binary interface, slot by slot: this file is the contract with hosts that
// were compiled elsewhere, so the order of the slots is not ours to change.
// Not here: calling them (Ref.h), implementing them (Adapters.h), the data objects behind texts and arrays (Data.h).
#pragma once

#include "cobia/Types.h"

#include <cstddef>
#include <type_traits>

namespace COBIA {

/// What an interface pointer points at. All instances of a class share one table.
struct Record {
    void* me;
    const void* vTbl;
};

/// A function of an interface table; the comment behind a slot names its arguments after `me`.
template <class... Arguments> using Slot = CapeResult (*)(void* me, Arguments...);

struct ICapeString;
struct ICapeValue;
struct ICapeThermoMaterial;
struct ICapeSimulationContext;
struct ICapeCollection;

struct ICapeError : Record {
    struct Table {
        void (*addReference)(void* me);
        void (*release)(void* me);
        Slot<ICapeString*> getErrorText;
        Slot<ICapeError**> getCause;
        Slot<ICapeString*> getSource;
        Slot<ICapeString*> getScope;
    };
};

struct ICapeInterface : Record {
    static constexpr CapeUUID uuid = "53a74ee9-adfa-4916-be95-04e9283cc22e"_uuid;
    struct Table {
        void (*addReference)(void* me);
        void (*release)(void* me);
        Slot<const CapeUUID*, ICapeInterface**> queryInterface;  // (uuid, ptr)
        Slot<ICapeError**> getLastError;
    };
};

// Data interfaces: not reference counted. The caller owns them for the length of the call; the callee copies what it
// wants to keep. Data are null terminated, but an empty string may come as a null pointer.

struct ICapeString : Record {
    struct Table {
        void (*get)(void* me, const CapeCharacter** data, CapeSize* size);
        Slot<const CapeCharacter*, CapeSize> set;  // (data, size)
    };
};

struct ICapeValue : Record {
    struct Table {
        CapeValueType (*getValueType)(void* me);
        Slot<const CapeCharacter**, CapeSize*> getStringValue;  // (data, size)
        Slot<CapeInteger*> getIntegerValue;
        Slot<CapeBoolean*> getBooleanValue;
        Slot<CapeReal*> getRealValue;
        Slot<const CapeCharacter*, CapeSize> setStringValue;  // (data, size)
        Slot<CapeInteger> setIntegerValue;
        Slot<CapeBoolean> setBooleanValue;
        Slot<CapeReal> setRealValue;
        Slot<> clear;
    };
};

/// `get` gives the live storage, `setsize` resizes and gives the storage to fill.
template <class T> struct CapeArray : Record {
    using Element = T;
    struct Table {
        void (*get)(void* me, T** data, CapeSize* size);
        Slot<CapeSize, T**> setsize;  // (size, data)
    };
};

struct ICapeArrayReal : CapeArray<CapeReal> {};
struct ICapeArrayInteger : CapeArray<CapeInteger> {};
struct ICapeArrayByte : CapeArray<CapeByte> {};
struct ICapeArrayBoolean : CapeArray<CapeBoolean> {};
struct ICapeArrayEnumeration : CapeArray<CapeEnumeration> {};
struct ICapeArrayString : CapeArray<ICapeString*> {};
struct ICapeArrayValue : CapeArray<ICapeValue*> {};

// CAPE-OPEN 1.2 interfaces

struct ICapeIdentification : ICapeInterface {
    static constexpr CapeUUID uuid = "12ebf184-f47a-4407-b52a-7fcc0a70451c"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*> getComponentName;
        Slot<ICapeString*> putComponentName;
        Slot<ICapeString*> getComponentDescription;
        Slot<ICapeString*> putComponentDescription;
    };
};

struct ICapeCollection : ICapeInterface {
    static constexpr CapeUUID uuid = "b135a443-2ed8-45ef-bb2d-e68d2e631c31"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeInteger, ICapeInterface**> ItemByIndex;  // (index, item)
        Slot<ICapeString*, ICapeInterface**> ItemByName;  // (name, item)
        Slot<CapeInteger*> getCount;
    };
};

struct ICapeParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "dba6931f-390c-4229-9b36-d65979dbd0c0"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeValidationStatus*> getValStatus;
        Slot<CapeParamMode*> getMode;
        Slot<CapeParamType*> getType;
        Slot<ICapeString*, CapeBoolean*> Validate;  // (message, isOK)
        Slot<> Reset;
    };
};

struct ICapeRealParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "d275b85e-94e4-4ca2-84de-d07f729f558a"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeReal*> getValue;
        Slot<CapeReal> putValue;
        Slot<CapeReal*> getDefaultValue;
        Slot<CapeReal*> getLowerBound;
        Slot<CapeReal*> getUpperBound;
        Slot<ICapeArrayReal*> getDimensionality;
        Slot<CapeReal, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeIntegerParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "a97ac097-0fd0-4226-99ba-d1c9ae41bddd"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeInteger*> getValue;
        Slot<CapeInteger> putValue;
        Slot<CapeInteger*> getDefaultValue;
        Slot<CapeInteger*> getLowerBound;
        Slot<CapeInteger*> getUpperBound;
        Slot<CapeInteger, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeStringParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "f26ce527-3277-4424-a629-7f9308dba7d3"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*> getValue;
        Slot<ICapeString*> putValue;
        Slot<ICapeString*> getDefaultValue;
        Slot<ICapeArrayString*> getOptionList;
        Slot<CapeBoolean*> getRestrictedToList;
        Slot<ICapeString*, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeBooleanParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "33bef42d-7348-4141-b6d7-e2efb3714667"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeBoolean*> getValue;
        Slot<CapeBoolean> putValue;
        Slot<CapeBoolean*> getDefaultValue;
        Slot<CapeBoolean, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeArrayParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "aeeb1d66-8227-48bd-9a05-3150d0df4e5d"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeInteger*> getNumDimensions;
        Slot<ICapeArrayInteger*> getSize;
    };
};

struct ICapeArrayRealParameter : ICapeInterface {
    static constexpr CapeUUID uuid = "961866f0-b196-4554-b950-5599ade260d5"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayReal*> getValue;
        Slot<ICapeArrayReal*> putValue;
        Slot<ICapeArrayInteger*, CapeReal*> GetElementValue;  // (position, value)
        Slot<ICapeArrayInteger*, CapeReal> SetElementValue;   // (position, value)
        Slot<CapeReal*> getDefaultValue;
        Slot<CapeReal*> getLowerBound;
        Slot<CapeReal*> getUpperBound;
        Slot<ICapeArrayReal*> getDimensionality;
        Slot<ICapeArrayInteger*, CapeReal, ICapeString*, CapeBoolean*>
            ValidateElement;                                         // (position, value, message, isOK)
        Slot<ICapeArrayReal*, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "72e7e2ae-9f00-40ba-8612-bff233085efd"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeParamType*> getType;
    };
};

struct ICapeRealParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "f056533c-9f56-4487-8fc9-0047a57aeb53"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeReal*> getDefaultValue;
        Slot<CapeReal*> getLowerBound;
        Slot<CapeReal*> getUpperBound;
        Slot<ICapeArrayReal*> getDimensionality;
        Slot<CapeReal, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeIntegerParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "72059585-3858-43ca-9932-e3a8a8c80748"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeInteger*> getDefaultValue;
        Slot<CapeInteger*> getLowerBound;
        Slot<CapeInteger*> getUpperBound;
        Slot<CapeInteger, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeStringParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "7da3530a-8243-4160-8255-dfb89a0ada2a"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*> getDefaultValue;
        Slot<ICapeArrayString*> getOptionList;
        Slot<CapeBoolean*> getRestrictedToList;
        Slot<ICapeString*, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeBooleanParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "036043d9-618f-45d3-a64f-456867526ab7"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeBoolean*> getDefaultValue;
        Slot<CapeBoolean, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeArrayParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "10065170-0cb9-4997-9f19-38957e0184d6"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeInteger*> getNumDimensions;
        Slot<ICapeArrayInteger*> getSize;
    };
};

struct ICapeArrayRealParameterSpecification : ICapeInterface {
    static constexpr CapeUUID uuid = "f127f898-a7c3-41a1-a7f5-58cb35995b44"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeReal*> getDefaultValue;
        Slot<CapeReal*> getLowerBound;
        Slot<CapeReal*> getUpperBound;
        Slot<ICapeArrayReal*> getDimensionality;
        Slot<ICapeArrayInteger*, CapeReal, ICapeString*, CapeBoolean*>
            ValidateElement;                                         // (position, value, message, isOK)
        Slot<ICapeArrayReal*, ICapeString*, CapeBoolean*> Validate;  // (value, message, isOK)
    };
};

struct ICapeUtilities : ICapeInterface {
    static constexpr CapeUUID uuid = "275cb083-4f4f-41a8-ba08-5211b8d48ae8"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeCollection**> getParameters;
        Slot<ICapeSimulationContext*> putSimulationContext;
        Slot<> Initialize;
        Slot<> Terminate;
        Slot<CapeWindowId, CapeEditResult*> Edit;  // (parent, result)
    };
};

/// No slots of its own: it answers queryInterface for ICapeDiagnostic, ICapeMaterialManager, ICapeCOSEUtilities.
struct ICapeSimulationContext : ICapeInterface {
    static constexpr CapeUUID uuid = "48b211c4-a158-46c2-8982-f8bba64410ba"_uuid;
    struct Table {
        ICapeInterface::Table base;
    };
};

struct ICapeDiagnostic : ICapeInterface {
    static constexpr CapeUUID uuid = "d3035846-beaa-4dac-af98-74f09aa17f35"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*> PopUpMessage;
        Slot<ICapeString*> LogMessage;
    };
};

struct ICapeMaterialManager : ICapeInterface {
    static constexpr CapeUUID uuid = "b75a6437-07fe-4ef0-a167-efca0be52cd8"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*> getMaterialList;
        Slot<ICapeString*, ICapeInterface**> CreateMaterial;  // (materialName, material)
    };
};

struct ICapeCOSEUtilities : ICapeInterface {
    static constexpr CapeUUID uuid = "73453e94-6418-4f6a-ab31-d28a69169553"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*> getNamedValueList;
        Slot<ICapeString*, ICapeValue*> NamedValue;  // (name, namedValue)
    };
};

struct ICapeThermoMaterial : ICapeInterface {
    static constexpr CapeUUID uuid = "f7e3517a-4922-4d55-a214-bb53755e7d01"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<> ClearAllProps;
        Slot<ICapeThermoMaterial*> CopyFromMaterial;
        Slot<ICapeThermoMaterial**> CreateMaterial;
        Slot<ICapeString*, ICapeString*, ICapeArrayReal*> GetOverallProp;  // (property, basis, results)
        Slot<CapeReal*, CapeReal*, ICapeArrayReal*>
            GetOverallTPFraction;  // (temperature, pressure, composition)
        Slot<ICapeArrayString*, ICapeArrayEnumeration*> GetPresentPhases;  // (phaseLabels, phaseStatus)
        Slot<ICapeString*, ICapeString*, ICapeString*, ICapeArrayReal*>
            GetSinglePhaseProp;  // (property, phaseLabel, basis, results)
        Slot<ICapeString*, CapeReal*, CapeReal*, ICapeArrayReal*>
            GetTPFraction;  // (phaseLabel, temperature, pressure, composition)
        Slot<ICapeString*, ICapeArrayString*, ICapeString*, ICapeArrayReal*>
            GetTwoPhaseProp;  // (property, phaseLabels, basis, results)
        Slot<ICapeString*, ICapeString*, ICapeArrayReal*> SetOverallProp;  // (property, basis, values)
        Slot<ICapeArrayString*, ICapeArrayEnumeration*> SetPresentPhases;  // (phaseLabels, phaseStatus)
        Slot<ICapeString*, ICapeString*, ICapeString*, ICapeArrayReal*>
            SetSinglePhaseProp;  // (property, phaseLabel, basis, values)
        Slot<ICapeString*, ICapeArrayString*, ICapeString*, ICapeArrayReal*>
            SetTwoPhaseProp;  // (property, phaseLabels, basis, values)
    };
};

struct ICapeThermoMaterialContext : ICapeInterface {
    static constexpr CapeUUID uuid = "6daac236-885c-470a-8286-36805bed4361"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeThermoMaterial*> SetMaterial;
        Slot<> UnsetMaterial;
    };
};

struct ICapeThermoCompounds : ICapeInterface {
    static constexpr CapeUUID uuid = "309dc515-ae97-4fbe-8aa1-a08e1359ff69"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*, ICapeArrayString*, CapeBoolean*, ICapeArrayValue*>
            GetCompoundConstant;  // (props, compIds, containsMissingValues, propVals)
        Slot<ICapeArrayString*, ICapeArrayString*, ICapeArrayString*, ICapeArrayReal*, ICapeArrayReal*,
             ICapeArrayString*>
            GetCompoundList;  // (compIds, formulae, names, boilTemps, molwts, casnos)
        Slot<ICapeArrayString*> getConstPropList;
        Slot<CapeInteger*> getNumCompounds;
        Slot<ICapeArrayString*, CapeReal, ICapeArrayString*, CapeBoolean*, ICapeArrayReal*>
            GetPDependentProperty;  // (props, pressure, compIds, containsMissingValues, propVals)
        Slot<ICapeArrayString*> getPDependentPropList;
        Slot<ICapeArrayString*, CapeReal, ICapeArrayString*, CapeBoolean*, ICapeArrayReal*>
            GetTDependentProperty;  // (props, temperature, compIds, containsMissingValues, propVals)
        Slot<ICapeArrayString*> getTDependentPropList;
    };
};

struct ICapeThermoPhases : ICapeInterface {
    static constexpr CapeUUID uuid = "d80901a2-59a2-43b4-8094-feac64f3c7e0"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapeInteger*> getNumPhases;
        Slot<ICapeString*, ICapeString*, ICapeValue*> GetPhaseInfo;  // (phaseLabel, phaseAttribute, value)
        Slot<ICapeArrayString*, ICapeArrayString*, ICapeArrayString*>
            GetPhaseList;  // (phaseLabels, stateOfAggregation, keyCompoundId)
    };
};

struct ICapeThermoPropertyRoutine : ICapeInterface {
    static constexpr CapeUUID uuid = "82f6a458-2cd7-4d5d-8d6f-b80278da3edb"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*, CapeReal, CapeReal, ICapeArrayReal*, CapeInteger, ICapeArrayReal*, ICapeArrayReal*,
             ICapeArrayReal*, ICapeArrayReal*>
            CalcAndGetLnPhi;  // (phaseLabel, temperature, pressure, moleFraction, fFlags, lnPhi, lnPhiDT, lnPhiDP, lnPhiDn)
        Slot<ICapeArrayString*, ICapeString*> CalcSinglePhaseProp;    // (props, phaseLabel)
        Slot<ICapeArrayString*, ICapeArrayString*> CalcTwoPhaseProp;  // (props, phaseLabels)
        Slot<ICapeString*, ICapeString*, CapeBoolean*>
            CheckSinglePhasePropSpec;  // (property, phaseLabel, valid)
        Slot<ICapeString*, ICapeArrayString*, CapeBoolean*>
            CheckTwoPhasePropSpec;  // (property, phaseLabels, valid)
        Slot<ICapeArrayString*> getSinglePhasePropList;
        Slot<ICapeArrayString*> getTwoPhasePropList;
    };
};

struct ICapeThermoEquilibriumRoutine : ICapeInterface {
    static constexpr CapeUUID uuid = "33543f96-9708-4ef3-9227-3f8d375f6eb5"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*, ICapeArrayString*, ICapeString*>
            CalcEquilibrium;  // (specification1, specification2, solutionType)
        Slot<ICapeArrayString*, ICapeArrayString*, ICapeString*, CapeBoolean*>
            CheckEquilibriumSpec;  // (specification1, specification2, solutionType, isSupported)
    };
};

struct ICapeThermoUniversalConstant : ICapeInterface {
    static constexpr CapeUUID uuid = "be147dcf-11e0-4ede-964a-a43fa553a990"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*, ICapeValue*> GetUniversalConstant;  // (constantId, constantValue)
        Slot<ICapeArrayString*> getUniversalConstantList;
    };
};

struct ICapeThermoPropertyPackageManager : ICapeInterface {
    static constexpr CapeUUID uuid = "a3a94f1e-32f1-47e3-b019-5718fa560757"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*> getPropertyPackageList;
        Slot<ICapeString*, ICapeInterface**> GetPropertyPackage;  // (PackageName, package)
    };
};

struct ICapeUnit : ICapeInterface {
    static constexpr CapeUUID uuid = "af5c2c3f-57e1-4785-837f-7a93dbcd03fb"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeCollection**> ports;
        Slot<CapeValidationStatus*> getValStatus;
        Slot<> Calculate;
        Slot<ICapeString*, CapeBoolean*> Validate;  // (message, isValid)
    };
};

struct ICapeUnitPort : ICapeInterface {
    static constexpr CapeUUID uuid = "a60d7a23-504d-4ada-b6cb-09d6d94d319e"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<CapePortType*> getPortType;
        Slot<CapePortDirection*> getDirection;
        Slot<ICapeInterface**> getConnectedObject;
        Slot<ICapeInterface*> Connect;
        Slot<> Disconnect;
    };
};

struct ICapePersistWriter : ICapeInterface {
    static constexpr CapeUUID uuid = "a8c7928a-e288-4e83-adbd-0abb394ae5a6"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeString*, CapeReal> AddReal;                            // (valueName, value)
        Slot<ICapeString*, CapeInteger> AddInteger;                      // (valueName, value)
        Slot<ICapeString*, CapeBoolean> AddBoolean;                      // (valueName, value)
        Slot<ICapeString*, ICapeString*> AddString;                      // (valueName, value)
        Slot<ICapeString*, CapeEnumeration> AddEnumeration;              // (valueName, value)
        Slot<ICapeString*, ICapeValue*> AddValue;                        // (valueName, value)
        Slot<ICapeString*, ICapeArrayReal*> AddArrayReal;                // (valueName, value)
        Slot<ICapeString*, ICapeArrayInteger*> AddArrayInteger;          // (valueName, value)
        Slot<ICapeString*, ICapeArrayBoolean*> AddArrayBoolean;          // (valueName, value)
        Slot<ICapeString*, ICapeArrayString*> AddArrayString;            // (valueName, value)
        Slot<ICapeString*, ICapeArrayEnumeration*> AddArrayEnumeration;  // (valueName, value)
        Slot<ICapeString*, ICapeArrayValue*> AddArrayValue;              // (valueName, value)
        Slot<ICapeString*, ICapeArrayByte*> AddArrayByte;                // (valueName, value)
        Slot<ICapeString*, ICapePersistWriter**> AddNode;                // (nodeName, value)
    };
};

struct ICapePersistReader : ICapeInterface {
    static constexpr CapeUUID uuid = "827418a6-6515-40cf-81a7-dab8cf8fa176"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*> getValueNames;
        Slot<ICapeString*, CapePersistedDataType*> GetValueType;         // (valueName, valueType)
        Slot<ICapeString*, CapeReal*> GetReal;                           // (valueName, value)
        Slot<ICapeString*, CapeInteger*> GetInteger;                     // (valueName, value)
        Slot<ICapeString*, CapeBoolean*> GetBoolean;                     // (valueName, value)
        Slot<ICapeString*, ICapeString*> GetString;                      // (valueName, value)
        Slot<ICapeString*, CapeEnumeration*> GetEnumeration;             // (valueName, value)
        Slot<ICapeString*, ICapeValue*> GetValue;                        // (valueName, value)
        Slot<ICapeString*, ICapeArrayReal*> GetArrayReal;                // (valueName, value)
        Slot<ICapeString*, ICapeArrayInteger*> GetArrayInteger;          // (valueName, value)
        Slot<ICapeString*, ICapeArrayBoolean*> GetArrayBoolean;          // (valueName, value)
        Slot<ICapeString*, ICapeArrayString*> GetArrayString;            // (valueName, value)
        Slot<ICapeString*, ICapeArrayEnumeration*> GetArrayEnumeration;  // (valueName, value)
        Slot<ICapeString*, ICapeArrayValue*> GetArrayValue;              // (valueName, value)
        Slot<ICapeString*, ICapeArrayByte*> GetArrayByte;                // (valueName, value)
        Slot<ICapeArrayString*> getNodeNames;
        Slot<ICapeString*, ICapePersistReader**> GetNode;  // (nodeName, value)
    };
};

struct ICapePersist : ICapeInterface {
    static constexpr CapeUUID uuid = "aba65dc8-93f9-4953-897d-a8fa8ea4eeae"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapePersistWriter*, CapeBoolean> Save;  // (writer, clearDirty)
        Slot<ICapePersistReader*> Load;
        Slot<CapeBoolean*> getIsDirty;
    };
};

struct ICapeReport : ICapeInterface {
    static constexpr CapeUUID uuid = "99d20668-ca44-4237-8b13-8d5135f4d165"_uuid;
    struct Table {
        ICapeInterface::Table base;
        Slot<ICapeArrayString*> getReportNames;
        Slot<ICapeString*, ICapeArrayString*> ReportTypes;                  // (name, types)
        Slot<ICapeString*, ICapeString*, ICapeArrayString*> ReportLocales;  // (name, type, locales)
        Slot<ICapeString*, ICapeString*, ICapeString*, CapeBoolean*>
            CheckReportSpec;  // (name, type, locale, reportAvailable)
        Slot<ICapeString*, ICapeString*, ICapeString*, ICapeString*>
            GenerateReport;  // (name, type, locale, reportContent)
        Slot<ICapeString*, ICapeString*, ICapeString*, ICapeString*>
            GenerateReportFile;  // (name, type, locale, fileName)
    };
};

static_assert(sizeof(ICapeUnit) == 2 * sizeof(void*) && std::is_standard_layout_v<ICapeUnit>);
static_assert(offsetof(ICapeIdentification::Table, getComponentName) == 4 * sizeof(void*));
static_assert(offsetof(ICapeReport::Table, GenerateReportFile) == 9 * sizeof(void*));
static_assert(sizeof(ICapePersistReader::Table) == 21 * sizeof(void*));
static_assert(sizeof(ICapeThermoMaterial::Table) == 17 * sizeof(void*));
static_assert(sizeof(ICapeArrayRealParameter::Table) == 14 * sizeof(void*));

}  // namespace COBIA
