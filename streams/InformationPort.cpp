#include "streams/InformationPort.h"

#include "parameters/Dimensionality.h"
#include "streams/ExternalParameter.h"
#include "streams/ParameterChoice.h"

namespace orvane {

using namespace COBIA;

InformationPort::InformationPort(PortOwner& owner, const std::string& name, const std::string& dataName,
                                 bool isFeed, bool optional, const std::vector<double>& dimensionality)
    : Offering(owner, name,
               std::string("Orvane Operation Information ") + (isFeed ? "Feed" : "Product") + " Port", isFeed,
               optional),
      wanted_(makeObject<ParameterSpecification>(dataName, name, dimensionality)),
      specifications_({wanted_}) {}

void InformationPort::checkConnection(ICapeInterface* object) {
    const auto collection = query<ICapeCollection>(object);
    if (!collection) throw cape_open_error("Not a collection object");
    chosen_ = chooseParameter(collection, *wanted_);
}

void InformationPort::finish() {
    if (isConnected() && !valueGiven_)
        owner().warn("external parameter value not specified for port '" + name() + "'");
}

PyRef InformationPort::scriptObject() {
    const Ref<ICapeInterface> object = connectedObject();
    if (!object) return {};
    return makeExternalParameter(makeExternalView(CapeOpenVersion::v1_2, *this, owner(), object.get()),
                                 isFeed());
}

bool InformationPort::sameKind(const Port& other) const {
    if (!Port::sameKind(other)) return false;
    return sameDimensionality(wanted_->dimensionality(),
                              dynamic_cast<const InformationPort&>(other).wanted_->dimensionality());
}

void InformationPort::takeOver(const Port& other) {
    Port::takeOver(other);
    const auto& port = dynamic_cast<const InformationPort&>(other);
    const bool renamed = !equalIgnoringCase(wanted_->name(), port.wanted_->name());
    wanted_ = port.wanted_;
    specifications_ = port.specifications_;
    if (!renamed || !isConnected()) return;
    try {
        checkConnection(connectedObject().get());
    }
    catch (const std::exception&) {
        // What no longer fits is as good as nothing connected; validation then says so.
        disconnect();
    }
}

Ref<ICapeInterface> InformationPort::itemByIndex(CapeInteger index) const {
    return specifications_.itemByIndex(index);
}

Ref<ICapeInterface> InformationPort::itemByName(const std::string& name) const {
    return specifications_.itemByName(name);
}

CapeInteger InformationPort::count() const { return specifications_.count(); }

}  // namespace orvane
