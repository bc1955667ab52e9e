"""Compressor with an isentropic efficiency.

    ideal work          enthalpy at the outlet pressure and the entropy of the feed, less that of the feed
    work                ideal work over the isentropic efficiency
"""


def Configure(unit):
    watt = unit.Dimension.KILOGRAM * unit.Dimension.METER**2 / unit.Dimension.SECOND**3
    pascal = unit.Dimension.KILOGRAM / unit.Dimension.METER / unit.Dimension.SECOND**2
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Outlet Pressure", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=5e5, min=1,
                       dimension=pascal)
    unit.add_parameter("Isentropic Efficiency", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0.75,
                       min=0.01, max=1)
    unit.add_parameter("Power", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT, dimension=watt,
                       description="Power that the gas takes up")
    unit.add_parameter("Ideal Outlet Temperature", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT,
                       dimension=unit.Dimension.KELVIN, description="Of a compression without losses")


def Calculate(unit):
    feed = unit.ports["Feed"]
    pressure = unit.parameters["Outlet Pressure"].value
    if pressure < feed.p:
        raise RuntimeError("The outlet pressure %g Pa is below that of the feed, %g Pa; this is no turbine"
                           % (pressure, feed.p))
    if feed.vapor_fraction < 1:
        print("Warning: %.3g of the feed is liquid" % (1 - feed.vapor_fraction))
    enthalpy, entropy = feed.get_property(["enthalpy", "entropy"])
    ideal = feed.create_phase_equilibrium(x=feed.x, p=pressure, entropy=entropy)
    work = (ideal.get_property("enthalpy") - enthalpy) / unit.parameters["Isentropic Efficiency"].value
    unit.parameters["Ideal Outlet Temperature"].value = ideal.t
    unit.parameters["Power"].value = work * feed.flow_rate
    unit.ports["Product"].set(x=feed.x, p=pressure, enthalpy=enthalpy + work, flow_rate=feed.flow_rate)
