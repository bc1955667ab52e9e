"""A heated pipe: the feed takes up the heat of an energy stream, segment by segment.

The temperature profile is drawn as a PNG file with the standard library alone: `draw` rasters it into rows of
bytes, and `write_png` packs these into a file. The profile is kept in private_data, so that a saved unit can draw it.
"""

import struct
import zlib

WHITE, GREY, BLACK, RED = (255, 255, 255), (215, 215, 215), (60, 60, 60), (190, 30, 45)


def Configure(unit):
    dimension = unit.Dimension
    unit.add_port("Feed", unit.PortType.MATERIAL, unit.PortDirection.FEED)
    unit.add_port("Heating", unit.PortType.ENERGY, unit.PortDirection.FEED)
    unit.add_port("Product", unit.PortType.MATERIAL, unit.PortDirection.PRODUCT)
    unit.add_port("End", unit.PortType.INFORMATION, unit.PortDirection.PRODUCT, data_name="Temperature",
                  dimension=dimension.KELVIN)
    unit.add_parameter("Segments", unit.ParameterType.INTEGER, unit.ParameterMode.INPUT, default=20, min=1,
                       max=1000)
    unit.add_report("Profile table")
    unit.add_image("Profile", "draw")


def Calculate(unit):
    feed = unit.ports["Feed"]
    if feed.flow_rate == 0:
        raise RuntimeError("Zero feed flow rate; cannot take up the heat")
    segments = unit.parameters["Segments"].value
    step = unit.ports["Heating"].work / feed.flow_rate / segments
    start = feed.get_property("enthalpy")
    temperatures = [feed.t]
    for segment in range(1, segments + 1):
        state = feed.create_phase_equilibrium(x=feed.x, p=feed.p, enthalpy=start + step * segment)
        temperatures.append(state.t)

    unit.private_data["profile"] = temperatures
    unit.ports["End"].value = temperatures[-1]
    unit.ports["Product"].set(x=feed.x, p=feed.p, flow_rate=feed.flow_rate, enthalpy=start + step * segments)
    table = unit.reports["Profile table"]
    for segment, temperature in enumerate(temperatures):
        print(f"{segment:5d} {temperature:10.3f} K", file=table)


def draw(unit, path, width, height):
    profile = unit.private_data.get("profile")
    if not profile:
        raise RuntimeError("There is no profile yet; calculate the unit first")
    picture = Picture(width, height)
    left, right, top, bottom = 60, width - 20, 20, height - 30
    low, high = min(profile), max(profile)
    margin = max(0.05 * (high - low), 0.5)
    low, high = low - margin, high + margin

    def place(segment, temperature):
        x = left + (right - left) * segment / (len(profile) - 1)
        y = bottom - (bottom - top) * (temperature - low) / (high - low)
        return round(x), round(y)

    for i in range(6):
        temperature = low + (high - low) * i / 5
        y = place(0, temperature)[1]
        picture.line(left, y, right, y, GREY)
        picture.number(f"{temperature:.1f}", left - 52, y - 5)
    picture.line(left, top, left, bottom, BLACK)
    picture.line(left, bottom, right, bottom, BLACK)
    points = [place(segment, temperature) for segment, temperature in enumerate(profile)]
    for (x1, y1), (x2, y2) in zip(points, points[1:]):
        for shift in (0, 1):
            picture.line(x1, y1 + shift, x2, y2 + shift, RED)
    picture.number(str(len(profile) - 1), right - 20, bottom + 10)
    write_png(path, width, height, picture.rows)


class Picture:
    """Rows of red, green and blue bytes."""

    # Five rows of three dots for each character.
    SHAPES = {
        "0": "#### ## ## ####", "1": " #  #  #  #  # ", "2": "###  #####  ###", "3": "###  ####  ####",
        "4": "# ## ####  #  #", "5": "####  ###  ####", "6": "####  #### ####", "7": "###  #  #  #  #",
        "8": "#### ##### ####", "9": "#### ####  ####", ".": "             # ", "-": "      ###      ",
    }

    def __init__(self, width, height):
        self.width, self.height = width, height
        self.rows = [bytearray(bytes(WHITE) * width) for _ in range(height)]

    def dot(self, x, y, colour):
        if 0 <= x < self.width and 0 <= y < self.height:
            self.rows[y][3 * x:3 * x + 3] = bytes(colour)

    def line(self, x1, y1, x2, y2, colour):
        steps = max(abs(x2 - x1), abs(y2 - y1), 1)
        for i in range(steps + 1):
            self.dot(x1 + (x2 - x1) * i // steps, y1 + (y2 - y1) * i // steps, colour)

    def number(self, text, x, y, size=2):
        for position, character in enumerate(text):
            for i, mark in enumerate(self.SHAPES[character]):
                if mark == " ":
                    continue
                for dx in range(size):
                    for dy in range(size):
                        self.dot(x + (4 * position + i % 3) * size + dx, y + i // 3 * size + dy, BLACK)


def write_png(path, width, height, rows):
    """Each chunk is its length, its kind, its bytes and their checksum; each row begins with its filter, 0 for none."""

    def chunk(kind, content):
        checksum = zlib.crc32(kind + content)
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", checksum)

    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        file.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)))
        file.write(chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows))))
        file.write(chunk(b"IEND", b""))
