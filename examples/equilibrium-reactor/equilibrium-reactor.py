"""Equilibrium reactor for one reaction between gases, at a given temperature.

The equilibrium constant follows from the Gibbs energies of the pure ideal gases, the extent from the fugacities:

    ln K = -sum of nu_i (hF_i - T sF_i) / (R T),   sum of nu_i ln(f_i / P0) = ln K

The package counts "enthalpyF" from the elements and "entropyF" absolutely, so that their difference is what a reaction
needs. STOICHIOMETRY is the part to change for another reaction.
"""

from math import log

STOICHIOMETRY = {"carbon-monoxide": -1, "water": -1, "carbon-dioxide": 1, "hydrogen": 1}
R = 8.31446261815324  # J/mol/K
P0 = 1e5              # Pa, standard pressure; any will do that is used throughout
THIN = 1.0            # Pa: a gas so thin is ideal


def Configure(unit):
    watt = unit.Dimension.KILOGRAM * unit.Dimension.METER**2 / unit.Dimension.SECOND**3
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Temperature", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=700, min=200,
                       dimension=unit.Dimension.KELVIN)
    unit.add_parameter("Extent", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT,
                       dimension=unit.Dimension.MOLE / unit.Dimension.SECOND, description="Of the reaction")
    unit.add_parameter("ln K", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT, description="Equilibrium constant")
    unit.add_parameter("Heat Duty", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT, dimension=watt,
                       description="Heat that keeps the temperature; negative cools")
    unit.add_parameter("Reaction Heat", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT, dimension=watt,
                       description="Heat that the reaction sets free, of ideal gases at 298.15 K")


def indices(material):
    """The places of the reacting compounds in the package."""
    names = {compound.name.lower().replace(" ", "-"): compound.index for compound in material.compounds}
    missing = [name for name in STOICHIOMETRY if name not in names]
    if missing:
        raise ValueError("The package lacks compounds of the reaction: " + ", ".join(missing))
    return {name: names[name] for name in STOICHIOMETRY}


def Validate(unit):
    indices(unit.ports["Feed"])


def ln_equilibrium_constant(feed, place, t):
    """Of fugacities over P0."""
    total = 0
    for name, coefficient in STOICHIOMETRY.items():
        pure = [float(i == place[name]) for i in range(len(feed.x))]
        gas = feed.create_vapor_phase(t=t, p=THIN, x=pure)
        enthalpy, entropy = gas.get_property(["enthalpyF", "entropyF"])
        # From the thin gas to the standard pressure.
        total += coefficient * (enthalpy - t * entropy + R * t * log(P0 / THIN))
    return -total / (R * t)


def Calculate(unit):
    feed = unit.ports["Feed"]
    place = indices(feed)
    t = unit.parameters["Temperature"].value
    ln_k = ln_equilibrium_constant(feed, place, t)
    inlet = [feed.flow_rate * x for x in feed.x]

    def composition(extent):
        amounts = list(inlet)
        for name, coefficient in STOICHIOMETRY.items():
            amounts[place[name]] = max(0, amounts[place[name]] + coefficient * extent)
        flow = sum(amounts)
        return [amount / flow for amount in amounts], flow

    def excess(extent):
        """By how much the product of the fugacities is above the constant, as logarithm; rises with the extent."""
        x, _ = composition(extent)
        ln_phi = feed.create_vapor_phase(t=t, p=feed.p, x=x).get_property("logFugacityCoefficient")
        return sum(coefficient * (log(x[place[name]]) + ln_phi[place[name]] + log(feed.p / P0))
                   for name, coefficient in STOICHIOMETRY.items()) - ln_k

    # The extent ends where a compound is used up.
    most = min(inlet[place[name]] / -nu for name, nu in STOICHIOMETRY.items() if nu < 0)
    least = -min(inlet[place[name]] / nu for name, nu in STOICHIOMETRY.items() if nu > 0)
    if most <= least:
        raise RuntimeError("Nothing can react: on both sides of the reaction a compound is missing")
    low, high = least, most
    for _ in range(200):
        extent = 0.5 * (low + high)
        if extent in (low, high) or high - low < 1e-14 * (most - least):
            break
        if excess(extent) < 0:
            low = extent
        else:
            high = extent

    x, flow = composition(extent)
    outlet = feed.create_phase_equilibrium(x=x, t=t, p=feed.p)
    if outlet.vapor_fraction < 1:
        print("Warning: the product condenses, but the reaction was taken to be at equilibrium in the gas")
    before, sensible_before = feed.get_property(["enthalpyF", "enthalpy"])
    after, sensible_after = outlet.get_property(["enthalpyF", "enthalpy"])
    unit.parameters["Extent"].value = extent
    unit.parameters["ln K"].value = ln_k
    unit.parameters["Heat Duty"].value = flow * after - feed.flow_rate * before
    unit.parameters["Reaction Heat"].value = (feed.flow_rate * (before - sensible_before) -
                                              flow * (after - sensible_after))
    unit.ports["Product"].set(x=x, t=t, p=feed.p, flow_rate=flow)
