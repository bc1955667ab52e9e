# The peer of a property call: the same calls of the host, made from Python through ctypes. A script of a unit; the
# benchmark puts the addresses of the host's objects before it: MATERIAL and ROUTINE.
import ctypes as c

Pointer, Size, Result = c.c_void_p, c.c_uint32, c.c_uint32


class Record(c.Structure):
    _fields_ = [("me", Pointer), ("table", c.POINTER(Pointer))]


class Data(c.Structure):
    """What the functions of a data object find behind `me`."""

    _fields_ = [("data", Pointer), ("size", Size)]


def record(me, functions):
    table = (Pointer * len(functions))(*(c.cast(f, Pointer).value for f in functions))
    return Record(c.addressof(me), table)


@c.CFUNCTYPE(None, Pointer, c.POINTER(Pointer), c.POINTER(Size))
def get(me, data, size):
    held = Data.from_address(me)
    data[0], size[0] = held.data, held.size


kept = []


def resizer(element):
    @c.CFUNCTYPE(Result, Pointer, Size, c.POINTER(Pointer))
    def resize(me, size, data):
        held = Data.from_address(me)
        if size > held.size:
            storage = (element * size)()
            kept.append(storage)
            held.data = c.addressof(storage)
        held.size = size
        data[0] = held.data
        return 0

    return resize


@c.CFUNCTYPE(Result, Pointer, c.c_char_p, Size)
def set_text(me, data, size):
    storage = c.create_string_buffer(data, size + 1)
    kept.append(storage)
    held = Data.from_address(me)
    held.data, held.size = c.addressof(storage), size
    return 0


resize_reals, resize_integers = resizer(c.c_double), resizer(c.c_int32)


def text(value=""):
    storage = c.create_string_buffer(value.encode())
    data = Data(c.addressof(storage), len(value))
    made = record(data, (get, set_text))
    kept.append((storage, data, made))
    return c.addressof(made)


@c.CFUNCTYPE(Result, Pointer, Size, c.POINTER(Pointer))
def resize_texts(me, size, data):
    held = Data.from_address(me)
    if size > held.size:
        storage = (Pointer * size)(*(text() for _ in range(size)))
        kept.append(storage)
        held.data = c.addressof(storage)
    held.size = size
    data[0] = held.data
    return 0


def texts(*values):
    storage = (Pointer * len(values))(*map(text, values))
    data = Data(c.addressof(storage), len(values))
    made = record(data, (get, resize_texts))
    kept.append((storage, data, made))
    return c.addressof(made)


class Reals:
    def __init__(self, values=()):
        self.storage = (c.c_double * len(values))(*values)
        self.data = Data(c.addressof(self.storage), len(values))
        self.made = record(self.data, (get, resize_reals))
        self.address = c.addressof(self.made)

    def values(self):
        return (c.c_double * self.data.size).from_address(self.data.data)[:]


def function(object, slot, *arguments):
    made = Record.from_address(object)
    call = c.PYFUNCTYPE(Result, Pointer, *arguments)(made.table[slot])
    me = made.me
    return lambda *given: call(me, *given)


present_phases = function(MATERIAL, 9, Pointer, Pointer)
phase_property = function(MATERIAL, 10, Pointer, Pointer, Pointer, Pointer)
set_phase_property = function(MATERIAL, 15, Pointer, Pointer, Pointer, Pointer)
calculate = function(ROUTINE, 5, Pointer, Pointer)

temperature, pressure, fraction = text("temperature"), text("pressure"), text("fraction")
enthalpy, vapor, mole, no_basis = text("enthalpy"), text("Vapor"), text("mole"), text()
names, present = texts("enthalpy"), texts()
status_data = Data(None, 0)
status = record(status_data, (get, resize_integers))
result = Reals()


def check(code):
    if code:
        raise RuntimeError(f"the host answers {code}")


def get_property(t, p, x):
    check(present_phases(present, c.addressof(status)))
    check(set_phase_property(temperature, vapor, no_basis, Reals([t]).address))
    check(set_phase_property(pressure, vapor, no_basis, Reals([p]).address))
    check(set_phase_property(fraction, vapor, mole, Reals(x).address))
    check(calculate(names, vapor))
    check(phase_property(enthalpy, vapor, mole, result.address))
    return result.values()[0]


def Configure(unit):
    unit.add_parameter("N", unit.ParameterType.INTEGER, unit.ParameterMode.INPUT, default=1)


def Calculate(unit):
    x = [0.5, 0.3, 0.2]
    for i in range(unit.parameters["N"].value):
        if get_property(300.0, 1e5, x) != 1:
            raise ValueError("the host's answer is 1")
