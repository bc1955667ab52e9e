#include "streams/Port.h"

namespace orvane {

using namespace COBIA;

Port::Port(PortOwner& owner, std::string name, std::string description, bool isFeed, bool optional)
    : owner_(&owner),
      name_(std::move(name)),
      description_(std::move(description)),
      isFeed_(isFeed),
      isOptional_(optional) {}

CapePortDirection Port::portDirection() const {
    return isFeed_ ? CapePortDirection::inlet : CapePortDirection::outlet;
}

void Port::connect(ICapeInterface* object) {
    if (!object) throw cape_open_error(nullPointer);
    checkConnection(object);
    connected_ = Ref<ICapeInterface>::share(object);
    if (owner_) owner_->portChanged();
}

void Port::disconnect() {
    connected_ = nullptr;
    if (owner_) owner_->portChanged();
}

void Port::setName(const std::string&) { throw cape_open_error(denied); }

void Port::setDescription(const std::string&) { throw cape_open_error(denied); }

void Port::takeOver(const Port& other) {
    name_ = other.name_;
    description_ = other.description_;
    isOptional_ = other.isOptional_;
}

PortOwner& Port::owner() const {
    if (!owner_) throw StringException() << "port '" << name_ << "' no longer belongs to a unit operation";
    return *owner_;
}

}  // namespace orvane
