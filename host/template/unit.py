"""A heat exchanger: the feed takes up the heat of an energy stream and loses some pressure.

`help(unit)` inside a function tells all that a script can declare and use.
"""


def Configure(unit):
    """Declares the ports and parameters. Runs once, and again when the script changes."""
    ports, directions = unit.PortType, unit.PortDirection
    unit.add_port("Feed", ports.MATERIAL, directions.FEED)
    unit.add_port("Duty", ports.ENERGY, directions.FEED)
    unit.add_port("Product", ports.MATERIAL, directions.PRODUCT)

    # Units are built from the base units; difference=True marks a pressure difference.
    dimension = unit.Dimension
    pascal = dimension.KILOGRAM / (dimension.METER * dimension.SECOND**2)
    unit.add_parameter("Pressure Drop", unit.ParameterType.REAL, unit.ParameterMode.INPUT,
                       default=0, min=0, dimension=pascal, difference=True)
    unit.add_parameter("Temperature Rise", unit.ParameterType.REAL, unit.ParameterMode.OUTPUT,
                       dimension=dimension.KELVIN, difference=True)
    unit.add_report("Summary")


def Validate(unit):
    """Raises an error when the unit cannot calculate. May be left out."""
    if unit.ports["Feed"].p <= unit.parameters["Pressure Drop"].value:
        raise ValueError("Pressure Drop is not below the pressure of the feed")


def Calculate(unit):
    """Calculates the products from the feeds. What is printed shows in the results."""
    feed, product = unit.ports["Feed"], unit.ports["Product"]
    duty = unit.ports["Duty"].work
    if feed.flow_rate == 0:
        raise RuntimeError("Zero feed flow rate; cannot apply the duty")

    # A product takes a composition, a flow rate and two conditions; the host then finds its state.
    pressure = feed.p - unit.parameters["Pressure Drop"].value
    enthalpy = feed.get_property("enthalpy") + duty / feed.flow_rate
    product.set(x=feed.x, flow_rate=feed.flow_rate, p=pressure, enthalpy=enthalpy)

    outlet = feed.create_phase_equilibrium(x=feed.x, p=pressure, enthalpy=enthalpy)
    unit.parameters["Temperature Rise"].value = outlet.t - feed.t
    print(f"{duty:.6g} W heat the feed by {outlet.t - feed.t:.2f} K", file=unit.reports["Summary"])
