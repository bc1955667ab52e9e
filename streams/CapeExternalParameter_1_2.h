// The chosen parameter in the information object of a CAPE-OPEN 1.2 host, a collection of parameters.
// Threads: the calculating thread only.
#pragma once

#include "streams/CapeExternalParameter.h"
#include "streams/HostParameter.h"

namespace orvane {

class CapeExternalParameter_1_2 final : public CapeExternalParameter, private HostObjectHolder {
public:
    /// Throws StringException: "parameter not found" and its like, without the names.
    CapeExternalParameter_1_2(InformationPort& port, PortOwner& owner, COBIA::ICapeInterface* object);
    CapeExternalParameter_1_2(const CapeExternalParameter_1_2&) = delete;
    CapeExternalParameter_1_2& operator=(const CapeExternalParameter_1_2&) = delete;
    ~CapeExternalParameter_1_2() override;

    std::string name() override;
    double value() override;
    void setValue(double value) override;

    InformationPort& port() override;

private:
    void releaseHostObjects() noexcept override;

    PortOwner* owner_;
    COBIA::Ref<InformationPort> port_;
    COBIA::Ref<COBIA::ICapeInterface> item_;
    COBIA::Ref<COBIA::ICapeRealParameter> parameter_;
};

}  // namespace orvane
