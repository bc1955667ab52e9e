#include "host/ParameterInfo.h"

#include <cmath>
#include <limits>

namespace orvane::host {

using namespace COBIA;

namespace {

ParameterValue given(double value) { return std::isnan(value) ? ParameterValue() : ParameterValue(value); }

/// Without the whole numbers that stand for no bound.
ParameterValue given(CapeInteger value) {
    const bool none = value == undefinedInteger || value == std::numeric_limits<CapeInteger>::max();
    return none ? ParameterValue() : ParameterValue(value);
}

template <class I, class Value> void readBounds(const Ref<I>& parameter, Value, ParameterInfo& info) {
    Value standard{}, lower{}, upper{};
    call<&I::Table::getDefaultValue>(parameter, &standard);
    call<&I::Table::getLowerBound>(parameter, &lower);
    call<&I::Table::getUpperBound>(parameter, &upper);
    info.standard = given(standard);
    info.lowerBound = given(lower);
    info.upperBound = given(upper);
}

void readTexts(const Ref<ICapeStringParameter>& parameter, ParameterInfo& info) {
    using Table = ICapeStringParameter::Table;
    const auto ifAny = [](auto&& read) {
        try {
            read();
        }
        catch (const cape_open_error& error) {
            if (error.code() != capeOpenError) throw;
            // "No default value" and "no option list" come as errors, and are no failure.
        }
    };
    ifAny([&] { info.standard = text<&Table::getDefaultValue>(parameter.get()); });
    ifAny([&] {
        StringArray options;
        call<&Table::getOptionList>(parameter, options.out());
        info.options = options.utf8();
    });
}

}  // namespace

ParameterInfo parameterInfo(const UnitParameter& parameter) {
    ParameterInfo info;
    info.name = parameter.name();
    info.unit = parameter.unit();
    info.isInput = parameter.isInput();
    info.value = parameter.value();
    const auto& item = parameter.item();
    info.description =
        text<&ICapeIdentification::Table::getComponentDescription>(query<ICapeIdentification>(item).get());
    switch (parameter.type()) {
    case CapeParamType::real:
        info.type = "real";
        readBounds(query<ICapeRealParameter>(item), CapeReal(), info);
        break;
    case CapeParamType::integer:
        info.type = "integer";
        readBounds(query<ICapeIntegerParameter>(item), CapeInteger(), info);
        break;
    case CapeParamType::boolean: {
        info.type = "boolean";
        CapeBoolean standard = 0;
        call<&ICapeBooleanParameter::Table::getDefaultValue>(query<ICapeBooleanParameter>(item), &standard);
        info.standard = standard != 0;
        break;
    }
    case CapeParamType::string:
        info.type = "string";
        readTexts(query<ICapeStringParameter>(item), info);
        break;
    case CapeParamType::arrayReal:
        info.type = "real array";
        readBounds(query<ICapeArrayRealParameter>(item), CapeReal(), info);
        break;
    default: info.type = "unknown";
    }
    return info;
}

}  // namespace orvane::host
