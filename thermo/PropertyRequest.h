// The argument of get_property: one name, or several.
#pragma once

#include "engine/PyRef.h"
#include "thermo/PropertyName.h"
#include "thermo/PropertyValues.h"

namespace orvane {

/// What scripts read about get_property.
#define ORVANE_GET_PROPERTY_DOC                                                                              \
    "Calculate and one or more properties by name.\n\t\t\nRequired arguments:\nproperties -- specify one "   \
    "or more "                                                                                               \
    "property names as string or list of strings.\n\nValid property names are listed in the properties "     \
    "member."

class PropertyRequest {
public:
    /// Reads the arguments of the call. Throws StringException when the value is neither a text nor a
    /// collection of texts, and MissingName when it is empty.
    PropertyRequest(PyObject* arguments, PyObject* keywords);
    PropertyNames names() const noexcept { return names_.view(); }

    /// One entry for each name; of a single name that entry alone. A property with one value is a float,
    /// others are lists.
    PyRef entries(const PropertyValues& values) const;
    /// A float for a single name with one value, otherwise one list of all values.
    PyRef flat(const PropertyValues& values) const;

private:
    /// Adds a text; false when the object is none, or holds ill-formed text.
    bool addText(PyObject* text);

    ShortList<const PropertyName*, 8> names_;
    bool single_ = false;
};

}  // namespace orvane
