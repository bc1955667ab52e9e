// The specifications that a port offers as a collection: the parameters it looks for in what is connected.
// Threads: immutable, so any.
#pragma once

#include "parameters/ParameterSpecification.h"

#include <string>
#include <utility>
#include <vector>

namespace orvane {

class ParameterSpecifications {
public:
    explicit ParameterSpecifications(std::vector<COBIA::Ref<ParameterSpecification>> items)
        : items_(std::move(items)) {}

    // As ICapeCollection asks for them. What is not there: code 107.

    COBIA::Ref<COBIA::ICapeInterface> itemByIndex(COBIA::CapeInteger index) const;
    /// Letter case aside.
    COBIA::Ref<COBIA::ICapeInterface> itemByName(const std::string& name) const;
    COBIA::CapeInteger count() const noexcept { return static_cast<COBIA::CapeInteger>(items_.size()); }

private:
    std::vector<COBIA::Ref<ParameterSpecification>> items_;
};

}  // namespace orvane
