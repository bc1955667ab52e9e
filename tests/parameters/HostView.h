// A parameter as a host sees it: calls on its slots, with answers that read well in a check.
#pragma once

#include "cobia/Call.h"
#include "parameters/MakeParameter.h"

#include <doctest/doctest.h>

#include <limits>
#include <sstream>
#include <stdexcept>

namespace orvane {

inline constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// A unit that counts what it hears.
struct CountingOwner final : ParameterOwner {
    int changes = 0;
    void parameterChanged() override { ++changes; }
    /// How often the owner was notified since the last call.
    int heard() { return std::exchange(changes, 0); }
};

inline ParameterDeclaration declare(std::string name, bool isInput,
                                    decltype(ParameterDeclaration::values) values, bool optional = false,
                                    std::vector<double> dimensionality = {}) {
    return {std::move(name), "what it is", isInput, optional, std::move(dimensionality), std::move(values)};
}

/// One of the object's interfaces; an object without it throws.
template <class I, class Object> I* view(const COBIA::Ref<Object>& object) {
    if (COBIA::ICapeInterface* found = object->find(I::uuid)) return static_cast<I*>(found);
    throw std::runtime_error("an interface is not offered");
}

/// Empty, "code 106", or with code 1 the error in full: "in SCOPE of SOURCE: TEXT".
template <auto slot, class I, class... Arguments> std::string failure(I* object, Arguments... arguments) {
    try {
        COBIA::call<slot>(object, arguments...);
        return {};
    }
    catch (const COBIA::cape_open_error& error) {
        return error.code() == COBIA::capeOpenError ? error.what() : "code " + std::to_string(error.code());
    }
}

// What slots give, as text.

template <class Table, class T> T outputOf(COBIA::Slot<T*> Table::*);

inline std::string shown(const COBIA::StringObject& text) { return text.utf8(); }
template <class T> std::string shown(const T& value) {
    std::ostringstream stream;
    if constexpr (std::is_enum_v<T>)
        stream << static_cast<int>(value);
    else if constexpr (std::is_arithmetic_v<T>)
        stream << value;
    else if constexpr (std::is_same_v<T, COBIA::StringArray>)
        for (const auto& text : value.utf8()) stream << '[' << text << ']';
    else
        for (const auto element : value.view()) stream << '[' << element << ']';
    return stream.str();
}

template <auto slot, class I> std::string readOne(I* object) {
    using T = decltype(outputOf(slot));
    if (const std::string unguarded = failure<slot>(object, static_cast<T*>(nullptr));
        unguarded != "code 103")
        throw std::runtime_error("a null output gives " + unguarded);
    const auto fill = [&](auto&& result, auto* out) {
        const std::string failed = failure<slot>(object, out);
        return failed.empty() ? shown(result) : failed;
    };
    if constexpr (std::is_same_v<T, COBIA::ICapeString>) {
        COBIA::StringObject result;
        return fill(result, result.out());
    } else if constexpr (std::is_same_v<T, COBIA::ICapeArrayString>) {
        COBIA::StringArray result;
        return fill(result, result.out());
    } else if constexpr (std::is_class_v<T>) {
        COBIA::ArrayObject<T> result;
        return fill(result, result.out());
    } else {
        T result{};
        return fill(result, &result);
    }
}

/// The answers of slots with one output, each asked with a null output first: "7 5 [2][1]", a failure in its place.
template <auto... slots, class I> std::string read(I* object) {
    std::string text;
    ((text += (text.empty() ? "" : " ") + readOne<slots>(object)), ...);
    return text;
}

/// "valid", or the message of an invalid value; its two outputs must agree.
template <auto slot, class I, class... Arguments> std::string verdict(I* object, Arguments... arguments) {
    COBIA::StringObject message(std::string_view("left over"));
    COBIA::CapeBoolean valid = 7;
    if (failure<slot>(object, arguments..., nullptr, &valid) != "code 103" ||
        failure<slot>(object, arguments..., message.out(), nullptr) != "code 103")
        throw std::runtime_error("a null output is not refused");
    if (std::string failed = failure<slot>(object, arguments..., message.out(), &valid); !failed.empty())
        return failed;
    if (valid != (message.utf8().empty() ? 1u : 0u))
        throw std::runtime_error("disagreeing: " + message.utf8());
    return valid ? "valid" : message.utf8();
}

// The typed interfaces, by the value's type.

template <class Value> struct Typed;
template <> struct Typed<double> {
    using Parameter = COBIA::ICapeRealParameter;
    using Specification = COBIA::ICapeRealParameterSpecification;
    static double carry(double value) { return value; }
};
template <> struct Typed<COBIA::CapeInteger> {
    using Parameter = COBIA::ICapeIntegerParameter;
    using Specification = COBIA::ICapeIntegerParameterSpecification;
    static COBIA::CapeInteger carry(COBIA::CapeInteger value) { return value; }
};
template <> struct Typed<bool> {
    using Parameter = COBIA::ICapeBooleanParameter;
    using Specification = COBIA::ICapeBooleanParameterSpecification;
    static COBIA::CapeBoolean carry(bool value) { return value ? 5 : 0; }  // anything but 0 is true
};
template <> struct Typed<std::string> {
    using Parameter = COBIA::ICapeStringParameter;
    using Specification = COBIA::ICapeStringParameterSpecification;
    static COBIA::StringObject carry(const std::string& value) { return COBIA::StringObject(value); }
};
template <> struct Typed<std::vector<double>> {
    using Parameter = COBIA::ICapeArrayRealParameter;
    using Specification = COBIA::ICapeArrayRealParameterSpecification;
    static COBIA::RealView carry(const std::vector<double>& value) { return COBIA::RealView(value); }
};

template <class Carried> auto in(const Carried& carried) {
    if constexpr (std::is_arithmetic_v<Carried>)
        return carried;
    else
        return carried.in();
}

/// What Value of the typed interface answers to being set.
inline std::string setting(const COBIA::Ref<Parameter>& parameter, const StoredValue& stored) {
    return std::visit(
        [&]<class Value>(const Value& value) {
            using I = typename Typed<Value>::Parameter;
            const auto& carried = Typed<Value>::carry(value);
            return failure<&I::Table::putValue>(view<I>(parameter), in(carried));
        },
        stored);
}

/// What Validate of the typed interface says of a value; its specification must say the same.
inline std::string validating(const COBIA::Ref<Parameter>& parameter, const StoredValue& stored) {
    return std::visit(
        [&]<class Value>(const Value& value) {
            using I = typename Typed<Value>::Parameter;
            using Specification = typename Typed<Value>::Specification;
            const auto& carried = Typed<Value>::carry(value);
            std::string said = verdict<&I::Table::Validate>(view<I>(parameter), in(carried));
            if (said != verdict<&Specification::Table::Validate>(view<Specification>(parameter), in(carried)))
                throw std::runtime_error("parameter and specification disagree");
            return said;
        },
        stored);
}

inline std::string resetting(const COBIA::Ref<Parameter>& parameter) {
    return failure<&COBIA::ICapeParameter::Table::Reset>(view<COBIA::ICapeParameter>(parameter));
}

/// Of the current value.
inline std::string validating(const COBIA::Ref<Parameter>& parameter) {
    return verdict<&COBIA::ICapeParameter::Table::Validate>(view<COBIA::ICapeParameter>(parameter));
}

}  // namespace orvane
