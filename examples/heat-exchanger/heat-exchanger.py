"""Heat exchanger with two sides, by its effectiveness.

The most heat that could pass is the lesser of what the hot side gives off on its way to the temperature of the cold
feed, and what the cold side takes up on its way to that of the hot feed; both may condense or boil on the way. Of this
the effectiveness passes:

    Q = effectiveness * min(F_hot (h_hot - h_hot(T_cold)), F_cold (h_cold(T_hot) - h_cold))
"""


def Configure(unit):
    pascal = unit.Dimension.KILOGRAM / unit.Dimension.METER / unit.Dimension.SECOND**2
    for side in ("Hot", "Cold"):
        unit.add_port(side + " Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
        unit.add_port(side + " Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
        unit.add_parameter(side + " Pressure Drop", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0, min=0,
                           dimension=pascal, difference=True)
        unit.add_parameter(side + " Outlet Temperature", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT,
                           dimension=unit.Dimension.KELVIN)
    unit.add_parameter("Effectiveness", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0.8, min=0, max=1,
                       description="Heat that passes, relative to the most that could")


def Calculate(unit):
    feeds = {side: unit.ports[side + " Feed"] for side in ("Hot", "Cold")}
    hot, cold = feeds["Hot"], feeds["Cold"]
    if hot.t < cold.t:
        raise RuntimeError("The hot feed (%g K) is colder than the cold feed (%g K); swap them" % (hot.t, cold.t))
    pressures = {side: feed.p - unit.parameters[side + " Pressure Drop"].value for side, feed in feeds.items()}
    for side, pressure in pressures.items():
        if pressure <= 0:
            raise RuntimeError("The pressure drop of the %s side is larger than the pressure of its feed, %g Pa"
                               % (side.lower(), feeds[side].p))

    def enthalpy_at(side, t):
        feed = feeds[side]
        return feed.create_phase_equilibrium(x=feed.x, t=t, p=pressures[side]).get_property("enthalpy")

    given = hot.flow_rate * (hot.get_property("enthalpy") - enthalpy_at("Hot", cold.t))
    taken = cold.flow_rate * (enthalpy_at("Cold", hot.t) - cold.get_property("enthalpy"))
    duty = unit.parameters["Effectiveness"].value * max(0, min(given, taken))

    for side, sign in (("Hot", -1), ("Cold", 1)):
        feed = feeds[side]
        enthalpy = feed.get_property("enthalpy") + (sign * duty / feed.flow_rate if feed.flow_rate else 0)
        outlet = feed.create_phase_equilibrium(x=feed.x, p=pressures[side], enthalpy=enthalpy)
        unit.parameters[side + " Outlet Temperature"].value = outlet.t
        unit.ports[side + " Product"].set(x=feed.x, p=pressures[side], enthalpy=enthalpy, flow_rate=feed.flow_rate)
    # Not an output parameter: a power there would be heat from outside, and this heat only changes sides.
    print("Heat that passes: %.6g W; the %s side limits it" % (duty, "hot" if given < taken else "cold"))
