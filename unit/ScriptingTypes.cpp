#include "unit/ScriptingTypes.h"

#include "engine/Enumerations.h"
#include "engine/OutputRedirector.h"
#include "engine/UnitObject.h"
#include "parameters/Dimension.h"
#include "parameters/ParameterObject.h"
#include "streams/EnergyObject.h"
#include "streams/ExternalParameter.h"
#include "thermo/ThermoTypes.h"

namespace orvane {

std::span<const ScriptingType> allScriptingTypes() {
    static const ScriptingType types[] = {
        {&outputRedirectorType, nullptr, nullptr},
        {&portTypeType, addPortTypes, "PortType"},
        {&parameterTypeType, addParameterTypes, "ParameterType"},
        {&portDirectionType, addPortDirections, "PortDirection"},
        {&parameterModeType, addParameterModes, "ParameterMode"},
        {&unitType, nullptr, nullptr},
        {&dimensionType, addDimensionConstants, "Dimension"},
        {&parameterType, nullptr, nullptr},
        {&materialSharedDataType, nullptr, nullptr},
        {&materialSharedCollectionsType, nullptr, nullptr},
        {&materialType, nullptr, nullptr},
        {&phaseTypeType, nullptr, nullptr},
        {&phaseType, nullptr, nullptr},
        {&phasePairType, nullptr, nullptr},
        {&phaseEquilibriumType, nullptr, nullptr},
        {&externalParameterType, nullptr, nullptr},
        {&energyObjectType, nullptr, nullptr},
        {&compoundType, nullptr, nullptr},
    };
    return types;
}

}  // namespace orvane
