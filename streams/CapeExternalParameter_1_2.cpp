#include "streams/CapeExternalParameter_1_2.h"

#include "streams/InformationPort.h"

namespace orvane {

using namespace COBIA;

std::unique_ptr<CapeExternalParameter> makeExternalView(CapeOpenVersion version, InformationPort& port,
                                                        PortOwner& owner, ICapeInterface* object) {
    if (version != CapeOpenVersion::v1_2) throw StringException("Unsupported CAPE-OPEN version");
    try {
        return std::make_unique<CapeExternalParameter_1_2>(port, owner, object);
    }
    catch (const std::exception& error) {
        throw StringException() << "Cannot get parameter '" << port.chosenParameter()
                                << "' from object connected to port '" << port.name()
                                << "': " << error.what();
    }
}

CapeExternalParameter_1_2::CapeExternalParameter_1_2(InformationPort& port, PortOwner& owner,
                                                     ICapeInterface* object)
    : owner_(&owner), port_(Ref<InformationPort>::share(&port)) {
    const auto collection = query<ICapeCollection>(object);
    if (!collection) throw StringException("object does not implement ICapeCollection");
    item_ = findItem(collection, port.chosenParameter());
    if (!item_) throw StringException("parameter not found");
    parameter_ = query<ICapeRealParameter>(item_);
    if (!parameter_) throw StringException("parameter does not implement ICapeRealParameter");
    owner.addHolder(*this);
}

CapeExternalParameter_1_2::~CapeExternalParameter_1_2() {
    if (owner_) owner_->removeHolder(*this);
}

void CapeExternalParameter_1_2::releaseHostObjects() noexcept {
    owner_ = nullptr;
    port_ = nullptr;
    item_ = nullptr;
    parameter_ = nullptr;
}

InformationPort& CapeExternalParameter_1_2::port() {
    if (!port_) throw StringException("not initialized");
    return *port_;
}

std::string CapeExternalParameter_1_2::name() {
    port();
    const auto identification = query<ICapeIdentification>(item_);
    if (!identification) throw StringException("parameter does not implement ICapeIdentification");
    return text<&ICapeIdentification::Table::getComponentName>(identification.get());
}

double CapeExternalParameter_1_2::value() {
    return forPort(port().name(), [&] {
        double value = 0;
        call<&ICapeRealParameter::Table::getValue>(parameter_, &value);
        return value;
    });
}

void CapeExternalParameter_1_2::setValue(double value) {
    forPort(port().name(), [&] { call<&ICapeRealParameter::Table::putValue>(parameter_, value); });
}

}  // namespace orvane
