"""Adiabatic mixer: two or three feeds become one product at the lowest of their pressures.

    component balance   F x_i = sum of F_j x_ij
    energy balance      F h   = sum of F_j h_j
"""

FEEDS = ("Feed 1", "Feed 2", "Feed 3")


def Configure(unit):
    for name in FEEDS:
        unit.add_port(name, unit.PortType.MATERIAL, unit.PortDirection.FEED, optional=name == FEEDS[-1])
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)


def Calculate(unit):
    feeds = [unit.ports[name] for name in FEEDS if name in unit.ports]  # an optional one may not be connected
    flowing = [feed for feed in feeds if feed.flow_rate > 0]
    product = unit.ports["Product"]
    if not flowing:
        # Nothing to mix: any composition will do, and the state of the first feed is as good as another.
        first = feeds[0]
        product.set(x=first.x, t=first.t, p=first.p, flow_rate=0)
        return
    flow = sum(feed.flow_rate for feed in flowing)
    amounts = [sum(feed.flow_rate * feed.x[i] for feed in flowing) for i in range(len(flowing[0].x))]
    enthalpy = sum(feed.flow_rate * feed.get_property("enthalpy") for feed in flowing)
    product.set(x=[amount / flow for amount in amounts], p=min(feed.p for feed in flowing),
                enthalpy=enthalpy / flow, flow_rate=flow)
