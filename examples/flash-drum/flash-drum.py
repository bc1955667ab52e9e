"""Flash drum: a feed is let down and heated or cooled, and its vapour and liquid part.

    energy balance      F h_feed + Q = V h_vapour + L h_liquid
    equilibrium         at the drum's pressure, found with that enthalpy
"""


def Configure(unit):
    watt = unit.Dimension.KILOGRAM * unit.Dimension.METER**2 / unit.Dimension.SECOND**3
    pascal = unit.Dimension.KILOGRAM / unit.Dimension.METER / unit.Dimension.SECOND**2
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Vapor", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_port("Liquid", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Pressure", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=1e5, min=1,
                       dimension=pascal, description="Pressure in the drum")
    unit.add_parameter("Heat Duty", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0, dimension=watt,
                       description="Heat that is supplied; negative cools")


def Calculate(unit):
    feed = unit.ports["Feed"]
    pressure = unit.parameters["Pressure"].value
    duty = unit.parameters["Heat Duty"].value
    if feed.flow_rate == 0 and duty != 0:
        raise RuntimeError("The feed has no flow, so it cannot take up a heat duty of %g W" % duty)
    enthalpy = feed.get_property("enthalpy") + (duty / feed.flow_rate if duty else 0)
    drum = feed.create_phase_equilibrium(x=feed.x, p=pressure, enthalpy=enthalpy)

    for name in ("Vapor", "Liquid"):
        phase = next((phase for phase in drum.phases if phase.state_of_aggregation == name.lower()), None)
        if phase is None:
            # A product that does not form still is a stream: without flow, at the conditions of the drum.
            unit.ports[name].set(x=feed.x, t=drum.t, p=pressure, flow_rate=0)
            continue
        # By enthalpy: at temperature and pressure alone a pure compound could be the other phase as well.
        unit.ports[name].set(x=phase.x, p=pressure, enthalpy=phase.get_property("enthalpy"),
                             flow_rate=phase.phase_fraction * feed.flow_rate)
    print("Drum at %.2f K with a vapour fraction of %.4f" % (drum.t, drum.vapor_fraction))
