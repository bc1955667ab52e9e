// What an energy or information port tells the host about a real value that it wants to find in the connected object:
// its name and dimension. Has no value, no default and no bounds.
// Threads: immutable, so any.
#pragma once

#include "cobia/Adapters.h"

#include <span>
#include <string>
#include <vector>

namespace orvane {

class ParameterSpecification
    : public COBIA::CapeOpenObject<ParameterSpecification, COBIA::RealParameterSpecificationAdapter,
                                   COBIA::ParameterSpecificationAdapter, COBIA::IdentificationAdapter> {
public:
    /// The description is composed of the port's name.
    ParameterSpecification(std::string name, const std::string& portName, std::vector<double> dimensionality);

    COBIA::CapeParamType type() const noexcept { return COBIA::CapeParamType::real; }

    // ICapeRealParameterSpecification

    /// Always throws StringException: there is none.
    double defaultValue() const;
    double lowerBound() const noexcept;
    double upperBound() const noexcept;
    std::span<const double> dimensionality() const noexcept { return dimensionality_; }
    COBIA::Verdict validateValue(double) const { return {true, {}}; }

    // ICapeIdentification. The host may change neither text: code 106.

    std::string name() const { return name_; }
    void setName(const std::string& name);
    std::string description() const { return description_; }
    void setDescription(const std::string& description);

protected:
    std::string errorSource() const override;

private:
    std::string name_;
    std::string description_;
    std::vector<double> dimensionality_;
};

}  // namespace orvane
