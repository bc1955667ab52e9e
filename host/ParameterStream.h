// An energy or information stream as the unit sees it: a collection of real parameters.
// Threads: one at a time.
#pragma once

#include "host/StreamParameter.h"

#include <string>
#include <vector>

namespace orvane::host {

class ParameterStream
    : public COBIA::CapeOpenObject<ParameterStream, COBIA::CollectionAdapter, COBIA::IdentificationAdapter> {
public:
    /// kind: "energy" or "information", for messages.
    ParameterStream(std::string name, const std::string& kind, bool isFeed,
                    std::vector<StreamParameter::Definition> parameters);

    double value(std::size_t index) const { return parameters_.at(index)->value(); }

    // ICapeCollection. What is not there: code 107.

    COBIA::Ref<COBIA::ICapeInterface> itemByIndex(COBIA::CapeInteger index) const;
    COBIA::Ref<COBIA::ICapeInterface> itemByName(const std::string& name) const;
    COBIA::CapeInteger count() const { return static_cast<COBIA::CapeInteger>(parameters_.size()); }

    // ICapeIdentification. The case names the stream: code 106.

    std::string name() const { return name_; }
    void setName(const std::string&) { throw COBIA::cape_open_error(COBIA::denied); }
    std::string description() const { return description_; }
    void setDescription(const std::string&) { throw COBIA::cape_open_error(COBIA::denied); }

protected:
    std::string errorSource() const override { return description_; }

private:
    std::string name_;
    std::string description_;
    std::vector<COBIA::Ref<StreamParameter>> parameters_;
};

}  // namespace orvane::host
