// A port for an information stream: what the host connected, which of its parameters the port uses, and whether the
// script has given the value in this run.
// Not here: reading and writing the parameter (CapeExternalParameter), what the script sees (ExternalParameter).
// Threads: the calculating thread only, with the interpreter lock held where Python is touched.
#pragma once

#include "streams/CapeExternalParameter.h"
#include "streams/ParameterSpecifications.h"

namespace orvane {

class InformationPort final : public COBIA::Offering<InformationPort, Port, COBIA::CollectionAdapter> {
public:
    /// dataName: the preferred parameter; dimensionality: of the value, as Dimensionality.h says.
    InformationPort(PortOwner& owner, const std::string& name, const std::string& dataName, bool isFeed,
                    bool optional, const std::vector<double>& dimensionality);

    COBIA::CapePortType portType() const override { return COBIA::CapePortType::information; }
    /// The host's parameter that the port uses; empty before a connection.
    const std::string& chosenParameter() const noexcept { return chosen_; }

    /// Forgets whether an earlier run was given a value.
    void prepare() override { valueGiven_ = false; }
    /// Warns when the script left the value out. Nothing happens without a connection.
    void finish() override;
    /// A new ExternalParameter on a new view.
    PyRef scriptObject() override;
    /// Only with the same dimension, since what is connected was chosen by it.
    bool sameKind(const Port& other) const override;
    /// The data name, too; what is connected is then looked through again.
    void takeOver(const Port& other) override;

    /// The script has given the value. ExternalParameter marks it.
    void markValue() noexcept { valueGiven_ = true; }

    // ICapeCollection: the parameter that the port looks for, as a specification.

    COBIA::Ref<COBIA::ICapeInterface> itemByIndex(COBIA::CapeInteger index) const;
    COBIA::Ref<COBIA::ICapeInterface> itemByName(const std::string& name) const;
    COBIA::CapeInteger count() const;

private:
    /// Chooses a parameter of the object. Throws cape_open_error when there is none to choose, with code 115 when the
    /// object changes meanwhile.
    void checkConnection(COBIA::ICapeInterface* object) override;

    COBIA::Ref<ParameterSpecification> wanted_;  // its name is the data name
    ParameterSpecifications specifications_;
    std::string chosen_;
    bool valueGiven_ = false;
};

}  // namespace orvane
