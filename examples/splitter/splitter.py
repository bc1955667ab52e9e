"""Splitter: both products have the state and the composition of the feed and share its flow."""


def Configure(unit):
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Product 1", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_port("Product 2", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_parameter("Split Fraction", unit.ParameterType.REAL, unit.ParameterMode.INPUT, default=0.5, min=0, max=1,
                       description="Part of the feed that goes to Product 1 [mol/mol]")


def Calculate(unit):
    feed = unit.ports["Feed"]
    first = unit.parameters["Split Fraction"].value
    for name, fraction in (("Product 1", first), ("Product 2", 1 - first)):
        product = unit.ports[name]
        product.copy_from(feed)  # composition and state; the flow rate as well, so it is set afterwards
        product.flow_rate = fraction * feed.flow_rate
