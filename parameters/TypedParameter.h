// What all parameters do alike once the type of their value is known: set, reset, save and restore it by the rules that
// the type states in refusal(). Values come as `Given`: the host and scripts need not hold them as we do.
#pragma once

#include "engine/PythonGuard.h"
#include "parameters/Parameter.h"

#include <algorithm>
#include <cmath>

namespace orvane {

template <class Value> bool sameValue(const Value& a, const Value& b) { return a == b; }
inline bool sameValue(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
inline bool sameValue(const std::vector<double>& a, const std::vector<double>& b) {
    return std::ranges::equal(a, b, [](double x, double y) { return sameValue(x, y); });
}

template <class Value, class Given = Value> class TypedParameter : public Parameter {
public:
    /// The host's setting. Code 106 for outputs; throws StringException with the reason why the value is refused.
    void setValue(Given value) {
        requireInput();
        accept(toValue(value));
    }

    /// Whether the host could set the value.
    COBIA::Verdict validateValue(Given value) const {
        if (!isInput()) return {false, cannotValidateOutput};
        return verdict(refusal(value));
    }

    StoredValue storedValue() const override { return StoredValue(std::in_place_type<Value>, value_); }

    /// A value that is in place already is not judged: what was unspecified stays so without complaint.
    void restore(const StoredValue& stored) override {
        const Value* value = std::get_if<Value>(&stored);
        if (!value) throw COBIA::StringException("incorrect type");
        if (!sameValue(*value, value_)) accept(*value);
    }

    void setFromScript(PyObject* object) override {
        Value value = fromScript(object);
        if (const std::string reason = refusal(value); !reason.empty()) throw RefusedValue(reason);
        store(std::move(value));
    }

protected:
    static constexpr const char* cannotValidateOutput = "Cannot validate output parameter";

    TypedParameter(ParameterOwner& owner, const ParameterDeclaration& declaration, Value initial)
        : Parameter(owner, declaration), value_(std::move(initial)) {}

    const Value& current() const noexcept { return value_; }

    /// Why an input cannot have the value; empty when it can.
    virtual std::string refusal(Given value) const = 0;
    /// The value after a reset.
    virtual Value resetTo() const = 0;
    /// Throws what the conversion throws.
    virtual Value fromScript(PyObject* object) const = 0;

    static COBIA::Verdict verdict(std::string reason) { return {reason.empty(), std::move(reason)}; }

    /// Notifies only when the value differs.
    void store(Value value) {
        if (sameValue(value, value_)) return;
        value_ = std::move(value);
        changed();
    }

    std::string refusalOfCurrent() const final { return refusal(value_); }
    void resetValue() final { store(resetTo()); }

private:
    static Value toValue(Given value) {
        if constexpr (std::is_constructible_v<Value, Given>)
            return Value(value);
        else
            return Value(value.begin(), value.end());
    }

    void accept(Value value) {
        if (std::string reason = refusal(value); !reason.empty()) throw COBIA::StringException(reason);
        store(std::move(value));
    }

    Value value_;
};

}  // namespace orvane
