// The common part of the parameters that a script declares: what they are called, which way they go, and who hears of
// a change. The host reads, sets and validates them through the parameter interfaces, scripts through ParameterObject.
// Not here: values (TypedParameter) and the rules of a type (RealParameter and its siblings).
// Threads: one at a time; what touches Python needs the interpreter lock. A parameter itself holds nothing of Python,
// so the host may release its last reference anywhere.
#pragma once

#include "cobia/Adapters.h"
#include "engine/ScriptedUnit.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvane {

/// What a parameter needs of the unit it belongs to.
class ParameterOwner {
public:
    /// A value changed: the unit is to be validated again, and saved.
    virtual void parameterChanged() = 0;

protected:
    ~ParameterOwner() = default;
};

/// A value as it is saved with the unit. The index is the type's code.
using StoredValue = std::variant<double, COBIA::CapeInteger, std::string, bool, std::vector<double>>;

class Parameter
    : public COBIA::CapeOpenObject<Parameter, COBIA::ParameterAdapter, COBIA::ParameterSpecificationAdapter,
                                   COBIA::IdentificationAdapter> {
public:
    // ICapeParameter, ICapeParameterSpecification

    /// Of the current value; a change makes it "not validated".
    COBIA::CapeValidationStatus validationStatus() const { return status_; }
    COBIA::CapeParamMode mode() const;
    COBIA::CapeParamType type() const;
    /// Whether the current value may be used, and why not. Outputs are valid always.
    COBIA::Verdict validate();
    /// The default becomes the value. Code 106 for outputs.
    void reset();

    // ICapeIdentification. The script gives both texts; the host may not change them: code 106.

    std::string name() const { return name_; }
    void setName(const std::string& name);
    std::string description() const { return description_; }
    void setDescription(const std::string& description);

    // The same texts without a copy.

    const std::string& nameText() const noexcept { return name_; }
    const std::string& descriptionText() const noexcept { return description_; }

    bool isInput() const noexcept { return isInput_; }
    bool isOptional() const noexcept { return isOptional_; }
    virtual ParameterTypeCode typeCode() const noexcept = 0;
    /// As scripts read it: "real", "real[]", ...
    virtual const char* typeName() const noexcept = 0;
    /// The unit that users see; empty when there is none.
    virtual std::string_view unit() const noexcept { return {}; }

    virtual StoredValue storedValue() const = 0;
    /// Puts a saved value back, into outputs too. Throws StringException with "incorrect type" for a value of another
    /// type, or with the reason why the value is refused; the parameter then keeps its value.
    virtual void restore(const StoredValue& stored) = 0;

    /// The value as a new Python object.
    virtual PyRef scriptValue() const = 0;
    /// Takes a value from Python by the rules of an input, also into outputs. Throws RefusedValue with the reason, or
    /// what the conversion throws; the parameter then keeps its value.
    virtual void setFromScript(PyObject* value) = 0;

    /// Whether a script gave the value during this run.
    bool isValueGiven() const noexcept { return valueGiven_; }
    void setValueGiven(bool given) noexcept { valueGiven_ = given; }

    /// True when a parameter of a later Configure is this one with a new definition, so that the value stays.
    bool sameKind(const Parameter& other) const;
    /// Takes everything but the value from a parameter of the same type, and is to be validated again.
    void takeOver(const Parameter& other);

    /// The unit goes away or drops the parameter, which a host may still hold.
    void disown() noexcept { owner_ = nullptr; }

protected:
    Parameter(ParameterOwner& owner, const ParameterDeclaration& declaration);

    /// Why the current value cannot be used; empty when it can.
    virtual std::string refusalOfCurrent() const = 0;
    virtual void resetValue() = 0;
    /// Whether the other, of the same type, means the same quantity.
    virtual bool sameDefinition(const Parameter&) const { return true; }
    /// Takes what the type adds to the definition from another parameter of the type.
    virtual void takeDefinition(const Parameter& other) = 0;

    /// To be called after the value changed.
    void changed();
    /// Throws code 106 for outputs.
    void requireInput() const;

    std::string errorSource() const override;

private:
    ParameterOwner* owner_;
    std::string name_;
    std::string description_;
    bool isInput_;
    bool isOptional_;
    bool valueGiven_ = false;
    COBIA::CapeValidationStatus status_ = COBIA::CapeValidationStatus::notValidated;
};

}  // namespace orvane
