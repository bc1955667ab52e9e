"""Valve: the pressure falls and the enthalpy stays."""


def Configure(unit):
    pascal = unit.Dimension.KILOGRAM / unit.Dimension.METER / unit.Dimension.SECOND**2
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Outlet Pressure", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=1e5, min=1,
                       dimension=pascal)
    unit.add_parameter("Temperature Change", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT,
                       dimension=unit.Dimension.KELVIN, difference=True)


def Calculate(unit):
    feed = unit.ports["Feed"]
    pressure = unit.parameters["Outlet Pressure"].value
    if pressure > feed.p:
        raise RuntimeError("A valve cannot raise the pressure from %g Pa to %g Pa; use a pump or a compressor"
                           % (feed.p, pressure))
    enthalpy = feed.get_property("enthalpy")
    outlet = feed.create_phase_equilibrium(x=feed.x, p=pressure, enthalpy=enthalpy)
    unit.parameters["Temperature Change"].value = outlet.t - feed.t
    unit.ports["Product"].set(x=feed.x, p=pressure, enthalpy=enthalpy, flow_rate=feed.flow_rate)
