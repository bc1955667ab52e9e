#include "host/UnitParameter.h"

#include "host/UnitText.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <limits>
#include <optional>
#include <string_view>

namespace orvane::host {
namespace {

using COBIA::CapeParamType;
using namespace COBIA;

template <auto slot, class Value, class I> Value get(const Ref<I>& object) {
    Value value{};
    call<slot>(object, &value);
    return value;
}

std::optional<double> toReal(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> asReal(const CaseValue& value) {
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return static_cast<double>(*integer);
    if (const auto* raw = std::get_if<RawText>(&value)) return toReal(raw->text);
    return std::nullopt;
}

std::optional<CapeInteger> asInteger(const CaseValue& value) {
    const auto real = asReal(value);
    // The least integer means "not specified" on the interface.
    if (!real || std::trunc(*real) != *real || *real <= undefinedInteger ||
        *real > std::numeric_limits<CapeInteger>::max()) {
        return std::nullopt;
    }
    return static_cast<CapeInteger>(*real);
}

std::optional<bool> asBoolean(const CaseValue& value) {
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean;
    if (const auto* raw = std::get_if<RawText>(&value)) {
        for (const char* yes : {"true", "yes", "1"}) {
            if (equalIgnoringCase(raw->text, yes)) return true;
        }
        for (const char* no : {"false", "no", "0"}) {
            if (equalIgnoringCase(raw->text, no)) return false;
        }
    }
    return std::nullopt;
}

std::optional<std::vector<double>> asReals(const CaseValue& value) {
    if (const auto* reals = std::get_if<std::vector<double>>(&value)) return *reals;
    const auto* raw = std::get_if<RawText>(&value);
    if (!raw) return std::nullopt;
    std::string_view text = raw->text;
    if (text.starts_with('[') && text.ends_with(']')) text = text.substr(1, text.size() - 2);
    std::vector<double> result;
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(','), text.size());
        std::string_view part = text.substr(0, comma);
        while (part.starts_with(' ')) part.remove_prefix(1);
        while (part.ends_with(' ')) part.remove_suffix(1);
        const auto element = toReal(part);
        if (!element) return std::nullopt;
        result.push_back(*element);
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return result;
}

std::optional<std::string> asString(const CaseValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* raw = std::get_if<RawText>(&value)) return raw->text;
    return std::nullopt;
}

std::string shown(const CaseValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return fmt::format("\"{}\"", *text);
    if (const auto* raw = std::get_if<RawText>(&value)) return raw->text;
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? "true" : "false";
    if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
    if (const auto* real = std::get_if<double>(&value)) return fmt::format("{}", *real);
    return fmt::format("[{}]", fmt::join(std::get<std::vector<double>>(value), ", "));
}

}  // namespace

UnitParameter::UnitParameter(Ref<ICapeInterface> item) : item_(std::move(item)) {
    const auto identification = query<ICapeIdentification>(item_);
    name_ = text<&ICapeIdentification::Table::getComponentName>(identification.get());
    const auto parameter = query<ICapeParameter>(item_);
    mode_ = get<&ICapeParameter::Table::getMode, CapeParamMode>(parameter);
    type_ = get<&ICapeParameter::Table::getType, CapeParamType>(parameter);

    RealArray dimensionality;
    if (type_ == CapeParamType::real) {
        call<&ICapeRealParameter::Table::getDimensionality>(query<ICapeRealParameter>(item_),
                                                            dimensionality.out());
        isPower_ = host::isPower(dimensionality.view());
    } else if (type_ == CapeParamType::arrayReal) {
        call<&ICapeArrayRealParameter::Table::getDimensionality>(query<ICapeArrayRealParameter>(item_),
                                                                 dimensionality.out());
    }
    unit_ = unitText(dimensionality.view());
}

ParameterValue UnitParameter::value() const {
    switch (type_) {
    case CapeParamType::real:
        return get<&ICapeRealParameter::Table::getValue, CapeReal>(query<ICapeRealParameter>(item_));
    case CapeParamType::integer: {
        const auto value =
            get<&ICapeIntegerParameter::Table::getValue, CapeInteger>(query<ICapeIntegerParameter>(item_));
        return value == undefinedInteger ? ParameterValue() : ParameterValue(value);
    }
    case CapeParamType::boolean:
        return get<&ICapeBooleanParameter::Table::getValue, CapeBoolean>(
                   query<ICapeBooleanParameter>(item_)) != 0;
    case CapeParamType::string:
        return text<&ICapeStringParameter::Table::getValue>(query<ICapeStringParameter>(item_).get());
    case CapeParamType::arrayReal: {
        RealArray values;
        call<&ICapeArrayRealParameter::Table::getValue>(query<ICapeArrayRealParameter>(item_), values.out());
        return std::vector<double>(values.view().begin(), values.view().end());
    }
    default:
        throw cape_open_error(fmt::format("parameter '{}' has a type that the host does not know", name_));
    }
}

std::string UnitParameter::typeText() const {
    switch (type_) {
    case CapeParamType::real: return unit_.empty() ? "a number" : fmt::format("a number [{}]", unit_);
    case CapeParamType::integer: return "an integer";
    case CapeParamType::boolean: return "true or false";
    case CapeParamType::string: return "a text";
    case CapeParamType::arrayReal:
        return unit_.empty() ? "an array of numbers" : fmt::format("an array of numbers [{}]", unit_);
    default: return "of a type that the host does not know";
    }
}

void UnitParameter::refuse(const CaseParameter& given, const std::string& reason) const {
    throw CaseError(
        fmt::format("{}: parameter '{}' = {}: {}", given.place, name_, shown(given.value), reason));
}

void UnitParameter::set(const CaseParameter& given) {
    if (!isInput()) refuse(given, "it is an output, which the script sets");
    try {
        put(given);
    }
    catch (const cape_open_error& error) {
        refuse(given, error.directText());
    }
}

void UnitParameter::put(const CaseParameter& given) {
    const auto wanted = [&](auto value) {
        if (!value) refuse(given, "it takes " + typeText());
        return *value;
    };
    switch (type_) {
    case CapeParamType::real:
        call<&ICapeRealParameter::Table::putValue>(query<ICapeRealParameter>(item_),
                                                   wanted(asReal(given.value)));
        break;
    case CapeParamType::integer:
        call<&ICapeIntegerParameter::Table::putValue>(query<ICapeIntegerParameter>(item_),
                                                      wanted(asInteger(given.value)));
        break;
    case CapeParamType::boolean:
        call<&ICapeBooleanParameter::Table::putValue>(query<ICapeBooleanParameter>(item_),
                                                      CapeBoolean{wanted(asBoolean(given.value)) ? 1u : 0u});
        break;
    case CapeParamType::string: {
        const StringObject value(wanted(asString(given.value)));
        call<&ICapeStringParameter::Table::putValue>(query<ICapeStringParameter>(item_), value.in());
        break;
    }
    case CapeParamType::arrayReal: {
        const RealArray values(wanted(asReals(given.value)));
        call<&ICapeArrayRealParameter::Table::putValue>(query<ICapeArrayRealParameter>(item_), values.in());
        break;
    }
    default: refuse(given, "it is " + typeText());
    }
}

}  // namespace orvane::host
