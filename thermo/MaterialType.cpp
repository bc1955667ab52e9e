// The scripting type of Material: its attributes and methods with what scripts read about them.
#include "engine/ScriptType.h"
#include "thermo/Material.h"
#include "thermo/ThermoTypes.h"

namespace orvane {
namespace {

#define ORVANE_SET_KEYWORDS                                                                                  \
    "Keyword arguments:\n"                                                                                   \
    "flow_rate -- total molar flow rate [mol/s].\n"                                                          \
    "x -- composition [mol/mol]\n"                                                                           \
    "t -- temperature [K]\n"                                                                                 \
    "p -- pressure [Pa]\n"                                                                                   \
    "vapor_fraction -- molar vapor fraction [mol/mol]\n"                                                     \
    "solution_type -- solution type for product flash\n\n"                                                   \
    "In addition to the above keywords, any property returned by phase_equilibrium_properties may be "       \
    "specified as "                                                                                          \
    "keyword argument.\n\n"                                                                                  \
    "Valid conditions are listed in phase_equilibrium_properties.\n\n"                                       \
    "Valid values for solution_type include \"unspecified\", \"normal\" and \"retrograde\". A "              \
    "solution_type should "                                                                                  \
    "not be specified unless vaporFraction is one of the flash conditions."

#define ORVANE_PHASE_KEYWORDS                                                                                \
    "\n\nKeyword arguments:\nt -- temperature [K].\np -- pressure [Pa].\nx -- composition [mol/mol]."

PyGetSetDef attributes[] = {
    readOnly("name", get<&Material::name>, "Name"),
    readOnly("constant_compound_properties", get<&Material::constantCompoundProperties>,
             "Names of supported compound constant properties."),
    readOnly("temperature_dependent_compound_properties",
             get<&Material::temperatureDependentCompoundProperties>,
             "Names of supported compound temperature dependent properties."),
    readOnly("phase_properties", get<&Material::phaseProperties>,
             "Names of single phase properties supported by the package."),
    readOnly("phase_pair_properties", get<&Material::phasePairProperties>,
             "Names of two phase properties supported by the package."),
    readOnly(
        "phase_equilibrium_properties", get<&Material::phaseEquilibriumProperties>,
        "Names of properties supported by the package that may be used for phase equilibrium conditions."),
    readOnly("compounds", get<&Material::compounds>, "Compounds."),
    readOnly("phase_types", get<&Material::phaseTypes>, "Descriptions of defined phases."),
    readWrite("flow_rate", get<&Material::flowRate>, set<&Material::setFlowRate>,
              "Molar total flow rate [mol/s]."),
    readOnly("phases", get<&Material::phases>,
             "Phases present at phase equilibrium for material object connected to feed port."),
    readWrite("t", get<&Material::t>, set<&Material::setT>, "Temperature [K]."),
    readWrite("p", get<&Material::p>, set<&Material::setP>, "Pressure [Pa]."),
    readWrite("x", get<&Material::x>, set<&Material::setX>, "Overall composition [mol/mol]."),
    readWrite("vapor_fraction", get<&Material::vaporFraction>, set<&Material::setVaporFraction>,
              "Fraction [mol/mol] of vapor phase, or 0 if vapor is not present."),
    readWrite("solution_type", get<&Material::solutionType>, set<&Material::setSolutionType>,
              "Solution type for product port flash. Defaults to unspecified. Options are 'normal' or "
              "'retrograde'."),
    {},
};

PyMethodDef methods[] = {
    methodWithKeywords<&Material::getProperty>("get_property", ORVANE_GET_PROPERTY_DOC),
    methodWithKeywords<&Material::createVaporPhase>("create_vapor_phase",
                                                    "Create a vapor phase." ORVANE_PHASE_KEYWORDS),
    methodWithKeywords<&Material::createLiquidPhase>("create_liquid_phase",
                                                     "Create a liquid phase." ORVANE_PHASE_KEYWORDS),
    methodWithKeywords<&Material::createSolidPhase>("create_solid_phase",
                                                    "Create a solid phase." ORVANE_PHASE_KEYWORDS),
    methodWithKeywords<&Material::createPhasePair>(
        "create_phase_pair", "Create a pair of phases, for properties of two phases.\n\nRequired arguments:\n"
                             "phase1 -- first phase.\nphase2 -- second phase."),
    methodWithKeywords<&Material::createPhaseEquilibrium>(
        "create_phase_equilibrium",
        "Calculate phase equilibrium.\n\nLegacy calling method:\n\nRequired arguments:\n"
        "x -- overall composition [mol/mol].\ncondition1 -- first condition name.\n"
        "value1 -- value of first condition.\ncondition2 -- second condition name.\n"
        "value2 -- value of second condition.\n\nKeyword arguments:\nsolution_type -- solution type.\n\n"
        "New calling method:\n\n" ORVANE_SET_KEYWORDS),
    methodWithKeywords<&Material::set>("set",
                                       "Specify multiple product properties.\n\t\t\n" ORVANE_SET_KEYWORDS),
    methodWithKeywords<&Material::copyFrom>(
        "copy_from",
        "Specify from PhaseEquilibrium or material feed stream.\n\t\t\nRequired argument:\n\n"
        "source -- PhaseEquilibrium or material feed stream\n\n"
        "The copy_from method provides an alternative way to specify a product stream. It cannot be called "
        "for a feed "
        "stream.\n\n"
        "The copy_from method attempts to recreate the phase equilibrium on the specified PhaseEquilibrium "
        "or "
        "material feed stream.\n\n"
        "If the phase equilibrium is on a vapor phase boundary, detected by a value of exactly zero of the "
        "vapor "
        "phase fraction or \nexactly zero of the sum of non vapor phase fractions when at least 2 phases are "
        "present, "
        "it is attempted to keep the product \nat the phase boundary by performing a pressure-vapor fraction "
        "flash "
        "with unspecified solution type. If the enthalpy of the \nresulting phase equilibrium is close "
        "enough to the "
        "source phase equilibrium, the calculation is accepted.\n\n"
        "Next, a temperature-pressure flash is attempted, which is accepted if the enthalpy of the resulting "
        "phase "
        "equilibrium is\nclose enough to the source phase equilibrium.\n\n"
        "If the temperature-pressure flash is not accepted, a pressure-enthalpy flash is performed.\n\n"
        "If the source is a feed material stream, flow_rate is copied a well. If the source equilibrium is a "
        "PhaseEquilibrium,\nflow_rate must be specified separately.\n\n"
        "The source should be of the same thermodynamic definition as the product stream. If not, a source "
        "with a "
        "different number \nof compounds will cause an error to be raised, or otherwise an incorrect phase "
        "equilibrium results on the product port."),
    {},
};

}  // namespace

PyTypeObject materialType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.Material",
    .tp_basicsize = sizeof(PyObjectOf<Material>),
    .tp_dealloc = destroy<Material>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Material stream.\n\n"
              "Material ports can be added using add_port during Configure.\n\n"
              "A Material stream represents a complete thermodynamic configuration that includes compound \n"
              "definitions, phase definitions, property calculation routines and a phase equilibrium "
              "calculator.\n\n"
              "To calculate mixture properties, create a Phase object (directly or from a PhaseType). \n\n"
              "To calculate phase equilibrium properties, create a PhaseEquilibrium object.\n\n"
              "The compound member lists the compound in the package.\n\n"
              "For a feed stream, flow_rate represent the feed total molar flow rate and all the \n"
              "properties that are available from a PhaseEquilibrium are also available for \n"
              "a feed stream.\n\n"
              "For a product stream, x and flow_rate must be set, plus two equilibrium conditions. \n"
              "Equilibrium conditions can be set using set_property, or alternatively set \n"
              "set t, p or vapor_fraction members directly. Multiple properties can be set\n"
              "simultaneously for a product stream using set.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = refuse<
        "A Material can be obtained from a port (unit.ports) or by duplication of an existing material">,
};

}  // namespace orvane
