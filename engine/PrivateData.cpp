#include "engine/PrivateData.h"

#include "cobia/Error.h"
#include "engine/Conversion.h"
#include "engine/PythonEntry.h"
#include "engine/Traceback.h"
#include "engine/UnitObject.h"

#include <string>
#include <string_view>

namespace orvane {
namespace {

/// Warns when the entry captured an error. The same words serve for storing and restoring.
void warnOfErrors(PythonEntry& entry, ScriptedUnit& unit) {
    const std::string errors = entry.takeErrors();
    if (!errors.empty()) unit.warn("Error storing private_data: " + extractFailingLine(errors));
}

}  // namespace

std::vector<std::uint8_t> storePrivateData(ScriptedUnit& unit, const ScriptModule& script) {
    PythonEntry entry;
    std::vector<std::uint8_t> stored;
    try {
        const PyRef object = unit.unitObject();
        const PyRef data = contentOf<UnitObject>(object.get()).privateData;
        if (!PyDict_Check(data.get()) || PyDict_GET_SIZE(data.get()) > 0) {
            const PyRef bytes =
                PyRef::steal(PyObject_CallMethod(entry.engine().pickle(), "dumps", "O", data.get()));
            char* begin = nullptr;
            Py_ssize_t size = 0;
            check(PyBytes_AsStringAndSize(bytes.get(), &begin, &size));
            // A reference to something of a module is stored with the module's name, and this name is unique.
            if (std::string_view(begin, static_cast<std::size_t>(size)).find(script.name()) !=
                std::string_view::npos)
                throw COBIA::StringException(
                    "it holds a class, a function or an instance of a class that the script defines, which "
                    "another session cannot find; store numbers, texts, lists and dictionaries, or define "
                    "the class in a module on the search path");
            stored.assign(begin, begin + size);
        }
    }
    catch (const PythonErrorSet&) {
        printError();
    }
    catch (const COBIA::StringException& refusal) {
        entry.engine().errorText() += refusal.what();
    }
    warnOfErrors(entry, unit);
    return stored;
}

bool restorePrivateData(std::span<const std::uint8_t> stored, ScriptedUnit& unit) {
    PythonEntry entry;
    bool restored = false;
    try {
        const PyRef object = unit.unitObject();
        const PyRef data = PyRef::steal(PyObject_CallMethod(entry.engine().pickle(), "loads", "y#",
                                                            reinterpret_cast<const char*>(stored.data()),
                                                            static_cast<Py_ssize_t>(stored.size())));
        contentOf<UnitObject>(object.get()).privateData = data;
        restored = true;
    }
    catch (const PythonErrorSet&) {
        printError();
    }
    warnOfErrors(entry, unit);
    return restored;
}

}  // namespace orvane
