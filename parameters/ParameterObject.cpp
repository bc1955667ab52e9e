#include "parameters/ParameterObject.h"

#include "engine/ScriptType.h"

namespace orvane {

using COBIA::StringException;

void ParameterObject::setValue(PyObject* value) {
    Parameter& target = parameter();
    if (target.isInput()) throw StringException("cannot set value of input parameter");
    target.setFromScript(value);
    target.setValueGiven(true);
}

Parameter& ParameterObject::parameter() const {
    if (!parameter_) throw StringException("not initialized");
    return *parameter_;
}

namespace {

PyGetSetDef attributes[] = {
    readOnly("name", get<&ParameterObject::name>, "Name."),
    readOnly("description", get<&ParameterObject::description>, "Description."),
    readOnly("is_input", get<&ParameterObject::isInput>,
             "True for input parameters, False for output parameters."),
    readOnly("type_id", get<&ParameterObject::typeId>, "Type ID, as passed to add_parameter."),
    readOnly("type", get<&ParameterObject::typeName>, "Type, as string."),
    readWrite("value", get<&ParameterObject::value>, set<&ParameterObject::setValue>, "Value."),
    {},
};

}  // namespace

PyTypeObject parameterType = {
    .ob_base = typeHead,
    .tp_name = "capeopen_unit.Parameter",
    .tp_basicsize = sizeof(PyObjectOf<ParameterObject>),
    .tp_dealloc = destroy<ParameterObject>,
    .tp_flags = Py_TPFLAGS_DEFAULT,
    .tp_doc = "A Parameter.\n\n"
              "Configure parameters using unit.add_parameter during Configure.\n\n"
              "Parameters are available from unit.parameters during Calculate.",
    .tp_getset = attributes,
    .tp_new = refuse<
        "A Parameter cannot be created. Configure parameters using unit.add_parameter during Configure; "
        "they are available from unit.parameters during Calculate.">,
};

PyRef makeParameterObject(COBIA::Ref<Parameter> parameter) {
    return createObject<ParameterObject>(parameterType, std::move(parameter));
}

}  // namespace orvane
