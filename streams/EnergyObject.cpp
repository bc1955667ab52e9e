#include "streams/EnergyObject.h"

#include "engine/ScriptType.h"
#include "streams/EnergyPort.h"

namespace orvane {

using COBIA::StringException;

void EnergyObject::requireThermal() const {
    if (kind_ != EnergyKind::thermal)
        throw StringException("temperature_range applies only to port with thermal=True");
}

void EnergyObject::requireAxle() const {
    if (kind_ != EnergyKind::axle)
        throw StringException("axis_frequency applies only to port with axle=True");
}

void EnergyObject::requireProduct() const {
    if (isFeed_) throw StringException("cannot set input energy stream values");
}

void EnergyObject::setWork(PyObject* value) {
    requireProduct();
    stream_->setWork(toDouble(value));
    stream_->port().markWork();
}

PyRef EnergyObject::temperatureRange() const {
    requireThermal();
    const auto [low, high] = stream_->temperatureRange();
    return PyRef::steal(Py_BuildValue("(dd)", low, high));
}

void EnergyObject::setTemperatureRange(PyObject* value) {
    requireThermal();
    requireProduct();
    const std::vector<double> range = readRealList("temperature_range", value);
    if (range.size() != 2) throw StringException("temperature_range must have two elements");
    stream_->setTemperatureRange({range[0], range[1]});
    stream_->port().markTemperatureRange();
}

double EnergyObject::axisFrequency() const {
    requireAxle();
    return stream_->axisFrequency();
}

void EnergyObject::setAxisFrequency(PyObject* value) {
    requireAxle();
    requireProduct();
    stream_->setAxisFrequency(toDouble(value));
    stream_->port().markAxisFrequency();
}

namespace {

PyGetSetDef attributes[] = {
    readWrite("work", get<&EnergyObject::work>, set<&EnergyObject::setWork>, "Work [W]"),
    readWrite("temperature_range", get<&EnergyObject::temperatureRange>,
              set<&EnergyObject::setTemperatureRange>,
              "Temperature range, as tuple with lower and upper temperature [K], NaN if not available"),
    readWrite("axis_frequency", get<&EnergyObject::axisFrequency>, set<&EnergyObject::setAxisFrequency>,
              "Axis frequency [Hz], NaN if not available"),
    readOnly("stream_name", get<&EnergyObject::streamName>, nullptr),
    {},
};

}  // namespace

PyTypeObject energyObjectType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.EnergyObject",
    .tp_basicsize = sizeof(PyObjectOf<EnergyObject>),
    .tp_dealloc = destroy<EnergyObject>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "Object representing energy stream.\n\n"
              "Energy ports can be added using add_port during Configure. \n\n"
              "All energy streams support work. Thermal energy streams in addition have \n"
              "a temperature_range. Axle energy streams have an axis_frequency.",
    .tp_getset = attributes,
    .tp_new = refuse<"This object cannot be created">,
};

PyRef makeEnergyObject(std::unique_ptr<CapeEnergyObject> stream, EnergyKind kind, bool isFeed) {
    return createObject<EnergyObject>(energyObjectType, std::move(stream), kind, isFeed);
}

}  // namespace orvane
