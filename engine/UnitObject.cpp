#include "engine/UnitObject.h"

#include "cobia/Error.h"
#include "engine/ParameterArguments.h"
#include "engine/PortArguments.h"

namespace orvane {
namespace {

using COBIA::StringException;

template <PyRef UnitObject::*dictionary> PyObject* getDictionary(PyObject* self, void*) noexcept {
    return Py_XNewRef((contentOf<UnitObject>(self).*dictionary).get());
}

#define EXTERNAL_OBJECTS                                                                                                 \
    "\n\nWarning: direct or indirect references to external objects (streams, compounds, stream parameters) may not be " \
    "stored."

PyGetSetDef attributes[] = {
    readOnly("ports", getDictionary<&UnitObject::ports>,
             "Objects connected to ports.\n\nDictionary by port name; filled during Validate and Calculate."),
    readOnly("parameters", getDictionary<&UnitObject::parameters>,
             "Parameter objects.\n\nDictionary by parameter name; filled during Validate and Calculate."),
    readOnly(
        "reports", getDictionary<&UnitObject::reports>,
        "Output file objects for printing reports.\n\nDictionary by report name; filled during Validate and "
        "Calculate. Example:\n\nprint('Duty', duty, file=unit.reports['Summary'])"),
    readOnly(
        "validation_data", getDictionary<&UnitObject::validationData>,
        "Data of the last validation.\n\nThe validation_data dictionary is cleared prior to a call to Validate. Data "
        "stored during Validate are available during Calculate.\n\nUnlike private_data, validation_data is not "
        "persisted." EXTERNAL_OBJECTS),
    readOnly(
        "private_data", getDictionary<&UnitObject::privateData>,
        "Data of the script that are saved with the unit operation.\n\nData in private_data is persisted\nbetween "
        "sessions. Only data that can be pickled should be stored. Persistence\nproblems in private_data are "
        "reported as warning to the simulation environment" EXTERNAL_OBJECTS),
    readOnly(
        "volatile_data", getDictionary<&UnitObject::volatileData>,
        "Data of the script that are kept between calls.\n\nUnlike private_data, data in volatile_data is not "
        "persisted between sessions." EXTERNAL_OBJECTS),
    readWrite(
        "allow_inconsistent_compounds", get<&UnitObject::allowInconsistentCompounds>,
        set<&UnitObject::setAllowInconsistentCompounds>,
        "If False (default), the unit will validate only if all Material Ports have the same compound slate. Can be "
        "set to True during Configure."),
    {},
};

#undef EXTERNAL_OBJECTS

// A text begins with the signature, up to the line of dashes: help and inspect show it, __doc__ leaves it out.
PyMethodDef methods[] = {
    methodWithKeywords<&UnitObject::addPort>(
        "add_port",
        "add_port($self, /, name, type, direction, *, optional=False, data_name=None, dimension=None, difference=False, "
        "axle=False, thermal=False)\n--\n\n"
        "Add a port, during Configure.\n\nRequired arguments:\nname -- name of the port\ntype -- a PortType\ndirection "
        "-- a PortDirection\n\nKeyword arguments:\noptional -- True if the unit is valid without a connection (default "
        "False)\ndata_name -- information ports: name of the preferred parameter (default the name of the port)\n"
        "dimension -- information ports: a Dimension\ndifference -- information ports: True for a temperature or "
        "pressure difference\naxle -- energy ports: True for a shaft with an axis frequency\nthermal -- energy ports: "
        "True for heat with a temperature range"),
    methodWithKeywords<&UnitObject::addParameter>(
        "add_parameter",
        "add_parameter($self, /, name, type, mode, *, default=None, initial=None, min=None, max=None, dimension=None, "
        "difference=False, optional=False, description=None, options=None, length=<unrepresentable>)\n--\n\n"
        "Add a parameter, during Configure.\n\nRequired arguments:\nname -- name of the parameter\ntype -- a "
        "ParameterType\nmode -- a ParameterMode\n\nKeyword arguments:\ndefault -- default value\ninitial -- initial "
        "value (default the default value)\nmin -- minimum value\nmax -- maximum value\ndimension -- a Dimension, real "
        "types only\ndifference -- True for a temperature or pressure difference, real types only\noptional -- True if "
        "the value need not be specified\ndescription -- description of the parameter\noptions -- values to choose "
        "from, string parameters only\nlength -- number of elements, array parameters only"),
    {"add_report", invokeMethod<&UnitObject::addReport, PyObject>, METH_VARARGS,
     "add_report($self, name, /)\n--\n\n"
     "Add a text report, during Configure.\n\nRequired argument:\nname -- name of the report\n\nDuring Calculate, print "
     "to the file object unit.reports[name]."},
    methodWithKeywords<&UnitObject::addImage>(
        "add_image",
        "add_image($self, /, name, function)\n--\n\n"
        "Add an image, during Configure.\n\nRequired arguments:\nname -- name of the image\nfunction -- name of the "
        "function that draws it\n\nThe function is called as function(unit, path, width, height); it writes a PNG image "
        "of width by height pixels to the file path."),
    methodWithArgument<&UnitObject::defineFrom>(
        "define_from",
        "define_from($self, module, /)\n--\n\n"
        "Define the unit operation from a module, during Configure.\n\nRequired argument:\nmodule -- the module whose "
        "Configure, Validate and Calculate functions define the unit operation\n\nNothing else may be added to the unit "
        "operation by the script itself."),
    {},
};

}  // namespace

PyTypeObject unitType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.unit",
    .tp_basicsize = sizeof(PyObjectOf<UnitObject>),
    .tp_dealloc = destroy<UnitObject>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc =
        "Unit operation.\n\nIt is passed as argument to functions such as Configure and Calculate in the Python "
        "script.",
    .tp_methods = methods,
    .tp_getset = attributes,
    .tp_new = refuse<"A unit operation cannot be created. It is passed as argument.">,
};

UnitObject::UnitObject(ScriptedUnit& owner) : owner_(&owner) {
    for (PyRef* dictionary : {&ports, &parameters, &reports, &validationData, &privateData, &volatileData})
        *dictionary = PyRef::steal(PyDict_New());
}

ScriptedUnit& UnitObject::owner() const {
    if (!owner_) throw StringException("not initialized");
    return *owner_;
}

void UnitObject::addPort(PyObject* arguments, PyObject* keywords) {
    owner().addPort(readPortArguments(owner(), arguments, keywords));
}

void UnitObject::addParameter(PyObject* arguments, PyObject* keywords) {
    owner().addParameter(readParameterArguments(owner(), arguments, keywords));
}

void UnitObject::addReport(PyObject* arguments) {
    const char* name = nullptr;
    if (!PyArg_ParseTuple(arguments, "s:add_report", &name)) throw PythonErrorSet();
    owner().addReport(name);
}

void UnitObject::addImage(PyObject* arguments, PyObject* keywords) {
    static const char* const names[] = {"name", "function", nullptr};
    const char* name = nullptr;
    const char* function = nullptr;
    if (!PyArg_ParseTupleAndKeywords(arguments, keywords, "ss:add_image", const_cast<char**>(names), &name,
                                     &function))
        throw PythonErrorSet();
    owner().addImage(name, function);
}

void UnitObject::defineFrom(PyObject* module) {
    if (!PyModule_Check(module)) throw StringException("The argument to define_from must be a module");
    owner().defineFrom(PyRef::share(module));
}

bool UnitObject::allowInconsistentCompounds() const { return owner().allowsInconsistentCompounds(); }

void UnitObject::setAllowInconsistentCompounds(PyObject* allow) {
    owner().setAllowInconsistentCompounds(toBool(allow));
}

}  // namespace orvane
