#include "streams/ExternalParameter.h"

#include "engine/ScriptType.h"
#include "streams/InformationPort.h"

namespace orvane {

using COBIA::StringException;

void ExternalParameter::setValue(PyObject* value) {
    if (isFeed_) throw StringException("cannot set input information stream parameter value");
    parameter_->setValue(toDouble(value));
    parameter_->port().markValue();
}

namespace {

PyGetSetDef attributes[] = {
    readOnly("name", get<&ExternalParameter::name>, "External parameter name."),
    readWrite("value", get<&ExternalParameter::value>, set<&ExternalParameter::setValue>, "Value"),
    {},
};

}  // namespace

PyTypeObject externalParameterType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.ExternalParameter",
    .tp_basicsize = sizeof(PyObjectOf<ExternalParameter>),
    .tp_dealloc = destroy<ExternalParameter>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "External parameter on information stream.\n\t\t\n"
              "Information ports can be added using add_port during Configure.\n\n"
              "Information streams connect to information objects, which contain the parameters\n"
              "that carry the information. This is typically one scalar real value, which is \n"
              "available as ExternalParameter from unit.ports[] during Calculate.",
    .tp_getset = attributes,
    .tp_new = refuse<"An ExternalParameter cannot be created. Add an information port using unit.add_port "
                     "during Configure; its parameter is available from unit.ports during Calculate.">,
};

PyRef makeExternalParameter(std::unique_ptr<CapeExternalParameter> parameter, bool isFeed) {
    return createObject<ExternalParameter>(externalParameterType, std::move(parameter), isFeed);
}

}  // namespace orvane
