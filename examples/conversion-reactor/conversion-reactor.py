"""Conversion reactor: one reaction goes as far as the conversion of its key compound says.

Enthalpies are counted from the elements ("enthalpyF"), so the heat of reaction is in them and the energy balance is

    F_out hF_out = F_in hF_in + Q

STOICHIOMETRY is the part to change for another reaction: the identifiers of its compounds, negative what is consumed.
"""

import re
from collections import Counter

STOICHIOMETRY = {"methane": -1, "oxygen": -2, "carbon-dioxide": 1, "water": 2}
KEY = "methane"


def Configure(unit):
    watt = unit.Dimension.KILOGRAM * unit.Dimension.METER**2 / unit.Dimension.SECOND**3
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Conversion", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=1, min=0, max=1,
                       description="Part of the key compound that reacts")
    unit.add_parameter("Heat Duty", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0, dimension=watt,
                       description="Heat that is supplied; negative cools")
    unit.add_parameter("Reaction Heat", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT, dimension=watt,
                       description="Heat that the reaction sets free, of ideal gases at 298.15 K")


def indices(material):
    """The places of the reacting compounds in the package."""
    names = {compound.name.lower().replace(" ", "-"): compound.index for compound in material.compounds}
    missing = [name for name in STOICHIOMETRY if name not in names]
    if missing:
        raise ValueError("The package lacks compounds of the reaction: " + ", ".join(missing))
    return {name: names[name] for name in STOICHIOMETRY}


def elements(formula):
    """The atoms of a formula such as CH4."""
    atoms = Counter()
    for symbol, count in re.findall("([A-Z][a-z]?)([0-9]*)", formula):
        atoms[symbol] += int(count or 1)
    return atoms


def Validate(unit):
    feed = unit.ports["Feed"]
    balance = Counter()
    for name, index in indices(feed).items():
        for symbol, count in elements(feed.compounds[index].formula).items():
            balance[symbol] += STOICHIOMETRY[name] * count
    lost = {symbol: count for symbol, count in balance.items() if count}
    if lost:
        raise ValueError("The reaction is not balanced: " + ", ".join("%s %+g" % item for item in lost.items()))


def Calculate(unit):
    feed = unit.ports["Feed"]
    place = indices(feed)
    amounts = [feed.flow_rate * x for x in feed.x]
    extent = unit.parameters["Conversion"].value * amounts[place[KEY]] / -STOICHIOMETRY[KEY]
    for name, coefficient in STOICHIOMETRY.items():
        amounts[place[name]] += coefficient * extent
        if amounts[place[name]] < -1e-12 * feed.flow_rate:
            raise RuntimeError("There is too little %s for this conversion: %g mol/s are missing"
                               % (name, -amounts[place[name]]))
        amounts[place[name]] = max(0, amounts[place[name]])
    flow = sum(amounts)
    if flow == 0:
        unit.ports["Product"].set(x=feed.x, t=feed.t, p=feed.p, flow_rate=0)
        unit.parameters["Reaction Heat"].value = 0
        return
    x = [amount / flow for amount in amounts]
    from_elements, sensible = feed.get_property(["enthalpyF", "enthalpy"])
    energy = feed.flow_rate * from_elements + unit.parameters["Heat Duty"].value
    outlet = feed.create_phase_equilibrium(x=x, p=feed.p, enthalpyF=energy / flow)
    from_elements_out, sensible_out = outlet.get_property(["enthalpyF", "enthalpy"])
    unit.parameters["Reaction Heat"].value = (feed.flow_rate * (from_elements - sensible) -
                                              flow * (from_elements_out - sensible_out))
    unit.ports["Product"].set(x=x, p=feed.p, enthalpyF=energy / flow, flow_rate=flow)
