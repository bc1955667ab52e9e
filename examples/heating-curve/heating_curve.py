"""Heats the feed, and finds the temperature and vapour fraction on the way, at the pressure of the feed.

The curve is drawn with matplotlib. That is not part of Python: without it the unit calculates all the same, and
drawing says what is missing.
"""


def Configure(unit):
    joule = unit.Dimension.KILOGRAM * unit.Dimension.METER**2 / unit.Dimension.SECOND**2
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_port("Taken up", unit.PortType.ENERGY, unit.PortDirection.PRODUCT)
    unit.add_parameter("Heat", unit.ParameterType.REAL, unit.ParameterMode.INPUT, min=0,
                       dimension=joule / unit.Dimension.MOLE)
    unit.add_parameter("Points", unit.ParameterType.INTEGER, unit.ParameterMode.INPUT, default=41, min=2, max=1001)
    unit.add_report("Curve")
    unit.add_image("Heating curve", "draw")


def Calculate(unit):
    feed = unit.ports["Feed"]
    heat, points = unit.parameters["Heat"].value, unit.parameters["Points"].value
    start = feed.get_property("enthalpy")
    curve = []
    for i in range(points):
        taken = heat * i / (points - 1)
        state = feed.create_phase_equilibrium(x=feed.x, p=feed.p, enthalpy=start + taken)
        curve.append((taken, state.t, state.vapor_fraction))
        print(f"{taken:10.1f} J/mol {state.t:10.3f} K {state.vapor_fraction:8.4f}", file=unit.reports["Curve"])
    unit.private_data["curve"] = curve
    unit.ports["Product"].set(x=feed.x, p=feed.p, flow_rate=feed.flow_rate, enthalpy=start + heat)
    # What goes out with an energy stream is positive; this unit takes heat in.
    unit.ports["Taken up"].work = -heat * feed.flow_rate


def draw(unit, path, width, height):
    try:
        # The figure's own class: it opens no window, whatever backend is set.
        from matplotlib.figure import Figure
    except ImportError as missing:
        raise RuntimeError(f"This image is drawn with matplotlib, which this Python does not find ({missing}). "
                           "Install it for Python 3.14 and add its folder to PYTHONPATH.") from None
    curve = unit.private_data.get("curve")
    if not curve:
        raise RuntimeError("There is no curve yet; calculate the unit first")
    heats, temperatures, fractions = zip(*curve)
    figure = Figure(figsize=(width / 100, height / 100), dpi=100, layout="constrained")
    axes = figure.add_subplot(xlabel="heat [J/mol]", ylabel="temperature [K]")
    axes.plot(heats, temperatures, label="temperature")
    other = axes.twinx()
    other.set_ylabel("vapour fraction [mol/mol]")
    other.plot(heats, fractions, linestyle="dashed", color="tab:red")
    axes.grid(True)
    figure.savefig(path, format="png")
