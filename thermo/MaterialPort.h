// A port for a material stream: the object the host connected, the product state the script asked for, and
// the flash that brings the one to the other.
// Not here: reading and flashing (CapeMaterial), the rules of the specification (ProductSpecification), what
// the script sees (Material).
// Threads: the calculating thread only, with the interpreter lock held where Python is touched.
#pragma once

#include "streams/Port.h"
#include "thermo/CompoundList.h"
#include "thermo/ProductSpecification.h"

#include <memory>

namespace orvane {

class CapeMaterial;

class MaterialPort final : public Port {
public:
    MaterialPort(PortOwner& owner, std::string name, bool isFeed, bool optional);

    COBIA::CapePortType portType() const override { return COBIA::CapePortType::material; }

    /// Forgets what the script specified in an earlier run, the copied state apart: that goes with
    /// scriptObject().
    void prepare() override;
    /// Warns of what the script left out; then brings the host's object to what it specified. A product
    /// without a composition stays as it was, and so does one with fewer than two conditions. Nothing happens
    /// without a connection. Throws StringException or cape_open_error when the flash fails.
    void finish() override;
    /// A new Material on a new wrapper. A feed's temperature, pressure and composition are read at once;
    /// throws when the host does not give them. For a product the copied state of an earlier call is
    /// forgotten.
    PyRef scriptObject() override;

    /// What the script has specified: Material writes it here at once, so that nothing is left to take back
    /// from the script's objects after the call.
    ProductSpecification& specification() { return specification_; }

    /// The compounds of the connected object, for the comparison with those of other ports. Throws
    /// cape_open_error when the host fails or nothing is connected, and StringException when an interface is
    /// missing.
    CompoundList compoundList();

private:
    /// Throws cape_open_error unless the object is a material of CAPE-OPEN 1.2.
    void checkConnection(COBIA::ICapeInterface* object) override;
    /// A new wrapper of the connected object.
    std::unique_ptr<CapeMaterial> material();

    ProductSpecification specification_;
};

}  // namespace orvane
