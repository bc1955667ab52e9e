// A parameter of the unit, as the host reads and sets it through the typed parameter interfaces.
#pragma once

#include "cobia/Call.h"
#include "host/CaseFile.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace orvane::host {

/// The value of a parameter; an integer that is not specified is empty.
using ParameterValue =
    std::variant<std::monostate, double, std::int32_t, bool, std::string, std::vector<double>>;

class UnitParameter {
public:
    /// Throws cape_open_error when the item is no parameter.
    explicit UnitParameter(COBIA::Ref<COBIA::ICapeInterface> item);

    const std::string& name() const { return name_; }
    const COBIA::Ref<COBIA::ICapeInterface>& item() const { return item_; }
    COBIA::CapeParamType type() const { return type_; }
    bool isInput() const { return mode_ != COBIA::CapeParamMode::output; }
    /// "W", or empty.
    const std::string& unit() const { return unit_; }
    /// Whether it is a power: a real number in W.
    bool isPower() const { return isPower_; }

    /// Throws cape_open_error; also for types that no unit of ours declares.
    ParameterValue value() const;

    /// Throws CaseError, which names the parameter, the value and the reason: an output, another type, or
    /// what the unit says against the value.
    void set(const CaseParameter& given);

private:
    [[noreturn]] void refuse(const CaseParameter& given, const std::string& reason) const;
    void put(const CaseParameter& given);
    std::string typeText() const;

    COBIA::Ref<COBIA::ICapeInterface> item_;
    std::string name_;
    COBIA::CapeParamMode mode_{};
    COBIA::CapeParamType type_{};
    std::string unit_;
    bool isPower_ = false;
};

}  // namespace orvane::host
