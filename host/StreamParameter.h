// A real parameter on an energy or information stream of the host.
// Threads: one at a time.
#pragma once

#include "cobia/Adapters.h"

#include <span>
#include <string>
#include <vector>

namespace orvane::host {

class StreamParameter : public COBIA::CapeOpenObject<StreamParameter, COBIA::RealParameterAdapter,
                                                     COBIA::ParameterAdapter, COBIA::IdentificationAdapter> {
public:
    struct Definition {
        std::string name;
        std::vector<double> dimensionality;
        double lowerBound;  ///< NaN: none
        double value;       ///< NaN: not known
    };

    /// stream: what messages call it. A fixed one, of a feed, cannot be written.
    StreamParameter(Definition definition, std::string stream, bool isFixed)
        : definition_(std::move(definition)), stream_(std::move(stream)), isFixed_(isFixed) {}

    // ICapeRealParameter, ICapeParameter

    double value() const { return definition_.value; }
    /// Throws StringException: on a fixed one, for what is no number, and below the bound.
    void setValue(double value);
    double defaultValue() const;
    double lowerBound() const { return definition_.lowerBound; }
    double upperBound() const;
    std::span<const double> dimensionality() const { return definition_.dimensionality; }
    COBIA::Verdict validateValue(double value) const;
    COBIA::CapeValidationStatus validationStatus() const { return COBIA::CapeValidationStatus::valid; }
    COBIA::CapeParamMode mode() const;
    COBIA::CapeParamType type() const { return COBIA::CapeParamType::real; }
    COBIA::Verdict validate() { return {true, {}}; }
    /// There is no default to go back to: throws StringException.
    void reset();

    // ICapeIdentification. The names are those of the stream: code 106.

    std::string name() const { return definition_.name; }
    void setName(const std::string&) { throw COBIA::cape_open_error(COBIA::denied); }
    std::string description() const { return "parameter of " + stream_; }
    void setDescription(const std::string&) { throw COBIA::cape_open_error(COBIA::denied); }

protected:
    std::string errorSource() const override { return "parameter '" + definition_.name + "' of " + stream_; }

private:
    Definition definition_;
    std::string stream_;
    bool isFixed_;
};

}  // namespace orvane::host
