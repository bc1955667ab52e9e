"""Component separator: of each compound a given part goes to the top, at its own conditions; a column in short.

    component balance   top_i = s_i F x_i,  bottom_i = (1 - s_i) F x_i
    energy balance      gives the heat duty
"""


def Configure(unit):
    watt = unit.Dimension.KILOGRAM * unit.Dimension.METER**2 / unit.Dimension.SECOND**3
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Top", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_port("Bottom", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Recovery in Top", unit.ParameterType.ARRAY_REAL, unit.ParameterMode.INPUT, default=0.5, min=0,
                       max=1, description="Part of each compound that goes to the top, in the order of the compounds")
    for name, default in (("Top Vapor Fraction", 0), ("Bottom Vapor Fraction", 0)):
        unit.add_parameter(name, unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=default, min=0, max=1)
    unit.add_parameter("Heat Duty", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT, dimension=watt,
                       description="Heat that the separation takes up")


def Validate(unit):
    compounds = [compound.name for compound in unit.ports["Feed"].compounds]
    given = len(unit.parameters["Recovery in Top"].value)
    if given != len(compounds):
        raise ValueError("'Recovery in Top' has %d values for %d compounds (%s)"
                         % (given, len(compounds), ", ".join(compounds)))


def Calculate(unit):
    feed = unit.ports["Feed"]
    recovery = unit.parameters["Recovery in Top"].value
    top = [s * feed.flow_rate * x for s, x in zip(recovery, feed.x)]
    bottom = [feed.flow_rate * x - amount for x, amount in zip(feed.x, top)]

    duty = -feed.flow_rate * feed.get_property("enthalpy")
    for name, amounts in (("Top", top), ("Bottom", bottom)):
        flow = sum(amounts)
        product = unit.ports[name]
        if flow <= 0:
            product.set(x=feed.x, t=feed.t, p=feed.p, flow_rate=0)
            continue
        x = [amount / flow for amount in amounts]
        fraction = unit.parameters[name + " Vapor Fraction"].value
        outlet = feed.create_phase_equilibrium(x=x, p=feed.p, vapor_fraction=fraction)
        product.set(x=x, p=feed.p, vapor_fraction=fraction, flow_rate=flow)
        duty += flow * outlet.get_property("enthalpy")
    unit.parameters["Heat Duty"].value = duty
